// code_box.h: the box of the code, its letter, and the lists from which a code is picked.

#pragma once

#include "core/control.h"

/// The tip of the code box and its labels: which letter [-] gives.
void ShowLetterTip();

/// Digits and "R" are typed; "G", "M" and "-" choose the letter (MK2 has only G); [ENTER], blank, comma,
/// point and apostrophe move on.
char txtGMcode_KeyPress(Control& box, char typed);
bool txtGMcode_KeyDown(Control& box, const KeyStroke& key);
void txtGMcode_GotFocus(Control& box);
/// Completes and checks the code and sets up its fields. An unknown code keeps the cursor.
void txtGMcode_LostFocus(Control& box);

/// An item of the list was picked, by the user or by PickCode: letter, code, fields and comment follow.
void lstMK2Gcodes_Click();
void lstMK4Gcodes_Click();
void lstMK4Mcodes_Click();
void lstF1Gcodes_Click();
void lstF1Mcodes_Click();

/// Judges a code that the cursor left unseen: it is completed ("5" becomes "05"), checked, and its fields are
/// set up. True when all that was done already; else the cursor is in the code box or in the first field.
bool SettleCode();

/// Picks the first item of the machine's list whose first 4 characters are the code's, in any case; a
/// code that stands in no list changes nothing. Clears the selection of all lists first.
void PickCode(const std::string& code);

/// The picking list of the machine for codes with the letter M, or G.
Control& CodeListOf(bool letterM);
