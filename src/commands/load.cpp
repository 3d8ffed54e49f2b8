#include "commands/load.h"

#include "commands/program.h"
#include "commands/recent_files.h"
#include "commands/save.h"
#include "commands/settings.h"
#include "core/draw_window.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/text.h"
#include "editor/whole_program.h"
#include "files/reader.h"
#include "interpreter/interpreter.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "serial/receive.h"
#include "ui/columns.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/profile_controls.h"
#include "ui/redraw.h"

#include <utility>

namespace {

void RefuseFile(const std::string& path, const std::string& why)
{
    ShowMessage(TextOf(Messages::TheFile) + " \"" + FileNameOf(path) + "\" " + why,
                TextOf(Messages::RecognizingProblem), Icon::Exclamation);
}

void RefuseUnknownFile(const std::string& path)
{
    // A translation brings no blank of its own in front.
    RefuseFile(path, std::string(TextOr(Messages::NotEmcoFile.Default,
                                        Translated.MessageTable[Messages::NotEmcoFile.Index] + " ")));
}

void RefuseLongFile(const std::string& path)
{
    RefuseFile(path, Tr("has more than %1 lines and can't be loaded", {std::to_string(MaxFileLines)}));
}

/// Whether the open program may be replaced. It is saved first where the user wants that, while the
/// machine is still its own.
bool MayReplaceProgram()
{
    if (!Shared.Changed) return true;
    const MessageBox box{TextOf(Messages::SaveOpenFile), TextOf(Messages::Continue), Buttons::YesNoCancel};
    switch (ThePlatform->Show(box)) {
    case Answer::Yes: mnuSave_Click(); return !Shared.Changed;
    case Answer::No: Shared.Changed = false; return true;
    default: return false;
    }
}

/// Puts a program that was read in the place of the open one.
void TakeOver(ProgramFile file, const std::string& path)
{
    Shared.Machine = file.Machine;
    ClearProgram_Click();
    frmMain.txtFileNotes.Text = std::move(file.Notes);
    frmMain.lblPath.Text = path;
    lvCncProgram.Rows = std::move(file.Rows);
    if (!lvCncProgram.Rows.empty()) SelectRow(1);
    if (file.End) {
        Shared.Horizontal = file.End->Horizontal.value_or(Shared.Horizontal);
        SetUnits(file.End->Metric);
    }
    if (frmMain.chkViewGcode.Value == 1) chkViewGcode_Click();
    ClearInputTexts();
    Interpreter();
    Shared.Changed = false;
    FollowLoad();
    Shared.DrawingToFront = frmDraw.Window.Visible;
    ApplyMachine();
    MakeToolpositionColums();
    ShowLineCount();
    AddBlankLine(false);
    SetFocus(frmMain.lvCncProgram);
}

} // namespace

void LoadFile(const std::string& path)
{
    if (RefuseWhileBusy()) return;
    cmdReturn_Click();
    std::string chosen = path;
    if (chosen.empty()) {
        const FileDialog dialog{FileDialog::Purpose::Open, "", ProgramFileFilter, FolderOfLastFile()};
        const auto named = ThePlatform->AskForFile(dialog);
        if (!named) return;
        chosen = Shared.DialogFile = *named;
    }
    if (chosen.empty() || !FileExists(chosen)) return;

    std::string bytes;
    if (const auto failure = ReadWholeFile(chosen, bytes)) {
        NoteFailure(failure->Number, "LoadFile");
        RefuseFile(chosen, Tr("can't be read: %1", {Tr(failure->Reason)}));
        return;
    }
    switch (KindOfFile(bytes)) {
    case FileKind::Language: LoadLanguageModule(chosen); return;
    case FileKind::Unknown: RefuseUnknownFile(chosen); return;
    case FileKind::Program: break;
    }
    ProgramFile file = ReadProgram(bytes);
    if (file.TooLong) {
        RefuseLongFile(chosen);
        return;
    }
    if (!MayReplaceProgram()) return;
    TakeOver(std::move(file), chosen);
    RememberFile(chosen);
}

void mnuOpen_Click()
{
    LoadFile("");
}

bool LoadUnnamed(const std::string& bytes, const std::string& name)
{
    if (KindOfFile(bytes) != FileKind::Program) {
        RefuseUnknownFile(name);
        return false;
    }
    ProgramFile file = ReadProgram(bytes);
    if (file.TooLong) {
        RefuseLongFile(name);
        return false;
    }
    // From here on this program is the open one.
    Shared.Changed = false;
    CloseReceivePane();
    TakeOver(std::move(file), "");
    Shared.DialogFile.clear();
    Shared.Changed = true;
    return true;
}
