// draw_window_bench.cpp: the drawing window of 1600 by 1000 pixels with a full program, from an event to the
// repainted window.
//
//   Floor    the same picture handed to the toolkit's painter directly and copied to the window's size
//   Redraw   the drawing that follows an edited line
//   Edit     the whole edit: the check of the program, the lists, the drawing
//   Step     the step button, a line each
//   Measure  the pointer moves after the first click
//   Wheel    a step of the scale and back, for each of them
//
// Wanted: Redraw within 1.5 times Floor; Step and Measure below 16 ms.
//
//   QT_QPA_PLATFORM=offscreen draw_window_bench

#include "painter_floor.h"
#include "sample_program.h"

#include "commands/drawing.h"
#include "commands/keyboard.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/walk.h"
#include "interpreter/interpreter.h"
#include "qt/draw_frame.h"
#include "qt/main_frame.h"
#include "ui/choice.h"
#include "ui/redraw.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int Width = 1600, Height = 1000; // pixels

std::unique_ptr<Desktop> Events;
std::unique_ptr<DrawFrame> Window;

QWidget& Canvas()
{
    return *Window->findChild<QWidget*>("canvas");
}

void Open(MachineKind machine)
{
    Events->Run([machine] {
        LoadSample(machine, FullProgram);
        frmMain.Window.Visible = true;
        // A program that is full to the last line has the message about that, which wouldn't be drawn.
        Shared.ErrorsPresent = false;
        mnuDraw_Click();
    });
    Events->Run([] {
        frmDraw.Window.Width = Width * 15;
        frmDraw.Window.Height = Height * 15;
        SetCheck(frmDraw.chkAutoRedraw, true);
        cmdAutoFit_Click();
    });
    QApplication::processEvents();
}

void Floor(benchmark::State& state, MachineKind machine)
{
    Open(machine);
    const std::vector<Stroke> strokes = StrokesOf(Picture.Operations());
    QImage image(Width, Height, QImage::Format_RGB32), shown(Width, Height, QImage::Format_RGB32);
    for (auto _ : state) {
        PaintStrokes(image, strokes);
        QPainter(&shown).drawImage(0, 0, image);
    }
    state.counters["figures"] = Picture.FigureCount();
}

void RedrawWindow(benchmark::State& state, MachineKind machine)
{
    Open(machine);
    for (auto _ : state) {
        Events->Run([] {
            Shared.ErrorsPresent = false;
            FollowEdit();
        });
        QApplication::processEvents();
    }
}

void Edit(benchmark::State& state, MachineKind machine)
{
    Open(machine);
    for (auto _ : state) {
        Events->Run([] {
            Interpreter();
            Shared.ErrorsPresent = false;
            FollowEdit();
        });
        QApplication::processEvents();
    }
}

void Step(benchmark::State& state, MachineKind machine)
{
    Open(machine);
    for (auto _ : state) {
        if (WaitingLine() < 0) {
            state.PauseTiming();
            Events->Run([] { PickListItem(frmDraw.cboRun, static_cast<int>(RunChoice::Step)); });
            QApplication::processEvents();
            state.ResumeTiming();
        }
        Events->Run(frmDraw_cmdStep_Click);
        QApplication::processEvents();
    }
    Events->Run(cmdAbort_Click);
}

void Measure(benchmark::State& state, MachineKind machine)
{
    Open(machine);
    int x = 500;
    const auto send = [&](QEvent::Type type, Qt::MouseButton button) {
        const QPointF at(x, 600);
        QMouseEvent event(type, at, at, button, button, {});
        QApplication::sendEvent(&Canvas(), &event);
    };
    send(QEvent::MouseButtonPress, Qt::LeftButton);
    for (auto _ : state) {
        x = 500 + (x - 499) % 1000;
        send(QEvent::MouseMove, Qt::NoButton);
        QApplication::processEvents();
    }
}

void Wheel(benchmark::State& state, MachineKind machine)
{
    Open(machine);
    int angle = 120;
    for (auto _ : state) {
        QWheelEvent wheel({800, 500}, {800, 500}, {}, {0, angle}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Canvas(), &wheel);
        QApplication::processEvents();
        angle = -angle;
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    Events = std::make_unique<Desktop>();
    LoadSample(MachineKind::MK4, FullProgram);
    MainFrame main(*Events);
    main.Open();
    Window = std::make_unique<DrawFrame>(*Events);
    using Routine = void (*)(benchmark::State&, MachineKind);
    constexpr std::pair<const char*, Routine> Routines[] = {{"Floor", Floor},     {"Redraw", RedrawWindow},
                                                            {"Edit", Edit},       {"Step", Step},
                                                            {"Measure", Measure}, {"Wheel", Wheel}};
    constexpr std::pair<const char*, MachineKind> Machines[] = {
        {"MK2", MachineKind::MK2}, {"MK4", MachineKind::MK4}, {"F1", MachineKind::F1}};
    for (const auto& [machine, kind] : Machines) {
        for (const auto& [name, routine] : Routines) {
            benchmark::RegisterBenchmark((std::string(name) + "/" + machine).c_str(), routine, kind)
                ->Unit(benchmark::kMicrosecond);
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    Window.reset();
    Events.reset();
}
