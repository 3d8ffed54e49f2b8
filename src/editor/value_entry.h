// value_entry.h: what the parameter fields and the comment do with keys and with the cursor.
//
// A field's text is free while the cursor stands in it. When the cursor leaves, the sum is worked out and
// judged by the field's limit string.

#pragma once

#include "core/control.h"

/// txtXI, txtYJ, txtZK, txtFKTL, txtH: only digits, sums and presets are typed; [ENTER], blank, comma and
/// point move on.
char Field_KeyPress(Control& field, char typed);
bool Field_KeyDown(Control& field, const KeyStroke& key);
/// Proposes a default in an empty field and selects its text.
void Field_GotFocus(Control& field);
/// Works out the text and checks it; a value that is refused brings the cursor back.
void Field_LostFocus(Control& field);

char txtComment_KeyPress(Control& box, char typed);
bool txtComment_KeyDown(Control& box, const KeyStroke& key);
void txtComment_GotFocus(Control& box);

/// Works out the fields that lost the cursor without their LostFocus, so that no half-typed sum is
/// written. False when one has no value; the cursor is then back in it.
bool WorkOutFields();

/// Checks a field against its limit string; one without a limit only has to be a number of 32 bits, and an
/// empty field is never refused. Tells the user, empties the field and brings the cursor back when it is
/// refused.
void EvalText(Control& field);

/// The keys that the code box, the fields and the comment have in common: [INSERT], [UP], [DOWN].
bool EntryKeyDown(const KeyStroke& key);

/// A feed preset as cell 6 holds it: the last 4 characters of 3 blanks and the box's text.
std::string PresetCell(const Control& box);

/// [ENTER] as a typed character.
constexpr char EnterCharacter = 13;

/// Whether a typed character is cut, copy, paste or backspace, which every entry box passes.
bool IsEditingCharacter(char typed);
