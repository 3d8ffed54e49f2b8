// windows.h: which window is in front, and how one is left.

#pragma once

#include "core/control.h"

/// Brings a window that is open to the front, as the user's click on it does. Its Form_Activate runs when
/// another one had the keys; a help page that is up in the main window is closed then, so that no locked
/// window is left.
void BringToFront(Control& window);

/// The close button of a window's frame: leaves the program, or closes the dialog, the drawing, its list.
void CloseWindow(Control& window);
