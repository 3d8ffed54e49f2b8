#include "core/failure.h"

#include "core/app_data.h"
#include "platform/files.h"

#include <algorithm>
#include <cstdio>

FailureLog Log;

namespace {

struct Description {
    int Number;
    std::string_view Text;
};

constexpr Description Descriptions[] = {
    {Failures::InvalidCall, "Invalid call"},
    {Failures::Overflow, "Overflow"},
    {Failures::SubscriptOutOfRange, "Subscript out of range"},
    {Failures::DivisionByZero, "Division by zero"},
    {Failures::FileNotFound, "File not found"},
    {Failures::DiskFull, "Disk full"},
    {Failures::PastEndOfFile, "Input past end of file"},
    {Failures::PermissionDenied, "Permission denied"},
    {Failures::PathAccess, "Path or file access"},
    {Failures::PrinterError, "Printer error"},
    {Failures::PortAlreadyOpen, "Port already open"},
    {Failures::PortNotOpen, "Port not open"},
};

/// 6,"Overflow","Interpreter",#2026-01-02 03:04:05# and CR LF: the form of a record on disk.
std::string RecordText(const LogRecord& record)
{
    char when[64];
    const DateTime& t = record.When;
    std::snprintf(when, sizeof when, "#%04d-%02d-%02d %02d:%02d:%02d#", t.Year, t.Month, t.Day, t.Hour,
                  t.Minute, t.Second);
    return std::to_string(record.Number) + ",\"" + record.Description + "\",\"" + record.Procedure + "\"," +
           when + "\r\n";
}

} // namespace

std::string_view FailureDescription(int number)
{
    const auto* found = std::find_if(std::begin(Descriptions), std::end(Descriptions),
                                     [&](const Description& d) { return d.Number == number; });
    return found == std::end(Descriptions) ? std::string_view("Unknown failure") : found->Text;
}

void LogError(int number, std::string_view description, std::string_view procedure)
{
    Log.Records.push_back({number, std::string(description), std::string(procedure), ThePlatform->Now()});
}

void NoteFailure(int number, std::string_view procedure)
{
    if (Log.Line > 0 && !Log.SeenInPass.emplace(Log.Line, number, procedure).second) return;
    LogError(number, FailureDescription(number), procedure);
}

void BeginLoggedPass()
{
    Log.SeenInPass.clear();
    Log.Line = 0;
}

void EndLoggedPass()
{
    Log.Line = 0;
}

void WriteLog()
{
    if (Log.Written == Log.Records.size()) return;
    std::string text;
    for (size_t i = Log.Written; i < Log.Records.size(); ++i) text += RecordText(Log.Records[i]);
    Log.Written = Log.Records.size();

    if (AppDataPath().empty()) return;
    const std::string path = AppDataPath() + "/Errors.log";
    std::string old;
    const bool readable = !ReadWholeFile(path, old).has_value();
    const std::string firstField = old.substr(0, old.find_first_of(",\r\n"));
    if (readable && firstField.find("No errors") != std::string::npos) {
        ReplaceFile(path, text);
    } else {
        AppendToFile(path, text);
    }
}
