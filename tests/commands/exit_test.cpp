// Leaving the program: what came too late for a question, and an end by the system, which asks none.

#include "support/program.h"

#include "commands/exit.h"
#include "commands/session.h"
#include "core/app_data.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "platform/files.h"

#include <gtest/gtest.h>

#include <deque>
#include <utility>

namespace {

constexpr const char* TwoLines = "G00 X100 Z100 ;mine / M30";

/// A machine begins to send while a box is up; what comes waits in the port then.
struct LateMachine : ScriptedPlatform {
    std::string Late = "late";
    Answer Show(const MessageBox& box) override
    {
        Port.Receive(std::exchange(Late, ""));
        return ScriptedPlatform::Show(box);
    }
};

/// A user's program that has changed, with the port open.
void Begin(ScriptedPlatform& desk, const Folder& user)
{
    Start("MK4 mm");
    desk.DataFolder = user / "data";
    ThePlatform = &desk;
    ThePort = &desk.Port;
    ASSERT_FALSE(MakeFolders(AppDataPath()));
    desk.Port.Open();
    desk.Port.OnEvent = nullptr;
    Enter(TwoLines);
    Shared.Changed = true;
}

std::vector<std::string> Kept()
{
    return FilesIn(AppDataPath(), ".cnc");
}

} // namespace

TEST(Exit, KeepsWhatCameFirstWhileItsQuestionWasUp)
{
    const Folder user;
    LateMachine desk;
    Begin(desk, user);
    desk.Answers = {Answer::No};
    mnuExit_Click();
    EXPECT_TRUE(Shared.Ended);
    EXPECT_EQ(BytesOf(AppDataPath() + "/Receive.txt"), "late");
    EXPECT_TRUE(Kept().empty()) << "given up by the user";
    Start("MK4 mm");
}

TEST(Exit, TheSystemsEndAsksNothingAndTheNextStartsOfferTheProgram)
{
    const Folder user;
    ScriptedPlatform desk;
    Begin(desk, user);
    KeepUnsaved(); // and the end was called off
    EXPECT_FALSE(Shared.Ended);
    lvCncProgram.Row(1)[CellComment] = "changed since";
    desk.Port.Receive("from the machine");
    Shared.ExitPending = true;
    EndOfSession();
    AfterEvent();
    EXPECT_TRUE(Shared.Ended);
    EXPECT_TRUE(desk.Boxes.empty());
    EXPECT_EQ(BytesOf(AppDataPath() + "/Receive.txt"), "from the machine");
    EXPECT_EQ(Kept().size(), 1U);

    const auto startAnew = [&](std::deque<Answer> answers) {
        ResetState();
        StartNew(MachineKind::MK2, false, false);
        desk.Answers = std::move(answers);
        OfferKeptProgram();
    };
    startAnew({Answer::No});
    EXPECT_EQ(LineCount(), 0);
    // One that can't be read or isn't wanted doesn't stand before the next.
    const std::string damaged = AppDataPath() + "/Unsaved-0.cnc";
    ASSERT_FALSE(ReplaceFile(damaged, "no program"));
    startAnew({Answer::Yes, Answer::OK, Answer::Yes});
    EXPECT_EQ(LineCount(), 2);
    RemoveFile(damaged);
    startAnew({Answer::Yes});
    EXPECT_EQ(Shared.Machine, MachineKind::MK4);
    EXPECT_EQ(lvCncProgram.Row(1)[CellComment], "changed since");
    EXPECT_TRUE(Shared.Changed);
    EXPECT_EQ(frmMain.lblPath.Text, "");
    // It is kept until it is saved or given up, once, and beside the program of another window.
    const std::string other = AppDataPath() + "/Unsaved-1.cnc";
    ASSERT_FALSE(ReplaceFile(other, "%\r\n"));
    EndOfSession();
    EXPECT_EQ(Kept().size(), 2U);
    RemoveFile(other);
    startAnew({Answer::Yes});
    desk.Answers = {Answer::No};
    mnuExit_Click();
    EXPECT_TRUE(Kept().empty());
    Start("MK4 mm");
}
