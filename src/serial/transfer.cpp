#include "serial/transfer.h"

#include "core/failure.h"
#include "core/main_window.h"
#include "core/shared_state.h"
#include "serial/receive.h"
#include "serial/setup.h"
#include "serial/transmit.h"

namespace {

std::string BoxText(const PortFailure& failure, std::string_view procedure, TroubleBox box)
{
    const std::string description(FailureDescription(failure.Number));
    const std::string& reason = failure.Reason;
    switch (box) {
    case TroubleBox::Problem: return reason.empty() ? "port problem" : "port problem: " + reason;
    case TroubleBox::Plain: return reason.empty() ? description : reason;
    case TroubleBox::Numbered: break;
    }
    const std::string numbered =
        std::to_string(failure.Number) + "  " + description + " in " + std::string(procedure);
    return reason.empty() ? numbered : reason + "\r\n\r\n" + numbered;
}

} // namespace

void ShowTransfer()
{
    ShowReception();
    const bool receiving = frmMain.frRXcode.Visible && !frmMain.txtRX.Text.empty();
    std::string& shown = frmMain.lblTransfer.Text;
    if (Shared.Transmitting) shown = TransmissionText() + (receiving ? "; " + ReceptionText() : "");
    if (!Shared.Transmitting && receiving) shown = ReceptionText();
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
