#include "core/draw_window.h"

DrawWindow frmDraw;
ProgramWindow frmProgramWindow;

DrawWindow::DrawWindow()
{
    Window.Text = "Drawing";
    Window.Visible = false;
    Window.Left = 8400;
    Window.Top = 3300;
    Window.Width = 12000;
    Window.Height = 9000;
    frControls.Left = frControls.Top = 120;
    frControls.Width = 4950;
    frControls.Height = 3750;
    cboRun.Items = {"Run", "Step", "Interval 1", "Interval 2", "Interval 3"};
    cboRun.Index = 0;
    cboRun.Text = cboRun.Items[0];
    cboScale.Items = {"Scale ÷   8",  "Scale ÷   4",  "Scale ÷   2", "Scale x    1", "Scale x    2",
                      "Scale x    4", "Scale x    8", "Scale x  16", "Scale x  32",  "Scale x  64"};
    cboScale.Index = ScaleOneIndex;
    cboScale.Text = cboScale.Items[ScaleOneIndex];
    for (Control* hidden : {&cmdAbort, &cmdStep, &frMeasure}) hidden->Visible = false;
    frMeasure.Enabled = false;
}

ProgramWindow::ProgramWindow()
{
    Window.Text = "Program Lines";
    Window.Visible = false;
    Window.Left = 1200;
    Window.Top = 12000;
    Window.Width = 11790;
    Window.Height = 3000;
}

#define CONTROL(kind, name, in, text, tabStop) visit(name);

void DrawWindow::ForEach(const std::function<void(Control&)>& visit)
{
#include "core/draw_window.def"
}

void ProgramWindow::ForEach(const std::function<void(Control&)>& visit)
{
#include "core/program_window.def"
}

#undef CONTROL
