#include "serial/transfer.h"

#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "serial/receive.h"
#include "serial/setup.h"
#include "serial/transmit.h"

namespace {

std::string BoxText(const PortFailure& failure, std::string_view procedure, TroubleBox box)
{
    const std::string description = Tr(FailureDescription(failure.Number)), reason = ReasonOf(failure);
    switch (box) {
    case TroubleBox::Problem:
        return reason.empty() ? Tr("port problem") : Tr("%1: %2", {Tr("port problem"), reason});
    case TroubleBox::Plain: return reason.empty() ? description : reason;
    case TroubleBox::Numbered: break;
    }
    const std::string numbered = Tr("%1  %2 in %3", {std::to_string(failure.Number), description, procedure});
    return reason.empty() ? numbered : reason + "\r\n\r\n" + numbered;
}

} // namespace

std::string ReasonOf(const PortFailure& failure)
{
    return Tr(failure.Reason, {failure.Names[0], Tr(failure.Names[1])});
}

void ShowTransfer()
{
    ShowReception();
    const bool receiving = frmMain.frRXcode.Visible && !frmMain.txtRX.Text.empty();
    if (!receiving && !Shared.Transmitting) return;
    // How a transmission beside a reception goes, or ended, stands behind it.
    const std::string sending = Shared.Transmitting ? TransmissionText() : TransmissionResult();
    std::string& shown = frmMain.lblTransfer.Text;
    shown = receiving ? ReceptionText() : sending;
    if (receiving && !sending.empty()) shown = Tr("%1; %2", {shown, sending});
}

void PortTrouble(const PortFailure& failure, std::string_view procedure, TroubleBox box)
{
    LogError(failure.Number, FailureDescription(failure.Number), procedure);
    if (!failure.Refused) {
        ThePort->Close();
        frmMain.chkEnableCom.Value = 0;
        chkEnableCom_click();
    }
    ShowMessage(BoxText(failure, procedure, box), "", Icon::Exclamation);
}
