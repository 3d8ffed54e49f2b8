#include "core/app_data.h"

#include "platform/files.h"
#include "platform/platform.h"

std::string AppDataPath()
{
    if (const std::string folder = ThePlatform->SettingsFolder(); !folder.empty()) return folder;
    const std::string root = ThePlatform->LocalDataFolder();
    if (root.empty()) return "";
    std::string digits = ProductVersion;
    std::erase(digits, '.');
    return root + "/EMCO/BXL_" + digits;
}

std::string InstalledPath(const std::string& name)
{
    for (const char* place : {"/", "/../share/brixley/"}) {
        const std::string path = ThePlatform->ProgramFolder() + place + name;
        if (PathExists(path)) return path;
    }
    return "";
}
