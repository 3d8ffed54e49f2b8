#include "editor/run.h"

#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "editor/fields.h"
#include "interpreter/interpreter.h"
#include "platform/platform.h"
#include "ui/panes.h"

void cmdRun_Click()
{
    if (Busy()) return;
    if (LineCount() < 1) {
        ShowMessage(TextOf(Messages::NoLines));
        return;
    }
    HideAxesPictures();
    Shared.RunMode = Shared.RunLocked = true;
    ControlsEnable(false);
    frmMain.cmdRun.Visible = false;
    frmMain.cmdStep.Enabled = frmMain.cmdStep.Visible = true;
    frmMain.cmdStop.Visible = true;
    Interpreter();
}

void cmdStep_Click()
{
    frmMain.cmdStop.Enabled = true;
    Shared.StepRequested = true;
}

void cmdStop_Click()
{
    if (Shared.Transmitting) {
        // The transmission ends itself, behind the line that is going out.
        Shared.StopSending = true;
        frmMain.cmdStop.Enabled = false;
        return;
    }
    frmMain.cmdRun.Visible = true;
    frmMain.cmdStep.Enabled = true;
    Shared.RunMode = Shared.RunLocked = false;
    frmMain.lvCncProgram.ToolTip.clear();
    Interpreter();
    ControlsEnable(true);
    FirstFieldFocus();
}
