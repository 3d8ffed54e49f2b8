// whole_program.h: changes of all lines at once.

#pragma once

#include "core/control.h"

/// Scales the program: 2.54 converts inch to metric, 1 / 2.54 the other way. Coordinates, feeds and
/// pitches (on the mill also the pulses of M26, which stand in their place) are scaled and rounded one by
/// one, half to even; tools, line targets and the mill's spindle speed stay. A value beyond 16 bits stays as
/// it was and is logged; one that is wider than its field loses its first digits, unlogged.
/// The fields of the entry are converted in the same way.
void Convert(double factor);
void mnuMMtoINCH_click();
void mnuINCHtoMM_click();

/// Puts the description of the entry's code into the comment, "@  Rapid Traverse". Nothing when the
/// machine's list doesn't have the code.
void CodeDescription();

/// Fills empty comments with the descriptions of their codes, or takes the automatic ones away.
void chkViewGcode_Click();

/// Empties the comment of every row, control commands included.
void mnuDelComments_Click();

/// The caret stands at the end of the notes.
void txtFileNotes_GotFocus(Control& notes);
/// The notes are part of the file. Takes out a "%" that was pasted: in a file and on the line it begins the
/// program.
void txtFileNotes_Change();
/// What may be typed into the file notes: ASCII but "%".
char txtFileNotes_Keypress(Control& notes, char typed);
