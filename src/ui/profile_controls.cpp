#include "ui/profile_controls.h"

#include "core/app_data.h"
#include "core/main_window.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/text.h"
#include "ui/choice.h"
#include "ui/columns.h"
#include "ui/panes.h"

namespace {

/// What the units are called, and the option that stands for them.
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
    {false, true, true, "1/100 mm", &MainWindow::optSettingsMm},
    {false, true, false, "1/100 mm", &MainWindow::optSettingsMm},
    {false, false, true, "1/1000 \"", &MainWindow::optSettingsInch},
    {false, false, false, "1/1000 \"", &MainWindow::optSettingsInch},
};

Control& OptionOf(MachineKind machine)
{
    switch (machine) {
    case MachineKind::MK2: return frmMain.optSettingsMK2;
    case MachineKind::MK4: return frmMain.optSettingsMK4;
    case MachineKind::F1: break;
    }
    return frmMain.optSettingsF1CNC;
}

/// Frames, lists and buttons that only some machines use.
void ApplyProfileToControls()
{
    const MachineKind machine = Shared.Machine;
    const bool mill = machine == MachineKind::F1;
    const bool mk2 = machine == MachineKind::MK2;
    Shared.PositioningControls = true;
    Choose(OptionOf(machine));
    Shared.PositioningControls = false;

    frmMain.lstMK2Gcodes.Visible = frmMain.lstMK2Mcodes.Visible = mk2;
    frmMain.lstMK4Gcodes.Visible = frmMain.lstMK4Mcodes.Visible = machine == MachineKind::MK4;
    frmMain.lstF1Gcodes.Visible = frmMain.lstF1Mcodes.Visible = mill;
    frmMain.cmdTopButtons[5].Visible = !mill;
    frmMain.cmdTopButtons[6].Visible = mill;
    for (Control* yAxis :
         {&frmMain.frYaxis, &frmMain.lblYAxisMin, &frmMain.lblYAxisMax, &frmMain.lblYAxisTravel}) {
        yAxis->Enabled = mill;
    }
    frmMain.frSettingsLathe.Enabled = !mill;
    frmMain.frSettingsMill.Enabled = mill;
    for (Control* color : {&frmMain.frSettingsIncr, &frmMain.frSettingsAbs, &frmMain.lblSettingsIncrColor,
                           &frmMain.lblSettingsAbsColor}) {
        color->Enabled = !mk2;
    }
}

} // namespace

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

void SetUnits(bool metric)
{
    Shared.Metric = metric;
    frmMain.mnuMMtoINCH.Enabled = metric;
    frmMain.mnuINCHtoMM.Enabled = !metric;
    const bool mill = Shared.Machine == MachineKind::F1;
    for (const UnitsRow& row : UnitsTable) {
        if (row.Mill != mill || row.Metric != metric || row.Horizontal != Shared.Horizontal) continue;
        frmMain.lblPPUnits.Text = row.Caption;
        Choose(frmMain.*row.Option);
    }
}

void ControlsPositioning()
{
    frmMain.lblPath.ToolTip = frmMain.lblPath.Text;
    HideAxesPictures();
    ApplyProfileToControls();

    const Profile& profile = ActiveProfile();
    lvCncProgram.Widths[CellN] = profile.WidthN;
    lvCncProgram.Widths[CellX] = profile.WidthX;
    lvCncProgram.Widths[CellY] = profile.WidthY;
    lvCncProgram.Widths[CellH] = profile.WidthH;
    MakeCommentColumn();
    frmMain.lblPPMachineType.Text = profile.Name;
}

void MakeFormCaption()
{
    const std::string gap(20, ' ');
    frmMain.Window.Text = std::string(ProductName) + "  " + ProductVersion + gap +
                          OptionOf(Shared.Machine).Text + gap + FileNameOf(frmMain.lblPath.Text);
}
