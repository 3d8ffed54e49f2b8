// draw_window.h: the records of the drawing window and of the Program Lines window beside it.
//
// Both are there from the start and hidden until they are opened. A closed drawing window is made anew at
// its next opening; what the user chose in it is kept in Shared.DrawBoxes.

#pragma once

#include "core/control.h"

#include <functional>

#define CONTROL(kind, name, in, text, tabStop) Control name{Kind::kind, #name, -1, &in, text, tabStop};

struct DrawWindow {
    Control Window{Kind::Form, "frmDraw"};
#include "core/draw_window.def"

    /// The start state: closed, all items of the lists, run mode "Run", scale 1.
    DrawWindow();
    DrawWindow(const DrawWindow&) = delete;
    DrawWindow& operator=(const DrawWindow&) = delete;

    /// Calls `visit` with each control in the order of the table.
    void ForEach(const std::function<void(Control&)>& visit);
};
extern DrawWindow frmDraw;

struct ProgramWindow {
    Control Window{Kind::Form, "frmProgramWindow"};
#include "core/program_window.def"

    ProgramWindow();
    ProgramWindow(const ProgramWindow&) = delete;
    ProgramWindow& operator=(const ProgramWindow&) = delete;

    void ForEach(const std::function<void(Control&)>& visit);
};
extern ProgramWindow frmProgramWindow;

#undef CONTROL

/// Indices of cboRun.
enum class RunChoice { Run = 0, Step, Interval1, Interval2, Interval3 };

/// Index of scale 1 in cboScale; index i stands for 2 to the power i - 3.
constexpr int ScaleOneIndex = 3;
