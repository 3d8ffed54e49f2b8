// Machine time, the range of the axes, and the faults of the calculation that leave a record.

#include "interpreter/machine_time.h"

#include "core/failure.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "interpreter/interpreter.h"
#include "support/program.h"

#include <gtest/gtest.h>

namespace {

TEST(MachineTime, OfALineAndOfTheProgram)
{
    const struct {
        const char *Name, *Profile, *Lines;
        int Number;
        const char *Line, *Total;
    } cases[] = {
        {"rapid along X", "MK4 mm", "G00 X1000 Z0", 0, "00:00:02", "00:00:02"},            // 1.55 s
        {"rapid along Z", "MK4 mm", "G00 X0 Z-5000", 0, "00:00:06", "00:00:06"},           // 5.95 s
        {"rapid along both", "MK4 mm", "G00 X3000 Z-4000", 0, "00:00:07", "00:00:07"},     // 6.95 s
        {"rapid to where it stands", "MK4 mm", "G00 X0 Z0", 0, "00:00:00", "00:00:00"},    // 0.45 s
        {"which adds up", "MK4 mm", "7*G00 X0 Z0", 6, "00:00:00", "00:00:03"},             // 3.15 s
        {"rapid in inch", "MK4 inch", "G00 X1000 Z0", 0, "00:00:03", "00:00:03"},          // 3.244 s
        {"feed along X", "MK4 mm", "G01 X1000 Z0 F100", 0, "00:00:06", "00:00:06"},        // 6 s
        {"feed in inch", "MK4 inch", "G01 X1000 Z0 F100", 0, "00:00:15", "00:00:15"},      // 15.24 s
        {"feed along Z", "F1 mm", "G01 Z-1000 F50", 0, "00:00:12", "00:00:12"},            // 12 s
        {"feed along both", "MK4 mm", "G01 X3000 Z-4000 F100", 0, "00:00:33", "00:00:33"}, // 33 s
        {"in diameters", "MK4 mm", "G90 / G01 X2000 Z0 F100", 1, "00:00:06", "00:00:06"},
        {"in YZ", "F1 mm", "G01 Y3000 Z-4000 F100", 0, "00:00:33", "00:00:33"},
        {"feed per turn is taken per minute", "MK4 mm", "G95 / G01 X1000 Z0 F100", 1, "00:00:06", "00:00:06"},
        {"a quadrant", "MK4 mm", "G02 X500 Z-500 F50", 0, "00:00:10", "00:00:10"}, // 10.0 s
        {"has no unit", "MK4 inch", "G02 X500 Z-500 F50", 0, "00:00:10", "00:00:10"},
        {"part of one", "F1 mm", "G03 X500 Y-400 F10 / M99 I500 J0", 0, "00:00:44", "00:00:44"}, // 44.2 s
        {"an arc without an angle takes the last one's length", "F1 mm",
         "G02 X500 Y-500 F50 / G02 X0 Y160 F50 / M99 I80 J0", 1, "00:00:10", "00:00:20"},
        {"an arc without feed", "MK4 mm", "G02 X500 Z-500", 0, "        ", "00:00:00"},
        {"dwell", "MK4 mm", "G04 X250", 0, "00:00:03", "00:00:03"}, // 2.5 s
        {"dwells add up unrounded", "MK4 mm", "4*G04 X40", 3, "00:00:00", "00:00:02"},
        {"an hour and more", "F1 mm", "20*G04 X19999", 0, "00:03:20", "01:06:40"},
        {"chip breaking", "MK4 mm", "G73 Z-381 F100", 0, "00:00:05", "00:00:05"}, // 3 cuts, 4.5 s
        {"chip breaking without feed", "F1 mm", "G73 Z-381", 0, "        ", "00:00:00"},
        {"cycles have none", "MK4 mm", "G84 X-100 Z-500 F50", 0, "        ", "00:00:00"},
        {"threads have none", "MK4 mm", "G33 Z-500 K100", 0, "        ", "00:00:00"},
        {"a sub that is called twice", "MK4 mm", "G25 L03 / G25 L03 / M30 / G04 X200 / M17", 3, "00:00:02",
         "00:00:04"},
        {"a skipped line moves as the line before", "MK4 mm", "G00 X1000 Z0 / G00 X9 Z9 ;CMDSKIP", 1,
         "00:00:02", "00:00:03"},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter(c.Lines);
        EXPECT_EQ(CellOf(c.Number, CellTime), c.Line) << c.Name;
        EXPECT_EQ(frmMain.lblPPMachineTime.Text, c.Total) << c.Name;
    }
}

TEST(MachineTime, TextForm)
{
    EXPECT_EQ(MakeTimeString(0.49F), "00:00:00");
    EXPECT_EQ(MakeTimeString(59.5F), "00:01:00");
    EXPECT_EQ(MakeTimeString(3599.5F), "01:00:00");
    EXPECT_EQ(MakeTimeString(45296), "12:34:56");
    EXPECT_EQ(MakeTimeString(360000), "100:00:00");
}

/// "min max travel" of X, Y and Z.
std::string Axes()
{
    const auto labels = [](const Control& min, const Control& max, const Control& travel) {
        return min.Text + " " + max.Text + " " + travel.Text;
    };
    return labels(frmMain.lblXAxisMin, frmMain.lblXAxisMax, frmMain.lblXAxisTravel) + ", " +
           labels(frmMain.lblYAxisMin, frmMain.lblYAxisMax, frmMain.lblYAxisTravel) + ", " +
           labels(frmMain.lblZAxisMin, frmMain.lblZAxisMax, frmMain.lblZAxisTravel);
}

TEST(Axes, TheZeroPointIsAlwaysInside)
{
    const struct {
        const char *Name, *Profile, *Lines, *Axes;
    } cases[] = {
        {"positive X", "MK4 mm", "G00 X100 Z-20 / G00 X50 Z-5", "0 150 150, 0 0 0, -25 0 25"},
        {"a register far away", "F1 mm", "G92 X-300 Y40 Z0 / G00 X-200 Y50 Z0", "-300 0 300, 0 50 50, 0 0 0"},
        {"half units", "MK4 mm", "G90 / G00 X-25 Z0", "-12.5 0 12.5, 0 0 0, 0 0 0"},
        {"the far end of a cycle", "MK4 mm", "G00 X100 Z0 / G84 X-600 Z-700 F50",
         "-500 100 600, 0 0 0, -700 0 700"},
        {"no move", "MK4 mm", "G21", "0 0 0, 0 0 0, 0 0 0"},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter("G00 X1000 Z1000 / G21"); // of an earlier pass
        Enter(c.Lines);
        EXPECT_EQ(Axes(), c.Axes) << c.Name;
    }
}

TEST(CalculationFaults, LeaveARecordAndTheValueBefore)
{
    Start("MK4 mm");
    Enter("G01 X10 Z0 F0 / G00 X10 Z0");
    EXPECT_EQ(LogList(), "11 Interpreter");
    EXPECT_EQ(CellOf(0, CellTime), "        ");
    EXPECT_EQ(ToolOf(1), "20 0 0");

    // Z doesn't fit 16 bits: its word stays the line before's, the tool goes by the plain value.
    Start("MK4 mm");
    Enter("G04 X1 Z-32761 / G00 X10 Z99999 / M30");
    EXPECT_EQ(LogList(), "6 Interpreter");
    EXPECT_EQ(MessageList(), "N01 !Z= -32760 minimum");
    EXPECT_EQ(ToolOf(1), "10 0 99999");

    // A file may bring exponents, and sums of them may be beyond a 32-bit float.
    Start("F1 mm");
    Enter("2*G00 X1 Y0 Z0");
    for (ProgramLine& row : lvCncProgram.Rows) row[CellX] = "3E38";
    Interpreter();
    EXPECT_EQ(LogList(), "6 Interpreter; 6 Interpreter");
    EXPECT_EQ(CellOf(1, CellToolX), CellOf(0, CellToolX));
}

} // namespace
