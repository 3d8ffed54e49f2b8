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

char UpperCase(char c);
std::string UpperCase(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool StartsNoCase(std::string_view text, std::string_view start);
/// Position of the first occurrence from `from` on, or npos.
size_t FindNoCase(std::string_view text, std::string_view find, size_t from = 0);

enum class Compare { Exact, NoCase };

/// Replaces `find` as often as `count` allows, all occurrences when it is -1. After each replacement
/// the search begins again at `start`, so text produced by a replacement is searched as well; a
/// replacement that contains `find` must not be used with count -1. An empty `find` changes nothing.
std::string ReplaceText(std::string text, std::string_view find, std::string_view replacement,
                        size_t start = 0, int count = -1, Compare compare = Compare::Exact);

/// Replaces every occurrence in one sweep; what a replacement produces isn't searched again.
std::string ReplaceEach(std::string_view text, std::string_view find, std::string_view replacement);

/// Returns what stands before the first delimiter and leaves in `text` what follows it. Without the
/// delimiter: "", and text stays.
std::string_view NextToken(std::string_view& text, std::string_view delimiter,
                           Compare compare = Compare::Exact);

/// Splits at a delimiter. The first token is kept even when empty; the first empty token after it
/// ends the split and isn't kept; the last element is what then remains, delimiters included. So a
/// text without the delimiter gives "" and the text, and an empty line ends a split at line ends.
/// `count` limits the tokens before the last element, -1 for no limit.
std::vector<std::string_view> SplitText(std::string_view text, std::string_view delimiter, int count = -1,
                                        Compare compare = Compare::Exact);

struct KeyValue {
    std::string Key, Value;
};
/// "Key = value" of a settings or language file, both trimmed; every "[" and "]" is dropped. Without
/// an "=" the key is the whole line.
KeyValue SplitKeyValue(std::string_view line);

/// What follows the last "/" or "\" of a path, or all of it.
std::string FileNameOf(std::string_view path);
