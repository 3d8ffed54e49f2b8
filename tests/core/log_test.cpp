// Errors.log: its form, what replaces it and what is appended, and the places without a log.

#include "commands/session.h"
#include "core/app_data.h"
#include "core/failure.h"
#include "support/program.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* Record = "11,\"Division by zero\",\"Interpreter\",#2026-01-02 03:04:05#\r\n";

/// A log of that content, one failure, and what the log then holds.
std::string LogAfter(const char* old)
{
    Start("MK4 mm");
    const Folder folder;
    Desk.DataFolder = folder / "";
    Desk.DataFolder.pop_back();
    std::filesystem::create_directories(AppDataPath());
    if (old != nullptr) folder.Put("EMCO/BXL_160/Errors.log", old);
    NoteFailure(11, "Interpreter");
    AfterEvent();
    AfterEvent(); // a record is written once
    return BytesOf(folder / "EMCO/BXL_160/Errors.log");
}

TEST(ErrorLog, ReplacesOnlyALogWithoutErrors)
{
    const std::string record(Record);
    EXPECT_EQ(LogAfter(nullptr), record);
    EXPECT_EQ(LogAfter(""), record);
    EXPECT_EQ(LogAfter("No errors"), record);
    EXPECT_EQ(LogAfter("\"No errors so far\",1\r\nmore\r\n"), record);
    EXPECT_EQ(LogAfter("no errors\r\n"), "no errors\r\n" + record);
    EXPECT_EQ(LogAfter("6,\"No errors\"\r\n"), "6,\"No errors\"\r\n" + record);
    EXPECT_EQ(LogAfter("anything\r\n"), "anything\r\n" + record);
}

TEST(ErrorLog, WithoutAFolderNothingIsWritten)
{
    Start("MK4 mm");
    const Folder folder;
    NoteFailure(6, "Convert");
    AfterEvent();
    EXPECT_EQ(LogList(), "6 Convert"); // it is remembered all the same
    EXPECT_EQ(AppDataPath(), "");
    Desk.DataFolder = folder / "missing";
    NoteFailure(6, "Convert");
    AfterEvent();
    EXPECT_FALSE(std::filesystem::exists(folder / "missing"));
}

TEST(ErrorLog, APassKeepsEachKindOnceALine)
{
    Start("MK4 mm");
    BeginLoggedPass();
    for (const int line : {1, 1, 2, 1}) {
        Log.Line = line;
        NoteFailure(6, "Interpreter");
    }
    NoteFailure(11, "Interpreter");
    NoteFailure(6, "FindCenter");
    EXPECT_EQ(LogList(), "6 Interpreter; 6 Interpreter; 11 Interpreter; 6 FindCenter");
    EndLoggedPass();
    NoteFailure(6, "Convert");
    NoteFailure(6, "Convert");
    EXPECT_EQ(Log.Records.size(), 6U);
    BeginLoggedPass();
    Log.Line = 1;
    NoteFailure(6, "Interpreter");
    EXPECT_EQ(Log.Records.size(), 7U);
}

} // namespace
