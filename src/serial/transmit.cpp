#include "serial/transmit.h"

#include "core/code_page.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/program_list.h"
#include "core/task.h"
#include "core/text.h"
#include "editor/lines.h"
#include "files/writer.h"
#include "interpreter/machine_time.h"
#include "platform/platform.h"
#include "serial/transfer.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/profile_controls.h"

#include <algorithm>
#include <optional>

namespace {

constexpr const char* Procedure = "mnuTX_Click";
/// The columns of a line that the machines read.
constexpr size_t MachineColumns = 30;

/// The transmission that runs, or the last one.
struct Transmission {
    std::vector<std::string> Lines;
    size_t HandedOver = 0;
    /// Bytes of the lines that have not been handed over, with their line ends.
    size_t BytesLeft = 0;
    double CharacterTime = 0;
    /// "N05" of the first line with a message, "" for none.
    std::string FirstMessage;
    TransmissionEnd End = TransmissionEnd::Running;
    std::optional<PortFailure> Failure;
    /// It ended while the receive pane was up.
    bool BesidePane = false;
    /// Scroll position and selection to come back to.
    int TopRow = 1, Selected = 0;
};
Transmission Sending;
TaskSlot SendSlot;

std::string FirstLineWithMessage()
{
    for (int i = 1; i <= LineCount(); ++i) {
        const ProgramLine& row = lvCncProgram.Row(i);
        if (!IsBlank(row[CellError])) return "N" + std::string(Trimmed(row[CellN]));
    }
    return "";
}

/// Cancels the receive mode of the machine.
std::string StopMark()
{
    return Shared.Metric ? "M" : "\"";
}

/// Brings the row of the line that goes out into view and selects it.
void FollowLine(std::string_view line)
{
    const double row = RowOfLine(line, Shared.Machine);
    if (row <= 1) return;
    Attempt(Procedure, [&] {
        if (row > lvCncProgram.RowCount()) throw RunTimeFailure{Failures::SubscriptOutOfRange};
        SelectRow(static_cast<int>(row));
    });
}

bool HandOver(const std::string& line)
{
    Sending.Failure = ThePort->Write(line + std::string(LineEnd));
    return !Sending.Failure;
}

/// Brings the window back, as far as a receive pane that came up meanwhile doesn't hold it.
void GiveWindowBack()
{
    Shared.Transmitting = Shared.StopSending = false;
    lvCncProgram.TopRow = Sending.TopRow;
    if (Sending.Selected <= lvCncProgram.RowCount()) lvCncProgram.Selected = Sending.Selected;
    frmMain.lvCncProgram.ToolTip.clear();
    const bool receiving = Sending.BesidePane = frmMain.frRXcode.Visible;
    cmdReturn_Click();
    ControlsPositioning();
    if (receiving) {
        frmMain.frCmdEditor3.Visible = false;
        SetFocus(frmMain.txtRX);
    } else {
        ControlsEnable(true);
        SetFocus(frmMain.lvCncProgram);
    }
}

void EndTransmission()
{
    frmMain.lblTransfer.Text = TransmissionText();
    GiveWindowBack();
    if (Sending.Failure) {
        PortTrouble(*Sending.Failure, Procedure);
    } else if (frmMain.frRXcode.Visible && ThePort->IsOpen()) {
        // What comes in meanwhile came with the parameters of the transmission.
        if (const auto failure = ThePort->SetLine(Shared.SettingsRX)) PortTrouble(*failure, Procedure);
    }
}

Task Transmit()
{
    while (Sending.HandedOver < Sending.Lines.size()) {
        co_await SendSlot.Until([] { return Sending.Failure || Shared.StopSending || ThePort->HasRoom(); });
        if (Sending.Failure) break;
        if (Shared.StopSending) {
            Sending.End = TransmissionEnd::Stopped;
            HandOver(StopMark());
            break;
        }
        const std::string& line = Sending.Lines[Sending.HandedOver];
        if (!HandOver(line)) break;
        ++Sending.HandedOver;
        Sending.BytesLeft -= line.size() + LineEnd.size();
        FollowLine(line);
    }
    if (!Sending.Failure) co_await SendSlot.Until([] { return Sending.Failure || ThePort->IsEmpty(); });
    if (Sending.Failure) {
        Sending.End = TransmissionEnd::Failed;
    } else if (Sending.End == TransmissionEnd::Running) {
        Sending.End = TransmissionEnd::Sent;
    }
    EndTransmission();
}

void BeginTransmission()
{
    Sending = {};
    Sending.TopRow = lvCncProgram.TopRow;
    Sending.Selected = lvCncProgram.Selected;
    AddEndOfProgram();
    ControlsEnable(false);
    ControlsPositioning();
    Sending.Lines = LinesToSend(ToCodePage(GenerateAll()), frmMain.chkTXfilter.Value == 1);
    for (const std::string& line : Sending.Lines) Sending.BytesLeft += line.size() + LineEnd.size();
    Sending.CharacterTime = ReadLineParameters(Shared.SettingsTX).value_or(LineParameters{}).CharacterTime();
    Sending.FirstMessage = FirstLineWithMessage();
    SendSlot.Start(Transmit());
}

/// Opens the port and sets it up, so that not even the first line goes out garbled.
bool PreparePort()
{
    std::optional<PortFailure> failure;
    if (!ThePort->IsOpen()) failure = ThePort->Open();
    if (!failure) failure = ThePort->SetLine(Shared.SettingsTX);
    if (failure) PortTrouble(*failure, Procedure);
    return !failure;
}

} // namespace

void mnuTX_Click()
{
    if (RefuseWhileBusy()) return;
    if (LineCount() < 1) {
        ShowMessage(TextOf(Messages::NoLines));
        return;
    }
    if (!Shared.ComEnabled) {
        ThePlatform->Beep();
        return;
    }
    if (!PreparePort()) return;
    Shared.Transmitting = true;
    Shared.StopSending = false;
    BeginTransmission();
}

void ResumeTransmission()
{
    SendSlot.Resume();
}

void AbandonTransmission()
{
    SendSlot.End();
    if (Shared.Transmitting) ThePort->Close();
    Shared.Transmitting = Shared.StopSending = false;
}

void ResetTransmission()
{
    SendSlot.End();
    Sending = {};
}

void TransmissionLostPort()
{
    Sending.Failure = ThePort->LastFailure();
}

TransmissionEnd HowTransmissionEnded()
{
    return Sending.End;
}

std::string TransmissionText()
{
    const std::string all = std::to_string(Sending.Lines.size());
    // Until it has ended, the line that was handed over last is still going out.
    const bool ended = Sending.End == TransmissionEnd::Sent || Sending.End == TransmissionEnd::Stopped;
    const bool going = !ended && Sending.HandedOver > 0 && (Sending.Failure || !ThePort->HasRoom());
    const size_t sent = Sending.HandedOver - (going ? 1 : 0);
    std::string text = Tr("%1 of %2 lines sent", {std::to_string(sent), all});
    switch (Sending.End) {
    case TransmissionEnd::Sent: return text;
    case TransmissionEnd::Stopped:
    case TransmissionEnd::Failed: return Tr("%1: %2", {Tr("Only part of the program was sent"), text});
    case TransmissionEnd::Running: break;
    }
    const size_t bytes = Sending.BytesLeft + (going ? Sending.Lines[sent].size() + LineEnd.size() : 0);
    const double seconds = static_cast<double>(bytes) * Sending.CharacterTime;
    text += ", " + Tr("%1 left", {MakeTimeString(static_cast<float>(seconds))});
    if (!Sending.FirstMessage.empty()) text += ", " + Tr("first message in %1", {Sending.FirstMessage});
    return text;
}

std::string TransmissionResult()
{
    return Sending.BesidePane ? TransmissionText() : "";
}

void ForgetTransmissionResult()
{
    Sending.BesidePane = false;
}

std::vector<std::string> LinesToSend(std::string_view text, bool filter)
{
    std::vector<std::string> lines;
    bool begun = !filter;
    while (!text.empty()) {
        // Lines end at CR LF, or at a CR alone.
        const size_t end = std::min(text.find('\r'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + (text.substr(end).starts_with(LineEnd) ? 2 : 1), text.size()));
        begun = begun || line.starts_with('%');
        if (!begun || line.empty() || line.starts_with(';')) continue;
        if (filter) line = line.substr(0, MachineColumns);
        lines.emplace_back(line);
    }
    return lines;
}

double RowOfLine(std::string_view line, MachineKind machine)
{
    // The number stands in columns 5 and 6 on MK2, 4 to 6 on the others.
    const size_t first = machine == MachineKind::MK2 ? 4 : 3;
    constexpr size_t End = 6;
    if (line.size() <= first) return 1;
    return Val(line.substr(first, End - first)) + 1;
}
