// line_parameters.h: what a serial line can be set to.
//
// As a text line parameters look like "300,N,8,1": baud rate, parity N, E or O, data bits, stop bits.

#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// A part of the line parameters: the values that are offered, in their order, and the place among them of
/// what the machines are set to.
template <size_t N> struct LineChoice {
    std::array<const char*, N> Values;
    size_t Standard;

    constexpr const char* StandardValue() const { return Values[Standard]; }
};
constexpr LineChoice<7> BaudRates{{"110", "300", "600", "1200", "2400", "4800", "9600"}, 1};
constexpr LineChoice<3> Parities{{"N", "E", "O"}, 0};
constexpr LineChoice<2> DataBitCounts{{"7", "8"}, 1};
constexpr LineChoice<2> StopBitCounts{{"1", "2"}, 0};

/// What the machines are set to, as a text of line parameters: the parts with commas between them.
std::string StandardLine();

/// The line parameters as numbers, at first those of the machines.
struct LineParameters {
    int Baud = 300;
    char Parity = 'N';
    int DataBits = 8, StopBits = 1;

    /// What the line takes for one character, in seconds: its bits, a start bit and, unless N, a parity bit.
    double CharacterTime() const;
};

/// Reads a text of line parameters; nothing when it isn't one of those that the program offers.
std::optional<LineParameters> ReadLineParameters(std::string_view text);
