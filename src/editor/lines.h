// lines.h: operations on one line of the program.
//
// The selected row is the editing cursor, whatever row was activated. Inserting and deleting keep the
// targets of jumps and calls on the lines that they meant.

#pragma once

/// Writes the entry into the selected row and lets the program be checked; on the blank row this appends
/// a line. The cursor goes back to the code box. Does nothing with an empty code box.
void LineEdit();

/// Puts an empty line (G21) in front of the selected row; refused with a message at the line limit.
void LineInsert();
void cmdInsert_Click();

/// Removes the selected line, after asking unless that is switched off. Does nothing on the blank row.
void LineDelete();
void cmdDelete_Click();

/// Adds the machine's end code as a last line when the program has none anywhere. The entry, the cursor
/// and the selection are as before, and nothing is drawn.
void AddEndOfProgram();
