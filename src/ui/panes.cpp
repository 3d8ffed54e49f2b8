#include "ui/panes.h"

#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"

void ControlsEnable(bool enable)
{
    Shared.ControlsEnabled = enable;
}

void cmdReturn_Click()
{
    ControlsEnable(true);
    for (Control* over :
         {&frmMain.cmdReturn, &frmMain.rtfAbout, &frmMain.lstAbout, &frmMain.rtfHelp,
          &frmMain.rtfGcodeHelpMK2, &frmMain.rtfGcodeHelpMK4, &frmMain.picXYaxes, &frmMain.picZXaxes}) {
        over->Visible = false;
    }
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
