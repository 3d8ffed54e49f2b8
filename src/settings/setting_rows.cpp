#include "settings/setting_rows.h"

#include "core/code_page.h"
#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace {

/// A number and nothing else, blanks at its ends aside.
bool IsNumber(std::string_view text)
{
    text = Trimmed(text);
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    const bool digits = text.find_first_of("0123456789") != std::string_view::npos;
    return digits && text.find_first_not_of("0123456789.") == std::string_view::npos &&
           std::count(text.begin(), text.end(), '.') <= 1;
}

} // namespace

std::vector<std::string> LinesOf(std::string_view bytes)
{
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    std::string text = IsUtf8(bytes) ? std::string(bytes) : FromCodePage(bytes);
    if (text.starts_with(ByteOrderMark)) text.erase(0, ByteOrderMark.size());
    std::vector<std::string> lines;
    size_t from = 0;
    while (from <= text.size()) {
        size_t end = text.find_first_of("\r\n", from);
        if (end == std::string::npos) end = text.size();
        lines.emplace_back(Trimmed(std::string_view(text).substr(from, end - from)));
        from = end + (std::string_view(text).substr(end).starts_with(LineEnd) ? 2 : 1);
    }
    return lines;
}

std::optional<KeyValue> SettingOf(std::string_view line)
{
    line = Trimmed(line);
    const size_t sign = line.find('=');
    if (line.starts_with(';') || sign == std::string_view::npos) return std::nullopt;
    KeyValue setting{std::string(line.substr(0, sign)), std::string(Trimmed(line.substr(sign + 1)))};
    std::erase_if(setting.Key, [](char c) { return c == '[' || c == ']'; });
    setting.Key = Trimmed(setting.Key);
    return setting;
}

std::optional<bool> ReadTruth(std::string_view text)
{
    if (EqualsNoCase(text, "True")) return true;
    if (EqualsNoCase(text, "False")) return false;
    return std::nullopt;
}

std::optional<int> ReadNumber(std::string_view text, int low, int high)
{
    if (!IsNumber(text)) return std::nullopt;
    const double value = std::nearbyint(Val(text));
    if (!(value >= low && value <= high)) return std::nullopt;
    return static_cast<int>(value);
}

std::optional<int> ReadColor(std::string_view text)
{
    constexpr int White = 0xFFFFFF;
    if (!StartsNoCase(text, "&H")) return ReadNumber(text, 0, White);
    int value = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data() + 2, end, value, 16);
    const bool whole =
        read.ec == std::errc() && (read.ptr == end || (read.ptr + 1 == end && *read.ptr == '&'));
    if (!whole || value < 0 || value > White) return std::nullopt;
    return value;
}

std::optional<Geometry> ReadGeometry(std::string_view text)
{
    constexpr int Farthest = 1'000'000;
    int numbers[4];
    for (int& number : numbers) {
        const size_t comma = text.find(',');
        const auto read = ReadNumber(text.substr(0, comma), -Farthest, Farthest);
        if (!read) return std::nullopt;
        number = *read;
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
    }
    return Geometry{numbers[0], numbers[1], numbers[2], numbers[3]};
}

std::optional<std::string> ReadChoice(std::string_view text, std::span<const char* const> words)
{
    for (const char* word : words) {
        if (EqualsNoCase(word, text)) return word;
    }
    return std::nullopt;
}

std::string NumberText(int value)
{
    return (value < 0 ? "" : " ") + std::to_string(value) + " ";
}

std::string HexColorText(int color)
{
    char text[16];
    std::snprintf(text, sizeof text, "&H%X", static_cast<unsigned>(color));
    return text;
}

std::string GeometryText(const Geometry& at)
{
    return NumberText(at.Height) + "," + NumberText(at.Left) + "," + NumberText(at.Top) + "," +
           NumberText(at.Width);
}

std::string OnOneLine(const std::string& text)
{
    return text.find_first_of("\r\n") == std::string::npos ? text : "";
}
