// text.h: the small helpers on texts that every folder uses.
//
// Texts are UTF-8 inside; columns and widths count characters, not bytes. Positions count from 0
// here. Comparisons without regard to case go by the letters A to Z, as the machines' texts do.

#pragma once

#include <string>
#include <string_view>
#include <vector>

constexpr std::string_view LineEnd = "\r\n";

/// Number of characters (not bytes) of a UTF-8 text.
size_t CharacterCount(std::string_view text);
/// The rest of the text behind its first `count` characters; "" when it has no more.
std::string_view FromCharacter(std::string_view text, size_t count);
/// The first, the last `count` characters, or all of a shorter text.
std::string_view FirstCharacters(std::string_view text, size_t count);
std::string_view LastCharacters(std::string_view text, size_t count);

/// Assigns a text to a cell. Most cells keep their length from pass to pass, and take no more than a copy.
inline void Overwrite(std::string& cell, std::string_view text)
{
    if (cell.size() == text.size()) {
        text.copy(cell.data(), text.size());
    } else {
        cell = text;
    }
}

/// Without the blanks (no other characters) at its ends.
std::string_view Trimmed(std::string_view text);
bool IsBlank(std::string_view text);

constexpr bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}
char UpperCase(char c);
std::string UpperCase(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool StartsNoCase(std::string_view text, std::string_view start);
/// Position of the first occurrence, or npos.
size_t FindNoCase(std::string_view text, std::string_view find);

/// Replaces every occurrence in one sweep; what a replacement produces isn't searched again. `find` isn't "".
std::string ReplaceEach(std::string_view text, std::string_view find, std::string_view replacement);

/// Splits at a delimiter. The first token is kept even when empty; the first empty token after it
/// ends the split and isn't kept; the last element is what then remains, delimiters included. So a
/// text without the delimiter gives "" and the text, and an empty line ends a split at line ends.
/// `count` limits the tokens before the last element, -1 for no limit.
std::vector<std::string_view> SplitText(std::string_view text, std::string_view delimiter, int count = -1);

struct KeyValue {
    std::string Key, Value;
};
/// "Key = value" of a settings or language file, both trimmed; every "[" and "]" is dropped. Without
/// an "=" the key is the whole line.
KeyValue SplitKeyValue(std::string_view line);

/// What follows the last "/" or "\" of a path, or all of it.
std::string FileNameOf(std::string_view path);
