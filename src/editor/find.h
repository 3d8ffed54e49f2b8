// find.h: the search for a text in the program.

#pragma once

#include "core/control.h"

/// Shows the find dialog with its text selected.
void mnuFind_click();
/// Whether keys go to the dialog. It stays on top when the main window comes to the front.
bool IsFindInFront();
void BringFindToFront();
void BringMainToFront();
/// The user closed the dialog, or [ESC].
void HideFind();

/// [ENTER] hides the dialog and selects the first row that holds the text, in any case, in a column that can
/// be seen; nothing happens when there is none. It begins behind the selected row when the text is still that
/// of the search before, else at the first line.
char txtFind_KeyPress(Control& box, char typed);
void txtFind_Change();
void txtFind_GotFocus(Control& box);
