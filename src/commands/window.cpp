#include "commands/window.h"

#include "commands/drawing.h"
#include "commands/help.h"
#include "commands/load.h"
#include "commands/printing.h"
#include "commands/program.h"
#include "commands/save.h"
#include "commands/settings.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "drawing/draw_controls.h"
#include "editor/feeds.h"
#include "editor/run.h"
#include "interpreter/interpreter.h"
#include "platform/platform.h"
#include "platform/port.h"
#include "serial/receive.h"
#include "serial/setup.h"
#include "serial/transmit.h"
#include "ui/columns.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/profile_controls.h"

#include <iterator>
#include <type_traits>

namespace {

void ToggleAxes(Control& picture)
{
    picture.Visible = !picture.Visible;
    frmMain.cmdReturn.Visible = picture.Visible;
}

/// What the buttons of the tool bar do, in their order.
constexpr void (*TopButtons[])() = {
    mnuOpen_Click,
    mnuSave_Click,
    mnuNew_Click,
    PrintDirect,
    mnuSettingsShow_Click,
    [] { ToggleAxes(frmMain.picZXaxes); },
    [] { ToggleAxes(frmMain.picXYaxes); },
    mnuDraw_Click,
    mnuRX_Click,
    mnuTX_Click,
};
static_assert(std::size(TopButtons) == std::extent_v<decltype(MainWindow::cmdTopButtons)>);

void ChooseColor(float& color)
{
    if (RefuseWhileBusy()) return;
    const auto chosen = ThePlatform->AskForColor(static_cast<int>(color));
    if (!chosen) return;
    color = static_cast<float>(*chosen);
    ShowLineColors();
    Interpreter();
}

} // namespace

void mnuSettingsShow_Click()
{
    frmMain.tabSettings.Visible = !frmMain.tabSettings.Visible;
    SetFocus(frmMain.tabSettings.Visible ? frmMain.tabSettings : frmMain.lvCncProgram);
    if (frmMain.tabSettings.Visible) tabSettings_Click();
}

void cmdTopButtons_Click(int index)
{
    TopButtons[index]();
}

void AxesPicture_Click()
{
    HideAxesPictures();
    frmMain.tabSettings.Visible = false;
}

void mnuCalculator_Click()
{
    static const std::vector<std::string> calculators{
        "gnome-calculator", "kcalc", "mate-calc", "qalculate-gtk", "galculator", "speedcrunch", "xcalc"};
    if (!ThePlatform->Launch(calculators)) ShowMessage(Tr("No calculator was found"), "", Icon::Exclamation);
}

void cboFontName_LostFocus(Control& box)
{
    if (!IsBlank(box.Text)) Shared.FontName = Trimmed(box.Text);
}

void cboFontSize_LostFocus(Control& box)
{
    if (Val(box.Text) > 0) Shared.FontSize = Trimmed(box.Text);
}

void lblSettingsIncrColor_Click()
{
    ChooseColor(Shared.IncrColor);
}

void lblSettingsAbsColor_Click()
{
    ChooseColor(Shared.AbsColor);
}

void Form_Activate()
{
    TakeFeeds();
    if (IsHelpUp()) cmdReturn_Click(); // a page that goes takes its lock with it
    HideAxesPictures();
    HideHelpPages();
    MakeLinePropertiesColumns();
}

void Form_Resize()
{
    if (Shared.Minimized) return;
    if (Shared.Maximized && Shared.Screen.WorkHeight <= MinHeight) {
        ShowMessage(TextOf(Messages::DragTaskBar));
        Shared.Maximized = false;
    }
    // A maximised window is as the screen is; its content follows, however little room that leaves.
    const bool fits = frmMain.Window.Height >= MinHeight && frmMain.Window.Width >= MinWidth;
    if (fits || Shared.Maximized) ControlsPositioning();
}

void FitSmallScreen()
{
    constexpr int SmallWidth = 12000, SmallHeight = 9000; // 800 × 600 pixels
    const Screen& screen = Shared.Screen;
    if (screen.Width > SmallWidth || screen.Height > SmallHeight) return;
    Control& window = frmMain.Window;
    if (screen.WorkHeight > MinHeight) {
        Shared.Maximized = true;
        window.Left = window.Top = 0;
        window.Width = screen.Width;
        window.Height = screen.WorkHeight;
    } else {
        ShowMessage(TextOf(Messages::LowerPartBlocked));
        window.Width = MinWidth;
        window.Height = MinHeight;
    }
    Form_Resize();
}
