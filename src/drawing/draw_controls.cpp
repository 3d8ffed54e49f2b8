#include "drawing/draw_controls.h"

#include "core/draw_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "drawing/drawing_state.h"
#include "drawing/line_figures.h"
#include "drawing/measure.h"
#include "drawing/program_window.h"
#include "drawing/view.h"
#include "drawing/walk.h"
#include "settings/draw_settings.h"
#include "settings/language.h"
#include "settings/user_files.h"
#include "settings/window_place.h"
#include "ui/choice.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using D = DrawWindow;

/// A check box, where its value outlasts the window, and for which machines it is shown.
struct BoxRow {
    Control D::*Box;
    int DrawBoxValues::*Value;
    bool OnLathe, OnMill;
};
/// In the order in which the boxes stand in frView; chkAutoRedraw stands outside.
constexpr BoxRow Boxes[] = {
    {&D::chkShowRadii, &DrawBoxValues::Radii, true, true},
    {&D::chkToolWidth, &DrawBoxValues::ToolWidth, false, true},
    {&D::chkToolCenter, &DrawBoxValues::ToolCenter, false, true},
    {&D::chkFillCycles, &DrawBoxValues::FillCycles, true, false},
    {&D::chkProgramWindow, &DrawBoxValues::Program, true, true},
    {&D::chkGrid, &DrawBoxValues::Grid, true, true},
    {&D::chkPrintableBackground, &DrawBoxValues::Background, true, true},
    {&D::chkDiameter, &DrawBoxValues::Diameter, true, false},
    {&D::chkAutoRedraw, &DrawBoxValues::AutoRedraw, true, true},
};

/// What the frame leaves free beside and below itself for the window's own border and title, in twips.
constexpr int RoomBeside = 120, RoomBelow = 880;

/// Keeps the value of a box beyond the window. Each box keeps its own alone, so that those of the other
/// machine stay as they were chosen there.
void Keep(const Control& box)
{
    for (const BoxRow& row : Boxes) {
        if (&(frmDraw.*row.Box) == &box) Shared.DrawBoxes.*row.Value = box.Value;
    }
}

/// A box that changes nothing but what the next drawing shows. Boxes that are set while the window comes to
/// the front are drawn with what else is pending then.
void BoxClicked(const Control& box)
{
    Keep(box);
    if (frmDraw.chkAutoRedraw.Value != 1) return;
    if (Drawing.ListsBusy) {
        Shared.RedrawPending = true;
    } else {
        Redraw();
    }
}

/// One of the mill's two tool views is always on.
void ToolViewClicked(const Control& box, Control& other)
{
    if (IsMill() && box.Value == 0 && other.Value == 0) {
        other.Value = 1;
        Keep(other);
    }
    BoxClicked(box);
}

void ShowBoxesOfMachine()
{
    constexpr int Tops[] = {200, 436, 672, 908, 1144, 1400};
    size_t place = 0;
    for (const BoxRow& row : Boxes) {
        Control& box = frmDraw.*row.Box;
        if (box.In != &frmDraw.frView) continue;
        box.Visible = IsMill() ? row.OnMill : row.OnLathe;
        if (box.Visible) box.Top = Tops[place++];
    }
    constexpr int White = 0xFFFFFF, Grey = 0x808080;
    frmDraw.chkFillCycles.Fore = IsMill() ? Grey : White;
    if (IsMill()) SetCheck(frmDraw.chkFillCycles, false);
}

} // namespace

void ArrangeControls()
{
    Control& frame = frmDraw.frControls;
    if (!Drawing.Minimized && !Drawing.Maximized && frame.Visible) {
        const int height = frame.Height + RoomBelow, width = frame.Width + RoomBeside;
        frame.Top = std::max(1, std::min(frame.Top, CanvasHeight() - height));
        frame.Left = std::max(1, std::min(frame.Left, CanvasWidth() - width));
        frame.Left = std::min(frame.Left, std::max(CanvasWidth() - width, 0));
        frmDraw.Window.Height = std::max(frmDraw.Window.Height, height);
        frmDraw.Window.Width = std::max(frmDraw.Window.Width, width);
    }
    ShowBoxesOfMachine();
}

void PlaceControlsAside()
{
    Control& frame = frmDraw.frControls;
    const int width = frame.Width, height = frame.Height;
    const int right = CanvasWidth() - width - RoomBeside, bottom = CanvasHeight() - height - RoomBelow;
    const CanvasBox corners[] = {{frame.Left, frame.Top, width, height},
                                 {right, frame.Top, width, height},
                                 {frame.Left, bottom, width, height},
                                 {right, bottom, width, height}};
    const std::vector<int> covered = PlacesIn(corners);
    const CanvasBox& freest = corners[std::min_element(covered.begin(), covered.end()) - covered.begin()];
    frame.Left = freest.Left;
    frame.Top = freest.Top;
    ArrangeControls();
}

void ShowControlsAt(double x, double y)
{
    Control& frame = frmDraw.frControls;
    frame.Visible = true;
    frame.Left = static_cast<int>(std::lround(x)) - 3650;
    frame.Top = static_cast<int>(std::lround(y)) - 320;
    ArrangeControls();
}

bool frControls_MouseDown(float x, float y)
{
    if (Drawing.DrawingNow) return false;
    EndMeasure();
    Drawing.DragOffsetX = x;
    Drawing.DragOffsetY = y;
    return true;
}

void frControls_DragOver()
{
    ArrangeControls();
}

void frmDraw_DragDrop(float x, float y)
{
    frmDraw.frControls.Left = static_cast<int>(std::lround(x - Drawing.DragOffsetX));
    frmDraw.frControls.Top = static_cast<int>(std::lround(y - Drawing.DragOffsetY));
}

void EnablePictureControls(bool enabled)
{
    for (Control* control : {&frmDraw.cmdAutoFit, &frmDraw.cmdRedraw, &frmDraw.cmdZeroPoint,
                             &frmDraw.cmdPrint, &frmDraw.cboScale})
        control->Enabled = enabled;
}

void SetDrawControls(bool enabled)
{
    EnablePictureControls(enabled);
    frmDraw.cboRun.Enabled = frmDraw.cmdEditor.Enabled = enabled;
}

void ShowDrawBoxes()
{
    const DrawBoxValues values = Shared.DrawBoxes;
    for (const BoxRow& row : Boxes) SetCheck(frmDraw.*row.Box, values.*row.Value != 0);
    if (IsMill() && frmDraw.chkToolWidth.Value == 0) SetCheck(frmDraw.chkToolCenter, true);
}

namespace {

void CenterWindow(Control& window)
{
    window.Left = (Shared.Screen.Width - window.Width) / 2;
    window.Top = (Shared.Screen.Height - window.Height) / 2;
}

/// Boxes and places of the windows as they were left; without a file, and without its line in the file, the
/// window is in the middle.
void LoadSettings()
{
    Control& window = frmDraw.Window;
    if (!HasUserFile(DrawSettingsFile)) {
        CenterWindow(window);
        PlaceWindow(frmProgramWindow.Window, ProgramWindowPlace(PlaceOf(frmProgramWindow.Window)));
        return;
    }
    const std::string bytes = ReadUserFile(DrawSettingsFile);
    const DrawSettings settings = ReadDrawSettings(bytes);
    if (settings.IsDamaged) KeepDamaged(DrawSettingsFile, bytes);
    Shared.DrawBoxes = settings.Boxes;
    if (!settings.DrawWindow) CenterWindow(window);
    if (settings.DrawWindow && !Drawing.Maximized) PlaceWindow(window, DrawWindowPlace(*settings.DrawWindow));
    if (settings.ProgramWindow)
        PlaceWindow(frmProgramWindow.Window, ProgramWindowPlace(*settings.ProgramWindow));
    frmProgramWindow_Resize();
}

void SaveSettings()
{
    const DrawSettings settings{Shared.DrawBoxes, PlaceOf(frmDraw.Window), PlaceOf(frmProgramWindow.Window),
                                frmProgramWindow.Window.Visible};
    WriteUserFile(DrawSettingsFile, DrawSettingsText(settings));
}

} // namespace

void frmDraw_Load()
{
    constexpr int SmallWidth = 12000, SmallHeight = 9000;
    const Screen& screen = Shared.Screen;
    Control& window = frmDraw.Window;
    Drawing.Maximized = screen.Width <= SmallWidth && screen.Height <= SmallHeight;
    LoadSettings();
    if (Drawing.Maximized) PlaceWindow(window, {screen.WorkHeight, 0, 0, screen.Width});
    Drawing.ZeroPointX = screen.Width / 2.0;
    Drawing.ZeroPointY = screen.Height / 2.0;
    Drawing.Canvas->Reset();
    SetScale(1);
    ShowDrawBoxes();
}

void frmDraw_Activate()
{
    Shared.ErrorsPresent = false;
    // A title that the box of the diameter has left says nothing on the mill.
    if (IsMill() && frmDraw.Window.Text.ends_with('=')) frmDraw.Window.Text = Tr("Drawing");
    // What the boxes set off is drawn together with the rest.
    Drawing.ListsBusy = true;
    ShowDrawCaptions();
    ShowDrawBoxes();
    Drawing.ListsBusy = false;
    if (Shared.AutoFitPending) {
        AutoFit();
    } else if (Shared.RedrawPending) {
        Redraw();
    }
    Shared.RedrawPending = false;
}

void frmDraw_Resize()
{
    ArrangeControls();
    Shared.AutoFitPending = true;
    if (frmDraw.chkAutoRedraw.Value == 1 && !Drawing.Stepping) AutoFit();
}

void frmDraw_Close()
{
    EndDrawing();
    if (frmDraw.Window.Visible) SaveSettings();
    frmDraw.Window.Visible = frmProgramWindow.Window.Visible = Drawing.ProgramWindowLoaded = false;
}

void chkShowRadii_Click()
{
    BoxClicked(frmDraw.chkShowRadii);
}

void chkToolWidth_Click()
{
    ToolViewClicked(frmDraw.chkToolWidth, frmDraw.chkToolCenter);
}

void chkToolCenter_Click()
{
    ToolViewClicked(frmDraw.chkToolCenter, frmDraw.chkToolWidth);
}

void chkFillCycles_click()
{
    if (IsMill()) {
        frmDraw.chkFillCycles.Value = 0;
        return;
    }
    ApplyFillStyle();
    BoxClicked(frmDraw.chkFillCycles);
}

void chkProgramWindow_Click()
{
    BoxClicked(frmDraw.chkProgramWindow);
}

void chkGrid_Click()
{
    ApplyFillStyle();
    BoxClicked(frmDraw.chkGrid);
}

void chkPrintableBackground_Click()
{
    BoxClicked(frmDraw.chkPrintableBackground);
}

void chkDiameter_Click()
{
    Keep(frmDraw.chkDiameter);
    if (IsMill()) return;
    const bool diameter = frmDraw.chkDiameter.Value == 1;
    frmDraw.Window.Text = TextOf(diameter ? Messages::XDiameter : Messages::XRadius) + "=";
}

void chkAutoRedraw_Click()
{
    BoxClicked(frmDraw.chkAutoRedraw);
}

void cboRun_Click()
{
    const int choice = frmDraw.cboRun.Index;
    frmDraw.cmdStep.Visible = choice == static_cast<int>(RunChoice::Step);
    frmDraw.cmdAbort.Visible = true;
    frmDraw.cmdRedraw.Enabled = choice <= static_cast<int>(RunChoice::Step);
    if (!Drawing.ListsBusy) Redraw();
}

void cboScale_Click()
{
    SetScale(ScaleOfIndex(frmDraw.cboScale.Index));
    if (frmDraw.chkAutoRedraw.Value == 1 && !Drawing.ListsBusy) Redraw();
}

void cmdRedraw_Click()
{
    Redraw();
}

void cmdAutoFit_Click()
{
    Shared.AutoFitPending = true;
    AutoFit();
}

void cmdZeroPoint_Click()
{
    if (Shared.ErrorsPresent) return;
    Drawing.Canvas->ClearCanvas();
    EnablePictureControls(false);
    frmDraw.cmdEditor.Enabled = true;
    if (frmDraw.chkGrid.Value == 1) MakeGrid(Drawing.ZeroPointX, Drawing.ZeroPointY);
    Drawing.PickingZeroPoint = true;
}

void cmdCloseControls_Click()
{
    frmDraw.frControls.Visible = false;
}
