// app_data.h: the program's version and its folder for the user's files.

#pragma once

#include <string>

constexpr const char* ProductName = "Brixley";
constexpr const char* ProductVersion = "1.6.0";

/// The folder of the user's settings and log, without a separator at its end: the platform's local
/// data folder, then EMCO/BXL_ and the digits of the version, so that each version has settings of
/// its own. "" when the platform gives no such folder; nothing of the user is then read or written.
std::string AppDataPath();

/// A file or folder that was installed with the program ("languages", "defaults/default.edt"): beside it, or
/// in the share folder of its place; "" when it isn't there.
std::string InstalledPath(const std::string& name);
