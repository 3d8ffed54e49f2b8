#include "commands/program.h"

#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "interpreter/interpreter.h"
#include "interpreter/limits.h"
#include "platform/platform.h"
#include "ui/columns.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/profile_controls.h"
#include "ui/redraw.h"

namespace {

void SelectMachine(MachineKind machine)
{
    if (Shared.PositioningControls) return;
    mnuNew_Click();
    // Still changed: the user refused, and the options go back to the old machine.
    if (!Shared.Changed) Shared.Machine = machine;
    ApplyMachine();
    if (Shared.Machine != machine) return;
    (machine == MachineKind::F1 ? frmMain.picXYaxes : frmMain.picZXaxes).Visible = true;
    frmMain.cmdReturn.Visible = true;
}

void SelectUnits(bool metric)
{
    SetUnits(metric);
    Shared.Changed = true;
    Interpreter();
    ClampFeeds();
}

void SelectMillUnits(bool metric, bool horizontal)
{
    Shared.Horizontal = horizontal;
    SelectUnits(metric);
}

} // namespace

bool MayClear()
{
    if (LineCount() == 0 || !Shared.Changed) return true;
    MessageBox box{TextOf(Messages::ClearAnyway), TextOf(Messages::Clear), Buttons::YesNo};
    box.SafeIsNo = true;
    return ThePlatform->Show(box) == Answer::Yes;
}

void ClearProgram_Click()
{
    if (RefuseWhileBusy()) return;
    cmdReturn_Click();
    if (!MayClear()) return;
    lvCncProgram.Rows.clear();
    lvCncProgram.Selected = 0;
    for (Control* text : {&frmMain.txtGMcode, &frmMain.txtComment, &frmMain.txtFileNotes, &frmMain.lblPath,
                          &frmMain.lblTransfer}) {
        text->Text.clear();
    }
    for (Control* list : {&frmMain.lstMK2Gcodes, &frmMain.lstMK4Gcodes, &frmMain.lstMK4Mcodes,
                          &frmMain.lstF1Gcodes, &frmMain.lstF1Mcodes}) {
        list->Index = -1;
    }
    frmMain.frEntry.Text = Shared.EntryCaption;
    Shared.Changed = Shared.ArcsPresent = Shared.CodeToggled = Shared.FeedButtonsOn = false;

    ClearAxesProperties();
    ClearInputTexts();
    ShowLineCount();
    MakeLinePropertiesColumns();
    ApplyMachine();
    Interpreter();
    FollowEdit();
    HideInputFields();
    SetFocus(frmMain.txtGMcode);
}

void mnuNew_Click()
{
    ClearProgram_Click();
    AddBlankLine(true);
}

void optSettingsMK2_Click()
{
    SelectMachine(MachineKind::MK2);
}

void optSettingsMK4_Click()
{
    SelectMachine(MachineKind::MK4);
}

void optSettingsF1CNC_Click()
{
    SelectMachine(MachineKind::F1);
}

void optSettingsMm_click()
{
    SelectUnits(true);
}

void optSettingsInch_click()
{
    SelectUnits(false);
}

void optSettingsVmm_click()
{
    SelectMillUnits(true, false);
}

void optSettingsVinch_click()
{
    SelectMillUnits(false, false);
}

void optSettingsHmm_click()
{
    SelectMillUnits(true, true);
}

void optSettingsHinch_click()
{
    SelectMillUnits(false, true);
}

void chkViewToolPos_Click()
{
    MakeToolpositionColums();
    Interpreter();
}

void chkViewLineProperties_Click()
{
    MakeLinePropertiesColumns();
    Interpreter();
}

void chkViewMachineTime_Click()
{
    MakeMachineTimeColumn();
    Interpreter();
}

void chkSettingsAutowidth_Click()
{
    Shared.AutoWidthOn = frmMain.chkSettingsAutowidth.Value == 1;
    AutoWidth();
}
