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

char txtFind_KeyPress(Control& box, char typed);
void txtFind_Change();
void txtFind_GotFocus(Control& box);
