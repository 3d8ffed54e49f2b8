// limits.h: what each code may hold.
//
// The pass judges every stored line by these limits, whether the line is ever walked or not. The entry
// fields have limits of their own (editor/fields.h): they judge what is being typed, and a file may
// bring what no field let in.

#pragma once

#include "core/codes.h"
#include "interpreter/pass.h"

#include <cstdint>
#include <optional>
#include <string>

/// What feeds, pitches and feed presets begin at, in either unit.
constexpr int SmallestFeed = 2;

/// Checks one line against the limits of its code on the machine, units and spindle in force.
/// Returns the message of the last check that failed, or "" when all held: a line shows one message,
/// and a later fault outweighs an earlier one.
std::string LimitMessage(Code code, const LineWords& words);

/// What the checks of a code leave of a word on the machine, units and spindle in force; nothing when no
/// check judges the word.
struct WordLimits {
    int Low, High;
};
std::optional<WordLimits> CheckedLimits(Code code, int16_t LineWords::*word);

/// Whether a thread's pitch (1/100 mm or 1/1000 inch) lies inside its limits.
bool PitchHolds(int pitch);

/// Forces the feed presets into the limits of the units and shows these as their tips.
void ClampFeeds();
