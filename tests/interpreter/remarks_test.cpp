// Cuts of the cycles, speeds of threads, and the remarks that tell them; tools and pockets of the mill.

#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "interpreter/interpreter.h"
#include "support/program.h"

#include <gtest/gtest.h>

namespace {

TEST(Remarks, CutsAndSpeeds)
{
    const struct {
        const char *Name, *Profile, *Lines;
        int Number;
        const char* Comment;
    } cases[] = {
        {"a rest makes one cut more", "MK4 mm", "G84 X1000 Z-500 F50 H300", 0, "@  (4x)Longitudinal Cycle"},
        {"no rest", "MK4 mm", "G84 X-1000 Z-500 F50 H250", 0, "@  (4x)Longitudinal Cycle"},
        {"one cut", "MK4 mm", "G84 X250 Z-500 F50 H250", 0, "@  (1x)Longitudinal Cycle"},
        {"no division", "MK4 mm", "G84 X1000 Z-500 F50 H0", 0, "@  (1x)Longitudinal Cycle"},
        {"from a diameter", "MK4 mm", "G90 / G00 X2000 Z0 / G84 X1000 Z-500 F50 H100", 2,
         "@  (5x)Longitudinal Cycle"},
        {"from a radius", "MK4 mm", "G24 / G90 / G00 X1000 Z0 / G84 X500 Z-500 F50 H100", 3,
         "@  (5x)Longitudinal Cycle"},
        {"half a unit to the even one is no rest", "MK4 mm", "G90 / G00 X2000 Z0 / G84 X1199 Z-500 F50 H100",
         2, "@  (4x)Longitudinal Cycle"},
        {"facing goes along Z", "MK4 mm", "G88 X1000 Z-500 F50 H100", 0, "@  (5x)Facing Cycle"},
        {"from a place", "MK4 mm", "G90 / G00 X0 Z100 / G88 X0 Z-400 F50 H100", 2, "@  (5x)Facing Cycle"},
        {"grooving", "MK4 mm", "G86 X-10 Z-1000 F50 H300", 0, "@  (4x)Grooving Cycle"},
        {"chip breaking", "MK4 mm", "G73 Z-381 F50", 0, "@  (3x)Drilling Cycle with Chip Breakage"},
        {"one less", "MK4 mm", "G73 Z-380 F50", 0, "@  (2x)Drilling Cycle with Chip Breakage"},
        {"too short for a cut", "MK4 mm", "G73 Z-20 F50", 0, ""},
        {"in inch", "F1 inch", "G73 Z-191 F50", 0, "@  (3x)Drilling Cycle with Chip Breakage"},
        {"from a place on the mill", "F1 mm", "G90 / G00 X0 Y0 Z100 / G73 Z-281 F50", 2,
         "@  (3x)Drilling Cycle with Chip Breakage"},
        {"withdrawal", "MK4 mm", "G83 Z-601 F50", 0, "@  (2x)Drilling Cycle with Withdrawal"},
        {"one less", "MK4 mm", "G83 Z-600 F50", 0, "@  (1x)Drilling Cycle with Withdrawal"},
        {"withdrawal in inch", "MK4 inch", "G83 Z-301 F50", 0, "@  (2x)Drilling Cycle with Withdrawal"},
        {"thread cycle", "MK4 mm", "G78 X1000 Z-500 K100 H200", 0, "@  (5x)Threading Cycle (max RPM=500)"},
        {"thread cycle of the MK2", "MK2 mm", "G78 X1000 Z-500 K100", 0, "@  Threading (max RPM = 500)"},
        {"thread", "MK4 mm", "G33 Z-500 K50", 0, "@  Threading (max RPM = 950)"},
        {"next pitch", "MK4 mm", "G33 Z-500 K51", 0, "@  Threading (max RPM = 500)"},
        {"widest pitch", "MK4 mm", "G33 Z-500 K499", 0, "@  Threading (max RPM = 100)"},
        {"inch pitch", "MK2 inch", "G33 Z-500 K40", 0, "@  Threading (max RPM = 500)"},
        {"next inch pitch", "MK2 inch", "G33 Z-500 K41", 0, "@  Threading (max RPM = 320)"},
        {"a pitch beyond its limits", "MK4 mm", "G33 Z-500 K500", 0, ""},
        {"no thread on the mill", "F1 mm", "G33 Z-500 K100", 0, ""},
        {"a user's comment", "MK4 mm", "G78 X1000 Z-500 K100 H200 ;mine", 0, "mine"},
        {"one blank behind the mark", "MK4 mm", "G33 Z-500 K100 ;@ mine", 0, "@ mine"},
        {"a blank in front of the mark", "MK4 mm", "G84 X1000 Z-500 F50 ; @  mine", 0, " @  mine"},
        {"blanks alone", "MK4 mm", "G33 Z-500 K100 ;   ", 0, "@  Threading (max RPM = 500)"},
        {"an earlier remark", "MK4 mm", "G78 X1000 Z-500 K200 H500 ;@  (5x)Threading Cycle (max RPM=500)", 0,
         "@  (2x)Threading Cycle (max RPM=250)"},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter(c.Lines);
        Interpreter(); // a second pass writes its own remarks anew
        EXPECT_EQ(CellOf(c.Number, CellComment), c.Comment) << c.Name;
    }
}

TEST(Remarks, NothingIsWrittenWhileTheUserTypesAComment)
{
    Start("MK4 mm");
    frmMain.txtComment.Text = "typing";
    Enter("G33 Z-500 K100 / G84 X1000 Z-500 F50 / G33 Z-500 K200 ;@  old");
    EXPECT_EQ(CellOf(0, CellComment), "");
    EXPECT_EQ(CellOf(1, CellComment), "");
    EXPECT_EQ(CellOf(2, CellComment), "@  Threading (max RPM = 250)");
    Translated.MessageTable[23] = "max T/min";
    Interpreter();
    EXPECT_EQ(CellOf(2, CellComment), "@  Threading (max T/min = 250)");
}

TEST(Remarks, ACutDeeperThanTheWork)
{
    Start("MK4 mm");
    Enter("G78 X100 Z-500 K100 H101 / M30");
    EXPECT_EQ(MessageList(), "N00 !Division-of-cut error");
    EXPECT_EQ(CellOf(0, CellComment), ""); // the first sweep had written the speed
    EXPECT_EQ(Unreached(), "N01");
    EXPECT_EQ(ToolOf(0), "0 0 0");
    Enter("G86 X-10 Z-99 F50 H100 ;mine / M30");
    EXPECT_EQ(MessageList(), "N00 !Division-of-cut error");
    EXPECT_EQ(CellOf(0, CellComment), "mine");
    Start("MK2 mm");
    Enter("G84 X100 Z-500 F50 H101 / G22");
    EXPECT_EQ(MessageList(), ""); // that control cuts at once
}

TEST(Tools, AreAskedForByTheMill)
{
    const struct {
        const char *Name, *Lines, *Messages;
    } cases[] = {
        {"no tool", "G45 / G46 / G47 / G48 / G40",
         "N00 !Must be preceded by M06; N01 !Must be preceded by M06; "
         "N02 !Must be preceded by M06; N03 !Must be preceded by M06"},
        {"a tool", "M06 D500 S2000 Z0 T1 / G45 / G48", ""},
        {"a tool later", "G45 / M06 D500 S2000 Z0 T1", "N00 !Must be preceded by M06"},
        {"a pocket as wide as the tool", "M06 D500 S2000 Z0 T1 / G00 X0 Y0 Z0 / G72 X-500 Y500 Z-10 F50", ""},
        {"narrower in X", "M06 D500 S2000 Z0 T1 / G00 X0 Y0 Z0 / G72 X499 Y900 Z-10 F50 / M30",
         "N02 !Pocket too small for tool radius"},
        {"narrower in Y", "M06 D500 S2000 Z0 T1 / G00 X0 Y0 Z0 / G72 X900 Y-499 Z-10 F50",
         "N02 !Pocket too small for tool radius"},
        {"Z doesn't matter in XY", "M06 D500 S2000 Z0 T1 / G72 X900 Y900 Z0 F50", ""},
        {"but in YZ", "M06 D500 S2000 Z0 T1 / G72 X0 Y900 Z-499 F50",
         "N01 !Pocket too small for tool radius"},
        {"the last tool counts", "M06 D500 S1 Z0 T1 / M06 D90 S1 Z0 T2 / G72 X100 Y100 Z0 F50", ""},
        {"a pocket without a tool", "G72 X5 Y5 Z0 F50 / G21", "N00 !Must be preceded by M06"},
    };
    for (const auto& c : cases) {
        Start("F1 mm");
        Enter(c.Lines);
        EXPECT_EQ(MessageList(), c.Messages) << c.Name;
    }
}

} // namespace
