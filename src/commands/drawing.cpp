#include "commands/drawing.h"

#include "commands/recent_files.h"
#include "commands/windows.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/measure.h"
#include "drawing/picture_file.h"
#include "drawing/printing.h"
#include "drawing/program_window.h"
#include "drawing/walk.h"
#include "editor/find.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "ui/focus.h"
#include "ui/panes.h"

#include <memory>
#include <utility>

namespace {

using D = DrawWindow;

struct Event {
    Control D::*Of;
    Slots On;
};

void frControls_Click()
{
    frControls_MouseDown(0, 0);
}

constexpr Slots MeasureSlots{nullptr,           nullptr,         Measure_GotFocus,
                             Measure_LostFocus, Measure_KeyDown, Measure_KeyPress};

constexpr Event Events[] = {
    {&D::frControls, {frControls_Click}},
    {&D::txtMeasureX1, MeasureSlots},
    {&D::txtMeasureZ1, MeasureSlots},
    {&D::txtMeasureX2, MeasureSlots},
    {&D::txtMeasureZ2, MeasureSlots},
    {&D::cmdAutoFit, {cmdAutoFit_Click}},
    {&D::cmdZeroPoint, {cmdZeroPoint_Click}},
    {&D::cmdRedraw, {cmdRedraw_Click}},
    {&D::cmdPrint, {cmdPrint_Click}},
    {&D::cmdStep, {frmDraw_cmdStep_Click}},
    {&D::cmdAbort, {cmdAbort_Click}},
    {&D::cmdEditor, {cmdEditor_Click}},
    {&D::cmdSavePicture, {cmdSavePicture_Click}},
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
    DropFocus(frmDraw.Window);
    if (&ActiveWindow() == &frmDraw.Window) SetActiveWindow(frmMain.Window);
    std::destroy_at(&frmDraw);
    std::construct_at(&frmDraw);
    for (const Event& event : Events) (frmDraw.*event.Of).On = event.On;
    const DrawingState before = std::exchange(Drawing, {});
    Drawing.Canvas = before.Canvas;
    Drawing.FrameWidth = before.FrameWidth;
    Drawing.FrameHeight = before.FrameHeight;
    Drawing.PausesTakeTime = before.PausesTakeTime;
    Drawing.YieldAfter = before.YieldAfter;
}

void mnuDraw_Click()
{
    cmdReturn_Click();
    if (!BeginDrawing()) return;
    const bool opens = !frmDraw.Window.Visible;
    if (opens) {
        UnloadDrawing();
        frmDraw_Load();
        frmDraw.Window.Visible = true;
    }
    Drawing.Minimized = false;
    BringMainToFront(); // the find dialog gives the keys away
    SetActiveWindow(frmDraw.Window);
    frmDraw_Activate();
    if (opens) PlaceControlsAside();
}

void RefreshDrawing()
{
    const bool front = std::exchange(Shared.DrawingToFront, false);
    if (!frmDraw.Window.Visible || !BeginDrawing()) return;
    if (front) SetActiveWindow(frmDraw.Window);
    frmDraw_Activate();
    ShowSelectedProgramLine();
}

void cmdEditor_Click()
{
    frmProgramWindow.Window.Visible = false;
    BringToFront(frmMain.Window);
}

void cmdSavePicture_Click()
{
    constexpr const char* Filter = "SVG picture|*.svg|PNG picture|*.png|PDF document|*.pdf|";
    std::string name = FileNameOf(frmMain.lblPath.Text);
    name = (name.empty() ? "drawing" : name.substr(0, name.rfind('.'))) + ".svg";
    FileDialog dialog{FileDialog::Purpose::Save, name, Filter, FolderOfLastFile()};
    dialog.AsksBeforeReplacing = true;
    const auto chosen = ThePlatform->AskForFile(dialog);
    if (!chosen || chosen->empty()) return;
    PictureFormat format{};
    if (!FormatOfFile(*chosen, format)) {
        ShowMessage(Tr("The name of a picture must end in .svg, .png or .pdf"), "", Icon::Exclamation);
        return;
    }
    std::string bytes;
    if (ThePicturePainter != nullptr)
        bytes = ThePicturePainter({&Picture.Operations(), CanvasWidth(), CanvasHeight(), format});
    std::string fault = bytes.empty() ? Tr("the picture could not be made") : "";
    if (fault.empty()) {
        if (const auto failure = ReplaceFile(*chosen, bytes)) fault = Tr(failure->Reason);
    }
    if (!fault.empty())
        ShowMessage(Tr("%1 could not be saved: %2", {FileNameOf(*chosen), fault}), "", Icon::Exclamation);
}
