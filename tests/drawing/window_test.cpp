// The drawing window by key scripts: steps and pauses, measuring, its frame, the lines beside it, every way
// out.

#include "cli/key_script.h"
#include "cli/open_program.h"
#include "commands/settings.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/line_figures.h"
#include "drawing/measure.h"
#include "drawing/walk.h"
#include "support/program.h"
#include "ui/focus.h"

#include <gtest/gtest.h>

namespace {

/// Opens the drawing of a program of five moves (N00 to N04) on a canvas of 12000 by 9000; the zero point is
/// put to (1000, 1000) and the scale to 2.
void OpenDrawing(const std::string& script, const char* machine = "MK4")
{
    LoadOptions options;
    options.Machine = machine;
    BeginProgram(options);
    Enter("G00 X100 Z-100 / G00 X200 Z-200 / G00 X300 Z-300 / G00 X400 Z-400 / G00 X500 Z-500 / M30");
    const auto fault = RunKeyScript("{TICK}{MENU mnuDraw}");
    ASSERT_FALSE(fault.has_value()) << *fault;
    Drawing.ZeroPointX = Drawing.ZeroPointY = 1000;
    RunKeyScript("{PICK frmDraw.cboScale 5}{CLICK frmDraw.cmdRedraw}");
    const auto wrong = RunKeyScript(script);
    ASSERT_FALSE(wrong.has_value()) << *wrong;
}

size_t Lines()
{
    size_t lines = 0;
    for (int line = 1; line <= LineCount(); ++line) lines += FiguresOfLine(line).size();
    return lines;
}

TEST(DrawWindow, EveryWaitAndItsEnd)
{
    struct Case {
        const char* Name;
        const char* Script;
        int Waiting;
        size_t Drawn;
    };
    const Case cases[] = {
        {"run draws all", "", -1, 5},
        {"a step waits behind the first line", "{PICK frmDraw.cboRun 2}", 0, 1},
        {"a step each, by button, mark and key", "{PICK frmDraw.cboRun 2}{CLICK cmdStep}{ALT-S}{ENTER}", 3,
         4},
        {"Run in a waiting walk runs the program", "{PICK frmDraw.cboRun 2}{PICK frmDraw.cboRun 1}", -1, 5},
        {"the mode that is chosen already counts",
         "{PICK frmDraw.cboRun 2}{CLICK cmdStep}{PICK frmDraw.cboRun 2}", 0, 1},
        {"Abort", "{PICK frmDraw.cboRun 2}{CLICK cmdAbort}", -1, 1},
        {"[ESC]", "{PICK frmDraw.cboRun 2}{CLICK cmdStep}{ESC}", -1, 2},
        {"pauses take no time where nobody watches", "{PICK frmDraw.cboRun 5}", -1, 5},
        {"a pause a tick", "{PAUSES ON}{PICK frmDraw.cboRun 5}{TICK Timer1}{TICK Timer1}", 2, 3},
        {"Abort in a pause", "{PAUSES ON}{PICK frmDraw.cboRun 5}{TICK Timer1}{CLICK cmdAbort}", -1, 2},
        {"a row that goes ends a waiting walk", "{PICK frmDraw.cboRun 2}{ROW 3}{ESC}{DELETE}", -1, 1},
    };
    for (const Case& test : cases) {
        OpenDrawing(test.Script);
        EXPECT_EQ(WaitingLine(), test.Waiting) << test.Name;
        EXPECT_EQ(Lines(), test.Drawn) << test.Name;
        EXPECT_EQ(frmDraw.cmdRedraw.Enabled, test.Waiting < 0) << test.Name;
        EXPECT_EQ(frmDraw.cmdAbort.Visible, test.Waiting >= 0) << test.Name;
    }
}

TEST(DrawWindow, AHeldCommand)
{
    OpenDrawing("");
    lvCncProgram.Row(3)[CellComment] = "cmdWAIT for it";
    const char* const releases[] = {"{ENTER}", "{CANVAS 9000 8000}", "{CLICK cmdAbort}"};
    for (const char* release : releases) {
        RunKeyScript("{FOCUS frmDraw.chkGrid}{CLICK cmdRedraw}");
        EXPECT_EQ(WaitingLine(), 2) << release;
        EXPECT_EQ(Lines(), 2U) << release << ": the held line isn't drawn";
        // The button that has the focus is disabled while it waits, so [ENTER] presses nothing.
        RunKeyScript(release);
        EXPECT_EQ(WaitingLine(), -1) << release;
        EXPECT_EQ(Lines(), std::string_view(release).find("Abort") == std::string_view::npos ? 5U : 2U)
            << release;
    }
}

TEST(DrawWindow, ReadoutAndMeasuring)
{
    struct Case {
        const char* Name;
        const char* Machine;
        const char* Script;
        const char* Title;
    };
    const Case cases[] = {
        {"rounded down", "MK4", "{MOVE 1201 999}", "X-radius= -1      Z= 100"},
        {"twice the whole radius", "MK4", "{CHECK chkDiameter}{MOVE 1201 1003}",
         "X-diameter= Ø  2      Z= 100"},
        {"grid", "MK4", "{CHECK chkGrid}{MOVE 1200 1200}",
         "X-radius= 100      Z= 100      1Division= 100 x 0.01mm"},
        {"upward is plus on the mill", "F1", "{MOVE 1200 800}", "X= 100      Y= 100"},
        {"the second point moves", "MK4", "{CANVAS 1200 1400}{MOVE 1800 2200}",
         "X-radius= 600      Z= 400      Distance= 500"},
        {"it is set", "MK4", "{CANVAS 1200 1400}{CANVAS 1800 2200}{MOVE 1000 1000}", "X-radius= 0      Z= 0"},
    };
    for (const Case& test : cases) {
        OpenDrawing(test.Script, test.Machine);
        EXPECT_EQ(frmDraw.Window.Text, test.Title) << test.Name;
    }
    OpenDrawing("{CANVAS 1200 1400}{MOVE 1800 2200}");
    EXPECT_EQ(frmDraw.lblMeasureDeltaX.Text + " " + frmDraw.lblMeasureDeltaZ.Text, "400 300");
    EXPECT_EQ(frmDraw.lblMeasureDistanceUnits.Text, "5.00 mm");
    const Folder folder;
    LoadLanguageModule(folder.Put("mine.txt", WithCrLf("[Brixley]\n%1 mm=%1 Millimeter\n")));
    EXPECT_EQ(frmDraw.lblMeasureDistanceUnits.Text, "5.00 Millimeter");
    EXPECT_EQ(frmDraw.lblMeasureDistance.Text, "500");
    EXPECT_FALSE(frmDraw.cboScale.Enabled);
    RunKeyScript("{CANVAS 1800 2200}{MOVE 1 1}{FOCUS txtMeasureX1}1-2-3{DOWN}");
    EXPECT_EQ(frmDraw.txtMeasureX1.Text, "123");
    EXPECT_EQ(Focused(), &frmDraw.txtMeasureX2);
    EXPECT_EQ(frmDraw.lblMeasureDeltaX.Text, "477");
    RunKeyScript("{UP}{LEFT}55{LEFT}{LEFT}{RIGHT},{RIGHT}"); // arrows leave a box at its ends alone
    EXPECT_EQ(Focused(), &frmDraw.txtMeasureZ1);

    // The third click takes the marks away again: each is drawn twice.
    const size_t before = Picture.Operations().size();
    RunKeyScript("{CANVAS 5000 5000}");
    EXPECT_GT(Picture.Operations().size(), before);
    EXPECT_EQ(Lines(), 5U) << "they belong to no line";
    EXPECT_TRUE(frmDraw.cboScale.Enabled);
    EXPECT_FALSE(Drawing.MeasureStarted);

    for (const auto& [typed, clean] :
         {std::pair("12-3", "123"), {"-12-3", "-123"}, {"-", "0"}, {"", "0"}, {"007", "7"}, {"9e999", "0"}})
        EXPECT_EQ(CleanMeasureText(typed), clean) << typed;
}

TEST(DrawWindow, MarksThatADrawingHasErasedDontComeBack)
{
    OpenDrawing("{CANVAS 1200 1400}{CANVAS 1800 2200}");
    Redraw();
    EXPECT_FALSE(frmDraw.cboScale.Enabled) << "the measurement goes on behind the walk";
    const size_t before = Picture.Operations().size();
    RunKeyScript("{CANVAS 5000 5000}");
    EXPECT_EQ(Picture.Operations().size(), before);
}

TEST(DrawWindow, EscapeLeavesWhatGoesOn)
{
    struct Case {
        const char* Name;
        const char* Script;
        size_t Marks;
    };
    // A mark is drawn by two lines and erased by the same two.
    const Case cases[] = {
        {"one point", "{CANVAS 1200 1400}{MOVE 1300 1300}{ESC}", 2 * 2},
        {"both points", "{CANVAS 1200 1400}{CANVAS 1800 2200}{MOVE 1300 1300}{ESC}", 4 * 2},
        {"the choice of a zero point", "{CLICK cmdZeroPoint}{ESC}", 0},
        {"nothing", "{ESC}{ESC}", 0},
    };
    for (const Case& test : cases) {
        OpenDrawing("");
        const int figures = Picture.FigureCount();
        RunKeyScript(test.Script);
        EXPECT_EQ(Picture.FigureCount(), figures + static_cast<int>(test.Marks)) << test.Name;
        EXPECT_FALSE(Drawing.IsPicking()) << test.Name;
        EXPECT_TRUE(frmDraw.frView.Visible && frmDraw.cmdRedraw.Enabled) << test.Name;
        EXPECT_EQ(Drawing.ZeroPointX, 1000) << test.Name;
        EXPECT_TRUE(frmDraw.Window.Visible) << test.Name;
    }
}

TEST(DrawWindow, OpensWithItsFrameInTheCornerThatIsFreest)
{
    struct Case {
        const char *Name, *Machine, *Program;
        std::pair<int, int> Corner;
    };
    const Case cases[] = {
        {"rising to the right", "MK4", "G00 X-500 Z500", {120, 120}},
        {"falling to the right", "MK4", "G00 X500 Z500", {6930, 120}},
        {"all but the lower left", "MK4", "G00 X0 Z500 / G00 X500 Z500 / G00 X0 Z0", {120, 4370}},
        {"an arc around the lower right", "F1", "G00 X0 Y0 Z0 / G02 X1000 Y1000 Z0 F50", {6930, 4370}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        LoadOptions options;
        options.Machine = c.Machine;
        BeginProgram(options);
        Enter("G90 / " + std::string(c.Program) + " / M30");
        RunKeyScript("{TICK}{MENU mnuDraw}");
        EXPECT_EQ(std::pair(frmDraw.frControls.Left, frmDraw.frControls.Top), c.Corner);
        RunKeyScript("{DRAG frControls 300 200}{MENU mnuDraw}");
        EXPECT_EQ(std::pair(frmDraw.frControls.Left, frmDraw.frControls.Top), std::pair(300, 200));
    }
}

TEST(DrawWindow, FrameAndZeroPoint)
{
    OpenDrawing("{DRAG frControls 4000 3000}");
    EXPECT_EQ(std::pair(frmDraw.frControls.Left, frmDraw.frControls.Top), std::pair(4000, 3000));
    RunKeyScript("{CLICK cmdCloseControls}{CANVAS 500 5000}");
    EXPECT_TRUE(frmDraw.frControls.Visible);
    EXPECT_EQ(std::pair(frmDraw.frControls.Left, frmDraw.frControls.Top), std::pair(1, 4370));
    EXPECT_FALSE(Drawing.MeasureStarted) << "the click only brings the frame back";
    RunKeyScript("{CLICK cmdZeroPoint}");
    EXPECT_FALSE(frmDraw.cmdAutoFit.Enabled);
    RunKeyScript("{CANVAS 3000 2000}");
    EXPECT_EQ(Drawing.ZeroPointX, 3000);
    EXPECT_TRUE(frmDraw.cmdAutoFit.Enabled);
    // A walk that waits without its frame is given it back by a click.
    RunKeyScript("{PICK frmDraw.cboRun 2}{CLICK cmdCloseControls}{CANVAS 6000 3000}{CLICK cmdStep}");
    EXPECT_EQ(WaitingLine(), 1);
    frmDraw.chkAutoRedraw.Value = 1;
    frmDraw_Resize();
    EXPECT_EQ(WaitingLine(), 1) << "the fit waits for the end of the steps";
}

TEST(DrawWindow, ProgramLinesFollowTheWalk)
{
    OpenDrawing("{CHECK chkProgramWindow}{PICK frmDraw.cboRun 2}{CLICK cmdStep}");
    const Control& list = frmProgramWindow.lstCncLines;
    EXPECT_EQ(list.Items.size(), 7U) << "the blank row too";
    EXPECT_EQ(list.Items[1], "     01     00    200 -  200                  300   -300  ");
    EXPECT_EQ(list.Index, 1);
    RunKeyScript("{CLOSE frmProgramWindow}{CLICK cmdStep}");
    EXPECT_FALSE(frmProgramWindow.Window.Visible);
    RunKeyScript("{CLICK cmdAbort}{CLICK cmdRedraw}");
    EXPECT_TRUE(frmProgramWindow.Window.Visible) << "the next walk opens it again";
    lvCncProgram.Row(3)[CellError] = "!Wrong";
    RunKeyScript("{PICK frmDraw.cboRun 1}");
    EXPECT_EQ(list.Items.back(), "\"!Wrong\" in line 2");
    EXPECT_EQ(Lines(), 3U) << "the walk ends behind the line";
}

TEST(DrawWindow, ClosingAndFollowing)
{
    const char* const closings[] = {"{CLOSE frmDraw}", "{PICK frmDraw.cboRun 2}{CLOSE frmDraw}",
                                    "{CANVAS 9000 8000}{CLOSE frmDraw}",
                                    "{CLICK cmdZeroPoint}{CLOSE frmDraw}"};
    for (const char* closing : closings) {
        OpenDrawing(closing);
        EXPECT_FALSE(frmDraw.Window.Visible || Drawing.DrawingNow) << closing;
        EXPECT_EQ(&ActiveWindow(), &frmMain.Window) << closing;
        RunKeyScript("{MENU mnuDraw}");
        EXPECT_EQ(Lines(), 5U) << closing;
    }
    OpenDrawing(
        "{CHECK chkAutoRedraw}{ACTIVATE frmMain}{ROW 6}{INSERT}{ROW 6}00{ENTER}600{ENTER}-600{ENTER}{ENTER}");
    EXPECT_EQ(Lines(), 6U) << "the drawing follows the edited line";
    EXPECT_EQ(&ActiveWindow(), &frmMain.Window);
    const auto wrong = RunKeyScript(
        "{CHECK frmDraw.chkProgramWindow}{ACTIVATE frmMain}{ROW 2}00{ENTER}10{ENTER}-10{ENTER}{ENTER}");
    ASSERT_FALSE(wrong.has_value()) << *wrong;
    EXPECT_EQ(frmProgramWindow.lstCncLines.Index, lvCncProgram.Selected - 1) << "not the end of the walk";
    RunKeyScript("{MENU mnuHelpText}{ACTIVATE frmDraw}");
    EXPECT_TRUE(Shared.ControlsEnabled) << "no locked window is left behind";
}

} // namespace
