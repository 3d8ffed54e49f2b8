#include "platform/scripted.h"

#include <filesystem>

namespace {

ScriptedPlatform FirstPlatform;

bool HasButton(Buttons buttons, Answer answer)
{
    switch (buttons) {
    case Buttons::OK: return answer == Answer::OK;
    case Buttons::YesNo: return answer == Answer::Yes || answer == Answer::No;
    case Buttons::YesNoCancel: return answer != Answer::OK;
    }
    return false;
}

} // namespace

Platform* ThePlatform = &FirstPlatform;

void ShowMessage(const std::string& text, const std::string& title, Icon icon)
{
    ThePlatform->Show({text, title, Buttons::OK, icon});
}

Answer ScriptedPlatform::Show(const MessageBox& box)
{
    Answer given = box.Buttons == Buttons::OK ? Answer::OK : Answer::Yes;
    while (!Answers.empty()) {
        const Answer next = Answers.front();
        Answers.pop_front();
        if (HasButton(box.Buttons, next)) {
            given = next;
            break;
        }
    }
    Boxes.push_back({box, given});
    return given;
}

std::optional<std::string> ScriptedPlatform::AskForFile(const FileDialog& dialog)
{
    std::optional<std::string> given;
    if (!Files.empty()) {
        given = Files.front();
        Files.pop_front();
    }
    const bool open = dialog.For == FileDialog::Purpose::Open;
    Dialogs.push_back({open ? "open" : "save", dialog.Name, dialog.Filter, given, dialog.Folder});
    return given;
}

bool ScriptedPlatform::Launch(const std::vector<std::string>& programs)
{
    if (!programs.empty()) Launched.push_back(programs.front());
    return true;
}

std::optional<int> ScriptedPlatform::AskForColor(int present)
{
    std::optional<int> given;
    if (!Colors.empty()) {
        given = Colors.front();
        Colors.pop_front();
    }
    const auto text = given ? std::optional(std::to_string(*given)) : std::nullopt;
    Dialogs.push_back({"color", std::to_string(present), "", text});
    return given;
}

std::string ScriptedPlatform::ProgramFolder()
{
    std::error_code failed;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
    return failed ? "" : program.parent_path().string();
}
