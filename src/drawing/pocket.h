// pocket.h: the pocket milling cycle of the mill, drawn move by move.

#pragma once

#include "core/task.h"
#include "drawing/canvas.h"

#include <array>
#include <cstdint>

struct PocketWords {
    /// The line's move in twips: in incremental mode the size of the pocket, in absolute mode the distance
    /// to the programmed point.
    float DeltaV, DeltaH;
    /// The X and the Y word of the line; only their signs count.
    float XWord, YWord;
    Color Ink;
    int Width;
    /// In program units.
    float ToolRadius;
    /// Milliseconds after each line of the path; none up to 1.
    int16_t Pause;
};

/// The meander of rows along the horizontal axis, the last row and the contour, from the pen, where the cycle
/// ends. Leaves the corners in Drawing.PocketX1 and so on. A tool of no width, and one so thin that it would
/// take more than 10,000 rows, gives the contour alone. Left at once when the walk is aborted.
Task DrawPocket(PocketWords words);

/// The corners of the last pocket in the order in which its contour goes through them; it starts at the last.
struct PocketCorner {
    double X, Y;
};
using PocketContour = std::array<PocketCorner, 4>;
PocketContour ContourOfPocket();
