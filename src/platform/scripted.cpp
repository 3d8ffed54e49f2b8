#include "platform/scripted.h"

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
    Dialogs.push_back({dialog, given});
    return given;
}
