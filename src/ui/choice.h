// choice.h: choices that a routine makes in place of the user.
//
// A choice that changes runs the Click handler of its control once, as the user's own click would.

#pragma once

#include "core/control.h"

/// Turns an option on and the others of its container off. Nothing when it is on already.
void Choose(Control& option);

/// Sets a check box. Nothing when it has that value already.
void SetCheck(Control& box, bool checked);

/// Picks an item of a list, combo or tabs, -1 for none. Nothing when it is picked already.
void PickItem(Control& list, int index);
