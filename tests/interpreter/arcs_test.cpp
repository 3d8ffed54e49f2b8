// Arcs in all planes, alone and with the centre or radius behind them; the angle of a straight line.

#include "interpreter/arcs.h"

#include "core/failure.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "interpreter/interpreter.h"
#include "support/program.h"

#include <gtest/gtest.h>

namespace {

/// Centre X, Y, Z, radius and angle of a line, blanks at their ends aside.
std::string ArcOf(int number)
{
    std::string list;
    for (size_t cell = CellCenterX; cell <= CellAngle; ++cell) {
        const std::string& text = CellOf(number, cell);
        list += (cell == CellCenterX ? "" : "|") +
                text.substr(std::min(text.find_first_not_of(' '), text.size()));
    }
    return list;
}

TEST(Arcs, CentreRadiusAndAngle)
{
    const struct {
        const char *Name, *Profile, *Lines;
        int Number;
        const char* Arc;
    } cases[] = {
        {"quadrant", "MK4 mm", "G02 X500 Z-500 F50", 0, "500|0|0|500|90.0"},
        {"the other way", "MK4 mm", "G03 X500 Z-500 F50", 0, "0|0|-500|500|90.0"},
        {"the other end", "MK4 mm", "G02 X500 Z500 F50", 0, "0|0|500|500|90.0"},
        {"the other end and way", "MK4 mm", "G03 X500 Z500 F50", 0, "500|0|0|500|90.0"},
        {"diameters", "MK4 mm", "G90 / G00 X1000 Z0 / G03 X2000 Z-500 F50", 2, "500|0|-500|500|90.0"},
        {"the tool's place is truncated toward zero", "MK4 mm", "G92 X-1001 Z0 / G02 X-1 Z-500 F50", 1,
         "0|0|0|500|90.0"},
        {"the mill looks from the other side", "F1 mm", "G02 X500 Y-500 F50", 0, "0|-500|0|500|90.0"},
        {"and so does its G03", "F1 mm", "G03 X500 Y-500 F50", 0, "500|0|0|500|90.0"},
        {"XY holds Z", "F1 mm", "G00 Z70 / G03 X-500 Y500 F50", 1, "-500|0|70|500|90.0"},
        {"XZ holds Y", "F1 mm", "G00 Y70 / G02 X500 Z-500 F50", 1, "0|70|-500|500|90.0"},
        {"YZ holds X", "F1 mm", "G00 X30 / G02 Y500 Z-500 F50", 1, "30|0|-500|500|90.0"},
        {"M99 gives the radius", "MK4 mm", "G02 X500 Z-400 F50 / M99 I500 K0", 0, "489|0|99|500|79.6"},
        {"by I and J in XY", "F1 mm", "G03 X500 Y-400 F50 / M99 I300 J400 K9999", 0, "489|99|0|500|79.6"},
        {"by J and K in YZ", "F1 mm", "G03 Y500 Z-400 F50 / M99 I9999 J400 K300", 0, "0|489|99|500|79.6"},
        {"rounded down", "MK4 mm", "G02 X500 Z-280 F50 / M99 I450 K219", 0, "450|0|218|500|69.9"},
        {"an end 80 over the quadrant", "MK4 mm", "G02 X500 Z-280 F50 / M99 I450 K218", 0,
         "450|0|217|500|69.9"},
        {"an M99 behind keeps its radius for the last line", "MK4 mm",
         "G02 X500 Z-400 F50 / M99 I500 K0 / G02 X500 Z-400 F50", 2, "989|0|-300|500|79.6"},
        {"no arc", "MK4 mm", "G01 X0 Z10 F50", 0, "||||"},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter(c.Lines);
        EXPECT_EQ(MessageList(), "") << c.Name;
        EXPECT_EQ(ArcOf(c.Number), c.Arc) << c.Name;
    }
    // Aligned as their columns want it.
    EXPECT_EQ(CellOf(0, CellRadius), "      ");
    Enter("G02 X50 Z-50 F50");
    EXPECT_EQ(CellOf(0, CellCenterX), "50");
    EXPECT_EQ(CellOf(0, CellRadius), "    50");
}

TEST(Arcs, WhatEndsTheWalk)
{
    const struct {
        const char *Name, *Profile, *Lines, *Messages;
    } cases[] = {
        {"no move", "MK4 mm", "G02 X0 Z0 F50", "N00 !Start and End same value"},
        {"a move that no plane holds", "F1 mm", "G02 X5 Y5 Z5 F50", "N00 !Start and End same value"},
        {"unequal moves", "MK4 mm", "G02 X500 Z-400 F50", "N00 !Not a full quadrant"},
        {"unequal moves in YZ", "F1 mm", "G02 Y500 Z-400 F50", "N00 !Not a full quadrant"},
        {"one move alone", "MK4 mm", "G02 X500 Z0 F50", "N00 !Not a full quadrant"},
        {"M99 too small for X", "MK4 mm", "G02 X500 Z-400 F50 / M99 I499 K0", "N00 !Radius too small"},
        {"M99 too small for Z", "MK4 mm", "G02 X400 Z-500 F50 / M99 I499 K0", "N00 !Radius too small"},
        {"Y is not asked", "F1 mm", "G02 X0 Y900 F50 / M99 I400 J0", "N01 !1 quadrant max"},
        {"M99R too small", "MK4 mm", "G02 X500 Z-400 F50 / M99R R400", "N00 !Radius too small"},
        {"M99 in the first line", "MK4 mm", "M99 I0 K0 / M30", ""},
        {"M99 behind a line", "MK4 mm", "G02 X5 Z-5 F50 / G01 X5 Z0 F50 / M99 I5 K0",
         "N02 !Must be preceded by G02/03"},
        {"M99R behind a line", "F1 mm", "G21 / M99R R5", "N01 !Must be preceded by G02/03"},
        {"the row above counts, not the way", "MK4 mm", "G27 L02 / G02 X5 Z-5 F50 / M99 I5 K0", ""},
        {"both sides of the centre in X", "MK4 mm", "G02 X400 Z0 F50 / M99 I300 K400", "N01 !1 quadrant max"},
        {"both sides in Z", "MK4 mm", "G02 X0 Z-400 F50 / M99 I400 K300", "N01 !1 quadrant max"},
        {"by 80", "F1 mm", "G03 X0 Y-160 F50 / M99 I0 J100", ""},
        {"by 81", "F1 mm", "G03 X0 Y-162 F50 / M99 I0 J100", "N01 !1 quadrant max"},
        {"by 50 on the side of lesser A", "MK4 mm", "G02 X-500 Z280 F50 / M99 I450 K218",
         "N01 !1 quadrant max"},
        {"ends at different distances", "F1 mm",
         "G00 X500 Y0 / G02 X0 Y296 F50 / M99R R0 / G27 L05 / G02 X1 Y0 F50 / M99 I1 J0", "N05 !Invalid arc"},
        {"distances within the tolerance", "F1 mm",
         "G00 X500 Y0 / G02 X0 Y295 F50 / M99R R0 / G27 L05 / G02 X1 Y0 F50 / M99 I1 J0", ""},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter("G00 X1 Z0"); // an earlier pass leaves no plane
        Enter(c.Lines);
        EXPECT_EQ(MessageList(), c.Messages) << c.Name;
    }

    // Without a radius the walk ends in silence.
    Start("MK4 mm");
    Enter("G21 / G02 X500 Z-500 F50 / M99 I0 K0 / M30");
    EXPECT_EQ(MessageList(), "");
    EXPECT_EQ(Unreached(), "N01 N02 N03");
}

TEST(Arcs, M99RBecomesM99)
{
    const struct {
        const char *Name, *Profile, *Lines;
        int Number;
        const char *Code, *X, *Y, *Z;
    } cases[] = {
        {"lathe", "MK4 mm", "G02 X500 Z-500 F50 / M99R R500", 1, "M99 ", "I 500", "", "K   00"},
        {"partial", "MK4 mm", "G02 X500 Z-400 F50 / M99R R500", 1, "M99 ", "I 489", "", "K   99"},
        {"XY", "F1 mm", "G02 X500 Y-500 F50 / M99R R500", 1, "M99 ", "I   00", "J 500", "K   00"},
        {"XZ", "F1 mm", "G02 X500 Z-500 F50 / M99R R500", 1, "M99 ", "I   00", "J  00", "K  500"},
        {"YZ", "F1 mm", "G00 X1000 / G03 Y500 Z-500 F50 / M99R R500", 2, "M99 ", "I   00", "J 500", "K   00"},
        {"too small: it stays", "MK4 mm", "G02 X500 Z-400 F50 / M99R R400", 1, "M99R", "R 400", "", "      "},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter(c.Lines);
        EXPECT_EQ(CellOf(c.Number, CellCode), c.Code) << c.Name;
        EXPECT_EQ(CellOf(c.Number, CellX), c.X) << c.Name;
        EXPECT_EQ(CellOf(c.Number, CellY), c.Y) << c.Name;
        EXPECT_EQ(CellOf(c.Number, CellZ), c.Z) << c.Name;
    }
}

TEST(Arcs, TheMk2WorksOutItsZ)
{
    const struct {
        const char *Name, *Lines;
        int Number;
        const char *Z, *Tool;
    } cases[] = {
        {"incremental", "G02 X1000 Z-50 F50", 0, "- 1000", "1000 0 -1000"},
        {"whatever the direction", "G03 X-20 Z7 F50", 0, "-   20", "-20 0 -20"},
        {"diameters", "G90 / G00 X1000 Z0 / G03 X2000 Z0 F50", 2, "-  500", "1000 0 -500"},
        {"on from where the tool is", "G90 / G00 X1000 Z-300 / G03 X2000 Z0 F50", 2, "-  800", "1000 0 -800"},
        {"inward", "G90 / G00 X1000 Z-300 / G02 X0 Z0 F50", 2, "-  800", "0 0 -800"},
        {"radii", "G24 / G90 / G00 X500 Z0 / G03 X1000 Z0 F50", 3, "-  500", "1000 0 -500"},
        {"half a unit to the even one", "G90 / G00 X1001 Z0 / G03 X2000 Z0 F50", 2, "-  500", "1000 0 -500"},
    };
    for (const auto& c : cases) {
        Start("MK2 mm");
        Enter(c.Lines);
        EXPECT_EQ(MessageList(), "") << c.Name;
        EXPECT_EQ(CellOf(c.Number, CellZ), c.Z) << c.Name;
        EXPECT_EQ(ToolOf(c.Number), c.Tool) << c.Name;
    }
}

TEST(Arcs, AnglesOfStraightLines)
{
    const struct {
        const char *Lines, *Angle;
    } cases[] = {
        {"G01 X100 Z-100 F50", "R45.0"}, {"G01 X100 Z100 F50", "L45.0"},  {"G01 X-100 Z-100 F50", "L45.0"},
        {"G01 X-100 Z200 F50", "R26.6"}, {"G01 X200 Z-100 F50", "R63.4"}, {"G01 X100 Z0 F50", "   "},
        {"G00 X100 Z-100", "   "},       {"G01 X0 Z-100 F50", "   "},
    };
    for (const auto& c : cases) {
        Start("MK4 mm");
        Enter(c.Lines);
        EXPECT_EQ(CellOf(0, CellAngle), c.Angle) << c.Lines;
    }
    Translated.MessageTable[25] = "D ";
    Enter("G90 / G01 X200 Z-100 F50"); // a diameter
    EXPECT_EQ(CellOf(1, CellAngle), "D 45.0");
}

TEST(Arcs, ARadiusShorterThanHalfTheChord)
{
    Start("F1 mm");
    Enter("G02 X0 Y900 F50 / M99 I400 J0");
    EXPECT_EQ(ArcOf(0), "0|450|0|400|");
    EXPECT_TRUE(LogList().starts_with("5 FindCenter")) << LogList();
    Enter("G02 X0 Y800 F50 / M99 I400 J0"); // a half circle has no angle either
    EXPECT_EQ(ArcOf(0), "0|400|0|400|");
}

TEST(Arcs, FindCenterChoosesByDirectionAndEnd)
{
    const struct {
        float EndA, EndB;
        bool Clockwise;
        float CenterA, CenterB;
    } cases[] = {
        {-100, 100, true, -100, 0},
        {-100, 100, false, 0, 100},
        {-100, -100, true, 0, -100},
        {-100, -100, false, -100, 0},
        // Along A both centres have the same A.
        {120, 0, true, 60, 80},
        {120, 0, false, 60, -80},
    };
    for (const auto& c : cases) {
        float a = 7, b = 7;
        FindCenter(0, 0, c.EndA, c.EndB, 100, c.Clockwise, a, b);
        EXPECT_EQ(a, c.CenterA) << c.EndA << " " << c.EndB << " " << c.Clockwise;
        EXPECT_EQ(b, c.CenterB) << c.EndA << " " << c.EndB << " " << c.Clockwise;
    }
    float a = 7, b = 7;
    FindCenter(1, 2, 3, 4, 0, true, a, b);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 0);
    EXPECT_EQ(PointDistance(0, 0, 3, 4.9F), 5);
}

TEST(Arcs, NumbersBeyondAFloatAreNoCrash)
{
    Start("MK2 mm");
    Enter("G90 / G02 X10 Z0 F50 / G21");
    lvCncProgram.Row(2)[CellX] = "1E999";
    EXPECT_NO_THROW(Interpreter());
    EXPECT_NE(LogList().find("6 Interpreter"), std::string::npos);
}

} // namespace
