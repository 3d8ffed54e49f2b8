// What the walk draws: moves, arcs, threads, cycles, pockets, both views of the mill; and the way it takes.

#include "drawing/walk.h"

#include "core/draw_window.h"
#include "core/program_list.h"
#include "drawing/drawing_state.h"
#include "drawing/line_figures.h"
#include "support/figures.h"
#include "support/program.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr DrawBoxValues Plain{}, Radii{1}, Width{0, 1}, Both{1, 1, 1};
constexpr DrawBoxValues White{0, 0, 0, 0, 0, 0, 1};

struct Drawn {
    const char *Name, *Profile, *Lines, *Figures;
    DrawBoxValues Boxes = Plain;
    float Scale = 1;
};

template <size_t count> void DrawAll(const Drawn (&cases)[count])
{
    for (const Drawn& c : cases) {
        Draw(c.Profile, c.Lines, {c.Boxes, c.Scale});
        EXPECT_EQ(Figures(), c.Figures) << c.Name;
        EXPECT_FALSE(Drawing.DrawingNow) << c.Name;
        Redraw();
        EXPECT_EQ(Figures(), c.Figures) << c.Name << ", again: a walk begins anew";
    }
}

TEST(Walk, MovesInAllModes)
{
    const Drawn cases[] = {
        {"as programmed", "MK4 mm", "G00 X100 Z-200 / G01 X50 Z0 F50",
         "green 0,0>-200,100; blue -200,100>-200,150; @-200,150"},
        {"smaller", "MK4 mm", "G00 X100 Z-200", "green 0,0>-100,50; @-100,50", Plain, 0.5F},
        {"an absolute X is a diameter", "MK4 mm", "G90 / G00 X600 Z0 / G01 X1000 Z0 F50",
         "green 0,0>0,300; blue 0,300>0,500; @0,500"},
        {"from G24 on a radius", "MK4 mm", "G90 / G00 X600 Z0 / G24 / G01 X1000 Z0 F50",
         "green 0,0>0,300; blue 0,300>0,1000; @0,1000"},
        {"and back", "MK4 mm", "G90 / G00 X600 Z50 / G91 / G00 X600 Z50",
         "green 0,0>50,300>100,900; @100,900"},
        {"a jump of the coordinates", "MK4 mm", "G00 X100 Z100 / G92 X400 Z-300 / G01 X400 Z-500 F50",
         "green 0,0>100,100; blue -300,200>-500,200; @-500,200"},
        {"the same with radii", "MK4 mm", "G24 / G92 X400 Z-300 / G01 X500 Z-300 F50",
         "blue -300,400>-300,500; @-300,500"},
        {"the mill's Y points upward", "F1 mm", "G00 X100 Y200 / G01 X0 Y-50 F50",
         "green 0,0>100,-200; blue 100,-200>100,-150; @100,-150"},
        {"its X is no diameter", "F1 mm", "G92 X100 Y100 Z0 / G00 X300 Y100 Z0",
         "green 100,-100>300,-100; @300,-100"},
        {"lying down it draws the same plane", "F1 mm H", "G00 X100 Y200", "green 0,0>100,-200; @100,-200"},
        {"what draws nothing", "MK4 mm", "G21 / M03 / G94 / G04 X50 / M05", "@0,0"},
    };
    DrawAll(cases);
}

TEST(Walk, QuadrantsAndRadii)
{
    const Drawn cases[] = {
        {"02 ++", "MK4 mm", "G02 X500 Z500 F50", "magenta arc 500,0 r500 180..270; @500,500"},
        {"02 +-", "MK4 mm", "G02 X500 Z-500 F50", "magenta arc 0,500 r500 90..180; @-500,500"},
        {"02 -+", "MK4 mm", "G02 X-500 Z500 F50", "magenta arc 0,-500 r500 270..360; @500,-500"},
        {"02 --", "MK4 mm", "G02 X-500 Z-500 F50", "magenta arc -500,0 r500 360..90; @-500,-500"},
        {"03 ++", "MK4 mm", "G03 X500 Z500 F50", "cyan arc 0,500 r500 0..90; @500,500"},
        {"03 +-", "MK4 mm", "G03 X500 Z-500 F50", "cyan arc -500,0 r500 270..360; @-500,500"},
        {"03 -+", "MK4 mm", "G03 X-500 Z500 F50", "cyan arc 500,0 r500 90..180; @500,-500"},
        {"03 --", "MK4 mm", "G03 X-500 Z-500 F50", "cyan arc 0,-500 r500 180..270; @-500,-500"},
        {"the move across decides", "MK4 mm", "G02 X500 Z300 F50",
         "magenta arc 500,0 r500 180..270; @500,500"},
        {"the mill swaps them", "F1 mm", "G02 X100 Y100 F50", "cyan arc 100,0 r100 90..180; @100,-100"},
        {"both ways", "F1 mm", "G03 X100 Y100 F50", "magenta arc 0,-100 r100 270..360; @100,-100"},
        {"radii", "MK4 mm", "G02 X500 Z500 F50",
         "magenta arc 500,0 r500 180..270; magenta~ 500,500>500,0>0,0; @500,500", Radii},
        {"not on this line", "MK4 mm", "G02 X500 Z500 F50;cmdNoRadius / G03 X10 Z10 F50",
         "magenta arc 500,0 r500 180..270; cyan arc 500,510 r10 0..90; cyan~ 510,510>500,510>500,500; "
         "@510,510",
         Radii},
        {"on this line alone", "MK4 mm", "G02 X500 Z500 F50;CMDradius on / G03 X10 Z10 F50",
         "magenta arc 500,0 r500 180..270; magenta~ 500,500>500,0>0,0; cyan arc 500,510 r10 0..90; @510,510"},
        {"a chord along Z", "MK4 mm", "G02 X0 Z400 F50 / M99 I300 K200",
         "magenta arc 360.555,0 r360.555 180..0; @400,0"},
        {"a chord along X", "MK4 mm", "G03 X400 Z0 F50 / M99 I300 K200",
         "cyan arc 0,360.555 r360.555 270..90; @0,400"},
        {"no chord", "MK4 mm", "G02 X0 Z0 F50 / M99 I300 K400", "magenta arc 500,0 r500 180..270; @500,500"},
        {"the mill's offsets", "F1 mm", "G02 X200 Y-400 F50 / M99 I300 J400",
         "cyan arc -300,400 r500 0..53.1; @200,400"},
        {"the word on the M99 line", "MK4 mm", "G03 X400 Z200 F50 / M99 I400 K300;cmdRADIUS",
         "cyan arc -300,400 r500 0..53.1; cyan~ 200,400>-300,400>0,0; @200,400"},
    };
    DrawAll(cases);

    // Without a row behind it an arc is a quadrant.
    Draw("MK4 mm", "G02 X500 Z500 F50");
    lvCncProgram.Rows.pop_back();
    Redraw();
    EXPECT_EQ(Figures(), "magenta arc 500,0 r500 180..270; @500,500");
}

TEST(Walk, PartialArcsHaveTheirTrueCentre)
{
    // Between the angles of the points (400, 300) and (300, 400) around a centre, in each quarter, both ways.
    std::array<int, 2> near{400, 300}, far{300, 400};
    for (int quarter = 0; quarter < 4; ++quarter) {
        for (const bool counterClockwise : {true, false}) {
            const auto& [x, y] = counterClockwise ? near : far;
            const auto& [endX, endY] = counterClockwise ? far : near;
            const auto text = [](int value) { return std::to_string(value); };
            Draw("MK4 mm", (counterClockwise ? "G02 X" : "G03 X") + text(y - endY) + " Z" + text(endX - x) +
                               " F50 / M99 I" + text(std::abs(y)) + " K" + text(std::abs(x)));
            const std::string turn = text(quarter * 90 + 36) + ".9.." + text(quarter * 90 + 53) + ".1";
            EXPECT_EQ(Figures(), (counterClockwise ? "magenta" : "cyan") + (" arc " + text(-x)) + "," +
                                     text(y) + " r500 " + turn + "; @" + text(endX - x) + "," +
                                     text(y - endY));
        }
        near = {-near[1], near[0]};
        far = {-far[1], far[0]};
    }
}

TEST(Walk, ThreadsAndCycles)
{
    const Drawn cases[] = {
        {"thread", "MK4 mm", "G33 Z1000 K500",
         "yellow 0,0>250,-250>500,0>750,-250>1000,0; yellow 0,2>0,0; @1000,0"},
        {"to the left", "MK4 mm", "G33 Z-1000 K500",
         "yellow 0,0>-250,-250>-500,0>-750,-250>-1000,0; yellow 0,-2>0,0; @-1000,0"},
        {"a rest is left out", "MK4 mm", "G33 Z800 K500",
         "yellow 0,0>250,-250>500,0; yellow 0,1>0,0; @800,0"},
        {"without a letter", "MK2 mm", "G33 Z500 F500", "yellow 0,0>250,-250>500,0; yellow 0,1>0,0; @500,0"},
        {"on white", "MK4 mm", "G33 Z500 K500", "blue 0,0>250,-250>500,0; blue 0,1>0,0; @500,0", White},
        {"no pitch", "MK4 mm", "G33 Z1000 K0", "yellow 0,0>0,0; @1000,0"},
        {"the tool is where the thread ends", "MK4 mm", "G90 / G33 Z1000 K0 / G00 X0 Z1100",
         "yellow 0,0>0,0; green 1000,0>1100,0; @1100,0"},
        {"thread cycle", "MK4 mm", "G78 X200 Z500 K500",
         "yellow box 0,0>500,200; yellow box 500,200>0,0; yellow 0,0>250,-250>500,0; yellow 0,1>0,0; @0,0"},
        {"turning cycle", "MK4 mm", "G84 X-200 Z-1000 F50",
         "red box 0,0>-1000,-200; red box -1000,-200>0,0; @0,0"},
        {"hole of a lathe", "MK4 mm", "G83 Z-400 F50 / G84 X10 Z10 F50",
         "blue/2 0,0>-400,0>0,0; red box 0,0>10,10; red box 10,10>0,0; @0,0"},
        {"hole of the mill", "F1 mm", "G00 X10 Y0 / G81 Z-400 F50", "green 0,0>10,0; blue dot 10,0; @10,0"},
        {"as wide as the last cut", "F1 mm", "G01 X10 Y0 F50 / M06 D150 / G01 X90 Y0 F50 / G81 Z-400 F50",
         "blue 0,0>10,0; blue/20 10,0>100,0; blue/20 dot 100,0; @100,0", Width},
        {"a wide tool", "F1 mm", "M06 D1200 / G01 X10 Y0 F50", "blue/80 0,0>5,0; @5,0", Width, 0.5F},
        {"never thinner than a pixel", "F1 mm", "M06 D30 / G01 X80 Y0 F50", "blue 0,0>10,0; @10,0", Width,
         0.125F},
        {"wide and centre line, radii once", "F1 mm", "M06 D75 / G02 X100 Y100 F50",
         "cyan/10 arc 100,0 r100 90..180; cyan~ 100,-100>100,0>0,0; white arc 100,0 r100 90..180; @100,-100",
         Both},
        {"a rapid move is thin and green in both", "F1 mm", "M06 D75 / G00 X10 Y0",
         "green 0,0>10,0; green 0,0>10,0; @10,0", Both},
        {"no width on the lathes", "MK4 mm", "M06 X300 Z0 F1 / G01 X10 Z0 F50", "blue 0,0>0,10; @0,10", Both},
    };
    DrawAll(cases);

    // Six teeth of 150 on 1000, and the line back.
    Draw("MK4 mm", "G33 Z1000 K150");
    EXPECT_EQ(CountOf("line"), 6 * 2 + 1);

    // A pitch that is nothing at this scale.
    Draw("MK4 mm", "G33 Z800 K2", {Plain, 0.125F});
    EXPECT_EQ(Figures(), "yellow 0,0>0,0; @100,0");
    EXPECT_EQ(LogList(), "11 DrawThread");
}

TEST(Walk, Pockets)
{
    const Drawn cases[] = {
        {"up and to the right", "F1 mm", "M06 D100 / G72 X1000 Y600 Z-10 F50",
         "red 10,-10>790,-10>790,-190>10,-190>10,-380>790,-380>790,-390>10,-390; red dot 800,-400; "
         "red 800,-400>800,0>0,0>0,-400>800,-400; @0,0"},
        {"down, one row less", "F1 mm", "M06 D100 / G72 X1000 Y-400 Z-10 F50",
         "red 10,10>790,10>790,190>10,190>10,190>790,190; red dot 800,200; "
         "red 800,200>800,0>0,0>0,200>800,200; @0,0"},
        {"to the left", "F1 mm", "M06 D100 / G72 X-1000 Y300 Z-10 F50",
         "red -10,-10>-790,-10>-790,-90>-10,-90; red dot -800,-100; "
         "red -800,-100>-800,0>0,0>0,-100>-800,-100; @0,0"},
        {"to the left and down", "F1 mm", "M06 D100 / G72 X-1000 Y-300 Z-10 F50",
         "red -10,10>-790,10>-790,90>-10,90; red dot -800,100; "
         "red -800,100>-800,0>0,0>0,100>-800,100; @0,0"},
        {"to the left, no Y", "F1 mm", "M06 D100 / G72 X-1000 Y0 Z-10 F50",
         "red -10,-10>-790,-10>-790,210>-10,210; red dot -800,200; "
         "red -800,200>-800,0>0,0>0,200>-800,200; @0,0"},
        {"a row on the far edge", "F1 mm", "M06 D100 / G72 X1000 Y580 Z-10 F50",
         "red 10,-10>790,-10>790,-190>10,-190>10,-380>790,-380>790,-370>10,-370; red dot 800,-380; "
         "red 800,-380>800,0>0,0>0,-380>800,-380; @0,0"},
        {"to a point", "F1 mm", "G90 / M06 D100 / G72 X1000 Y200 Z-10 F50",
         "red 10,-10>890,-10>890,-90>10,-90; red dot 900,-100; red 900,-100>900,0>0,0>0,-100>900,-100; @0,0"},
        {"a tool of no width", "F1 mm", "M06 D0 / G72 X1000 Y600 Z-10 F50",
         "red dot 1000,-600; red 1000,-600>1000,0>0,0>0,-600>1000,-600; @0,0"},
        {"at the tool's width", "F1 mm", "M06 D75 / G72 X400 Y300 Z-10 F50 / G81 Z-5 F50",
         "grey/10 7.5,-7.5>242.5,-7.5>242.5,-142.5>7.5,-142.5>7.5,-142.5>242.5,-142.5; grey/10 dot 250,-150; "
         "grey/10 250,-150>250,0>0,0>0,-150>250,-150; red dot 250,-150; "
         "red 250,-150>250,0>0,0>0,-150>250,-150; blue dot 0,0; @0,0",
         Width},
    };
    DrawAll(cases);

    // Ten thousand rows are drawn, more are not.
    Draw("F1 mm", "M06 D1 / G72 X1000 Y9500 Z-10 F50");
    lvCncProgram.Row(1)[CellX] = "D  0.5";
    Redraw();
    EXPECT_EQ(CountOf("line"), 1 + 2 * 9998 + 2 + 4);
    lvCncProgram.Row(2)[CellY] = " 9502";
    Redraw();
    EXPECT_EQ(CountOf("line"), 4);
}

TEST(Walk, FollowsTheFlow)
{
    const Drawn cases[] = {
        {"jump", "MK4 mm", "G00 X10 Z0 / G27 L03 / G00 X10 Z0 / G00 X5 Z0", "green 0,0>0,10>0,15; @0,15"},
        {"jump below the first line", "MK4 mm", "G00 X10 Z0 / G27 L-5 / G00 X10 Z0", "green 0,0>0,10; @0,10"},
        {"jump behind the last line", "MK4 mm", "G27 L101 / G00 X10 Z0", "@0,0"},
        {"call", "MK4 mm", "G25 L03 / G00 X1 Z0 / M30 / G00 X10 Z0 / M17", "green 0,0>0,10>0,11; @0,11"},
        {"return without a call", "MK4 mm", "M17 / G00 X10 Z0 / G25 L04 / M30 / G00 X1 Z0 / M17",
         "green 0,0>0,10>0,11; @0,11"},
        {"five calls", "MK4 mm", "G25 L01 / G25 L02 / G25 L03 / G25 L04 / G25 L05 / G00 X1 Z0",
         "green 0,0>0,1; @0,1"},
        {"end", "MK2 mm", "G00 X10 Z0 / G22 / G00 X10 Z0", "green 0,0>0,10; @0,10"},
        {"skip, in any case", "MK4 mm", "G00 X10 Z0;cMdSkIp now / G00 X5 Z0", "green 0,0>0,5; @0,5"},
        {"a skipped mode", "MK4 mm", "G90;cmdSKIP / G00 X10 Z0 / G00 X10 Z0", "green 0,0>0,10>0,20; @0,20"},
        {"no word: a blank in front", "MK4 mm", "G00 X10 Z0; cmdSKIP", "green 0,0>0,10; @0,10"},
        {"no word: another", "MK4 mm", "G00 X10 Z0;cmdSKIPPED", "green 0,0>0,10; @0,10"},
        {"stop", "MK4 mm", "G00 X10 Z0 / G00 X5 Z0;cmdstop", "green 0,0>0,10; @0,10"},
    };
    DrawAll(cases);
    EXPECT_TRUE(frmDraw.cmdRedraw.Enabled && frmDraw.cboScale.Enabled && !frmDraw.cmdAbort.Visible);

    Draw("MK4 mm", "G25 L01 / G25 L02 / G25 L03 / G25 L04 / G25 L05 / G25 L06 / G00 X1 Z0");
    EXPECT_EQ(Figures(), "@0,0");
    ASSERT_FALSE(Desk.Boxes.empty());
    EXPECT_EQ(Desk.Boxes.back().Box.Text, "Too many subprog-Calls");
    EXPECT_EQ(Desk.Boxes.back().Box.Title, "max 5 subcalls");

    // A million lines, half of them moves.
    Draw("MK4 mm", "G00 X0 Z0 / G27 L00");
    EXPECT_EQ(CountOf("line"), 500000);
}

TEST(Walk, AFigureIsFoundByItsPlace)
{
    const struct {
        const char *Name, *Lines;
        double X, Y;
        int Line;
    } cases[] = {
        {"the last of two", "G00 X500 Z0 / G00 X-300 Z0", 0, 350, 2},
        {"on an arc", "G00 X0 Z1 / G02 X500 Z500 F50", 147, 354, 2},
        {"through angle 0", "G02 X-500 Z-500 F50", -146, -354, 1},
        {"where the circle goes on", "G02 X500 Z500 F50", 500, -500, 0},
        {"the far side of a box", "G84 X200 Z300 F50", 300, 100, 1},
        {"the zero point's marks", "G21", 0, 2000, 0},
    };
    for (const auto& c : cases) {
        Draw("MK4 mm", c.Lines);
        EXPECT_EQ(LineAt(Drawing.ZeroPointX + c.X, Drawing.ZeroPointY + c.Y, 20), c.Line) << c.Name;
    }
}

TEST(Walk, WaitsWhereTheProgramSaysSo)
{
    Draw("MK4 mm", "G00 X1 Z0 / G00 X1 Z0;cmdSTEP / G00 X1 Z0;cmdRUN / G00 X1 Z0");
    EXPECT_EQ(WaitingLine(), 1);
    EXPECT_EQ(Figures(), "green 0,0>0,1>0,2; @0,2");
    EXPECT_TRUE(frmDraw.cmdStep.Visible && frmDraw.cmdStep.Enabled && !frmDraw.cmdRedraw.Enabled);
    frmDraw_cmdStep_Click();
    ResumeDrawing();
    EXPECT_EQ(WaitingLine(), -1);
    EXPECT_EQ(Figures(), "green 0,0>0,1>0,2>0,3>0,4; @0,4");

    // Abort ends a walk that waits for a step behind its line, and the mill's second walk with it.
    Draw("F1 mm", "G01 X1 Y0 F50;cmdSTEP / G01 X1 Y0 F50", {Both});
    cmdAbort_Click();
    ResumeDrawing();
    EXPECT_EQ(Figures(), "blue 0,0>1,0; @1,0");
    EXPECT_FALSE(Drawing.DrawingNow || frmDraw.cmdStep.Visible || Drawing.AbortDraw);

    // In a paced walk each line of a pocket waits for a tick; Abort leaves it behind a pair of rows.
    Draw("F1 mm", "M06 D100 / G72 X1000 Y1200 Z-10 F50", {Width});
    Drawing.PausesTakeTime = true;
    frmDraw.cboRun.Index = static_cast<int>(RunChoice::Interval1);
    Redraw();
    EXPECT_EQ(Figures(), "@10,-10");
    for (int tick = 0; tick < 2; ++tick) {
        Timer1_Timer();
        ResumeDrawing();
    }
    EXPECT_EQ(Figures(), "grey/13 10,-10>790,-10>790,-190; @790,-190");
    EXPECT_EQ(Drawing.TimerPeriod, 50);
    cmdAbort_Click();
    ResumeDrawing();
    EXPECT_EQ(Figures(), "grey/13 10,-10>790,-10>790,-190>10,-190>10,-380>790,-380; @790,-380");
    lvCncProgram.Row(1)[CellComment] = "cmdRUN"; // no tick comes any more
    Redraw();
    EXPECT_FALSE(Drawing.DrawingNow);

    // A word sets the timer going by itself. The mill's second walk does not pause.
    Draw("F1 mm", "G01 X1 Y0 F50;cmdINTERVAL2 / G01 X1 Y0 F50", {Both});
    Drawing.PausesTakeTime = true;
    Redraw();
    EXPECT_TRUE(Drawing.TimerRuns);
    EXPECT_EQ(Drawing.TimerPeriod, 500);
    for (int tick = 0; tick < 2; ++tick) {
        EXPECT_EQ(WaitingLine(), tick);
        Timer1_Timer();
        ResumeDrawing();
    }
    EXPECT_FALSE(Drawing.DrawingNow);
}

} // namespace
