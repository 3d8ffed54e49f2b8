// keyboard.h: the way of a key, and of a click, through the program.

#pragma once

#include "core/control.h"

#include <optional>

/// A key reaches, in this order: the shortcuts, the window, the focused control's KeyDown, its KeyPress;
/// what they leave is typed into the control as its widget would do it.
void PressKey(const KeyStroke& key);

/// The same for a front end whose widgets type: returns the key that is left to the widget that has the
/// focus (the character perhaps in upper case), or nothing when it was taken.
std::optional<KeyStroke> OfferKey(const KeyStroke& key);

/// The text box that keys go to, null when they go to a control of another kind.
Control* TypingBox();

/// Whether the key is a shortcut of the main window, wherever the focus is.
bool IsShortcut(const KeyStroke& key);
/// The letter that chooses the menu entry together with [CTRL], 0 for none.
char ShortcutOf(const Control& entry);

/// Whether the control is of a kind that takes the focus: not menus, labels, frames, pictures.
bool TakesFocus(const Control& control);

/// The user clicks a control: it takes the focus if it is of a kind that does, then its Click runs. Does
/// nothing on one that isn't usable, or when the field that was left took the focus back. Check boxes
/// and options change their value first.
void ClickControl(Control& control);

/// Chooses a menu entry; nothing when it or a menu above it is disabled. The tick runs first.
void ChooseMenu(Control& entry);

/// Picks an item of a list, combo or tabs, from 0.
void PickListItem(Control& list, int index);

/// Selects a row of the list and activates it, as a click does.
void ClickRow(int row);

/// The same with the right button. The pop-up menu opens, so the tick runs; its entries act on the row.
void RightClickRow(int row);

/// Clicks the header of a column of the list, from 1.
void ClickHeader(int header);
