#include "commands/receive_import.h"

#include "commands/load.h"
#include "core/code_page.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "platform/platform.h"
#include "serial/receive.h"
#include "ui/panes.h"

void cmdReceiveImport_Click()
{
    const std::string text(Trimmed(frmMain.txtRX.Text));
    if (text.empty()) {
        frmMain.txtRX.Text.clear();
        ShowMessage(TextOf(Messages::NoLines));
        return;
    }
    // The rows that a run or a transmission holds stay as they are.
    if (Shared.RunLocked || Shared.Transmitting) {
        RefuseWhileBusy();
        return;
    }
    if (LoadReceived(ToCodePage(text))) ForgetReceived();
}
