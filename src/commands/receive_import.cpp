#include "commands/receive_import.h"

#include "commands/load.h"
#include "core/code_page.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "editor/run.h"
#include "platform/platform.h"
#include "serial/receive.h"
#include "ui/focus.h"
#include "ui/panes.h"

void cmdReceiveImport_Click()
{
    const std::string text(Trimmed(frmMain.txtRX.Text));
    if (text.empty()) {
        frmMain.txtRX.Text.clear();
        ShowMessage(TextOf(Messages::NoLines));
        return;
    }
    // The rows that a transmission holds stay as they are. A run ends: it has nothing to lose.
    if (Shared.Transmitting) {
        RefuseWhileBusy();
        return;
    }
    const bool ran = Shared.RunLocked;
    if (ran) cmdStop_Click();
    if (LoadUnnamed(ToCodePage(text), "Receive.txt")) {
        ForgetReceived();
    } else if (ran) {
        ControlsEnable(false);
        SetFocus(frmMain.txtRX);
    }
}
