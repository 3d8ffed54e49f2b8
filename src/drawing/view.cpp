#include "drawing/view.h"

#include "core/draw_window.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/shared_state.h"
#include "drawing/drawing_state.h"
#include "drawing/walk.h"
#include "ui/choice.h"

#include <algorithm>
#include <cmath>

namespace {

/// What the canvas leaves free around a fitted drawing, in twips, and below it.
constexpr double Margin = 1000;

/// Labels of the axes that lie down and across the canvas: travel, and where the range begins.
struct AxesLabels {
    Control MainWindow::*TravelV;
    Control MainWindow::*TravelH;
    Control MainWindow::*OriginV;
    Control MainWindow::*OriginH;
};
constexpr AxesLabels LatheAxes{&MainWindow::lblXAxisTravel, &MainWindow::lblZAxisTravel,
                               &MainWindow::lblXAxisMin, &MainWindow::lblZAxisMin};
// The mill's Y points upward, so its highest value lies at the top.
constexpr AxesLabels MillAxes{&MainWindow::lblYAxisTravel, &MainWindow::lblXAxisTravel,
                              &MainWindow::lblYAxisMax, &MainWindow::lblXAxisMin};

struct Extents {
    double TravelV, TravelH, OriginV, OriginH;
};

Extents ReadExtents()
{
    const AxesLabels& axes = IsMill() ? MillAxes : LatheAxes;
    const auto number = [](Control MainWindow::*label) { return Val((frmMain.*label).Text); };
    return {number(axes.TravelV), number(axes.TravelH), number(axes.OriginV), number(axes.OriginH)};
}

/// Index of the largest scale at which a travel fits into a size in twips; -1 when none is small enough.
int FittingIndex(double size, double travel)
{
    int exponent = 3;
    while (exponent >= -6 && std::ldexp(size, exponent) >= travel) --exponent;
    return 2 - exponent;
}

} // namespace

float ScaleOfIndex(int index)
{
    return index < 0 ? 1.0F : std::ldexp(1.0F, index - ScaleOneIndex);
}

void SetScale(float scale)
{
    Shared.DrawScale = scale;
    Drawing.GridDivision = scale < 1 ? 1000 : scale > 16 ? 10 : 100;
}

void AutoFit()
{
    if (!Shared.AutoFitPending) return;
    const Extents extents = ReadExtents();
    const int index = std::min(FittingIndex(CanvasHeight() - Margin, extents.TravelV),
                               FittingIndex(CanvasWidth() - Margin, extents.TravelH));
    Drawing.ListsBusy = true;
    PickItem(frmDraw.cboScale, index);
    Drawing.ListsBusy = false;
    SetScale(std::ldexp(1.0F, index - ScaleOneIndex));
    CenterZeroPoint();
    Shared.AutoFitPending = false;
    Redraw();
}

void CenterZeroPoint()
{
    const Extents extents = ReadExtents();
    const double scale = Shared.DrawScale;
    Drawing.ZeroPointX = (CanvasWidth() - extents.TravelH * scale) / 2 + std::abs(extents.OriginH * scale);
    Drawing.ZeroPointY =
        (CanvasHeight() - Margin - extents.TravelV * scale) / 2 + std::abs(extents.OriginV * scale);
    Drawing.PictureMoved = false;
}

void MakeZeroPoint()
{
    constexpr const char* Procedure = "MakeZeroPoint";
    constexpr double CrossArm = 100, CircleRadius = 150;
    DrawCanvas& canvas = *Drawing.Canvas;
    const double x = canvas.PenX(), y = canvas.PenY();
    const auto line = [&](double x1, double y1, double x2, double y2) {
        Attempt(Procedure, [&] { canvas.DrawLine(x1, y1, x2, y2); });
    };
    canvas.SetPenWidth(1);
    canvas.SetForeColor(Colors::Red);
    line(0, y, CanvasWidth(), y);
    line(x, 0, x, CanvasHeight());
    canvas.SetForeColor(ContrastColor());
    line(x - CrossArm, y, x + CrossArm, y);
    line(x, y - CrossArm, x, y + CrossArm);
    const FillStyle fill = canvas.Settings().Fill;
    canvas.SetFillStyle(FillStyle::Transparent);
    Attempt(Procedure, [&] { canvas.DrawCircle(x, y, CircleRadius); });
    canvas.SetFillStyle(fill);
    Attempt(Procedure, [&] { canvas.SetPen(x, y); });
}

void MakeGrid(double zeroX, double zeroY)
{
    constexpr const char* Procedure = "MakeGrid";
    DrawCanvas& canvas = *Drawing.Canvas;
    const double spacing = Drawing.GridDivision * double{Shared.DrawScale};
    int down = 0, across = 0, fromX = 0, fromY = 0;
    const bool known = Attempt(Procedure, [&] {
        const int step = ToInt32(spacing);
        if (step == 0) throw RunTimeFailure{Failures::DivisionByZero};
        down = ToInt32(CanvasHeight() / spacing);
        across = ToInt32(CanvasWidth() / spacing);
        fromX = ToInt32(zeroX) % step;
        fromY = ToInt32(zeroY) % step;
    });
    if (!known) return;

    const double penX = canvas.PenX(), penY = canvas.PenY();
    canvas.SetPenWidth(1);
    canvas.SetForeColor(frmDraw.chkPrintableBackground.Value == 1 ? Colors::Yellow : Colors::DarkGrey);
    for (int i = 0; i <= down; ++i) {
        const double y = penY + spacing * i + fromY;
        Attempt(Procedure, [&] { canvas.DrawLine(0, y, CanvasWidth(), y); });
    }
    for (int i = 0; i <= across; ++i) {
        const double x = penX + spacing * i + fromX;
        Attempt(Procedure, [&] { canvas.DrawLine(x, 0, x, CanvasHeight()); });
    }
    Attempt(Procedure, [&] { canvas.SetPen(penX, penY); });
}

Color ContrastColor()
{
    return frmDraw.chkPrintableBackground.Value == 1 ? Colors::Black : Colors::White;
}

void ApplyFillStyle()
{
    DrawCanvas& canvas = *Drawing.Canvas;
    const bool fills = frmDraw.chkFillCycles.Value == 1, hasGrid = frmDraw.chkGrid.Value == 1;
    canvas.SetFillColor(fills && !hasGrid ? Colors::Green : Colors::Black);
    // On a grid the hatch couldn't be told from the lines behind it.
    canvas.SetFillStyle(!fills ? FillStyle::Transparent : hasGrid ? FillStyle::Solid : FillStyle::Diagonal);
}

void StepScale(int steps, double x, double y)
{
    // A fit may have chosen a scale below the list, which only grows into it.
    const int present = std::ilogb(Shared.DrawScale) + ScaleOneIndex;
    const int last = static_cast<int>(frmDraw.cboScale.Items.size()) - 1;
    const int index = std::clamp(present + steps, std::min(present, 0), last);
    if (index < 0 || index == present || Drawing.IsPicking()) return;
    const double ratio = double{ScaleOfIndex(index)} / Shared.DrawScale;
    Drawing.ListsBusy = true;
    PickItem(frmDraw.cboScale, index);
    Drawing.ListsBusy = false;
    MoveZeroPoint((x - Drawing.ZeroPointX) * (1 - ratio), (y - Drawing.ZeroPointY) * (1 - ratio));
}

void MoveZeroPoint(double across, double down)
{
    // The marks of a measurement would stay behind; a zero point that is being chosen has no picture yet.
    if (Drawing.IsPicking()) return;
    Drawing.ZeroPointX += across;
    Drawing.ZeroPointY += down;
    Drawing.PictureMoved = true;
    Redraw();
}
