// lines.h: operations on one line of the program.

#pragma once

/// Writes the entry into the selected row, whatever row was activated, and lets the program be checked.
/// On the blank row this appends a line. Does nothing with an empty code box.
void LineEdit();

/// Adds the machine's end code as a last line when the program has none anywhere. The entry and the
/// selection are as before, and nothing is drawn.
void AddEndOfProgram();
