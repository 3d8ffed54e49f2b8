#include "core/numbers.h"

#include "core/failure.h"
#include "core/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

/// Powers of ten that a 64-bit float holds exactly.
constexpr double PowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int LargestExactPower = 22;
/// Mantissas of up to 15 digits are exact in a 64-bit float, so one operation rounds right.
constexpr int ExactDigits = 15;

/// The characters of a text with blanks and tabs left out.
class Characters
{
public:
    explicit Characters(std::string_view text) : Rest(text) { SkipBlanks(); }
    char Peek() const { return Rest.empty() ? '\0' : Rest.front(); }
    void Next()
    {
        Rest.remove_prefix(1);
        SkipBlanks();
    }

private:
    void SkipBlanks()
    {
        while (!Rest.empty() && (Rest.front() == ' ' || Rest.front() == '\t')) Rest.remove_prefix(1);
    }
    std::string_view Rest;
};

/// The exponent behind an E or D, or 0 when no digits follow. Beyond five digits more change nothing.
int ReadExponent(Characters in)
{
    in.Next();
    const bool negative = in.Peek() == '-';
    if (negative || in.Peek() == '+') in.Next();
    int exponent = 0;
    while (IsDigit(in.Peek())) {
        if (exponent < 99999) exponent = exponent * 10 + (in.Peek() - '0');
        in.Next();
    }
    return negative ? -exponent : exponent;
}

/// mantissa × 10^exponent, correctly rounded, for the rare text that isn't exact in two factors.
double SlowValue(const std::string& digits, int exponent)
{
    const std::string text = digits + "e" + std::to_string(exponent);
    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec != std::errc::result_out_of_range) return value;
    const bool isSmall = exponent + static_cast<int>(digits.size()) < 0;
    return isSmall ? 0 : std::numeric_limits<double>::infinity();
}

/// Whether the number is a whole one of few digits, as most are; those take no rounding.
bool IsSmallWhole(double value)
{
    constexpr double Small = 1e7;
    return std::abs(value) < Small && static_cast<double>(static_cast<int32_t>(value)) == value;
}

bool IsWordLetter(char c)
{
    switch (UpperCase(c)) {
    case 'M':
    case 'I':
    case 'J':
    case 'K':
    case 'T':
    case 'L':
    case 'D':
    case 'S': return true;
    default: return false;
    }
}

template <class Integer> Integer Rounded(double value)
{
    const double nearest = IsSmallWhole(value) ? value : std::nearbyint(value);
    if (!(nearest >= std::numeric_limits<Integer>::min() && nearest <= std::numeric_limits<Integer>::max())) {
        throw RunTimeFailure{Failures::Overflow};
    }
    return static_cast<Integer>(nearest);
}

} // namespace

double Val(std::string_view text)
{
    Characters in(text);
    const bool negative = in.Peek() == '-';
    if (negative || in.Peek() == '+') in.Next();

    uint64_t mantissa = 0;
    int digits = 0, exponent = 0;
    std::string longMantissa;
    for (bool behindPoint = false;; in.Next()) {
        const char c = in.Peek();
        if (c == '.' && !behindPoint) {
            behindPoint = true;
            continue;
        }
        if (!IsDigit(c)) break;
        if (digits >= ExactDigits) {
            if (digits == ExactDigits) longMantissa = std::to_string(mantissa);
            longMantissa += c;
        } else {
            mantissa = mantissa * 10 + static_cast<uint64_t>(c - '0');
        }
        if (digits > 0 || c != '0') ++digits;
        if (behindPoint) --exponent;
    }
    if (digits == 0) return 0;
    if (std::strchr("EeDd", in.Peek()) != nullptr && in.Peek() != '\0') exponent += ReadExponent(in);

    double value = static_cast<double>(mantissa);
    if (digits > ExactDigits) {
        value = SlowValue(longMantissa, exponent);
    } else if (exponent != 0) {
        if (std::abs(exponent) > LargestExactPower) {
            value = SlowValue(std::to_string(mantissa), exponent);
        } else if (exponent > 0) {
            value *= PowersOfTen[exponent];
        } else {
            value /= PowersOfTen[-exponent];
        }
    }
    return negative ? -value : value;
}

Word WordVal(std::string_view cell)
{
    if (!cell.empty() && IsWordLetter(cell.front())) {
        return {cell.front(), ToSingle(Val(cell.substr(1)))};
    }
    return {'\0', ToSingle(Val(cell))};
}

bool ShortWord(std::string_view cell, char& letter, int16_t& value)
{
    constexpr size_t MostDigits = 4;
    const bool hasLetter = !cell.empty() && IsWordLetter(cell.front());
    size_t at = hasLetter ? 1 : 0;
    while (at < cell.size() && cell[at] == ' ') ++at;
    const bool negative = at < cell.size() && cell[at] == '-';
    while (negative && ++at < cell.size() && cell[at] == ' ') {}
    if (cell.size() - at > MostDigits) return false;
    int whole = 0;
    for (; at < cell.size(); ++at) {
        if (!IsDigit(cell[at])) return false;
        whole = whole * 10 + (cell[at] - '0');
    }
    letter = hasLetter ? cell.front() : '\0';
    value = static_cast<int16_t>(negative ? -whole : whole);
    return true;
}

int16_t ToInt16(double value)
{
    return Rounded<int16_t>(value);
}

int32_t ToInt32(double value)
{
    return Rounded<int32_t>(value);
}

float ToSingle(double value)
{
    constexpr double RoundsBeyond = 0x1.ffffffp127; // halfway to what would be the next 32-bit float
    if (!(std::abs(value) < RoundsBeyond)) throw RunTimeFailure{Failures::Overflow};
    return static_cast<float>(value);
}

double Divide(double dividend, double divisor)
{
    if (divisor == 0) throw RunTimeFailure{Failures::DivisionByZero};
    return dividend / divisor;
}

double SquareRoot(double value)
{
    if (value < 0) throw RunTimeFailure{Failures::InvalidCall};
    return std::sqrt(value);
}

void AppendWhole(std::string& text, double value, int digits)
{
    const double nearest = IsSmallWhole(value) ? std::abs(value) : std::floor(std::abs(value) + 0.5);
    char plain[320]; // the largest number has 309 digits
    char* const end = plain + sizeof plain;
    const bool fits = nearest < 1e18;
    const auto written = fits ? std::to_chars(plain, end, static_cast<int64_t>(nearest))
                              : std::to_chars(plain, end, nearest, std::chars_format::fixed, 0);
    const auto length = static_cast<size_t>(written.ptr - plain);
    const size_t zeros = static_cast<size_t>(digits) > length ? static_cast<size_t>(digits) - length : 0;
    if (value < 0 && nearest > 0) text += '-';
    text.append(zeros, '0').append(plain, length);
}

std::string FormatWhole(double value, int digits)
{
    std::string text;
    AppendWhole(text, value, digits);
    return text;
}

std::string FormatOneDecimal(double value)
{
    const double tenths = std::floor(std::abs(value) * 10 + 0.5);
    const double whole = std::floor(tenths / 10);
    return (value < 0 && tenths > 0 ? "-" : "") + FormatWhole(whole, 1) + "." +
           FormatWhole(tenths - whole * 10, 1);
}

std::string FormatDecimals(double value, int decimals)
{
    char text[340]; // the largest number has 309 digits
    const auto form = std::chars_format::fixed;
    return {text, std::to_chars(text, text + sizeof text, value, form, decimals).ptr};
}

std::string PlainNumber(double value)
{
    if (IsSmallWhole(value)) return FormatWhole(value, 1);
    if (!std::isfinite(value)) return "0";
    char text[32];
    const auto form = std::chars_format::scientific; // d.dddddde±xx
    *std::to_chars(text, text + sizeof text, value, form, 6).ptr = '\0';
    const std::string digits = std::string(1, text[value < 0 ? 1 : 0]) + (text + (value < 0 ? 3 : 2));
    const int exponent = std::atoi(std::strchr(text, 'e') + 1);
    std::string plain = digits.substr(0, 7);
    if (exponent >= 6) {
        plain.append(static_cast<size_t>(exponent - 6), '0');
    } else {
        if (exponent < 0) plain.insert(0, static_cast<size_t>(-exponent), '0');
        plain.insert(static_cast<size_t>(std::max(exponent, 0) + 1), ".");
        plain.erase(plain.find_last_not_of('0') + 1);
        if (plain.back() == '.') plain.pop_back();
    }
    return (value < 0 ? "-" : "") + plain;
}

void PutNumber(std::string& cell, double value, size_t width)
{
    char plain[32];
    if (IsSmallWhole(value)) {
        const char* const end = std::to_chars(plain, plain + sizeof plain, static_cast<int32_t>(value)).ptr;
        const auto length = static_cast<size_t>(end - plain);
        if (length <= width) {
            if (cell.size() != width) cell.resize(width);
            std::fill_n(cell.begin(), width - length, ' ');
            std::copy(plain, plain + length, cell.end() - static_cast<std::ptrdiff_t>(length));
            return;
        }
    }
    cell = RightPad(PlainNumber(value), width);
}

std::string RightPad(std::string_view text, size_t width)
{
    const size_t length = CharacterCount(text);
    if (length >= width) return std::string(FromCharacter(text, length - width));
    std::string padded(width - length, ' ');
    padded.append(text);
    return padded;
}
