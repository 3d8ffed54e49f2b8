// window_bench.cpp: from [ENTER] in the comment to the repainted list, with a full program, beside the floor
// of repainting the same list when nothing has changed. Wanted: within 1.5 times the floor.
//
//   QT_QPA_PLATFORM=offscreen window_bench

#include "sample_program.h"

#include "core/main_window.h"
#include "core/program_list.h"
#include "editor/activation.h"
#include "qt/main_frame.h"
#include "qt/program_list_view.h"
#include "ui/focus.h"

#include <QApplication>
#include <QKeyEvent>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

std::unique_ptr<Desktop> Events;
std::unique_ptr<MainFrame> Window;

ProgramListView& List()
{
    return *Events->Widgets.As<ProgramListView>(frmMain.lvCncProgram);
}

void OpenFullProgram()
{
    Events->Run([] {
        LoadSample(MachineKind::MK4, FullProgram);
        lvCncProgram_Click();
        SetFocus(frmMain.txtComment);
    });
    QApplication::processEvents();
}

void RepaintAlone(benchmark::State& state)
{
    OpenFullProgram();
    for (auto step : state) {
        List().viewport()->repaint();
        QApplication::processEvents();
    }
}
BENCHMARK(RepaintAlone)->Unit(benchmark::kMicrosecond);

void EnterToRepaint(benchmark::State& state)
{
    OpenFullProgram();
    for (auto step : state) {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
        QApplication::sendEvent(Events->Widgets.Of(frmMain.txtComment), &enter);
        QApplication::processEvents(); // paints the list, and what else has changed
        state.PauseTiming();
        Events->Run([] { SetFocus(frmMain.txtComment); });
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(EnterToRepaint)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    Events = std::make_unique<Desktop>();
    LoadSample(MachineKind::MK4, FullProgram);
    Window = std::make_unique<MainFrame>(*Events);
    Window->Open();
    benchmark::RunSpecifiedBenchmarks();
    Window.reset();
    Events.reset();
}
