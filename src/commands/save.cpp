#include "commands/save.h"

#include "commands/exit.h"
#include "commands/recent_files.h"
#include "core/code_page.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "editor/lines.h"
#include "files/reader.h"
#include "files/writer.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "ui/panes.h"
#include "ui/profile_controls.h"

namespace {

/// The file's name without its folder, as messages name it; a path that ends in its folder as a whole.
std::string NameInMessages(const std::string& path)
{
    const std::string name = FileNameOf(path);
    return name.empty() ? path : name;
}

/// Asks for a file until one is named that may be written; no value when the user gave up.
std::optional<std::string> AskForTarget()
{
    for (;;) {
        const auto name = ThePlatform->AskForFile(
            {FileDialog::Purpose::Save, frmMain.lblPath.Text, ProgramFileFilter, FolderOfLastFile()});
        if (!name) return std::nullopt;
        Shared.DialogFile = *name;
        if (name->empty()) {
            ShowMessage(TextOf(Messages::NoFile));
            return std::nullopt;
        }
        if (!FileExists(*name)) return name;
        const std::string question = Tr("%1 %2?", {TextOf(Messages::Overwrite), FileNameOf(*name)});
        const Answer answer = ThePlatform->Show({question, "", Buttons::YesNoCancel});
        if (answer == Answer::Yes) return name;
        if (answer == Answer::Cancel) return std::nullopt;
    }
}

} // namespace

void SaveFile_Click(bool saveAs)
{
    cmdReturn_Click();
    if (lvCncProgram.Selected == 0) {
        ShowMessage(TextOf(Messages::NoLines));
        return;
    }
    AddEndOfProgram();
    const std::string text = GenerateAll();
    if (text.empty()) return;
    std::string path = frmMain.lblPath.Text;
    if (saveAs || path.empty()) {
        const auto target = AskForTarget();
        if (!target) return;
        path = *target;
    }

    if (const auto failure = ReplaceFile(path, ToCodePage(text))) {
        NoteFailure(failure->Number, "SaveFile_Click");
        ShowMessage(Tr("%1 could not be saved: %2", {NameInMessages(path), Tr(failure->Reason)}), "",
                    Icon::Exclamation);
        return;
    }
    Shared.Changed = false;
    ForgetKeptProgram();
    frmMain.lblPath.Text = path;
    ShowPaths();
    RememberFile(path);
    ShowMessage(FileNameOf(path) + " " + TextOf(Messages::HasBeenSaved));
    MakeFormCaption();
}

void mnuSave_Click()
{
    SaveFile_Click(false);
}

void mnuSaveAs_Click()
{
    SaveFile_Click(true);
}
