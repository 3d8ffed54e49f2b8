// Program files of all machines, whole and damaged, taken apart into rows.

#include "files/reader.h"

#include "support/program.h"

#include <gtest/gtest.h>

namespace {

const std::string MK4Header = "%\n    N` G`   X `    Z `  F`  H \n";
const std::string F1Header = "%\n    N` G`  X  `  Y `   Z ` F  \n";

ProgramFile Read(std::string_view text)
{
    return ReadProgram(WithCrLf(text));
}

/// The cells 1 to 7 of a row between bars.
std::string Fields(const ProgramLine& row)
{
    std::string fields;
    for (size_t cell = CellN; cell <= CellH; ++cell) fields += row[cell] + "|";
    return fields;
}

TEST(Reader, KnowsAFileByItsContent)
{
    const struct {
        const char* Name;
        std::string Text;
        FileKind Kind;
        MachineKind Machine;
    } cases[] = {
        {"MK2", "%\n   N00 G21 X      Z       F    \n   M\n", FileKind::Program, MachineKind::MK2},
        {"MK4", MK4Header, FileKind::Program, MachineKind::MK4},
        {"F1", F1Header, FileKind::Program, MachineKind::F1},
        {"any case", "%\n    n` g`  x  `  y `   z ` f  \n", FileKind::Program, MachineKind::F1},
        {"MK2 text in the notes of an F1 program", "was    n00 g21\n" + F1Header, FileKind::Program,
         MachineKind::MK2},
        {"MK4 text in the comment of an F1 program",
         F1Header + "    00 21                         N` G`   X `    Z\n", FileKind::Program,
         MachineKind::MK4},
        {"language words in a program", "[Brixley, Language Resource]\n" + MK4Header, FileKind::Program,
         MachineKind::MK4},
        {"language module", "x\n[BRIXLEY, language resource]\n", FileKind::Language, MachineKind::MK4},
        {"a header of its own making", "%\n    N` G`  X `    Z\n", FileKind::Unknown, MachineKind::MK4},
        {"nothing", "", FileKind::Unknown, MachineKind::MK4},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(KindOfFile(WithCrLf(c.Text)), c.Kind) << c.Name;
        EXPECT_EQ(Read(c.Text).Machine, c.Machine) << c.Name;
        EXPECT_TRUE(c.Kind == FileKind::Program || Read(c.Text).Rows.empty()) << c.Name;
    }
}

TEST(Reader, TrailersTellUnitsAndSpindle)
{
    const struct {
        const char* Name;
        std::string Text;
        const char* Expected; ///< units, spindle where the trailer tells it, "" for no trailer
    } cases[] = {
        {"MK2 metric", "%\n   N00 G21 X      Z       F    \n   M\n", "mm"},
        {"MK2 inch", "%\n   N00 G21 X      Z       F    \n   \"\n", "inch"},
        {"MK4 metric", MK4Header + "    00 21 \n   M\n", "mm"},
        {"MK4 inch, anywhere on its line", MK4Header + "    00 21 \n       \"\n", "inch"},
        {"MK4 small letter", MK4Header + "    00 21 \n  m \n", "mm"},
        {"MK4 knows no spindle", MK4Header + "    00 21 \n   MI\n", ""},
        {"F1 without a sign", F1Header + "    00 21 \n   M\n", "mm vertical"},
        {"F1 inch without a sign", F1Header + "    00 21 \n   \"\n", "inch vertical"},
        {"F1 horizontal", F1Header + "    00 21 \n   M-\n", "mm horizontal"},
        {"F1 horizontal inch", F1Header + "    00 21 \n   \"-\n", "inch horizontal"},
        {"F1 vertical", F1Header + "    00 21 \n   MI\n", "mm vertical"},
        {"F1 vertical inch", F1Header + "    00 21 \n   \"i\n", "inch vertical"},
        {"F1 with something else", F1Header + "    00 21 \n   MX\n", ""},
        {"none", F1Header + "    00 21 \n", ""},
    };
    for (const auto& c : cases) {
        const ProgramFile file = Read(c.Text);
        std::string end;
        if (file.End) end = file.End->Metric ? "mm" : "inch";
        if (file.End && file.End->Horizontal) end += *file.End->Horizontal ? " horizontal" : " vertical";
        EXPECT_EQ(end, c.Expected) << c.Name;
        EXPECT_GE(file.Rows.size(), 1U) << c.Name;
    }
    EXPECT_EQ(Read(MK4Header + "    00 21 \n   M\n    01 21 \n").Rows.size(), 1U)
        << "lines behind the trailer";
}

TEST(Reader, FieldsAndTheLettersThatCodesGiveThem)
{
    const struct {
        const char* Name;
        std::string Line;
        const char* Fields;
    } cases[] = {
        {"MK4 plain", MK4Header + "    05 01  1000 -  200  50    ", " 05| 01 | 1000||-  200|  50|   |"},
        {"MK4 one digit becomes two", MK4Header + "     5 01     5     7   9   3",
         " 05| 01 |   05||    07|  09| 03|"},
        {"MK4 zeros in front are dropped", MK4Header + "   005 01  0005 -00007 009 003",
         " 05| 01 |   05||-   07|  09| 03|"},
        {"MK4 small letter stays", MK4Header + "    05m03                     ",
         " 05|m03 |     ||      |    |   |"},
        {"MK4 what is no number stays", MK4Header + "    N1 01 -1.5   1 2   +5   -1",
         " N1| 01 |-1.5 || 1 2  | +5 | -1|"},
        {"MK4 M99 from a control", MK4Header + "    05M99   100    200        ",
         " 05|M99 |I 100||K  200|    |   |"},
        {"MK4 jump", MK4Header + "    05 27               12   ", " 05| 27 |     ||      |L 12|   |"},
        {"MK4 call over another letter", MK4Header + "    05 25             X  7   ",
         " 05| 25 |     ||      |L 07|   |"},
        {"MK4 thread", MK4Header + "    05 33       -  500 100   ", " 05| 33 |     ||-  500|K100|   |"},
        {"MK4 thread cycle", MK4Header + "    05 78  -100 -  500 100  50",
         " 05| 78 | -100||-  500|K100| 50|"},
        {"MK4 tool", MK4Header + "    05M06   -10      0   1    ", " 05|M06 |  -10||    00|T 01|   |"},
        {"MK4 tool on the mill only gets D and S", MK4Header + "    05M06    10      0   1    ",
         " 05|M06 |   10||    00|T 01|   |"},
        {"F1 plain", F1Header + "    05 01  1000- 200   300  50", " 05| 01 |  1000|- 200|   300|  50||"},
        {"F1 tool", F1Header + "    05M06   500 2000     0   1", " 05|M06 |D  500|S2000|    00|T 01||"},
        {"F1 centre", F1Header + "    05M99   500  200     0    ", " 05|M99 |I  500|J 200|K   00|    ||"},
        {"F1 jump", F1Header + "    05 27                   12", " 05| 27 |      |     |      |L 12||"},
        {"F1 has no thread", F1Header + "    05 33                  100",
         " 05| 33 |      |     |      | 100||"},
        {"a short line is filled up", MK4Header + "    05M30", " 05|M30 |     ||      |    |   |"},
    };
    for (const auto& c : cases) {
        const ProgramFile file = Read(c.Line + "\n   M\n");
        ASSERT_EQ(file.Rows.size(), 1U) << c.Name;
        EXPECT_EQ(Fields(file.Rows[0]), c.Fields) << c.Name;
    }
}

TEST(Reader, Mk2NumbersCountOnPastAHundred)
{
    std::string text = "%\n";
    for (int n = 0; n < 160; ++n) {
        text += "   N" + std::to_string(n / 10 % 10) + std::to_string(n % 10) + " G21 X      Z       F    \n";
    }
    text.replace(text.find("N07"), 3, "N 7");
    text.replace(text.find("N08"), 3, "NX8");
    const ProgramFile file = Read(text + "   M\n");
    ASSERT_EQ(file.Rows.size(), 160U);
    EXPECT_EQ(file.Rows[7][CellN], "  07");
    EXPECT_EQ(file.Rows[8][CellN], "  X8");
    EXPECT_EQ(file.Rows[99][CellN], "  99");
    EXPECT_EQ(file.Rows[100][CellN], " 100");
    EXPECT_EQ(file.Rows[105][CellN], " 105");
    EXPECT_EQ(file.Rows[159][CellRowText], "159");

    // No letters are set and no digits formatted.
    const ProgramFile raw = Read("%\n   N00 G27 X-   1 Z     2 F  7 jump\n   M\n");
    ASSERT_EQ(raw.Rows.size(), 1U);
    EXPECT_EQ(Fields(raw.Rows[0]), "  00| 27 |-   1||     2|  7||");
    EXPECT_EQ(raw.Rows[0][CellComment], "jump");
}

TEST(Reader, CommentsEndAtColumn81)
{
    std::string comment(60, 'c');
    comment[49] = 'E';
    const std::string fields = "    05 01                    ";
    EXPECT_EQ(Read(MK4Header + fields + "   " + comment + "\n   M\n").Rows[0][CellComment],
              comment.substr(0, 49));
    EXPECT_EQ(Read(F1Header + fields + "  " + comment + "\n   M\n").Rows[0][CellComment],
              comment.substr(0, 50));
    EXPECT_EQ(Read(F1Header + fields + "       a b  \n   M\n").Rows[0][CellComment], "a b");
    EXPECT_EQ(Read(F1Header + fields + "  \xE9\x80\n   M\n").Rows[0][CellComment], "\u00E9\u20AC");
}

TEST(Reader, NotesBecomeOneParagraph)
{
    EXPECT_EQ(Read(" First part.\n50% of it.\n" + MK4Header + "    00 21 \n   M\n").Notes,
              "First part. 50 of it.");
    EXPECT_EQ(Read(MK4Header + "    00 21 \n   M\n").Notes, "");
    // The mark of another program says that notes and comments are its own.
    const ProgramFile cad = Read("made\n%!*\n" + MK4Header + "    00 21                       dear\n   M\n");
    EXPECT_EQ(cad.Notes, "");
    ASSERT_EQ(cad.Rows.size(), 1U);
    EXPECT_EQ(cad.Rows[0][CellComment], "");
    EXPECT_EQ(Read("%!*\n" + F1Header + "    00 21                      dear\n   M\n").Rows[0][CellComment],
              "dear");
}

TEST(Reader, LineEndsOfOtherSystems)
{
    const std::string text = "Notes\n" + F1Header + "    00 21 \n    01M30\n   M-\n";
    for (const char* end : {"\r\n", "\n", "\r"}) {
        std::string bytes;
        for (const char c : text) bytes += c == '\n' ? std::string(end) : std::string(1, c);
        const ProgramFile file = ReadProgram(bytes);
        EXPECT_EQ(file.Notes, "Notes");
        ASSERT_EQ(file.Rows.size(), 2U);
        EXPECT_EQ(file.Rows[1][CellCode], "M30 ");
        EXPECT_TRUE(file.End && file.End->Horizontal == true);
    }
    // With a CR LF in the text an LF is a character like any other.
    EXPECT_EQ(ReadProgram(WithCrLf(MK4Header) + "    00 21 \n    01M30\n").Rows.size(), 1U);
}

TEST(Reader, DamagedFilesGiveWhatCanBeMadeOfThem)
{
    const struct {
        const char* Name;
        std::string Text;
        size_t Rows;
    } cases[] = {
        {"an empty line takes the rest into one",
         MK4Header + "    00 21 \n    01 21 \n\n    02 21 \n    03 21 \n   M\n", 3},
        {"lines of one character are passed over", MK4Header + "    00 21 \nx\n \n    01 21 \n   M\n", 2},
        {"no % line", "    N` G`   X `    Z `  F`  H \n    00 21 \n   M\n", 1},
        {"MK2 without a % line", "   N00 G21 X      Z       F    \n   N01 G22\n   M\n", 2},
        {"one character in front", "x    N` G`   X `    Z `  F`  H \n    00 21 \n   M\n", 1},
        {"a header moved to the right", "%\n      N` G`   X `    Z `  F`  H \n    00 21 \n   M\n", 1},
        {"header alone", MK4Header, 0},
        {"cut off in the header", "%\n    N` G`   X `    Z", 0},
        {"cut off in a line", MK4Header + "    00 2", 1},
    };
    for (const auto& c : cases) {
        const ProgramFile file = Read(c.Text);
        EXPECT_EQ(file.Rows.size(), c.Rows) << c.Name;
        EXPECT_EQ(file.Notes, "") << c.Name;
    }
}

TEST(Reader, TheMostLinesThatAFileMayHave)
{
    for (const bool mk2 : {false, true}) {
        for (const bool trailer : {false, true}) {
            std::string text = mk2 ? "%\r\n" : WithCrLf(MK4Header);
            const std::string line = mk2 ? "   N00 G21 X      Z       F    \r\n" : "    00 21 \r\n";
            for (int n = 0; n < 32000; ++n) text += line;
            const std::string end = trailer ? "   M\r\n" : "";
            const ProgramFile most = ReadProgram(text + end);
            EXPECT_FALSE(most.TooLong) << mk2 << trailer;
            EXPECT_EQ(most.Rows.size(), 32000U) << mk2 << trailer;
            EXPECT_EQ(most.End.has_value(), trailer) << mk2 << trailer;
            EXPECT_TRUE(ReadProgram(text + line + end).TooLong) << mk2 << trailer;
        }
    }
}

} // namespace
