// code_page.h: the 8-bit text of program files and of the serial line.
//
// Windows code page 1252. The five bytes that it leaves undefined (81, 8D, 8F, 90, 9D hex) stand for
// the control characters of the same number, so that every byte survives a round trip.

#pragma once

#include <string>
#include <string_view>

/// 8-bit text to UTF-8. Any bytes are valid.
std::string FromCodePage(std::string_view bytes);

/// Whether a text is valid UTF-8.
bool IsUtf8(std::string_view text);

/// UTF-8 to 8-bit text. A character that the code page lacks, and a byte that is no valid UTF-8,
/// becomes "?".
std::string ToCodePage(std::string_view text);
