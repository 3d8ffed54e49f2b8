#include "commands/drawing.h"

#include "core/draw_window.h"
#include "core/shared_state.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/walk.h"
#include "ui/panes.h"

#include <memory>
#include <utility>

namespace {

using D = DrawWindow;

struct Event {
    Control D::*Of;
    Slots On;
};
constexpr Event Events[] = {
    {&D::cmdAutoFit, {cmdAutoFit_Click}},
    {&D::cmdZeroPoint, {cmdZeroPoint_Click}},
    {&D::cmdRedraw, {cmdRedraw_Click}},
    {&D::cmdStep, {frmDraw_cmdStep_Click}},
    {&D::cmdAbort, {cmdAbort_Click}},
    {&D::cmdEditor, {cmdEditor_Click}},
    {&D::cmdCloseControls, {cmdCloseControls_Click}},
    {&D::cboRun, {cboRun_Click}},
    {&D::cboScale, {cboScale_Click}},
    {&D::chkAutoRedraw, {chkAutoRedraw_Click}},
    {&D::chkShowRadii, {chkShowRadii_Click}},
    {&D::chkToolWidth, {chkToolWidth_Click}},
    {&D::chkToolCenter, {chkToolCenter_Click}},
    {&D::chkFillCycles, {chkFillCycles_click}},
    {&D::chkProgramWindow, {chkProgramWindow_Click}},
    {&D::chkGrid, {chkGrid_Click}},
    {&D::chkPrintableBackground, {chkPrintableBackground_Click}},
    {&D::chkDiameter, {chkDiameter_Click}},
};

/// Whether a program can be drawn; the drawing is then to be fitted.
bool BeginDrawing()
{
    if (Shared.ErrorsPresent) return false;
    Shared.AutoFitPending = Shared.RedrawPending = true;
    return true;
}

} // namespace

void UnloadDrawing()
{
    EndDrawing();
    std::destroy_at(&frmDraw);
    std::construct_at(&frmDraw);
    for (const Event& event : Events) (frmDraw.*event.Of).On = event.On;
    const DrawingState before = std::exchange(Drawing, {});
    Drawing.Canvas = before.Canvas;
    Drawing.FrameWidth = before.FrameWidth;
    Drawing.FrameHeight = before.FrameHeight;
    Drawing.PausesTakeTime = before.PausesTakeTime;
}

void mnuDraw_Click()
{
    cmdReturn_Click();
    if (!BeginDrawing()) return;
    if (!frmDraw.Window.Visible) {
        UnloadDrawing();
        frmDraw_Load();
        frmDraw.Window.Visible = true;
    }
    frmDraw_Activate();
}

void RefreshDrawing()
{
    if (frmDraw.Window.Visible && BeginDrawing()) frmDraw_Activate();
}

void cmdEditor_Click()
{
    frmProgramWindow.Window.Visible = false;
}
