// figures.h: what a line draws beside a straight move: arcs, threads, the marks of the cycles.
//
// All work on Drawing.Canvas with the pen at the tool's position and colour and width set. Lengths are twips;
// on the lathes the vertical axis is X, on the mill Y. What a cycle draws is a sign of it, not its tool path;
// only pockets (pocket.h) are drawn move by move.

#pragma once

/// An arc as the lines of a program give it.
struct ArcWords {
    /// G03's branch (G02's on the mill): clockwise on the canvas; false is counter-clockwise.
    bool Direction;
    /// The sign is dropped.
    float Radius;
    /// Partial arc: the distance from start to end, vertical and horizontal. 0 for a quadrant.
    float EndV = 0, EndH = 0;
    /// Partial arc: the distance from start to centre, unsigned. 0 for a quadrant.
    float OffsetV = 0, OffsetH = 0;
    /// Quadrant: the line's move, of which the signs count. 0 for a partial arc.
    float QuadV = 0, QuadH = 0;
};

/// Draws the arc from the pen, with its radii dotted when `radii` is set. The pen ends at the arc's end.
void MakeArc(const ArcWords& arc, bool radii);

/// A zigzag along the horizontal axis, one tooth a pitch, up to 100,000 of them; the length is signed, and a
/// rest of less than a pitch is left out. The pen is left at the end of the thread (G33) or at its start
/// (G78), and where it stands when the walk is aborted.
void DrawThread(float length, float pitch, bool endsAtEnd);

/// The rectangle that a turning cycle sweeps, from the pen; the pen ends where it began.
void DrawCycleBox(float deltaV, float deltaH);

/// A hole: on the mill a dot, on the lathes a thick line to the depth and back.
void DrawHole(float deltaH);
