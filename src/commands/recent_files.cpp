#include "commands/recent_files.h"

#include "commands/load.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/platform.h"

#include <type_traits>

void RememberFile(const std::string& path)
{
    auto& files = Shared.RecentFiles;
    std::erase(files, path);
    files.insert(files.begin(), path);
    constexpr size_t Most = std::extent_v<decltype(frmMain.mnuRecentFile)>;
    if (files.size() > Most) files.resize(Most);
    ShowRecentFiles();
}

void ShowRecentFiles()
{
    const auto& files = Shared.RecentFiles;
    frmMain.mnuRecent.Visible = !files.empty();
    for (Control& entry : frmMain.mnuRecentFile) {
        const auto index = static_cast<size_t>(entry.Element);
        entry.Visible = index < files.size();
        if (!entry.Visible) continue;
        // 1 to 9 and 0 are the access keys; an ampersand of the name is doubled, so it marks none.
        std::string name;
        for (const char c : FileNameOf(files[index]))
            name += c == '&' ? std::string("&&") : std::string(1, c);
        entry.Text = "&" + std::to_string((entry.Element + 1) % 10) + "  " + name;
        entry.ToolTip = files[index];
    }
}

void mnuRecentFile_Click(int index)
{
    if (static_cast<size_t>(index) >= Shared.RecentFiles.size()) return;
    const std::string path = Shared.RecentFiles[static_cast<size_t>(index)];
    if (FileExists(path)) {
        LoadFile(path);
        return;
    }
    std::erase(Shared.RecentFiles, path);
    ShowRecentFiles();
    ShowMessage(Tr("%1 is no longer there", {FileNameOf(path)}), "", Icon::Exclamation);
}

std::string FolderOfLastFile()
{
    if (Shared.RecentFiles.empty()) return "";
    const std::string& path = Shared.RecentFiles.front();
    const size_t end = path.find_last_of("/\\");
    return end == std::string::npos ? "" : path.substr(0, end);
}
