#include "drawing/pocket.h"

#include "core/failure.h"
#include "core/shared_state.h"
#include "drawing/drawing_state.h"

#include <utility>

namespace {

constexpr const char* Procedure = "DrawPocket";
constexpr float MostRows = 10000;

/// The figure of a pocket; lengths in twips. Rows run along x from `Near` to `Far` and advance along y.
struct Pocket {
    double Sx, Sy;
    float Step, Allowance;
    double Near, Far;

    double RowY(int16_t row) const { return Drawing.PocketY1 + Sy * Step * row; }
    bool IsBeyond(int16_t row) const { return Sy * (RowY(row) - Drawing.PocketY2) > 0; }
};

Pocket PocketOf(const PocketWords& words)
{
    Pocket pocket{};
    pocket.Sx = words.XWord > 0 ? 1 : -1;
    pocket.Sy = (words.XWord > 0 ? words.YWord > 0 : words.YWord >= 0) ? -1 : 1;
    const double radius = words.ToolRadius, scale = Shared.DrawScale;
    // Neighbouring rows overlap by a tenth of the radius, which also stays between the rows and the contour.
    Attempt(Procedure, [&] { pocket.Step = ToSingle((2 * radius - radius / 10) * scale); });
    Attempt(Procedure, [&] { pocket.Allowance = ToSingle(radius / 10 * scale); });
    const double inside = (Drawing.DrawAbsolute ? 1 : 2) * radius * scale;
    Drawing.PocketX1 = Drawing.Canvas->PenX();
    Drawing.PocketY1 = Drawing.Canvas->PenY();
    Attempt(Procedure, [&] {
        Drawing.PocketX2 = ToSingle(Drawing.PocketX1 + double{words.DeltaH} - pocket.Sx * inside);
    });
    Attempt(Procedure, [&] {
        Drawing.PocketY2 = ToSingle(Drawing.PocketY1 + double{words.DeltaV} - pocket.Sy * inside);
    });
    pocket.Near = Drawing.PocketX1 + pocket.Sx * pocket.Allowance;
    pocket.Far = Drawing.PocketX2 - pocket.Sx * pocket.Allowance;
    return pocket;
}

/// The meander reaches the far edge within as many rows as can be told apart.
bool HasRows(const Pocket& pocket)
{
    const double depth = pocket.Sy * (double{Drawing.PocketY2} - Drawing.PocketY1);
    return pocket.Step > 0 && depth <= double{pocket.Step} * MostRows;
}

void Line(double x, double y)
{
    Attempt(Procedure, [&] { Drawing.Canvas->LineTo(x, y); });
}

} // namespace

PocketContour ContourOfPocket()
{
    const double x1 = Drawing.PocketX1, x2 = Drawing.PocketX2, y1 = Drawing.PocketY1, y2 = Drawing.PocketY2;
    return {{{x2, y1}, {x1, y1}, {x1, y2}, {x2, y2}}};
}

Task DrawPocket(PocketWords words)
{
    DrawCanvas& canvas = *Drawing.Canvas;
    canvas.SetForeColor(words.Ink);
    canvas.SetPenWidth(words.Width);
    const Pocket pocket = PocketOf(words);
    const int pause = words.Pause > 1 ? words.Pause : 0;

    if (HasRows(pocket)) {
        // First row, the allowance inside the contour.
        const double first = Drawing.PocketY1 + pocket.Sy * pocket.Allowance;
        Attempt(Procedure, [&] { canvas.SetPen(pocket.Near, first); });
        co_await Delay(pause);
        Line(pocket.Far, first);
        co_await Delay(pause);

        // The meander: each row from the side where the last one ended, until one would lie beyond the far
        // edge.
        double here = pocket.Far, there = pocket.Near;
        for (int16_t row = 1; !pocket.IsBeyond(row); ++row) {
            Line(here, pocket.RowY(row));
            co_await Delay(pause);
            Line(there, pocket.RowY(row));
            co_await Delay(pause);
            std::swap(here, there);
            if (Drawing.AbortDraw && row % 2 == 0) co_return; // the rows come in pairs
        }

        // Last row, the allowance inside the far edge.
        const double last = Drawing.PocketY2 - pocket.Sy * pocket.Allowance;
        Line(here, last);
        co_await Delay(pause);
        Line(there, last);
        co_await Delay(pause);
    }

    const PocketContour contour = ContourOfPocket();
    Attempt(Procedure, [&] { canvas.SetPoint(contour.back().X, contour.back().Y); });
    for (const PocketCorner& corner : contour) {
        Line(corner.X, corner.Y);
        co_await Delay(pause);
    }
    canvas.SetPenWidth(1);
    Attempt(Procedure, [&] { canvas.SetPen(Drawing.PocketX1, Drawing.PocketY1); });
}
