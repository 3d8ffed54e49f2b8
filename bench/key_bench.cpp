// key_bench.cpp: what a key costs from the stroke to the end of its event, with a full program loaded.
//
// Keys that don't change the program should stay under a tenth of the pass that stands beside them.

#include "sample_program.h"

#include "commands/keyboard.h"
#include "commands/session.h"
#include "core/main_window.h"
#include "interpreter/interpreter.h"
#include "ui/focus.h"

#include <benchmark/benchmark.h>

namespace {

void Pass(benchmark::State& state)
{
    LoadSample(MachineKind::MK4, FullProgram);
    for (auto step : state) Interpreter();
}
BENCHMARK(Pass);

/// The same key over and over, beginning at a control.
void KeyAt(benchmark::State& state, Control& at, const KeyStroke& key)
{
    LoadSample(MachineKind::MK4, FullProgram);
    SetFocus(at);
    for (auto step : state) {
        PressKey(key);
        AfterEvent();
    }
}

void Digit(benchmark::State& state)
{
    KeyAt(state, frmMain.txtComment, {KeyName::Character, '7'});
}
BENCHMARK(Digit);

void NextStop(benchmark::State& state)
{
    KeyAt(state, frmMain.txtComment, {KeyName::Tab});
}
BENCHMARK(NextStop);

void Down(benchmark::State& state)
{
    KeyAt(state, frmMain.lvCncProgram, {KeyName::Down});
}
BENCHMARK(Down);

/// [ENTER] on a row: the line is activated.
void Activate(benchmark::State& state)
{
    LoadSample(MachineKind::MK4, FullProgram);
    for (auto step : state) {
        ClickRow(5);
        AfterEvent();
    }
}
BENCHMARK(Activate);

/// [ENTER] in the comment: the line is written and the program checked.
void Commit(benchmark::State& state)
{
    LoadSample(MachineKind::MK4, FullProgram);
    ClickRow(5);
    for (auto step : state) {
        SetFocus(frmMain.txtComment);
        PressKey({KeyName::Enter});
        AfterEvent();
    }
}
BENCHMARK(Commit);

} // namespace

BENCHMARK_MAIN();
