#include "drawing/figures.h"

#include "core/failure.h"
#include "core/shared_state.h"
#include "core/vector.h"
#include "drawing/drawing_state.h"

#include <algorithm>
#include <cmath>

namespace {

struct Point {
    double X, Y;
};

struct ArcGeometry {
    Point End, Center;
    double StartAngle, EndAngle;
};

/// A full quadrant: where end and centre lie from the start, in radii, and the angles in quarter turns. Rows
/// are found by the signs of the move.
struct QuadrantRow {
    bool Direction, UpV, BackH;
    int EndX, EndY, CenterX, CenterY, EndQuarter, StartQuarter;
};
constexpr QuadrantRow Quadrants[] = {
    {true, true, true, -1, -1, 0, -1, 2, 3},  {true, true, false, 1, -1, 1, 0, 1, 2},
    {true, false, true, -1, 1, -1, 0, 3, 4},  {true, false, false, 1, 1, 0, 1, 0, 1},
    {false, true, true, -1, -1, -1, 0, 1, 4}, {false, true, false, 1, -1, 0, -1, 4, 3},
    {false, false, true, -1, 1, 0, 1, 2, 1},  {false, false, false, 1, 1, 1, 0, 3, 2},
};

ArcGeometry Quadrant(const ArcWords& arc, const Point& start)
{
    const double r = std::abs(arc.Radius);
    for (const QuadrantRow& row : Quadrants) {
        if (row.Direction != arc.Direction || row.UpV != (arc.QuadV < 0) || row.BackH != (arc.QuadH < 0))
            continue;
        return {{start.X + row.EndX * r, start.Y + row.EndY * r},
                {start.X + row.CenterX * r, start.Y + row.CenterY * r},
                row.StartQuarter * (Pi / 2),
                row.EndQuarter * (Pi / 2)};
    }
    return {}; // the table is complete
}

/// The centre of a partial arc: the offsets have no signs; those follow from the quadrant that the chord runs
/// in. A chord along an axis has no row and keeps the centre of the quadrant.
void FindCenter(const ArcWords& arc, const Point& start, Point& center)
{
    if (arc.EndH == 0 || arc.EndV == 0) return;
    const bool right = arc.EndH > 0, down = arc.EndV > 0;
    // A clockwise arc has its centre on the right-hand side of the chord, the other on the left.
    const double across = (arc.Direction ? !down : down) ? 1 : -1;
    const double along = (arc.Direction ? right : !right) ? 1 : -1;
    center = {start.X + across * arc.OffsetH, start.Y + along * arc.OffsetV};
}

} // namespace

void MakeArc(const ArcWords& arc, bool radii)
{
    constexpr const char* Procedure = "MakeArc";
    DrawCanvas& canvas = *Drawing.Canvas;
    const Point start{canvas.PenX(), canvas.PenY()};
    ArcGeometry at = Quadrant(arc, start);
    if (arc.EndV != 0 || arc.EndH != 0) {
        at.End = {start.X + arc.EndH, start.Y + arc.EndV};
        FindCenter(arc, start, at.Center);
        // The canvas's y runs downward.
        at.EndAngle = VectorAngle(at.End.X - at.Center.X, at.Center.Y - at.End.Y);
        at.StartAngle = VectorAngle(start.X - at.Center.X, at.Center.Y - start.Y);
    }

    const double radius = std::abs(arc.Radius);
    const double from = arc.Direction ? at.EndAngle : at.StartAngle;
    const double to = arc.Direction ? at.StartAngle : at.EndAngle;
    Attempt(Procedure, [&] { canvas.DrawArc(at.Center.X, at.Center.Y, radius, from, to); });
    if (radii) {
        canvas.SetPenWidth(1);
        canvas.SetPenStyle(PenStyle::Dotted);
        Attempt(Procedure, [&] { canvas.DrawLine(at.End.X, at.End.Y, at.Center.X, at.Center.Y); });
        Attempt(Procedure, [&] { canvas.LineTo(start.X, start.Y); });
        canvas.SetPenStyle(PenStyle::Solid);
    }
    Attempt(Procedure, [&] { canvas.SetPen(at.End.X, at.End.Y); });
}

void DrawThread(float length, float pitch, bool endsAtEnd)
{
    constexpr const char* Procedure = "DrawThread";
    constexpr int32_t MostTeeth = 100000; // far more than a screen or a sheet can show
    DrawCanvas& canvas = *Drawing.Canvas;
    const double startX = canvas.PenX(), startY = canvas.PenY();
    const bool forward = length > 0;
    int32_t teeth = 0;
    if (pitch != 0) {
        Attempt(Procedure, [&] {
            const int32_t whole = ToInt32(std::abs(pitch));
            if (whole == 0) throw RunTimeFailure{Failures::DivisionByZero};
            teeth = std::min(ToInt32(std::abs(length)) / whole, MostTeeth);
        });
    }
    const double half = pitch / 2, along = forward ? half : -half;
    const auto flank = [&](double up) {
        const double x = canvas.PenX(), y = canvas.PenY();
        return Attempt(Procedure, [&] { canvas.DrawLine(x, y, x + along, y - up); });
    };
    for (int32_t i = 0; i < teeth; ++i) {
        flank(half);
        flank(-half);
        if (Drawing.AbortDraw) return;
    }
    const double side = forward ? teeth : -teeth;
    Attempt(Procedure, [&] { canvas.DrawLine(startX, startY + side, startX, startY); });
    if (endsAtEnd) Attempt(Procedure, [&] { canvas.SetPen(startX + length, canvas.PenY()); });
}

void DrawCycleBox(float deltaV, float deltaH)
{
    constexpr const char* Procedure = "DrawProgram";
    DrawCanvas& canvas = *Drawing.Canvas;
    const double x = canvas.PenX(), y = canvas.PenY();
    Attempt(Procedure, [&] { canvas.DrawBox(x + deltaH, y + deltaV); });
    Attempt(Procedure, [&] { canvas.DrawBox(x, y); });
}

void DrawHole(float deltaH)
{
    constexpr const char* Procedure = "DrawProgram";
    DrawCanvas& canvas = *Drawing.Canvas;
    const double x = canvas.PenX(), y = canvas.PenY();
    if (IsMill()) {
        Attempt(Procedure, [&] { canvas.SetPoint(x, y); });
        return;
    }
    canvas.SetPenWidth(2);
    Attempt(Procedure, [&] { canvas.LineTo(x + deltaH, y); });
    Attempt(Procedure, [&] { canvas.LineTo(x, y); });
    canvas.SetPenWidth(1);
}
