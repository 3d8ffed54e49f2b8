#include "settings/user_files.h"

#include "core/app_data.h"
#include "core/failure.h"
#include "platform/files.h"

std::string UserFile(const std::string& name)
{
    return FindFile(AppDataPath(), name);
}

bool HasUserFile(const std::string& name)
{
    return !AppDataPath().empty() && FileExists(UserFile(name));
}

std::string ReadUserFile(const std::string& name)
{
    std::string bytes;
    if (const auto failure = ReadWholeFile(UserFile(name), bytes))
        NoteFailure(failure->Number, "LoadSettings");
    return bytes;
}

void WriteUserFile(const std::string& name, const std::string& text)
{
    if (AppDataPath().empty()) return;
    if (const auto failure = ReplaceFile(UserFile(name), text)) NoteFailure(failure->Number, "SaveSettings");
}

void CopyUserFile(const std::string& from, const std::string& to)
{
    if (HasUserFile(from)) WriteUserFile(to, ReadUserFile(from));
}

void KeepDamaged(const std::string& name, const std::string& bytes)
{
    WriteUserFile(name + ".bad", bytes);
}
