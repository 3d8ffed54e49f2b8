// The walk follows calls, jumps and modes, ends where it must, and always ends.

#include "interpreter/interpreter.h"

#include "core/failure.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "editor/lines.h"
#include "support/program.h"

#include <gtest/gtest.h>

namespace {

/// Subroutines five deep: N00 calls N02, N02 calls N04, and so on; the innermost does `inner`.
std::string FiveDeep(const std::string& inner)
{
    return "G25 L02 / M30 / G25 L04 / M17 / G25 L06 / M17 / G25 L08 / M17 / G25 L10 / M17 / " + inner;
}

TEST(Flow, CallsJumpsAndEnds)
{
    const struct {
        const char* Name;
        std::string Lines;
        const char *Messages, *Executed, *Unreached;
    } cases[] = {
        {"a call two lines behind", "G25 L02 / M30 / G21 / M17", "", "4", ""},
        {"a call to the next line", "G25 L01 / M17", "N00 !Invalid SUB", "xxx", "N00 N01"},
        {"a call to itself", "G21 / G25 L01 / G21", "N01 !Invalid SUB", "1", "N01 N02"},
        {"a call backwards", "G21 / G21 / G25 L01", "N02 !Invalid SUB", "2", "N02"},
        {"a call to nowhere", "G25 L02 / M30", "N00 !Line doesn't exist", "xxx", "N00 N01"},
        {"a call below the first line", "G25 L-1 / M30 / M17", "N00 !Line doesn't exist", "xxx",
         "N00 N01 N02"},
        {"a sub that is called twice", "G25 L03 / G25 L03 / M30 / G21 / M17", "", "7", ""},
        {"five nested", FiveDeep("G21 / M17"), "", "12", ""},
        {"six nested", FiveDeep("G25 L12 / M17 / G21 / M17"), "N10 !Max 5 nested SUBs", "5",
         "N01 N03 N05 N07 N09 N10 N11 N12 N13"},
        {"the sixth to nowhere", FiveDeep("G25 L99 / M17"), "N10 !Max 5 nested SUBs", "5",
         "N01 N03 N05 N07 N09 N10 N11"},
        {"a return without a call", "G21 / M17 / M30", "N01 !RETURN without SUB", "1", "N01 N02"},
        {"falling into a sub", "G25 L02 / G21 / G21 / M17", "N03 !RETURN without SUB", "5", ""},
        {"a jump over lines", "G27 L03 / G21 / G21 / M30", "", "2", "N01 N02"},
        {"a jump backwards", "G21 / G21 / G27 L01 / M30", "N01 !Endless loop; N02 !Endless loop", "2", "N03"},
        {"a jump to itself", "G27 L00 / M30", "N00 !Endless loop", "1", "N01"},
        {"a jump behind the last line", "G27 L02 / M30", "N00 !Line doesn't exist", "xxx", "N00 N01"},
        {"a jump to the last line", "G27 L02 / G21 / G21", "", "2", "N01"},
        {"a jump below the first line", "G27 L-1 / M30", "N00 !Line doesn't exist", "xxx", "N00 N01"},
        {"a jump forward onto a walked line", "G25 L03 / G25 L03 / M30 / G27 L05 / G21 / M17",
         "N03 !Endless loop", "4", "N02 N04"},
        {"behind the end", "M30 / G21 / M17", "", "1", "N01 N02"},
        {"G22 ends on every machine", "G22 / M17", "", "1", "N01"},
        {"lines that don't act", "M30 ;CMDSKIP / G27 L00 ;cmdskip twice / M17 ;CmdSkip", "", "3", ""},
        {"G24 behind G90", "G90 / G24 / G21", "N01 !G24 must precede G90/G92", "1", "N01 N02"},
        {"G24 behind G92", "G92 X0 Z0 / G24", "N01 !G24 must precede G90/G92", "1", "N01"},
        {"G24 behind G91", "G90 / G91 / G24 / G90", "", "4", ""},
        {"a limit doesn't end the walk", "G00 X6000 Z0 / G21", "N00 !X= 5999 maximum", "2", ""},
        {"a walk's fault replaces a limit", "G25 L222 / G21", "N00 !Line doesn't exist", "xxx", "N00 N01"},
    };
    for (const auto& c : cases) {
        Start("MK4 mm");
        Enter(c.Lines);
        EXPECT_EQ(MessageList(), c.Messages) << c.Name;
        EXPECT_EQ(frmMain.lblPPLinesExe.Text, c.Executed) << c.Name;
        EXPECT_EQ(Unreached(), c.Unreached) << c.Name;
        EXPECT_EQ(Shared.ErrorsPresent, *c.Messages != '\0') << c.Name;
    }
}

TEST(Flow, ALoopIsMarkedFromItsTargetToItsJump)
{
    Start("MK4 mm");
    Enter("G00 X10 Z0 / G01 X10 Z10 F50 / G27 L01 / M30");
    EXPECT_EQ(frmMain.lblPPMachineTime.Text, "xx:xx:xx");
    EXPECT_EQ(ToolOf(0), "10 0 0");
    EXPECT_EQ(ToolOf(1), "xxxxx xxxxx xxxxx");
    EXPECT_EQ(CellOf(1, CellAngle), " xx");
    EXPECT_EQ(CellOf(2, CellToolZ), " xxxxx");
    EXPECT_EQ(lvCncProgram.Headers[CellError], "Error in line 2");
    EXPECT_EQ(Shared.LastErrorIndex, 3);
}

TEST(Flow, NestedCallsThatNobodyWouldWaitForEnd)
{
    Start("F1 mm");
    std::string lines = "20*G25 L21 / M30";
    for (int level = 1; level < 5; ++level) {
        lines += " / 20*G25 L" + std::to_string(21 * (level + 1)) + " / M17";
    }
    Enter(lines + " / G21 / M17"); // 20 to the fifth calls of N105
    EXPECT_EQ(frmMain.lblPPLinesExe.Text, "32767");
    EXPECT_EQ(frmMain.lblPPMachineTime.Text, "xx:xx:xx");
    const std::string messages = MessageList();
    EXPECT_EQ(messages.find(';'), std::string::npos) << messages;
    EXPECT_TRUE(messages.ends_with("!Endless loop")) << messages;
    // The counter overflows time and again, but is logged once for each line of the program.
    EXPECT_LE(Log.Records.size(), 107U);
}

TEST(Flow, ModesAndToolPositions)
{
    const struct {
        const char *Name, *Profile, *Lines;
        int Number;
        const char* Tool;
    } cases[] = {
        {"incremental from the start", "MK4 mm", "G00 X100 Z-50 / G00 X100 Z-50", 1, "200 0 -100"},
        {"diameters", "MK4 mm", "G90 / G00 X1000 Z-200", 1, "500 0 -200"},
        {"half a unit", "MK2 mm", "G90 / G00 X1001 Z0", 1, "500.5 0 0"},
        {"radii", "MK4 mm", "G24 / G90 / G00 X1000 Z0", 2, "1000 0 0"},
        {"radii behind G91", "MK4 mm", "G90 / G91 / G24 / G90 / G00 X1000 Z0", 4, "1000 0 0"},
        {"back to incremental", "MK4 mm", "G90 / G00 X1000 Z0 / G91 / G00 X100 Z0", 3, "600 0 0"},
        {"register", "MK4 mm", "G92 X1000 Z50", 0, "500 0 50"},
        {"register behind G90 is halved once more", "MK4 mm", "G90 / G92 X1000 Z50", 1, "250 0 50"},
        {"register in radii", "MK4 mm", "G24 / G92 X1000 Z50 / G00 X200 Z0", 2, "200 0 0"},
        {"absolute behind the register", "MK4 mm", "G92 X1000 Z50 / G00 X400 Z0", 1, "200 0 0"},
        {"the mill has no diameters", "F1 mm", "G90 / G00 X1000 Y30 Z0", 1, "1000 30 0"},
        {"register of the mill", "F1 mm", "G92 X100 Y200 Z300 / G00 X50 Y200 Z0", 1, "50 200 0"},
        {"thread", "MK4 mm", "G00 X100 Z-20 / G33 Z-500 K100", 1, "100 0 -520"},
        {"absolute thread keeps X", "MK4 mm", "G90 / G00 X200 Z-20 / G33 Z-500 K100", 2, "100 0 -500"},
        {"a cycle goes back", "MK4 mm", "G00 X100 Z0 / G84 X-300 Z-500 F50", 1, "100 0 0"},
        {"an absolute cycle goes back", "F1 mm", "G90 / G00 X7 Y8 Z0 / G81 Z-500 F50", 2, "7 8 0"},
        {"a tool change doesn't move", "F1 mm", "M06 D500 S2000 Z40 T1", 0, "0 0 0"},
        {"a letter makes no move", "MK4 mm", "G00 X10 Z0 / G00 D50 K50", 1, "10 0 0"},
        {"a skipped move", "MK4 mm", "G00 X100 Z0 / G00 X100 Z0 ;CMDSKIP", 1, "100 0 0"},
        {"a skipped cycle", "MK4 mm", "G00 X100 Z0 / G84 X-300 Z-500 F50 ;CMDSKIP", 1, "100 0 0"},
        {"a skipped mode", "MK4 mm", "G90 ;CMDSKIP / G00 X100 Z0 / G00 X100 Z0", 2, "200 0 0"},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter(c.Lines);
        EXPECT_EQ(MessageList(), "") << c.Name;
        EXPECT_EQ(ToolOf(c.Number), c.Tool) << c.Name;
    }
}

TEST(Flow, MovesInThreeAxes)
{
    Start("F1 mm");
    Enter("G00 X1 Y1 Z1 / G92 X0 Y0 Z0 / G00 X1 Y0 Z5 / G00 X2 Y1 Z6 / G01 X1 Y1 Z5 F50");
    EXPECT_EQ(MessageList(), "N00 !No 3-d allowed; N03 !No 3-d allowed");
    EXPECT_EQ(frmMain.lblPPLinesExe.Text, "5");
    EXPECT_EQ(lvCncProgram.Row(1).Color, LineColor::Incremental);
    EXPECT_EQ(lvCncProgram.Row(2).Color, LineColor::Absolute);
}

TEST(Flow, ControlWords)
{
    for (const char* known : {"CMDNOCHECK", "cmdInterval1", "CMDINTERVAL2 x", "CMDINTERVAL3", "CMDNORADIUS",
                              "CMDRADIUS", "CMDNORENUM stay", "CMDRUN", "CMDSTEP", "CMDSTOP", "cmdwait",
                              "CMDSKIP", "not a CMDNONE", " CMDNONE", "CM"}) {
        Start("MK4 mm");
        Enter(std::string("G21 ;") + known);
        EXPECT_EQ(MessageList(), "") << known;
    }
    for (const char* unknown : {"CMD", "cmdfoo", "CMDRUN,", "CMDINTERVAL4", "CMD RUN", "CMDSKIPPER"}) {
        Start("MK4 mm");
        Enter(std::string("G00 X10 Z0 ;") + unknown + " / G21");
        EXPECT_EQ(MessageList(), "N00 !Unknown ControlCommand") << unknown;
        EXPECT_EQ(ToolOf(1), unknown == std::string_view("CMDSKIPPER") ? "0 0 0" : "10 0 0") << unknown;
    }
}

TEST(Flow, TheLineLimit)
{
    const struct {
        const char *Profile, *Lines, *Messages;
    } cases[] = {
        {"MK2 mm", "159*G21", ""},
        {"MK2 mm", "160*G21", "N159 Maximum number of lines has been reached"},
        {"MK2 mm", "159*G21 / G22", ""},
        {"MK2 mm", "159*G21 / M30", ""}, // counts, though that control has no M codes
        {"MK4 mm", "209*G21", ""},
        {"F1 mm", "210*G21", "N209 Maximum number of lines has been reached"},
        {"F1 mm", "G21 / M30 / 208*G21", ""},
        {"F1 mm", "G21 / M30 / 209*G21", "N210 Maximum number of lines has been reached"},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter(c.Lines);
        EXPECT_EQ(MessageList(), c.Messages) << c.Profile << " " << c.Lines;
        const int lines = LineCount();
        LineInsert(); // is refused at the limit
        EXPECT_EQ(LineCount(), lines) << c.Profile << " " << c.Lines;
    }
}

TEST(Flow, TheFirstErrorNamesTheHeaderAndMarksTheSelectedRow)
{
    Start("MK4 mm");
    Enter("G21 / M17 / G00 X6000 Z0 / G00 X6001 Z0");
    // The first sweep sees all lines before the walk begins.
    EXPECT_EQ(MessageList(), "N01 !RETURN without SUB; N02 !X= 5999 maximum; N03 !X= 5999 maximum");
    EXPECT_EQ(lvCncProgram.Headers[CellError], "Error in line 2");
    EXPECT_EQ(Shared.ErrorLine, 2);
    EXPECT_EQ(lvCncProgram.Widths[CellError], 3885);

    SelectRow(4);
    Interpreter();
    EXPECT_EQ(CellOf(3, CellCenterX), "      "); // its own sweep came later
    SelectRow(1);
    Interpreter();
    EXPECT_EQ(CellOf(0, CellRadius), " xxxxx");
    EXPECT_EQ(lvCncProgram.Selected, 1);

    Enter("G21");
    EXPECT_EQ(lvCncProgram.Widths[CellError], 0);
    EXPECT_FALSE(Shared.ErrorsPresent);
}

TEST(Flow, FailuresBesideAWaitingRunAreKeptOneByOne)
{
    Start("MK4 mm");
    Shared.RunMode = Shared.StepRequested = true;
    Enter("G01 X10 Z0 F0 / G21"); // the first line is walked, the run waits at the second
    for (int print = 1; print <= 2; ++print) NoteFailure(Failures::PrinterError, "mnuPrint_Click");
    EXPECT_EQ(LogList(), "11 Interpreter; 482 mnuPrint_Click; 482 mnuPrint_Click");
}

TEST(Flow, AnEmptyProgram)
{
    Start("MK4 mm");
    Enter("G02 X500 Z-500 F50");
    EXPECT_TRUE(Shared.ArcsPresent);
    Enter("");
    EXPECT_EQ(frmMain.lblXAxisMax.Text, "0");
    EXPECT_EQ(frmMain.lblPPMachineTime.Text, "xx:xx:xx");
    EXPECT_EQ(frmMain.lblPPLines.Text, "0");
    EXPECT_FALSE(Shared.ArcsPresent);
    EXPECT_FALSE(Shared.Changed);
}

} // namespace
