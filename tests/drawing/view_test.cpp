// How a program lies on the canvas: the fit, the zero point, the grid, fills, and the boxes that choose them.

#include "drawing/view.h"

#include "commands/drawing.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/walk.h"
#include "support/figures.h"
#include "support/program.h"
#include "ui/choice.h"

#include <gtest/gtest.h>

namespace {

/// The range of an axis as the pass writes it.
struct Range {
    int Low = 0, High = 0;
};

void PutRange(Control& low, Control& high, Control& travel, const Range& range)
{
    low.Text = std::to_string(range.Low);
    high.Text = std::to_string(range.High);
    travel.Text = std::to_string(range.High - range.Low);
}

TEST(View, FitsTheRangesOfTheAxes)
{
    const struct {
        const char *Name, *Profile;
        int Width, Height;
        Range X, Y, Z;
        int Index;
        float Scale;
        double ZeroX, ZeroY;
    } cases[] = {
        {"a lathe", "MK4 mm", 12000, 9000, {0, 3000}, {}, {-8000, 0}, 3, 1, 10000, 2500},
        {"no movement", "MK4 mm", 12000, 9000, {}, {}, {}, 9, 64, 6000, 4000},
        {"as large as the window", "MK4 mm", 12000, 9000, {0, 8000}, {}, {}, 3, 1, 6000, 0},
        {"larger by one", "MK4 mm", 12000, 9000, {0, 8001}, {}, {}, 2, 0.5, 6000, 1999.75},
        {"across decides", "MK2 mm", 12000, 9000, {0, 10}, {}, {-1000, 375}, 6, 8, 8500, 3960},
        {"beyond all scales", "MK4 mm", 1900, 9000, {0, 10}, {}, {0, 9000}, -1, 0.0625, 668.75, 3999.6875},
        {"a window without height", "MK4 mm", 12000, 900, {}, {}, {0, 1600}, -1, 0.0625, 5950, -50},
        {"a mill", "F1 mm", 12000, 9000, {-500, 1500}, {-1000, 500}, {-90, 90}, 5, 4, 4000, 3000},
        {"lying", "F1 mm H", 12000, 9000, {-500, 1500}, {-1000, 500}, {-90, 90}, 5, 4, 4000, 3000},
    };
    for (const auto& c : cases) {
        Draw(c.Profile, "G21");
        frmDraw.Window.Width = c.Width;
        frmDraw.Window.Height = c.Height;
        frmDraw.frControls.Visible = false; // keeps no room for itself
        PutRange(frmMain.lblXAxisMin, frmMain.lblXAxisMax, frmMain.lblXAxisTravel, c.X);
        PutRange(frmMain.lblYAxisMin, frmMain.lblYAxisMax, frmMain.lblYAxisTravel, c.Y);
        PutRange(frmMain.lblZAxisMin, frmMain.lblZAxisMax, frmMain.lblZAxisTravel, c.Z);
        const int drawings = Picture.Generation();
        AutoFit();
        EXPECT_EQ(Picture.Generation(), drawings) << c.Name << ": nothing has asked for a fit";
        cmdAutoFit_Click();
        EXPECT_EQ(Picture.Generation(), drawings + 1) << c.Name;
        EXPECT_EQ(frmDraw.cboScale.Index, c.Index) << c.Name;
        EXPECT_EQ(Shared.DrawScale, c.Scale) << c.Name;
        EXPECT_DOUBLE_EQ(Drawing.ZeroPointX, c.ZeroX) << c.Name;
        EXPECT_DOUBLE_EQ(Drawing.ZeroPointY, c.ZeroY) << c.Name;
    }
}

TEST(View, OpeningFitsAndDrawsOnce)
{
    Start("F1 mm H");
    Enter("G00 X-1000 Y3000 / G01 X2000 Y0 Z-50 F50");
    const int drawings = Picture.Generation();
    mnuDraw_Click();
    // One clearing empties the new window, one begins the drawing.
    EXPECT_EQ(Picture.Generation(), drawings + 2);
    EXPECT_EQ(Figures(), "green 0,0>-2000,-6000; blue -2000,-6000>2000,-6000; @2000,-6000");

    Enter("G27 L77");
    mnuDraw_Click();
    EXPECT_EQ(Picture.Generation(), drawings + 2) << "a program with errors isn't drawn";
}

TEST(View, TheGridGoesThroughItsOwnZeroPoint)
{
    DrawBoxValues grid;
    grid.Grid = 1;
    const struct {
        float Scale;
        double ZeroX, ZeroY;
        const char* Lines;
        int Division;
    } cases[] = {
        {1, 5000, 4000, "down 91, 0 to 9000; across 121, 0 to 12000", 100},
        {1, 5030, 4070, "down 91, 70 to 9070; across 121, 30 to 12030", 100},
        {1, 30, -40, "down 91, -40 to 8960; across 121, 30 to 12030", 100},
        {0.5, 5000, 4000, "down 19, 0 to 9000; across 25, 0 to 12000", 1000},
        {16, 5000, 4000, "down 7, 800 to 10400; across 9, 200 to 13000", 100},
        {32, 5000, 4000, "down 29, 160 to 9120; across 39, 200 to 12360", 10},
        {0.0625, 5000, 4000, "down 145, 32 to 9032; across 193, 40 to 12040", 1000},
        {1, -1, 77, "down 91, 0 to 9000; across 121, 0 to 12000", 100}, // in the middle
    };
    for (const auto& c : cases) {
        Draw("MK4 mm", "G00 X1 Z1", {grid, c.Scale, c.ZeroX, c.ZeroY});
        EXPECT_EQ(Grid(), c.Lines) << c.Scale << " " << c.ZeroX;
        EXPECT_EQ(Drawing.GridDivision, c.Division) << c.Scale;
    }
}

TEST(View, FillsFollowTheirBoxes)
{
    const struct {
        const char* Profile;
        int Grid, Fill;
        FillStyle Style;
        Color Ink;
    } cases[] = {
        {"MK4 mm", 0, 0, FillStyle::Transparent, Colors::Black},
        {"MK4 mm", 0, 1, FillStyle::Diagonal, Colors::Green},
        {"MK4 mm", 1, 0, FillStyle::Transparent, Colors::Black},
        {"MK4 mm", 1, 1, FillStyle::Solid, Colors::Black},
        {"F1 mm", 0, 1, FillStyle::Transparent, Colors::Black},
    };
    for (const auto& c : cases) {
        DrawBoxValues boxes;
        boxes.Grid = c.Grid;
        boxes.FillCycles = c.Fill;
        Draw(c.Profile, "G84 X10 Z10 F50", {boxes});
        EXPECT_EQ(Picture.Settings().Fill, c.Style) << c.Profile << c.Grid << c.Fill;
        EXPECT_EQ(Picture.Settings().FillColor, c.Ink) << c.Profile << c.Grid << c.Fill;
    }
}

TEST(View, BoxesOfTheMillHoldEachOther)
{
    const auto views = [] { return frmDraw.chkToolWidth.Value * 10 + frmDraw.chkToolCenter.Value; };
    Draw("F1 mm", "G21");
    EXPECT_EQ(views(), 1) << "none was chosen yet";
    SetCheck(frmDraw.chkToolCenter, false);
    EXPECT_EQ(views(), 10);
    SetCheck(frmDraw.chkToolWidth, false);
    EXPECT_EQ(views(), 1);
    SetCheck(frmDraw.chkToolWidth, true);
    EXPECT_EQ(views(), 11);
    EXPECT_EQ(Shared.DrawBoxes.ToolWidth, 1);
    SetCheck(frmDraw.chkFillCycles, true);
    EXPECT_EQ(frmDraw.chkFillCycles.Value, 0);
    // What was chosen on a lathe stays chosen, and so does the mill's view.
    Shared.DrawBoxes.FillCycles = 1;
    SetCheck(frmDraw.chkGrid, true);
    frmDraw_Activate();
    EXPECT_EQ(frmDraw.chkFillCycles.Value, 0);
    EXPECT_EQ(Shared.DrawBoxes.FillCycles, 1);
    Shared.Machine = MachineKind::MK4;
    const int drawings = Picture.Generation();
    SetCheck(frmDraw.chkAutoRedraw, true);
    frmDraw_Activate();
    EXPECT_EQ(frmDraw.chkFillCycles.Value, 1);
    EXPECT_EQ(Picture.Generation(), drawings + 2) << "the box was drawn when it came back";
}

TEST(View, BoxesDrawAtOnceWhereTheyShow)
{
    const struct {
        Control& Box;
        bool Draws;
    } cases[] = {
        {frmDraw.chkShowRadii, true},           {frmDraw.chkFillCycles, true},
        {frmDraw.chkProgramWindow, true},       {frmDraw.chkGrid, true},
        {frmDraw.chkPrintableBackground, true}, {frmDraw.chkDiameter, false},
    };
    for (const int automatic : {0, 1}) {
        DrawBoxValues boxes;
        boxes.AutoRedraw = automatic;
        Draw("MK4 mm", "G21", {boxes});
        for (const auto& [box, draws] : cases) {
            const int drawings = Picture.Generation();
            SetCheck(box, true);
            EXPECT_EQ(Picture.Generation(), drawings + (draws && automatic == 1 ? 1 : 0)) << box.Name;
        }
    }
    EXPECT_EQ(frmDraw.Window.Text.back(), '=');
}

} // namespace
