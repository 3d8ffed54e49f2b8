// events.h: keys and clicks for real widgets, written as in key scripts.

#pragma once

#include <string_view>

/// Sends each key of a script ("00{ENTER}{CTRL-C}", {KEYPAD} for the other [ENTER]) to the widget that has
/// the focus.
void SendKeys(std::string_view script);
