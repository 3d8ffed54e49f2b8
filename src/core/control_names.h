// control_names.h: what a control is called for those who can't see it, and its tip.
//
// A tip that a routine has written, such as a field's limits, comes before the one of the table.

#pragma once

#include "core/control.h"

#include <string>

/// The name of a control's record; an element of an array with its index: "cmdTopButtons(4)".
std::string FullName(const Control& control);

/// The name that a reader of the screen says, without access marks. Never empty.
std::string AccessibleName(const Control& control);

/// The tip that the user reads over a control. Never empty.
std::string TipOf(const Control& control);

/// The tip without what a routine has written. Never empty.
std::string FirstTipOf(const Control& control);
