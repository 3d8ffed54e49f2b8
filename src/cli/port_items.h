// port_items.h: the items of a key script that concern the serial port.

#pragma once

#include "cli/script_words.h"

extern const std::span<const Item> PortItems;

/// Lets the other lines of a running transmission go out, to its end.
void FinishTransmission();
