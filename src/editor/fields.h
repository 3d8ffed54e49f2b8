// fields.h: which entry fields a code has.
//
// The code decides which of the five parameter fields are shown, what each is called, which limits it
// enforces while it is typed in, and whether the feed buttons work. The limits of stored lines stand in
// interpreter/limits.h.

#pragma once

#include <string_view>

/// Sets up the fields for a code: its digits ("01", "99R"; the letter is then that of lblGMcode), a
/// complete code of 4 characters ("G01 ", "M99R"), or a letter alone, which hides all fields. Never
/// changes the text of a field, and leaves the cursor where it is.
void SetUpFields(std::string_view code);

/// The same, then the cursor goes to the first field of the entry's code.
void InputFields(std::string_view code);

/// Shows the first field of the entry's code and gives it the cursor; nothing while the entry is locked.
void FirstFieldFocus();
