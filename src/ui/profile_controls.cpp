#include "ui/profile_controls.h"

#include "core/app_data.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/text.h"
#include "platform/platform.h"
#include "ui/choice.h"
#include "ui/columns.h"
#include "ui/panes.h"

#include <algorithm>
#include <iterator>

namespace {

/// What the units are called, and the option that stands for them. A lathe has no choice of the spindle.
struct UnitsRow {
    bool Mill, Metric, Horizontal;
    const char* Caption;
    Control MainWindow::*Option;
};

constexpr UnitsRow UnitsTable[] = {
    {true, true, true, "H 1/100 mm", &MainWindow::optSettingsHmm},
    {true, true, false, "V 1/100 mm", &MainWindow::optSettingsVmm},
    {true, false, true, "H 1/1000 \"", &MainWindow::optSettingsHinch},
    {true, false, false, "V 1/1000 \"", &MainWindow::optSettingsVinch},
    {false, true, false, "1/100 mm", &MainWindow::optSettingsMm},
    {false, false, false, "1/1000 \"", &MainWindow::optSettingsInch},
};

/// Frames, lists and buttons that only some machines use.
void ApplyProfileToControls()
{
    const MachineKind machine = Shared.Machine;
    const bool mill = machine == MachineKind::F1;
    Shared.PositioningControls = true;
    Choose(OptionOfMachine(machine));
    Shared.PositioningControls = false;

    frmMain.lstMK2Gcodes.Visible = frmMain.lstMK2Mcodes.Visible = machine == MachineKind::MK2;
    frmMain.lstMK4Gcodes.Visible = frmMain.lstMK4Mcodes.Visible = machine == MachineKind::MK4;
    frmMain.lstF1Gcodes.Visible = frmMain.lstF1Mcodes.Visible = mill;
    frmMain.cmdTopButtons[5].Visible = !mill;
    frmMain.cmdTopButtons[6].Visible = mill;
    EnableByProfile();
}

void Place(Control& control, int left, int top, int width, int height)
{
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

/// Everything that lies over the list takes its rectangle; a picture stands 20 inside it.
void PlaceList()
{
    const int width = frmMain.Window.Width - 3700, height = frmMain.Window.Height - 3370, top = 1360;
    for (Control* pane :
         {&frmMain.lvCncProgram, &frmMain.rtfHelp, &frmMain.rtfGcodeHelpMK2, &frmMain.rtfGcodeHelpMK4,
          &frmMain.rtfAbout, &frmMain.lstAbout, &frmMain.frRXcode}) {
        Place(*pane, 0, top, width, height);
    }
    for (Control* picture : {&frmMain.picZXaxes, &frmMain.picXYaxes}) {
        Place(*picture, 20, top + 20, width - 40, height - 40);
    }
    constexpr int HeaderHeight = 300, RowHeight = 240;
    lvCncProgram.VisibleRows = std::max(1, (height - HeaderHeight) / RowHeight);
}

/// What stands at a distance from the window's right or lower edge.
void PlacePanes()
{
    const int width = frmMain.Window.Width, height = frmMain.Window.Height;
    frmMain.frControlPanel.Width = width - 3740;
    frmMain.frView.Left = width - 6700;
    frmMain.frSetReplace.Left = width - 8180;
    for (Control* bottom :
         {&frmMain.frEntry, &frmMain.frCmdEditor1, &frmMain.frCmdEditor2, &frmMain.frCmdEditor3,
          &frmMain.frCmdRX, &frmMain.frAxesProperties, &frmMain.frProgramProperties}) {
        bottom->Top = height - 2000;
    }
    for (Control* right :
         {&frmMain.lstMK2Gcodes, &frmMain.lstMK2Mcodes, &frmMain.lstMK4Gcodes, &frmMain.lstMK4Mcodes,
          &frmMain.lstF1Gcodes, &frmMain.lstF1Mcodes, &frmMain.tabSettings}) {
        right->Left = width - 3700;
    }
}

/// Run and Step, or during a transmission Stop alone.
void PlaceRunButtons()
{
    if (Shared.RunLocked) return; // they are the only way out of a run
    const bool sending = Shared.Transmitting;
    if (sending) frmMain.frCmdEditor3.Enabled = true;
    frmMain.cmdRun.Visible = frmMain.cmdStep.Visible = !sending;
    frmMain.cmdStop.Visible = sending;
    frmMain.cmdStop.Enabled = sending && !Shared.StopSending;
    frmMain.cmdStop.Left = sending ? 200 : 640;
    frmMain.cmdStop.Width = sending ? 860 : 400;
}

/// On a wide window the notes have room of their own; on a small one the user chooses between notes and
/// properties.
void ShowNotesOrProperties()
{
    constexpr int PropertiesFit = 15300, BothFit = 15360, AxesFit = 13560;
    const int width = frmMain.Window.Width;
    const bool checked = frmMain.chkViewFileNotes.Value == 1;
    Control& properties = frmMain.frProgramProperties;
    Control& axes = frmMain.frAxesProperties;
    if (checked) {
        properties.Visible = width > PropertiesFit;
        frmMain.chkViewFileNotes.Enabled = !properties.Visible;
        axes.Visible = width > AxesFit;
    } else {
        axes.Visible = properties.Visible = true;
        frmMain.chkViewFileNotes.Enabled = width <= BothFit;
    }
    if (!frmMain.chkViewToolPos.Enabled) frmMain.chkViewFileNotes.Enabled = false;

    // The code lists take the right column's upper half; the notes reach down to the window's edge or to
    // the frames in the bottom row.
    // A higher window gives the lists 6 parts of 10 of what it has more.
    constexpr int SmallestFrame = 550;
    const int listsEnd = 5360 + std::max(0, frmMain.Window.Height - MinHeight) * 6 / 10;
    const int bottom = frmMain.Window.Height - (checked || width > BothFit ? 840 : 2000);
    const int height = bottom - listsEnd;
    Place(frmMain.frFileNotes, width - 3700, listsEnd, 3600, height);
    frmMain.frFileNotes.Visible = height >= SmallestFrame;
    Place(frmMain.txtFileNotes, 130, 200, 3600 - 260, height - 260);
}

/// The tool bar shows what the width has room for, in this order of importance: Save, Set, New, Print.
void PlaceToolBar()
{
    const int width = frmMain.Window.Width;
    // 600 twips a button; rounded down, also below the smallest width.
    const int room = (width - 11400 - (width < 11400 ? 599 : 0)) / 600 + 5;
    auto& buttons = frmMain.cmdTopButtons;
    buttons[1].Visible = room >= 6;
    buttons[2].Visible = room >= 8;
    buttons[3].Visible = room >= 9;
    buttons[4].Visible = room >= 7;
    int left = 120;
    for (Control& button : buttons) {
        if (!button.Visible) continue;
        button.Left = left;
        left += 600;
    }
}

} // namespace

Control& OptionOfMachine(MachineKind machine)
{
    switch (machine) {
    case MachineKind::MK2: return frmMain.optSettingsMK2;
    case MachineKind::MK4: return frmMain.optSettingsMK4;
    case MachineKind::F1: break;
    }
    return frmMain.optSettingsF1CNC;
}

void ShowLineColors()
{
    frmMain.lblSettingsIncrColor.Back = static_cast<int>(Shared.IncrColor);
    frmMain.lblSettingsAbsColor.Back = static_cast<int>(Shared.AbsColor);
    constexpr int White = 16777215;
    for (Control* label : {&frmMain.lblSettingsIncrColor, &frmMain.lblSettingsAbsColor}) {
        label->Fore = label->Back == White ? 0 : White;
    }
}

void ApplyMachine()
{
    MakeFormCaption();
    MakeToolpositionColums();
    MakeLinePropertiesColumns();
    MakeMachineTimeColumn();
    ControlsPositioning();
    frmMain.lblGMcode.Text = "G";
    SetUnits(Shared.Metric);
}

Control& ShowUnits()
{
    const bool metric = Shared.Metric, mill = Shared.Machine == MachineKind::F1;
    const bool horizontal = mill && Shared.Horizontal;
    frmMain.mnuMMtoINCH.Enabled = metric;
    frmMain.mnuINCHtoMM.Enabled = !metric;
    frmMain.lblEntryUnits.Text = Tr(metric ? "1/100 mm: 1000 = 10.00 mm" : "1/1000 inch: 1000 = 1.000 inch");
    const auto row = std::find_if(std::begin(UnitsTable), std::end(UnitsTable), [&](const UnitsRow& units) {
        return units.Mill == mill && units.Metric == metric && units.Horizontal == horizontal;
    });
    frmMain.lblPPUnits.Text = Tr(row->Caption);
    return frmMain.*row->Option;
}

void SetUnits(bool metric)
{
    Shared.Metric = metric;
    Choose(ShowUnits());
}

void ControlsPositioning()
{
    if (Shared.Minimized) return;
    if (!Shared.Maximized) {
        frmMain.Window.Width = std::max(frmMain.Window.Width, MinWidth);
        frmMain.Window.Height = std::max(frmMain.Window.Height, MinHeight);
    }
    PlacePanes();
    PlaceList();
    PlaceRunButtons();
    ShowLineColors();
    if (!IsHelpUp()) HideAxesPictures();
    ShowPaths();
    ApplyProfileToControls();

    const Profile& profile = ActiveProfile();
    lvCncProgram.Widths[CellN] = profile.WidthN;
    lvCncProgram.Widths[CellX] = profile.WidthX;
    lvCncProgram.Widths[CellY] = profile.WidthY;
    lvCncProgram.Widths[CellH] = profile.WidthH;
    ShowNotesOrProperties();
    PlaceToolBar();
    MakeCommentColumn();
    frmMain.lblPPMachineType.Text = profile.Name;
}

void ShowPaths()
{
    frmMain.lblPath.ToolTip = frmMain.lblPath.Text;
    frmMain.txtSettingsFileName.Text = FileNameOf(frmMain.lblPath.Text);
    frmMain.txtSettingsPathName.Text = frmMain.lblPath.Text;
    frmMain.txtSettingsAppPathName.Text = ThePlatform->ProgramFolder();
    frmMain.txtSettingsAppDataFolderName.Text = AppDataPath();
}

void MakeFormCaption()
{
    const std::string gap(20, ' ');
    frmMain.Window.Text = std::string(ProductName) + "  " + ProductVersion + gap +
                          OptionOfMachine(Shared.Machine).Text + gap + FileNameOf(frmMain.lblPath.Text);
}
