// window_place.h: where saved windows come back, on whatever screen is there.

#pragma once

#include "core/control.h"
#include "settings/setting_rows.h"

Geometry PlaceOf(const Control& window);
void PlaceWindow(Control& window, const Geometry& at);

/// Moves and sizes a window so that it lies on the screen: no larger than that, no smaller than the least
/// size, then no further left or up than the edge, then with its right and lower edge on the screen where
/// that is possible.
Geometry OnScreen(Geometry window, int leastHeight, int leastWidth);

/// The same for the drawing window; four times 9999 is the default size in the middle of the screen.
Geometry DrawWindowPlace(const Geometry& saved);

/// The Program Lines window is only brought back when it would be nearly out of sight; its size is that of
/// the screen at most, 1500 by 3000 twips at least.
Geometry ProgramWindowPlace(Geometry saved);
