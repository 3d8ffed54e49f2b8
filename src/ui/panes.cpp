#include "ui/panes.h"

#include "core/control_names.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "ui/focus.h"

#include <algorithm>

namespace {

using W = MainWindow;

/// What the lock of the window takes hold of, beside the tool bar.
constexpr Control W::*Locked[] = {
    &W::mnuFile,
    &W::mnuSettings,
    &W::mnuXfer,
    &W::mnuConvert,
    &W::mnuHelp,
    &W::frControlPanel,
    &W::frSetReplace,
    &W::txtFeedA,
    &W::txtFeedB,
    &W::frView,
    &W::chkViewToolPos,
    &W::chkViewLineProperties,
    &W::chkViewGcode,
    &W::chkViewFileNotes,
    &W::chkViewMachineTime,
    &W::frProgramProperties,
    &W::lblPPMachineTypeTXT,
    &W::lblPPMachineType,
    &W::lblPPUnitsTXT,
    &W::lblPPUnits,
    &W::lblPPLinesTXT,
    &W::lblPPLinesExe,
    &W::lblPPLinesExeTXT,
    &W::lblPPLines,
    &W::lblPPMachineTimeTXT,
    &W::lblPPMachineTime,
    &W::frAxesProperties,
    &W::lblAxesMin,
    &W::lblAxesMax,
    &W::lblAxesTravel,
    &W::frXAxis,
    &W::lblXAxisMin,
    &W::lblXAxisMax,
    &W::lblXAxisTravel,
    &W::frYaxis,
    &W::lblYAxisMin,
    &W::lblYAxisMax,
    &W::lblYAxisTravel,
    &W::frZAxis,
    &W::lblZAxisMin,
    &W::lblZAxisMax,
    &W::lblZAxisTravel,
    &W::lstMK4Gcodes,
    &W::lstMK2Gcodes,
    &W::lstMK4Mcodes,
    &W::lstMK2Mcodes,
    &W::frFileNotes,
    &W::txtFileNotes,
    &W::frEntry,
    &W::frCmdEditor1,
    &W::frCmdEditor2,
    &W::cmdInsert,
    &W::cmdRun,
    &W::cmdDelete,
    &W::cmdStep,
    &W::cmdStop,
    &W::cmdFeedA,
    &W::cmdFeedB,
};

} // namespace

void ControlsEnable(bool enable)
{
    Shared.ControlsEnabled = enable;
    for (Control& button : frmMain.cmdTopButtons) button.Enabled = enable;
    for (const auto control : Locked) (frmMain.*control).Enabled = enable;
    if (!Shared.RunMode) frmMain.frCmdEditor3.Enabled = enable;
    if (Shared.Transmitting) frmMain.cmdStop.Enabled = !Shared.StopSending;
    if (!enable) return;
    EnableByProfile();
    frmMain.cmdFeedA.Enabled = frmMain.cmdFeedB.Enabled = Shared.FeedButtonsOn;
}

void EnableByProfile()
{
    const bool mill = IsMill();
    for (Control* yAxis :
         {&frmMain.frYaxis, &frmMain.lblYAxisMin, &frmMain.lblYAxisMax, &frmMain.lblYAxisTravel}) {
        yAxis->Enabled = mill;
    }
    frmMain.frSettingsLathe.Enabled = !mill;
    frmMain.frSettingsMill.Enabled = mill;
    for (Control* color : {&frmMain.frSettingsIncr, &frmMain.frSettingsAbs, &frmMain.lblSettingsIncrColor,
                           &frmMain.lblSettingsAbsColor}) {
        color->Enabled = Shared.Machine != MachineKind::MK2;
    }
}

bool Busy()
{
    return Shared.RunLocked || Shared.Transmitting || frmMain.frRXcode.Visible;
}

bool RefuseWhileBusy()
{
    if (!Busy()) return false;
    frmMain.lvCncProgram.ToolTip =
        Tr(Shared.Transmitting ? "A program is being transmitted: press Stop first"
           : Shared.RunLocked  ? "The program is being stepped through: press Stop first"
                               : "Received code is shown: press Exit Transfer Mode first");
    return true;
}

void cmdReturn_Click()
{
    if (!Busy()) {
        ControlsEnable(true);
    } else {
        frmMain.mnuHelp.Enabled = false; // a page had opened it
    }
    for (Control* over :
         {&frmMain.cmdReturn, &frmMain.txtHelpFind, &frmMain.rtfAbout, &frmMain.lstAbout, &frmMain.rtfHelp,
          &frmMain.rtfGcodeHelpMK2, &frmMain.rtfGcodeHelpMK4, &frmMain.picXYaxes, &frmMain.picZXaxes}) {
        over->Visible = false;
    }
}

bool IsHelpUp()
{
    return frmMain.rtfHelp.Visible || frmMain.rtfGcodeHelpMK2.Visible || frmMain.rtfGcodeHelpMK4.Visible ||
           frmMain.rtfAbout.Visible;
}

void HideAxesPictures()
{
    frmMain.picXYaxes.Visible = false;
    frmMain.picZXaxes.Visible = false;
    frmMain.cmdReturn.Visible = false;
}

void HideInputFields()
{
    for (Control* label : {&frmMain.lblXI, &frmMain.lblYJ, &frmMain.lblZK, &frmMain.lblFKTL, &frmMain.lblH}) {
        label->Visible = false;
    }
    for (Control* field : {&frmMain.txtXI, &frmMain.txtYJ, &frmMain.txtZK, &frmMain.txtFKTL, &frmMain.txtH}) {
        field->Visible = false;
        field->Tag.clear();
        field->ToolTip.clear();
    }
}

void ClearInputTexts()
{
    for (Control* field : {&frmMain.txtXI, &frmMain.txtYJ, &frmMain.txtZK, &frmMain.txtFKTL, &frmMain.txtH,
                           &frmMain.txtComment}) {
        field->Text.clear();
    }
}

void ClearAxesProperties()
{
    for (Control* label : {&frmMain.lblXAxisMin, &frmMain.lblYAxisMin, &frmMain.lblZAxisMin,
                           &frmMain.lblXAxisMax, &frmMain.lblYAxisMax, &frmMain.lblZAxisMax,
                           &frmMain.lblXAxisTravel, &frmMain.lblYAxisTravel, &frmMain.lblZAxisTravel}) {
        label->Text = "0";
    }
}

void ShowLineCount()
{
    frmMain.lblPPLines.Text = std::to_string(LineCount());
}

namespace {

bool HasMessage(const ProgramLine& row)
{
    return row[CellError].find_first_not_of(' ') != std::string::npos;
}

std::string MessageText()
{
    if (!frmMain.lvCncProgram.ToolTip.empty() && Busy()) return frmMain.lvCncProgram.ToolTip;
    if (!Shared.ErrorsPresent) return "";
    const auto lines = lvCncProgram.Rows.begin() + LineCount();
    const auto count = std::count_if(lvCncProgram.Rows.begin(), lines, HasMessage);
    if (count == 0) return "";
    const int selected = lvCncProgram.Selected;
    const bool own = selected >= 1 && selected <= LineCount() && HasMessage(lvCncProgram.Row(selected));
    // The line that the column's title names, so that both speak of one.
    const int named = Shared.ErrorLine + 1;
    const bool titled = named >= 1 && named <= LineCount() && HasMessage(lvCncProgram.Row(named));
    const auto at = [](int row) { return lvCncProgram.Rows.begin() + (row - 1); };
    const auto shown = own      ? at(selected)
                       : titled ? at(named)
                                : std::find_if(lvCncProgram.Rows.begin(), lines, HasMessage);
    std::string text = "N" + std::string(Trimmed((*shown)[CellN])) + ":  " + (*shown)[CellError];
    if (count > 1) text += "     (" + Tr("%1 lines with messages", {std::to_string(count)}) + ")";
    return text;
}

} // namespace

void ShowLineMessage()
{
    frmMain.lblMessage.Text = MessageText();
}

namespace {

/// What may be typed: the limits of a field, or what its place is for.
std::string HintOf(const Control& focused)
{
    const size_t to = focused.Tag.find("TO");
    if (to == std::string::npos) {
        const bool letters = &focused == &frmMain.txtGMcode && Shared.Machine != MachineKind::MK2;
        return letters ? Tr("%1; %2", {FirstTipOf(focused), focused.ToolTip}) : FirstTipOf(focused);
    }
    std::string hint = Tr("%1 to %2", {focused.Tag.substr(0, to), focused.Tag.substr(to + 2)});
    constexpr std::string_view Lengths = "X Y Z I J K R D";
    if (Lengths.find(AccessibleName(focused)) != std::string_view::npos)
        hint += ", " + Tr("in %1", {frmMain.lblEntryUnits.Text});
    return hint;
}

} // namespace

void ShowHint()
{
    const Control* const focused = Focused();
    std::string& hint = frmMain.lblHint.Text;
    hint.clear();
    if (focused == nullptr || IsHelpUp()) return;
    if (Shared.RunLocked) {
        const bool stops = IsUsable(frmMain.cmdStop), steps = IsUsable(frmMain.cmdStep);
        if (steps)
            hint = Tr(stops ? "[ALT-S] runs the selected line, [ALT-P] stops"
                            : "[ALT-S] runs the selected line");
        if (stops && !steps) hint = Tr("[ALT-P] stops");
        return;
    }
    if (Busy()) return;
    if (focused->In != &frmMain.frEntry && focused != &frmMain.lvCncProgram) return;
    // A line that is there already is named: it will be replaced.
    const int row = lvCncProgram.Selected;
    const bool replaces = focused != &frmMain.lvCncProgram && row >= 1 && row <= LineCount();
    if (replaces) hint = "N" + std::string(Trimmed(lvCncProgram.Row(row)[CellN])) + "  ";
    hint += Tr("%1: %2", {AccessibleName(*focused), HintOf(*focused)});
}
