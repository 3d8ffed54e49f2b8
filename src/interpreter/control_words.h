// control_words.h: control commands, the first word of a comment that begins with CMD.

#pragma once

#include <span>
#include <string_view>

/// All control words, in capitals.
std::span<const std::string_view> AllControlWords();

/// Whether the comment's first word begins with "CMD" and is no control command (in any case).
bool IsUnknownControlCommand(std::string_view comment);

/// Whether the comment makes its line one that does not act.
bool IsSkipped(std::string_view comment);
