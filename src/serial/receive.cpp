#include "serial/receive.h"

#include "core/app_data.h"
#include "core/code_page.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "files/reader.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "serial/transfer.h"
#include "serial/transmit.h"
#include "ui/focus.h"
#include "ui/panes.h"

#include <algorithm>

namespace {

using W = MainWindow;

constexpr Control W::*EditorButtons[] = {&W::frCmdEditor1, &W::frCmdEditor2, &W::frCmdEditor3};

/// The file of a text that was neither saved nor imported, "" without a folder of the user.
std::string KeptFile()
{
    const std::string folder = AppDataPath();
    return folder.empty() ? "" : folder + "/Receive.txt";
}

/// The text of the pane was neither saved nor imported.
bool Unsaved = false;

/// A machine that sends on: what comes within this time belongs to what came before, also behind a pane that
/// was left or cleared meanwhile. Controls pause for less between two lines.
constexpr double Silence = 2; // seconds
double CameLast = -Silence;
/// The kept bytes with which the stream in the pane began; "" when it began there.
std::string Beginning;

void SetText(std::string text)
{
    Control& box = frmMain.txtRX;
    box.Text = std::move(text);
    box.SelStart = static_cast<int>(CharacterCount(box.Text));
    box.SelLength = 0;
}

/// What comes, or is typed, from here on is a text of its own until it turns out to go on with a kept one.
void EmptyPane()
{
    SetText("");
    Unsaved = false;
    Beginning.clear();
}

/// Locks the editor and shows the pane. During a transmission Stop stays in its row.
void OpenPane()
{
    cmdReturn_Click();
    // The buttons of a run or of a transmission are its only way out; the window is locked already.
    if (!Busy()) ControlsEnable(false);
    for (const auto frame : EditorButtons) (frmMain.*frame).Visible = false;
    frmMain.frCmdEditor3.Visible = Shared.Transmitting;
    frmMain.frCmdRX.Visible = frmMain.frRXcode.Visible = true;
    EmptyPane();
    DropFocus(frmMain.txtRX); // the field that was left is judged when its line is written
    SetFocus(frmMain.txtRX);
}

void TakeCharacters()
{
    std::string bytes;
    const auto failure = ThePort->Read(bytes);
    // No news, or old: they came before the port was closed on purpose.
    if (bytes.empty() && (!failure || !ThePort->IsOpen())) return;
    const bool opens = !frmMain.frRXcode.Visible;
    if (opens) OpenPane();
    std::erase(bytes, '\0');
    Control& box = frmMain.txtRX;
    if (!bytes.empty()) {
        const double now = ThePlatform->Seconds();
        if (box.Text.empty()) {
            const bool goesOn = now - CameLast < Silence && FileExists(KeptFile());
            if (!goesOn || ReadWholeFile(KeptFile(), Beginning)) Beginning.clear();
            ForgetReceived(); // a stream begins
        }
        CameLast = now;
        SetText(std::move(box.Text) + FromCodePage(bytes));
        Unsaved = true;
    }
    if (!IsHelpUp()) SetFocus(box);
    if (failure) {
        PortTrouble(*failure, "MSComm1_OnComm", TroubleBox::Plain);
    } else if (opens && !Shared.Transmitting && ThePort->IsOpen()) {
        if (const auto refused = ThePort->SetLine(Shared.SettingsRX))
            PortTrouble(*refused, "MSComm1_OnComm", TroubleBox::Plain);
    }
}

void LosePort()
{
    // Old news: a write has told of it, or the port has been opened anew.
    if (ThePort->IsOpen() || !Shared.ComEnabled) return;
    if (Shared.Transmitting) {
        TransmissionLostPort();
        return;
    }
    PortTrouble(ThePort->LastFailure(), "MSComm1_OnComm", TroubleBox::Plain);
}

} // namespace

void mnuRX_Click()
{
    if (!Shared.ComEnabled || Shared.Transmitting || Shared.RunLocked) return;
    if (frmMain.frRXcode.Visible && !KeepReceived()) return;
    std::optional<PortFailure> failure;
    if (!ThePort->IsOpen()) failure = ThePort->Open();
    if (!failure) failure = ThePort->SetLine(Shared.SettingsRX);
    OpenPane();
    if (failure) PortTrouble(*failure, "mnuRX_Click", TroubleBox::Problem);
}

void MSComm1_OnComm(PortEvent event)
{
    switch (event) {
    case PortEvent::Sent: break; // a transmission that waits goes on when the event is over
    case PortEvent::Received: TakeCharacters(); break;
    case PortEvent::Failed: LosePort(); break;
    }
}

void cmdReceiveSave_Click()
{
    const std::string text(Trimmed(frmMain.txtRX.Text));
    if (text.empty()) {
        ShowMessage(TextOf(Messages::NoLines));
        return;
    }
    FileDialog dialog{FileDialog::Purpose::Save, "", ProgramFileFilter, ""};
    dialog.AsksBeforeReplacing = true;
    const std::string path = ThePlatform->AskForFile(dialog).value_or("");
    if (!path.empty()) Shared.DialogFile = path;
    if (path.empty()) {
        ShowMessage(TextOf(Messages::NoFile));
        return;
    }
    const std::string content = "%" + std::string(LineEnd) + "    " + text;
    if (const auto failure = ReplaceFile(path, ToCodePage(content))) {
        NoteFailure(failure->Number, "cmdReceiveSave_Click");
        ShowMessage(Tr("%1 could not be saved: %2", {path, Tr(failure->Reason)}), "", Icon::Exclamation);
        return;
    }
    ForgetReceived();
    ShowMessage(path + " " + TextOf(Messages::HasBeenSaved));
}

void cmdReceiveNew_Click()
{
    if (KeepReceived()) EmptyPane();
}

void cmdReceiveLast_Click()
{
    std::string bytes;
    if (const auto failure = ReadWholeFile(KeptFile(), bytes)) {
        NoteFailure(failure->Number, "cmdReceiveLast_Click");
        ShowMessage(KeptFile() + " " + Tr("can't be read: %1", {Tr(failure->Reason)}), "", Icon::Exclamation);
        return;
    }
    SetText(FromCodePage(bytes));
    Unsaved = true;
    Beginning.clear();
    SetFocus(frmMain.txtRX);
}

void cmdReceiveExit_Click()
{
    if (KeepReceived()) CloseReceivePane();
}

void txtRX_Change()
{
    // A kept text gives way to another stream, not to what is typed: that is kept behind it.
    if (!Unsaved && Beginning.empty() && ReadWholeFile(KeptFile(), Beginning)) Beginning.clear();
    Unsaved = !frmMain.txtRX.Text.empty();
}

void CloseReceivePane()
{
    frmMain.frRXcode.Visible = frmMain.frCmdRX.Visible = false;
    for (const auto frame : EditorButtons) (frmMain.*frame).Visible = true;
    SetText("");
    Unsaved = false;
    frmMain.lblTransfer.Text = TransmissionResult();
    ForgetTransmissionResult();
    frmMain.lvCncProgram.ToolTip.clear();
    cmdReturn_Click();
}

void ForgetReceived()
{
    Unsaved = false;
    if (const std::string kept = KeptFile(); FileExists(kept) && Beginning.empty()) RemoveFile(kept);
}

std::optional<FileFailure> WriteReceived()
{
    if (!Unsaved || KeptFile().empty()) return std::nullopt;
    auto failure = ReplaceFile(KeptFile(), Beginning + ToCodePage(frmMain.txtRX.Text));
    if (!failure) Unsaved = false;
    return failure;
}

bool KeepReceived()
{
    const auto failure = WriteReceived();
    if (!failure) return true;
    NoteFailure(failure->Number, "cmdReceiveExit_Click");
    const std::string unsaved = Tr("%1 could not be saved: %2", {KeptFile(), Tr(failure->Reason)});
    const MessageBox box{unsaved + "\r\n\r\n" + Tr("Continue without it?"), "", Buttons::YesNo,
                         Icon::Exclamation};
    return ThePlatform->Show(box) == Answer::Yes;
}

void ResetReception()
{
    Unsaved = false;
    Beginning.clear();
    CameLast = -Silence;
}

std::string ReceptionText()
{
    // A line ends at CR, LF or both; the last one may not have ended yet.
    const std::string& text = frmMain.txtRX.Text;
    char before = 0;
    size_t lines = 0;
    for (const char c : text) {
        lines += c == '\r' || (c == '\n' && before != '\r') ? 1 : 0;
        before = c;
    }
    if (!text.empty() && before != '\r' && before != '\n') ++lines;
    return lines == 1 ? Tr("1 line received") : Tr("%1 lines received", {std::to_string(lines)});
}

void ShowReception()
{
    if (!frmMain.frRXcode.Visible) return;
    frmMain.cmdReceiveLast.Visible = frmMain.txtRX.Text.empty() && FileExists(KeptFile());
}
