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
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/view.h"
#include "drawing/walk.h"
#include "painter_floor.h"
#include "qt/painter_canvas.h"
#include "sample_program.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr int Width = 1600, Height = 1000; // pixels

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
    frmDraw.Window.Width = Width * TwipsPerPixel;
    frmDraw.Window.Height = Height * TwipsPerPixel;
    frmDraw_Load();
    frmDraw.Window.Visible = true;
    cmdAutoFit_Click();
    if (program.Load == LoadPockets) {
        // Nothing has checked these lines, so the fit is made by hand: a quarter of the sheet for each
        // pocket.
        SetScale(0.75F);
        Drawing.ZeroPointX = Width * TwipsPerPixel / 2.0;
        Drawing.ZeroPointY = Height * TwipsPerPixel / 2.0;
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
        PainterCanvas canvas(painter, Width * TwipsPerPixel, Height * TwipsPerPixel,
                             PainterCanvas::Device::Raster);
        Replay(Picture.Operations(), canvas);
    }
    state.counters["figures"] = Picture.FigureCount();
}

void FloorOf(benchmark::State& state, const Program& program)
{
    Open(program);
    const std::vector<Stroke> strokes = StrokesOf(Picture.Operations());
    QImage image = Sheet();
    for (auto _ : state) PaintStrokes(image, strokes);
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
