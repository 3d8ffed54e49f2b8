// math_string.h: the small sums that may be typed into a field.

#pragma once

#include <string>
#include <string_view>

/// Works out a field's text strictly from left to right, without priorities; P stands for π. Returns a
/// whole number of at least two digits: "200+300*4" gives "2000", "" gives "00", "-5" gives "-05". At
/// most ten terms count. A sum that has no value (a division by zero, a term beyond a 32-bit float) gives
/// a text that is no number; it is logged.
std::string MathString(std::string_view text);

/// Whether the sum has more terms than count.
bool HasTooManyTerms(std::string_view text);

/// Whether the whole text, blanks at its ends aside, is one plain number.
bool IsNumeric(std::string_view text);
