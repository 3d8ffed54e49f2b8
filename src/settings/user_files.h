// user_files.h: the settings files in the user's folder. Without such a folder nothing is read or written.

#pragma once

#include <string>
#include <string_view>

/// The path of a file of the user's folder, whatever the case of its name there; as given when there is none.
std::string UserFile(const std::string& name);
bool HasUserFile(const std::string& name);

/// The content; a failure is logged under LoadSettings and gives "".
std::string ReadUserFile(const std::string& name);

/// Replaces the file safely; a failure is logged under SaveSettings.
void WriteUserFile(const std::string& name, const std::string& text);

/// Copies one file over another, where there is one.
void CopyUserFile(const std::string& from, const std::string& to);

/// Keeps the content of a damaged file beside, as NAME.bad.
void KeepDamaged(const std::string& name, const std::string& bytes);
