// fields.h: which entry fields a code has.
//
// The code decides which of the five parameter fields are shown, what each is called, which limits it
// enforces while it is typed in, and whether the feed buttons work. The limits of stored lines stand in
// interpreter/limits.h.

#pragma once

#include <string_view>

/// Sets up the fields for a code: its digits ("01", "99R"; the letter is then that of lblGMcode), a
/// complete code of 4 characters ("G01 ", "M99R"), or a letter alone, which hides all fields. Never
/// changes the text of a field.
void InputFields(std::string_view code);
