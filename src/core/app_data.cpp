#include "core/app_data.h"

#include "platform/platform.h"

#include <algorithm>

std::string AppDataPath()
{
    if (const std::string folder = ThePlatform->SettingsFolder(); !folder.empty()) return folder;
    const std::string root = ThePlatform->LocalDataFolder();
    if (root.empty()) return "";
    std::string digits = ProductVersion;
    std::erase(digits, '.');
    return root + "/EMCO/BXL_" + digits;
}
