// line_figures.h: which line of the program a figure of the picture belongs to.

#pragma once

#include "drawing/recording.h"

#include <span>
#include <vector>

/// The list index (from 1) of the line whose figure passes a point of the canvas within a distance in twips,
/// the last drawn one where several do; 0 for none. Grid and zero point belong to no line.
int LineAt(double x, double y, double distance);

/// What a line has drawn in this picture, each figure complete in itself (a line by both its ends).
std::vector<Operation> FiguresOfLine(int line);

/// A rectangle of the canvas in twips.
struct CanvasBox {
    int Left, Top, Width, Height;
};

/// How much of what the program's lines have drawn by now lies in each of the rectangles, in places a few
/// pixels apart.
std::vector<int> PlacesIn(std::span<const CanvasBox> boxes);
