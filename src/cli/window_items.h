// window_items.h: the items of a key script that concern windows, the drawing and the clock.

#pragma once

#include "cli/script_words.h"

extern const std::span<const Item> WindowItems;
