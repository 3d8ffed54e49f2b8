// numbers.h: texts read as numbers, and numbers written as texts.
//
// All values of a program live as text in cells of fixed width, so every folder reads and writes
// them through these few routines. They allocate nothing for the texts that occur in cells, and use no
// routine of the C library that goes by the user's locale: a number has a point everywhere.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Reads a text as a number: blanks and tabs are skipped wherever they stand; a sign, digits, one
/// point and an exponent with E or D are read; reading stops at the first other character.
/// A text without a leading number reads 0, one beyond a 64-bit float reads infinity, which no conversion
/// takes.
double Val(std::string_view text);

/// A cell split into its word letter and its value.
struct Word {
    /// One of M, I, J, K, T, L, D, S as the cell has it, or 0 when the cell has none of them.
    char Letter;
    /// The rest of the cell as a number.
    float Value;
};

/// Splits a cell: "K 200" gives K and 200, "   50" gives no letter and 50.
/// Throws RunTimeFailure Overflow when the value is beyond a 32-bit float.
Word WordVal(std::string_view cell);

/// The same for the cells that most lines have, at a fraction of the cost: a letter or none, blanks, a
/// sign or none, up to 4 digits, or blanks alone. False, and nothing is set, for every other text.
bool ShortWord(std::string_view cell, char& letter, int16_t& value);

/// Rounds half to even. Throws RunTimeFailure Overflow when the result doesn't fit.
int16_t ToInt16(double value);
int32_t ToInt32(double value);

/// Rounds to a 32-bit float. Throws RunTimeFailure Overflow beyond its range.
float ToSingle(double value);

/// Division and square root that fail as statements do: RunTimeFailure DivisionByZero, InvalidCall.
double Divide(double dividend, double divisor);
double SquareRoot(double value);

/// A whole number with at least `digits` digits, a half rounded away from zero, and a minus sign for
/// a negative result: with two digits 7 gives "07", -7 gives "-07", 1234 gives "1234".
std::string FormatWhole(double value, int digits);
void AppendWhole(std::string& text, double value, int digits);

/// One decimal, a half rounded away from zero: 90 gives "90.0".
std::string FormatOneDecimal(double value);

/// A fixed number of decimals, up to 20, with a point; the nearest such number to the exact value.
std::string FormatDecimals(double value, int decimals);

/// Plain decimal form at 7 significant digits, without an exponent: 12.5, 0.5, -3, 1000.
std::string PlainNumber(double value);

/// Puts a number's plain decimal form into a cell, aligned to the right: what RightPad makes of it.
void PutNumber(std::string& cell, double value, size_t width);

/// Aligns to the right: the last `width` characters of text, or blanks in front of it up to width.
std::string RightPad(std::string_view text, size_t width);
