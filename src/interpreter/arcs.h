// arcs.h: arcs and the lines that give their centres.
//
// An arc is a G02 or G03 line from the tool position to an end point. Alone it must be a full quadrant;
// an M99 line behind it gives the centre by its distances from the start. M99R, typed only, gives the
// radius and is turned into M99 by its first walk.

#pragma once

#include "interpreter/pass.h"

/// The action of G02 and G03: moves the tool, writes radius, centre and angle. On MK2 the Z of an arc is
/// worked out and written into its cell.
[[nodiscard]] Walk WalkArc(Pass& pass, ProgramLine& row);

/// The action of M99, and of M99R, whose row becomes an M99.
[[nodiscard]] Walk WalkArcCenter(Pass& pass, ProgramLine& row);

/// The angle of a G01 line on its row: L or R and the angle, when it moves in X and Z.
void WriteLineAngle(const Pass& pass, ProgramLine& row);

/// The centre of the arc from start to end with the radius, seen in the plane's coordinates A and B, all in
/// program units, truncated toward zero; 0, 0 for a radius of 0. A radius shorter than half the chord is
/// logged, and the centre is then the middle of the chord.
void FindCenter(float startA, float startB, float endA, float endB, float radius, bool clockwise,
                float& centerA, float& centerB);

/// The distance of two points, rounded down to a whole number.
double PointDistance(float aA, float aB, float bA, float bB);
