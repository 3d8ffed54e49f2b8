// draw_bench.cpp: what a drawing costs, beside the painter alone.
//
//   Redraw  a program walked, recorded and painted on an image of 1600 by 1000 pixels
//   Floor   the same figures handed to the toolkit's painter directly, nothing else
//   Walk    the program walked into a canvas that does nothing; items_per_second counts figures
//
// Wanted: Redraw of the pockets within 1.3 times its Floor, and a million figures a second in Walk.

#include "commands/drawing.h"
#include "commands/session.h"
#include "core/draw_window.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/vector.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/walk.h"
#include "qt/painter_canvas.h"
#include "sample_program.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr int Width = 1600, Height = 1000; // pixels
constexpr int TwipsToPixel = 15;

class NoCanvas : public DrawCanvas
{
protected:
    void Clear() override {}
    void Line(float, float, float, float) override {}
    void Box(float, float) override {}
    void Point() override {}
    void Circle(float) override {}
    void Arc(float, float, float) override {}
};

/// Four pockets of 5,000 rows each, one in each corner, and the moves between them.
void LoadPockets()
{
    ResetState();
    StartNew(MachineKind::F1, true, false);
    lvCncProgram.Rows.clear();
    const auto add = [](const char* code, const char* x, const char* y) {
        ProgramLine row;
        row[CellCode] = code;
        row[CellX] = x;
        row[CellY] = y;
        lvCncProgram.Rows.push_back(row);
    };
    add("M06 ", "D    1", "");
    for (const char* x : {" 12000", "-12000"}) {
        for (const char* y : {" 9502", "-9502"}) add(" 72 ", x, y);
    }
    add("M30 ", "", "");
}

struct Program {
    std::string Name;
    void (*Load)();
};
const Program Programs[] = {
    {"MK2/209", [] { LoadSample(MachineKind::MK2, FullProgram); }},
    {"MK4/209", [] { LoadSample(MachineKind::MK4, FullProgram); }},
    {"F1/209", [] { LoadSample(MachineKind::F1, FullProgram); }},
    {"F1/20000rows", LoadPockets},
};

void Open(const Program& program)
{
    program.Load();
    UnloadDrawing();
    Drawing.PausesTakeTime = false;
    frmDraw.Window.Width = Width * TwipsToPixel;
    frmDraw.Window.Height = Height * TwipsToPixel;
    frmDraw_Load();
    frmDraw.Window.Visible = true;
    cmdAutoFit_Click();
    if (program.Load == LoadPockets) {
        // Nothing has checked these lines, so the fit is made by hand: a quarter of the sheet for each
        // pocket.
        Shared.DrawScale = 0.75F;
        Drawing.ZeroPointX = Width * TwipsToPixel / 2.0;
        Drawing.ZeroPointY = Height * TwipsToPixel / 2.0;
        Redraw();
    }
}

QImage Sheet()
{
    return QImage(Width, Height, QImage::Format_RGB32);
}

void RedrawOf(benchmark::State& state, const Program& program)
{
    Open(program);
    QImage image = Sheet();
    for (auto _ : state) {
        Redraw();
        QPainter painter(&image);
        PainterCanvas canvas(painter, Width * TwipsToPixel, Height * TwipsToPixel,
                             PainterCanvas::Device::Raster);
        Replay(Picture.Operations(), canvas);
    }
    state.counters["figures"] = Picture.FigureCount();
}

/// A figure of the recording in pixels, with all that the painter needs.
struct Stroke {
    QPen Pen;
    Operation::Kind Is;
    QLineF Line;
    double Radius, Start, Sweep;
    /// Level and upright lines are sharp without smoothing.
    bool Smooth;
};

/// Where a level or upright line of this width is sharp; the canvas puts it there too.
double OnPixel(double at, int width)
{
    return std::floor(at) + (width % 2 == 1 ? 0.5 : 0);
}

std::vector<Stroke> StrokesOf(const std::vector<Operation>& operations)
{
    using Op = Operation::Kind;
    std::vector<Stroke> strokes;
    NoCanvas canvas;
    for (const Operation& op : operations) {
        const QPointF from(canvas.PenX() / double{TwipsToPixel}, canvas.PenY() / double{TwipsToPixel});
        Replay({&op, 1}, canvas);
        if (op.Is == Op::ClearCanvas || (op.Is >= Op::SetBackColor && op.Is <= Op::Pen)) continue;
        const QPointF to(canvas.PenX() / double{TwipsToPixel}, canvas.PenY() / double{TwipsToPixel});
        const int width = canvas.Settings().Width;
        QPen pen(QtColor(canvas.Settings().Fore), width);
        pen.setCapStyle(Qt::RoundCap);
        QLineF line(op.Is == Op::DrawLine ? QPointF(op.At[0], op.At[1]) / TwipsToPixel : from, to);
        const bool straight = op.Is == Op::DrawLine || op.Is == Op::LineTo;
        const bool smooth = !straight || (line.x1() != line.x2() && line.y1() != line.y2());
        if (line.x1() == line.x2()) {
            const double x = OnPixel(line.x1(), width);
            line = QLineF(x, line.y1(), x, line.y2());
        } else if (line.y1() == line.y2()) {
            const double y = OnPixel(line.y1(), width);
            line = QLineF(line.x1(), y, line.x2(), y);
        }
        double sweep = double{op.At[4]} - op.At[3];
        if (sweep < 0) sweep += 2 * Pi;
        strokes.push_back({pen, op.Is, line, op.At[2] / double{TwipsToPixel}, op.At[3] * 180 / Pi,
                           sweep * 180 / Pi, smooth});
    }
    return strokes;
}

void FloorOf(benchmark::State& state, const Program& program)
{
    using Op = Operation::Kind;
    Open(program);
    const std::vector<Stroke> strokes = StrokesOf(Picture.Operations());
    QImage image = Sheet();
    for (auto _ : state) {
        QPainter painter(&image);
        painter.fillRect(image.rect(), Qt::black);
        for (const Stroke& stroke : strokes) {
            if (painter.pen() != stroke.Pen) painter.setPen(stroke.Pen);
            if (painter.testRenderHint(QPainter::Antialiasing) != stroke.Smooth)
                painter.setRenderHint(QPainter::Antialiasing, stroke.Smooth);
            const QPointF at = stroke.Line.p2();
            const QRectF around(at.x() - stroke.Radius, at.y() - stroke.Radius, 2 * stroke.Radius,
                                2 * stroke.Radius);
            switch (stroke.Is) {
            case Op::DrawBox: painter.drawRect(QRectF(stroke.Line.p1(), at)); break;
            case Op::SetPoint: painter.drawPoint(at); break;
            case Op::DrawCircle: painter.drawEllipse(around); break;
            case Op::DrawArc:
                painter.drawArc(around, static_cast<int>(stroke.Start * 16),
                                static_cast<int>(stroke.Sweep * 16));
                break;
            default: painter.drawLine(stroke.Line);
            }
        }
    }
}

void WalkOf(benchmark::State& state, const Program& program)
{
    NoCanvas canvas;
    Open(program);
    Drawing.Canvas = &canvas;
    for (auto _ : state) Redraw();
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * canvas.FigureCount());
    Drawing.Canvas = &Picture;
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    for (const Program& program : Programs) {
        using Routine = void (*)(benchmark::State&, const Program&);
        for (const auto& [name, routine] :
             {std::pair<const char*, Routine>{"Redraw/", RedrawOf}, {"Floor/", FloorOf}, {"Walk/", WalkOf}}) {
            benchmark::RegisterBenchmark((name + program.Name).c_str(), routine, program)
                ->Unit(benchmark::kMicrosecond);
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
