// feeds.h: the two feed presets: set for what comes, or with replacement in the program.

#pragma once

#include "core/control.h"

/// Only digits; [ENTER] forces the presets into their limits and replaces the old preset's value in the whole
/// program.
char Feed_KeyPress(Control& box, char typed);
void Feed_GotFocus(Control& box);
/// Takes the text over as the preset, without replacement or check.
void Feed_LostFocus(Control& box);
/// Takes over both presets as the boxes show them.
void TakeFeeds();

/// Puts the preset into the entry.
void cmdFeedA_Click();
void cmdFeedB_Click();
