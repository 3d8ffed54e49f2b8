#include "commands/exit.h"

#include "commands/load.h"
#include "commands/save.h"
#include "commands/settings.h"
#include "core/app_data.h"
#include "core/code_page.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "drawing/draw_controls.h"
#include "editor/run.h"
#include "files/writer.h"
#include "interpreter/interpreter.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/port.h"
#include "serial/receive.h"
#include "serial/transmit.h"
#include "settings/user_files.h"

#include <functional>
#include <string>
#include <utility>

namespace {

constexpr const char* KeptName = "Unsaved-";
constexpr const char* KeptEnding = ".cnc";

/// The file in which the open program is kept, "" for none.
std::string KeptFile;

/// A file of its own for each content, so that two windows that end at once keep both programs.
void KeepProgram(const std::string& text)
{
    const std::string number = std::to_string(std::hash<std::string>{}(text));
    const std::string path = UserFile(KeptName + number + KeptEnding);
    if (const auto failure = ReplaceFile(path, ToCodePage(text))) {
        NoteFailure(failure->Number, "EndOfSession");
        return;
    }
    if (path != KeptFile) ForgetKeptProgram();
    KeptFile = path;
}

/// Asks before a transmission is stopped, and lets its stop mark go out first. False while it goes on.
bool EndTransmissionBeforeExit()
{
    if (!Shared.Transmitting) return true;
    if (Shared.ExitPending) {
        AbandonTransmission(); // closed once more: nobody waits for a line that stands still
        return true;
    }
    const MessageBox box{Tr("A program is being sent. Stop it and leave?"), TextOf(Messages::Continue),
                         Buttons::YesNo, Icon::Question};
    if (ThePlatform->Show(box) != Answer::Yes) return false;
    Shared.ExitPending = true;
    if (Shared.Transmitting) cmdStop_Click();
    return !Shared.Transmitting;
}

/// Asks to save a changed program. False when the user wants to stay, or nothing was saved.
bool MayLeaveProgram()
{
    if (LineCount() == 0 || !Shared.Changed) return true;
    const MessageBox box{TextOf(Messages::SaveOpenFile), TextOf(Messages::Continue), Buttons::YesNoCancel};
    const Answer answer = ThePlatform->Show(box);
    if (answer != Answer::Yes) return answer == Answer::No;
    if (Shared.RunLocked) cmdStop_Click();
    mnuSave_Click();
    return !Shared.Changed;
}

/// Takes in what came while a box was up, so that it is kept like the rest.
void TakeWaitingCharacters()
{
    MSComm1_OnComm(PortEvent::Received);
}

/// Writes the settings, closes what is open, and ends. A walk that waits is abandoned with the program.
void Leave()
{
    ResetInterpreter();
    SaveSettings();
    frmDraw_Close();
    ThePort->Close();
    Shared.ExitPending = Shared.RunMode = Shared.RunLocked = Shared.Changed = false;
    Shared.Ended = true;
}

} // namespace

void ForgetKeptProgram()
{
    if (const std::string kept = std::exchange(KeptFile, ""); !kept.empty()) RemoveFile(kept);
}

void mnuExit_Click()
{
    if (!EndTransmissionBeforeExit()) return;
    Shared.ExitPending = false;
    if (!MayLeaveProgram()) return;
    TakeWaitingCharacters();
    if (!KeepReceived()) return;
    ForgetKeptProgram();
    Leave();
}

void KeepUnsaved()
{
    if (const auto failure = WriteReceived()) NoteFailure(failure->Number, "EndOfSession");
    const std::string text = LineCount() > 0 && Shared.Changed ? GenerateAll() : "";
    if (AppDataPath().empty()) return;
    text.empty() ? ForgetKeptProgram() : KeepProgram(text);
}

void EndOfSession()
{
    Shared.Ended = true; // no box comes up any more
    TakeWaitingCharacters();
    KeepUnsaved();
    AbandonTransmission();
    Leave();
}

void OfferKeptProgram()
{
    if (AppDataPath().empty()) return;
    for (const std::string& name : FilesIn(AppDataPath(), KeptEnding)) {
        const std::string path = UserFile(name);
        std::string bytes;
        if (!name.starts_with(KeptName) || ReadWholeFile(path, bytes)) continue;
        const std::string question =
            Tr("A program was not saved when the system closed Brixley. Open it now?");
        if (ThePlatform->Show({question, "", Buttons::YesNo, Icon::Question}) != Answer::Yes) continue;
        if (!KeepReceived()) return; // the pane of a text that has come meanwhile is closed by the load
        if (!LoadUnnamed(bytes, name)) continue;
        KeptFile = path;
        return;
    }
}

void ResetKeptProgram()
{
    KeptFile.clear();
}
