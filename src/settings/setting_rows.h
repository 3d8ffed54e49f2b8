// setting_rows.h: a settings file as a table: each line's key, where its value stands, how it reads.
//
// One routine reads a file by its table, one writes it. A key that a file lacks, and one whose value is no
// number, no option or beyond its range, leaves the built-in default.

#pragma once

#include "core/text.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// Height, left, top, width in twips, as windows are saved.
struct Geometry {
    int Height = 0, Left = 0, Top = 0, Width = 0;
};

/// A whole number within a range; a fraction is rounded.
template <class Settings> struct NumberPlace {
    int Settings::*At;
    int Low, High;
};
/// 24 bits, "&H" and hexadecimal digits.
template <class Settings> struct ColorPlace {
    int Settings::*At;
};
/// One of some words, in any case.
template <class Settings> struct ChoicePlace {
    std::string Settings::*At;
    std::span<const char* const> Words;
};
/// A size that may have a fraction, above 0; kept as it was typed.
template <class Settings> struct SizePlace {
    std::string Settings::*At;
};

/// A line of a settings file. Without a place it is a comment or an empty line, written as it stands.
template <class Settings> struct SettingRow {
    /// The text in front of "=" as it is written; read without regard to the blanks at its ends.
    const char* Line;
    std::variant<std::monostate, std::string Settings::*, bool Settings::*,
                 std::optional<Geometry> Settings::*, NumberPlace<Settings>, ColorPlace<Settings>,
                 ChoicePlace<Settings>, SizePlace<Settings>>
        Place = {};
};

/// Lines of a settings file or a language module: its text (UTF-8, else code page 1252; a mark of the byte
/// order is dropped) cut at CR, LF or both, trimmed.
std::vector<std::string> LinesOf(std::string_view bytes);

/// Key and value of a line; nothing for an empty line, a comment, one without "=". Brackets are dropped from
/// the key, never from the value.
std::optional<KeyValue> SettingOf(std::string_view line);

// One value each; nothing when the text is none.
std::optional<bool> ReadTruth(std::string_view text);
std::optional<int> ReadNumber(std::string_view text, int low, int high);
std::optional<int> ReadColor(std::string_view text);
std::optional<Geometry> ReadGeometry(std::string_view text);
std::optional<std::string> ReadChoice(std::string_view text, std::span<const char* const> words);

/// " 1 ": a number as settings files have it; a negative one has its sign in front.
std::string NumberText(int value);
std::string HexColorText(int color);
std::string GeometryText(const Geometry& at);
/// The text, or "" for one that would be read as several lines: a file may have such a name.
std::string OnOneLine(const std::string& text);

/// Reads a value into its place; false when the text is none.
template <class Settings>
bool ReadInto(Settings& settings, const SettingRow<Settings>& row, const std::string& text)
{
    const auto take = [&](auto place, auto value) {
        if (value) settings.*place = *value;
        return value.has_value();
    };
    struct Reader {
        decltype(take)& Take;
        const std::string& Text;
        bool operator()(std::monostate) const { return true; }
        bool operator()(std::string Settings::*at) const { return Take(at, std::optional(Text)); }
        bool operator()(bool Settings::*at) const { return Take(at, ReadTruth(Text)); }
        bool operator()(std::optional<Geometry> Settings::*at) const { return Take(at, ReadGeometry(Text)); }
        bool operator()(const NumberPlace<Settings>& n) const
        {
            return Take(n.At, ReadNumber(Text, n.Low, n.High));
        }
        bool operator()(const ColorPlace<Settings>& c) const { return Take(c.At, ReadColor(Text)); }
        bool operator()(const ChoicePlace<Settings>& c) const
        {
            return Take(c.At, ReadChoice(Text, c.Words));
        }
        bool operator()(const SizePlace<Settings>& s) const
        {
            if (Text.empty()) return true; // none was chosen
            return Take(s.At, ReadNumber(Text, 1, 999) ? std::optional(Text) : std::nullopt);
        }
    };
    return std::visit(Reader{take, text}, row.Place);
}

template <class Settings> std::string ValueText(const Settings& settings, const SettingRow<Settings>& row)
{
    struct Writer {
        const Settings& Of;
        std::string operator()(std::monostate) const { return ""; }
        std::string operator()(std::string Settings::*at) const { return OnOneLine(Of.*at); }
        std::string operator()(bool Settings::*at) const { return Of.*at ? "True" : "False"; }
        std::string operator()(std::optional<Geometry> Settings::*at) const
        {
            return GeometryText((Of.*at).value_or(Geometry{}));
        }
        std::string operator()(const NumberPlace<Settings>& n) const { return NumberText(Of.*n.At); }
        std::string operator()(const ColorPlace<Settings>& c) const { return HexColorText(Of.*c.At); }
        std::string operator()(const ChoicePlace<Settings>& c) const { return Of.*c.At; }
        std::string operator()(const SizePlace<Settings>& s) const { return " " + Of.*s.At + " "; }
    };
    return std::visit(Writer{settings}, row.Place);
}

/// Reads one line's setting by the table. Unknown keys are skipped; false when a known one has a bad value.
template <class Settings>
bool ReadSetting(Settings& settings, std::span<const SettingRow<Settings>> rows, const KeyValue& setting)
{
    for (const SettingRow<Settings>& row : rows) {
        if (row.Place.index() == 0 || !EqualsNoCase(Trimmed(row.Line), setting.Key)) continue;
        return ReadInto(settings, row, setting.Value);
    }
    return true;
}

/// The file's text, line by line in the order of the table.
template <class Settings>
std::string SettingsText(const Settings& settings, std::span<const SettingRow<Settings>> rows)
{
    std::string text;
    for (const SettingRow<Settings>& row : rows) {
        text += row.Line;
        if (row.Place.index() != 0) text += "=" + ValueText(settings, row);
        text += LineEnd;
    }
    return text;
}
