// figures.h: drawings for tests: a program drawn at a chosen scale, and what was drawn as a text.

#pragma once

#include "core/shared_state.h"

#include <string>
#include <string_view>

/// How a program is drawn. Twips are program units at scale 1.
struct Look {
    DrawBoxValues Boxes{};
    float Scale = 1;
    double ZeroX = 5000, ZeroY = 4000;
};

/// Starts a profile, enters the lines (program.h), opens the drawing and draws once.
void Draw(std::string_view profile, std::string_view lines, const Look& look = {});

/// What the walks drew behind the marks of the zero point, places from the zero point, each figure with its
/// colour ("/width" behind it when that isn't 1, "~" when dotted), the pen's last place at the end:
///   "green 0,0>-200,100; red box 0,0>500,300; blue dot 5,5; cyan arc 0,500 r500 0..90; @0,500"
/// A line that begins where the last one of its kind ended goes on from it: "green 0,0>5,5>10,0".
std::string Figures();

/// How many figures of a kind ("line", "box", "dot", "arc", "circle") the walks drew.
int CountOf(std::string_view kind);

/// The lines in front of the zero point's marks, as the grid draws them: "down 4, 100 to 8900; across ...".
std::string Grid();
