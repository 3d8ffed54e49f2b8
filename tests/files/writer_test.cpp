// The text of a program byte by byte, for the disk and for the printer.

#include "files/writer.h"

#include "commands/load.h"
#include "core/code_page.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "support/program.h"
#include "ui/choice.h"

#include <gtest/gtest.h>

namespace {

TEST(Writer, EachMachinesText)
{
    const struct {
        const char *Profile, *Lines, *Text;
    } cases[] = {
        {"MK2 mm", "G01 X1000 Z-200 F50 ; top  / G22",
         "%\n"
         "   N00 G01 X 1000 Z-  200 F 50 top\n"
         "   N01 G22 X      Z       F    \n"
         "   M\n"},
        {"MK4 mm",
         "G01 X1000 Z-200 F50 / M06 X-10 Z0 T5 ;tool / G84 X-100 Z-500 F50 H25 / M99 I100 K20 / M30",
         "%\n"
         "    N` G`   X `    Z `  F`  H \n"
         "    00 01  1000 -  200  50      \n"
         "    01M06 -  10     00T 05      tool\n"
         "    02 84 - 100 -  500  50  25  @  (4x)Longitudinal Cycle\n"
         "    03M99 I 100 K   20          \n"
         "    04M30                       \n"
         "   M\n"},
        {"F1 inch H", "M06 D500 S2000 Z0 T1 / G01 X-5 Y70 Z-1234 F100 ;down / M26 H250 ;pulses / M30",
         "%\n"
         "    N` G`  X  `  Y `   Z ` F  \n"
         "    00M06D  500S2000    00T 01 \n"
         "    01 01-   05   70- 1234 100 down\n"
         "    02M26                  250 pulses\n"
         "    03M30                      \n"
         "   \"-\n"},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter(c.Lines);
        EXPECT_EQ(GenerateAll(), WithCrLf(c.Text)) << c.Profile;
    }
}

TEST(Writer, TrailersNotesAndNumbers)
{
    const struct {
        const char *Profile, *End;
    } cases[] = {
        {"MK2 inch", "   \"\r\n"}, {"MK4 mm", "   M\r\n"},    {"F1 mm", "   MI\r\n"},
        {"F1 mm H", "   M-\r\n"},  {"F1 inch", "   \"I\r\n"},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        EXPECT_EQ(GenerateAll(), "") << c.Profile;
        Enter("G21");
        EXPECT_TRUE(GenerateAll().ends_with(c.End)) << c.Profile;
    }

    // MK2 has room for two digits.
    Start("MK2 mm");
    frmMain.txtFileNotes.Text = "First.\r\nSecond.";
    Enter("106*G21");
    const std::string text = GenerateAll();
    EXPECT_TRUE(text.starts_with("First.\r\nSecond.\r\n%\r\n   N00 G21 X")) << text;
    EXPECT_NE(text.find("   N99 G21 X      Z       F    \r\n   N00 G21"), std::string::npos);
    EXPECT_TRUE(text.ends_with("   N05 G21 X      Z       F    \r\n   M\r\n"));

    // A line with an N in its number is the blank row for the MK4 alone.
    for (const char* profile : {"MK4 mm", "F1 mm"}) {
        Start(profile);
        Enter("G21 ;first / M30");
        lvCncProgram.Row(1)[CellN] = " N0";
        EXPECT_EQ(GenerateAll().find("first") != std::string::npos, Shared.Machine == MachineKind::F1);
    }

    // An M99R that no arc has turned into M99 yet moves its line by one column.
    Start("MK4 mm");
    Enter("M99R R50");
    EXPECT_NE(GenerateAll().find("    00M99R R  50 "), std::string::npos);
}

TEST(Writer, TheListing)
{
    const auto blanks = [](size_t count) { return std::string(count, ' '); };
    Start("MK4 mm");
    frmMain.txtFileNotes.Text = "One. Two.";
    Enter("G02 X500 Z-500 F50 ;arc / M30");
    SetCheck(frmMain.chkViewToolPos, true);
    SetCheck(frmMain.chkViewLineProperties, true);
    SetCheck(frmMain.chkViewMachineTime, true);
    Shared.PrintMode = true;
    // Each column is 10 wide; those that this line leaves blank are so too.
    EXPECT_EQ(GenerateAll(), WithCrLf("One.\nTwo.\n\n     N   G    X      Z   F   H "
                                      "    Tool X    Tool Z  Center X  Center Z    Radius    Angle\u00B0"
                                      "      Time   Comment\n"
                                      "    00 02   500 -  500  50    "
                                      "       500      -500       500         0       500      90.0"
                                      "  00:00:10  arc\n"
                                      "    01M30                     "
                                      "       500      -500" +
                                      blanks(52) + "\n   M\n"));

    // The error column stands in front of the others; a long text keeps one blank in front of it.
    Start("MK2 inch");
    Enter("G00 X2000 Z0 ;far");
    Shared.PrintMode = true;
    EXPECT_EQ(GenerateAll(), WithCrLf("\n" + blanks(30) +
                                      " Error in line 0   Comment\n"
                                      "   N00 G00 X 2000 Z    00 F    !X= 1999 maximum far\n   \"\n"));

    Start("F1 mm");
    Enter("G21");
    SetCheck(frmMain.chkViewToolPos, true);
    Shared.PrintMode = true;
    EXPECT_EQ(GenerateAll(),
              WithCrLf("\n     N  G     X    Y     Z   F    Tool X    Tool Y    Tool Z   Comment\n"
                       "    00 21" +
                       blanks(30) + "0         0         0 \n   MI\n"));
}

TEST(Writer, AWrittenProgramReadsBackAsItWas)
{
    const struct {
        const char *Profile, *Lines;
    } cases[] = {
        {"MK2 inch", "G01 X1000 Z-200 F50 ;turn / G84 X-5 Z-20 F100 / 110*G21 / G22 ;end"},
        {"MK4 mm", "G33 Z-500 K100 / G02 X500 Z-400 F50 / M99 I500 K0 / G25 L07 / M06 X1 Z-1 T3 / "
                   "G86 X5 Z50 F50 H10 / M30 / G00 X-7 Z0 / M17"},
        {"F1 inch H",
         "M06 D500 S2000 Z0 T1 / M26 H25 ;out / G03 X50 Y-50 F70 / M99 I50 J0 K0 / G27 L05 / M30"},
    };
    const Folder folder;
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter(c.Lines);
        const std::string text = GenerateAll();
        const std::vector<ProgramLine> rows = lvCncProgram.Rows;
        EXPECT_EQ(MessageList(), "") << c.Profile;
        Start("MK4 mm");
        LoadFile(folder.Put("a.cnc", ToCodePage(text)));
        ASSERT_EQ(lvCncProgram.Rows.size(), rows.size()) << c.Profile;
        EXPECT_EQ(GenerateAll(), text) << c.Profile;
        // Cells from an MK2 file are a column wider or narrower until they are typed again.
        const bool mk2 = Shared.Machine == MachineKind::MK2;
        for (size_t i = 0; i < rows.size() && !mk2; ++i) {
            for (size_t cell = CellN; cell < CellCount; ++cell) {
                EXPECT_EQ(lvCncProgram.Rows[i][cell], rows[i][cell]) << c.Profile << " N" << i;
            }
        }
    }
}

} // namespace
