#include "cli/port_items.h"

#include "cli/open_program.h"
#include "commands/session.h"
#include "core/code_page.h"
#include "core/shared_state.h"

#include <algorithm>

namespace {

int HexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

/// The bytes that a text stands for: \r, \n, \\ and \xHH as in C, other characters by the code page. Line
/// ends of the script count for nothing.
Fault BytesOfText(std::string_view text, std::string& bytes)
{
    std::string plain;
    const auto flush = [&] {
        bytes += ToCodePage(plain);
        plain.clear();
    };
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r' || c == '\n') continue;
        if (c != '\\') {
            plain += c;
            continue;
        }
        flush();
        const char kind = ++i < text.size() ? text[i] : '\0';
        const int high = kind == 'x' && i + 2 < text.size() ? HexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? HexDigit(text[i + 2]) : -1;
        if (kind == 'r' || kind == 'n') {
            bytes += kind == 'r' ? '\r' : '\n';
        } else if (kind == '\\') {
            bytes += '\\';
        } else if (low >= 0) {
            bytes += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            return "after a backslash comes r, n, x with two digits, or another backslash";
        }
    }
    flush();
    return Fine;
}

Fault Receive(std::string_view rest)
{
    std::string bytes;
    if (Fault fault = BytesOfText(rest, bytes)) return fault;
    Console.Port.Receive(bytes);
    return Fine;
}

Fault Lines(std::string_view rest)
{
    return WithNumber(rest, [](int count) {
        for (int i = 0; i < count && Shared.Transmitting; ++i) {
            Console.Port.Leave();
            AfterEvent();
        }
    });
}

Fault FailPort(std::string_view rest)
{
    if (const std::string word = NextWord(rest); word != "FAIL") return NoSuch(word);
    return WithNumber(rest, [](int number) { Console.Port.NextFailure = number; });
}

Fault Unplug(std::string_view)
{
    Console.Port.Unplug();
    return Fine;
}

constexpr Item Items[] = {
    {"RX", Receive},
    {"LINES", Lines},
    {"PORT", FailPort},
    {"UNPLUG", Unplug},
};

} // namespace

const std::span<const Item> PortItems(Items);

void FinishTransmission()
{
    while (Shared.Transmitting) {
        Console.Port.Leave();
        AfterEvent();
    }
}
