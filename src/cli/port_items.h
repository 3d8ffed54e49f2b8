// port_items.h: the items of a key script that concern the serial port.

#pragma once

#include "cli/script_words.h"

/// Runs the item if it is one of these. False when it is none; `fault` then stays.
bool RunPortItem(std::string_view name, std::string_view rest, Fault& fault);

/// Lets the other lines of a running transmission go out, to its end.
void FinishTransmission();
