#include "settings/help_pages.h"

#include "core/app_data.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "platform/files.h"

namespace {

constexpr std::string_view Ending = ".html";

/// The page of a language, "" when it isn't installed.
std::string ReadPage(const std::string& manual, std::string_view page)
{
    const std::string name = manual.substr(0, manual.rfind('.'));
    const std::string path = InstalledPath("help/" + name + std::string(page) + std::string(Ending));
    std::string text;
    if (path.empty() || ReadWholeFile(path, text)) return "";
    return text;
}

} // namespace

void TakeHelpFile(const std::string& name)
{
    frmMain.rtfHelp.Text.clear();
    Shared.HelpFile = SharedState{}.HelpFile;
    std::string text;
    const std::string path = InstalledPath("help/" + name);
    if (path.empty() || ReadWholeFile(path, text)) return;
    Shared.HelpFile = name;
    frmMain.rtfHelp.Text = text;
}

void FillHelpPage(Control& pane, std::string_view page)
{
    pane.Text = ReadPage(Shared.HelpFile, page);
    if (pane.Text.empty()) pane.Text = ReadPage(SharedState{}.HelpFile, page);
    if (pane.Text.empty()) pane.Text = "<p>" + Tr("The help pages are not installed") + "</p>";
}

std::string HelpPageOfFile(std::string_view file)
{
    if (file.ends_with(Ending)) file.remove_suffix(Ending.size());
    const size_t dash = file.rfind('-');
    return dash == std::string_view::npos ? "" : std::string(file.substr(dash));
}
