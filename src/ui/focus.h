// focus.h: which control has the cursor, and what happens on its way from one to another.
//
// The focus belongs to the engine, so entry behaves the same in a window, in a test and in a script. Each
// window has a focus of its own; keys go to the one of the active window.

#pragma once

#include "core/control.h"

/// The window that a control stands in.
Control& WindowOf(Control& control);

/// The window that has the keys: frmMain, frmDraw or frmProgramWindow.
Control& ActiveWindow();
/// Gives the keys to a window, without events; commands/windows.h brings a window to the front.
void SetActiveWindow(Control& window);

/// The control of the active window that has the focus, null for none (the drawing's canvas).
Control* Focused();
/// Whether the control has the focus of its window.
bool HasFocus(Control& control);

/// Visible and enabled, and all its containers too.
bool IsUsable(const Control& control);

/// Gives the focus: runs LostFocus of the old and GotFocus of the new control at once. A handler that
/// moves the focus itself wins. Nothing for the control that has the focus, or one that isn't usable. A
/// field that never got its GotFocus gets no LostFocus.
void SetFocus(Control& control);

/// Moves the focus to the next stop of the [TAB] key, or the one before; hidden and disabled ones are
/// passed over, and behind the last comes the first.
void FocusNextStop();
void FocusPreviousStop();

/// Whether the focus is being moved by FocusNextStop: a code that sets up its fields may then send the
/// cursor on to the first of them.
bool IsMovingOn();

/// A focused control that was hidden or disabled loses the focus without its LostFocus; in the main window
/// the list takes it. Runs when an event is over.
void MendFocus();
/// The same for one control's window at once.
void DropFocus(Control& of);

/// The control of the main window that lost the focus so last and has not had it since, null for none.
Control* DroppedFocus();
/// The one of them whose LostFocus is still owed, null for none; asked once. A later one that has none
/// doesn't stand before it.
Control* TakeOwedFocus();

/// Takes the focus from whoever has it, without events.
void ResetFocus();
