// window_items.h: the items of a key script that concern windows, the drawing and the clock.

#pragma once

#include "cli/script_words.h"

/// Runs the item if it is one of these. False when it is none; `fault` then stays.
bool RunWindowItem(std::string_view name, std::string_view rest, Fault& fault);
