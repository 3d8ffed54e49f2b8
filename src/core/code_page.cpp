#include "core/code_page.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace {

/// Bytes 80 to 9F; all others are the characters of the same number.
constexpr uint16_t High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void AppendUtf8(std::string& text, uint32_t c)
{
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0 | (c >> 6));
        text += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (c >> 12));
        text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (c & 0x3F));
    }
}

/// The character that stands for what isn't valid.
constexpr uint32_t Invalid = 0xFFFD;

/// Takes one character off the front of a UTF-8 text; Invalid for what isn't one: bytes that don't belong
/// together, a longer form than the character needs, halves of pairs (D800 to DFFF), numbers that no
/// character has.
uint32_t TakeCharacter(std::string_view& text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (length == 0 || length > text.size()) {
        text.remove_prefix(1);
        return Invalid;
    }
    uint32_t c = length == 1 ? lead : lead & (0x7FU >> length);
    for (size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80) {
            text.remove_prefix(1);
            return Invalid;
        }
        c = (c << 6) | (next & 0x3F);
    }
    text.remove_prefix(length);
    constexpr uint32_t Least[] = {0, 0, 0x80, 0x800, 0x10000}; // by length
    const bool isHalf = c >= 0xD800 && c <= 0xDFFF;
    return c < Least[length] || c > 0x10FFFF || isHalf ? Invalid : c;
}

char ByteOf(uint32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c < 0x100)) return static_cast<char>(c);
    const auto* found = std::find(std::begin(High), std::end(High), c);
    return found == std::end(High) ? '?' : static_cast<char>(0x80 + (found - std::begin(High)));
}

} // namespace

std::string FromCodePage(std::string_view bytes)
{
    if (IsAscii(bytes)) return std::string(bytes);
    std::string text;
    for (const char byte : bytes) {
        const auto b = static_cast<unsigned char>(byte);
        AppendUtf8(text, b >= 0x80 && b < 0xA0 ? High[b - 0x80] : b);
    }
    return text;
}

std::string ToCodePage(std::string_view text)
{
    if (IsAscii(text)) return std::string(text);
    std::string bytes;
    while (!text.empty()) bytes += ByteOf(TakeCharacter(text));
    return bytes;
}

bool IsUtf8(std::string_view text)
{
    constexpr std::string_view Replacement = "\xEF\xBF\xBD";
    while (!text.empty()) {
        const bool replacement = text.starts_with(Replacement);
        if (TakeCharacter(text) == Invalid && !replacement) return false;
    }
    return true;
}
