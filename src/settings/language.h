// language.h: language modules: a text file that gives captions, tips, lists and messages.

#pragma once

#include <string>
#include <string_view>

/// Reads a module into captions, tips, lists and the translated tables. What it doesn't name keeps its text.
/// False, and nothing changes, when the file is a placeholder ("dummy" in its second line).
bool ReadLanguageModule(std::string_view bytes);

/// The name that a module gives its language; "" when it gives none.
std::string LanguageNameOf(std::string_view bytes);

/// Fills the captions and lists of the drawing window from the translated tables, while a language is in
/// force.
void ShowDrawCaptions();
