// Opening, saving and changing whole programs: what is asked, what is written where, and that a failure
// costs nobody a program.

#include "commands/load.h"
#include "commands/program.h"
#include "commands/recent_files.h"
#include "commands/save.h"
#include "commands/session.h"
#include "commands/settings.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "editor/fields.h"
#include "editor/lines.h"
#include "editor/whole_program.h"
#include "platform/files.h"
#include "support/program.h"
#include "ui/choice.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace {

constexpr const char* MillProgram = "Notes\n%\n    N` G`  X  `  Y `   Z ` F  \n    00M30\n   \"-\n";

/// While a full one lives, nothing gets onto the disk.
class Disk
{
public:
    explicit Disk(bool full)
    {
        if (!full) return;
        Calls.Write = [](int, const void*, size_t) -> ssize_t {
            errno = ENOSPC;
            return -1;
        };
    }
    ~Disk() { Calls = Before; }

private:
    const SystemCalls Before = Calls;
};

/// The texts of all boxes that were shown, joined by "; ".
std::string Boxes()
{
    std::string list;
    for (const auto& shown : Desk.Boxes) list += (list.empty() ? "" : "; ") + shown.Box.Text;
    return list;
}

TEST(Load, AsksBeforeAChangedProgramIsReplaced)
{
    const std::string saved =
        WithCrLf("%\n   N00 G21 X      Z       F    \n   N01 G22 X      Z       F    \n   M\n");
    const struct {
        const char* Name;
        bool Changed, HasFile, Full;
        Answer Given;
        std::string Content; ///< of the old file then
        bool Replaced;
        size_t Boxes;
    } cases[] = {
        {"unchanged", false, true, false, Answer::Cancel, "old", true, 0},
        {"yes", true, true, false, Answer::Yes, saved, true, 2},
        {"no", true, true, false, Answer::No, "old", true, 1},
        {"cancel", true, true, false, Answer::Cancel, "old", false, 1},
        {"yes, but the disk is full", true, true, true, Answer::Yes, "old", false, 2},
        {"yes, but no name was given", true, false, false, Answer::Yes, "old", false, 1},
    };
    for (const auto& c : cases) {
        Start("MK2 mm");
        const Folder folder;
        const std::string old = folder.Put("old.cnc", "old");
        const std::string mill = folder.Put("mill.cnc", WithCrLf(MillProgram));
        Enter("G21");
        Shared.Changed = c.Changed;
        if (c.HasFile) frmMain.lblPath.Text = old;
        Desk.Answers = {c.Given};
        {
            const Disk disk(c.Full);
            LoadFile(mill);
        }
        EXPECT_EQ(BytesOf(old), c.Content) << c.Name;
        EXPECT_EQ(Shared.Changed, !c.Replaced) << c.Name;
        EXPECT_EQ(Shared.Machine, c.Replaced ? MachineKind::F1 : MachineKind::MK2) << c.Name;
        EXPECT_EQ(frmMain.lblPath.Text, c.Replaced ? mill : c.HasFile ? old : "") << c.Name;
        EXPECT_EQ(frmMain.txtFileNotes.Text, c.Replaced ? "Notes" : "") << c.Name;
        EXPECT_EQ(CellOf(0, CellCode), c.Replaced ? "M30 " : " 21 ") << c.Name;
        ASSERT_EQ(Desk.Boxes.size(), c.Boxes) << c.Name << ": " << Boxes();
        if (!c.Changed) continue;
        EXPECT_EQ(Desk.Boxes[0].Box.Text, "Do you want to save the open file now?");
        EXPECT_EQ(Desk.Boxes[0].Box.Title, "Continue?");
        EXPECT_EQ(Desk.Boxes[0].Box.Buttons, Buttons::YesNoCancel);
    }
}

TEST(Load, TakesMachineUnitsAndSpindleFromTheFile)
{
    Start("MK4 mm");
    Load(MillProgram);
    EXPECT_EQ(frmMain.lblPPUnits.Text, "H 1/1000 \"");
    EXPECT_EQ(frmMain.optSettingsHinch.Value, 1);
    EXPECT_EQ(frmMain.optSettingsF1CNC.Value, 1);
    EXPECT_FALSE(Shared.Changed);
    EXPECT_EQ(lvCncProgram.Selected, 1);
    EXPECT_EQ(lvCncProgram.Row(2)[CellN], "NN");

    // Without a trailer the units that stood before stay, and the spindle behind a lathe's back.
    Load("%\n    N` G`   X `    Z `  F`  H \n    00 01  2000     00  50\n");
    EXPECT_EQ(MessageList(), "N00 !X= 1999 maximum");
    EXPECT_TRUE(Shared.Horizontal);
    Load("%\n    N` G`  X  `  Y `   Z ` F  \n    00M30\n   M\n");
    EXPECT_FALSE(Shared.Horizontal);
    EXPECT_TRUE(Shared.Metric);
}

TEST(Load, LeavesTheProgramAloneWhenTheFileIsNone)
{
    std::string tooLong = WithCrLf("%\n    N` G`   X `    Z\n");
    for (int i = 0; i < 32001; ++i) tooLong += "    00 21\r\n";
    const Folder folder;
    const struct {
        const char* Name;
        std::string Path;
        const char* Box;
    } cases[] = {
        {"missing", folder / "missing.cnc", ""},
        {"a folder", folder / "", ""},
        {"cancelled dialog", "", ""},
        {"unknown", folder.Put("notes.txt", "no program"),
         "The file \"notes.txt\"  does not appear to be an Emco CNC formatted file"},
        {"language module", folder.Put("german.txt", "[Brixley, Language Resource]\r\n"), ""},
        {"too long", folder.Put("long.cnc", tooLong),
         "The file \"long.cnc\" has more than 32000 lines and can't be loaded"},
    };
    for (const auto& c : cases) {
        Start("MK2 inch");
        Enter("G21");
        frmMain.lblPath.Text = "mine.cnc";
        LoadFile(c.Path);
        EXPECT_EQ(Boxes(), c.Box) << c.Name;
        EXPECT_EQ(LineCount(), 1) << c.Name;
        EXPECT_EQ(Shared.Machine, MachineKind::MK2) << c.Name;
        EXPECT_EQ(frmMain.lblPath.Text, "mine.cnc") << c.Name;
        EXPECT_TRUE(Shared.Changed) << c.Name;
    }
    Start("MK4 mm");
    Translated.MessageTable[16] = "ist fremd";
    LoadFile(folder / "notes.txt");
    EXPECT_EQ(Boxes(), "The file \"notes.txt\" ist fremd ");
}

TEST(Save, AddsTheEndCodeOnce)
{
    const struct {
        const char *Profile, *Lines;
        int Count;
        const char* LastCode;
    } cases[] = {
        {"MK2 mm", "G21", 2, " 22 "},
        {"MK4 mm", "G21", 2, "M30 "},
        {"F1 inch H", "G21", 2, "M30 "},
        {"MK4 mm", "M30 / G21", 2, " 21 "},
        {"MK4 mm", "G27 L02 / M30 / G21", 3, " 21 "},
        {"MK2 mm", "M30", 1, "M30 "},
        {"MK4 mm", "159*G21", 160, "M30 "},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        const Folder folder;
        Enter(c.Lines);
        frmMain.lblPath.Text = folder / "a.cnc";
        mnuSave_Click();
        EXPECT_FALSE(Shared.Changed);
        EXPECT_EQ(Boxes(), "a.cnc has been saved") << c.Lines;
        const std::string text = BytesOf(folder / "a.cnc");
        mnuSave_Click();
        EXPECT_EQ(BytesOf(folder / "a.cnc"), text) << c.Lines;
        ASSERT_EQ(LineCount(), c.Count) << c.Lines;
        EXPECT_EQ(CellOf(c.Count - 1, CellCode), c.LastCode) << c.Lines;
        EXPECT_EQ(lvCncProgram.Rows.back()[CellN], "NN") << c.Lines;
    }
}

TEST(Save, TheEndCodeLeavesEntryAndSelectionAlone)
{
    Start("MK4 mm");
    Enter("G21 / G21");
    frmMain.lblGMcode.Text = "G";
    frmMain.txtGMcode.Text = "01";
    InputFields("01");
    frmMain.txtXI.Text = "12";
    frmMain.txtFKTL.Text = "1";
    frmMain.txtComment.Text = "typing";
    SelectRow(2);
    Shared.RedrawPending = false;
    AddEndOfProgram();
    EXPECT_EQ(frmMain.lblGMcode.Text + frmMain.txtGMcode.Text, "G01");
    EXPECT_EQ(frmMain.txtXI.Text, "12");
    EXPECT_TRUE(frmMain.txtXI.Visible);
    EXPECT_EQ(frmMain.txtXI.Tag, "-5999TO5999");
    EXPECT_EQ(frmMain.txtFKTL.Text, "1");
    EXPECT_EQ(frmMain.txtComment.Text, "typing");
    EXPECT_TRUE(frmMain.cmdFeedA.Enabled);
    EXPECT_EQ(lvCncProgram.Selected, 2);
    EXPECT_FALSE(Shared.RedrawPending);
    // The line has no trace of the entry.
    const ProgramLine& end = lvCncProgram.Row(3);
    EXPECT_EQ(end[CellN] + end[CellCode] + end[CellX] + end[CellZ] + end[CellF] + end[CellH] +
                  end[CellComment],
              " 02M30                   ");
}

TEST(Save, AsksForANameUntilOneMayBeWritten)
{
    const struct {
        const char* Name;
        bool As;
        const char* Path;
        std::deque<std::optional<std::string>> Files;
        std::deque<Answer> Answers;
        const char *Boxes, *Written;
    } cases[] = {
        {"a known file", false, "old", {}, {}, "old has been saved", "old"},
        {"no file yet", false, "", {"new"}, {}, "new has been saved", "new"},
        {"cancelled", true, "old", {std::nullopt}, {}, "", ""},
        {"closed without a name", true, "old", {""}, {}, "No file specified", ""},
        {"overwrite", true, "new", {"old"}, {Answer::Yes}, "Overwrite old?; old has been saved", "old"},
        {"rather not", true, "old", {"old", "new"}, {Answer::Cancel}, "Overwrite old?", ""},
        {"another", true, "old", {"old", "new"}, {Answer::No}, "Overwrite old?; new has been saved", "new"},
        {"another, then cancelled", true, "old", {"old"}, {Answer::No}, "Overwrite old?", ""},
    };
    for (const auto& c : cases) {
        Start("MK4 mm");
        const Folder folder;
        const auto path = [&](const std::string& name) { return name.empty() ? name : folder / name; };
        folder.Put("old", "old");
        Enter("G21");
        frmMain.lblPath.Text = path(c.Path);
        for (const auto& file : c.Files) Desk.Files.push_back(file ? std::optional(path(*file)) : file);
        Desk.Answers = c.Answers;
        SaveFile_Click(c.As);
        const bool done = *c.Written != '\0';
        EXPECT_EQ(Boxes(), c.Boxes) << c.Name;
        EXPECT_EQ(Shared.Changed, !done) << c.Name;
        EXPECT_EQ(frmMain.lblPath.Text, path(done ? c.Written : c.Path)) << c.Name;
        EXPECT_EQ(BytesOf(folder / "old") == "old", std::string_view(c.Written) != "old") << c.Name;
        EXPECT_EQ(std::filesystem::exists(folder / "new"), std::string_view(c.Written) == "new") << c.Name;
        EXPECT_TRUE(!done || frmMain.Window.Text.ends_with(c.Written)) << c.Name;
        EXPECT_TRUE(Desk.Dialogs.empty() || Desk.Dialogs[0].Name == path(c.Path)) << c.Name;
    }
    Start("MK4 mm");
    lvCncProgram = {};
    mnuSave_Click();
    EXPECT_EQ(Boxes(), "No Lines of code present");
    Start("MK4 mm");
    const Folder folder;
    Translated.MessageTable[19] = "Remplacer";
    Translated.Own["%1 %2?"] = "%1 %2 ?";
    Desk.Files = {folder.Put("old", "old")};
    mnuSaveAs_Click();
    EXPECT_TRUE(Boxes().starts_with("Remplacer old ?;")) << Boxes();
}

TEST(Save, AFailureKeepsTheOldFileAndTellsWhy)
{
    const Folder folder;
    std::filesystem::create_directory(folder / "sub");
    const struct {
        const char* Path;
        bool Full;
    } cases[] = {{"old.cnc", true}, {"new.cnc", true}, {"sub", false}, {"missing/a.cnc", false}};
    for (const auto& c : cases) {
        Start("MK4 mm");
        folder.Put("old.cnc", "old");
        Enter("G21");
        frmMain.lblPath.Text = folder / c.Path;
        {
            const Disk disk(c.Full);
            mnuSave_Click();
        }
        EXPECT_EQ(BytesOf(folder / "old.cnc"), "old") << c.Path;
        EXPECT_FALSE(std::filesystem::exists(folder / "new.cnc"));
        EXPECT_TRUE(Shared.Changed) << c.Path;
        EXPECT_EQ(frmMain.lblPath.Text, folder / c.Path);
        ASSERT_EQ(Desk.Boxes.size(), 1U) << c.Path;
        const std::string start = std::filesystem::path(c.Path).filename().string() + " could not be saved: ";
        EXPECT_TRUE(Desk.Boxes[0].Box.Text.starts_with(start)) << Boxes();
        EXPECT_GT(Desk.Boxes[0].Box.Text.size(), start.size()) << c.Path;
        EXPECT_EQ(Boxes().find("disk is full") != std::string::npos, c.Full) << Boxes();
        EXPECT_TRUE(LogList().ends_with(" SaveFile_Click")) << LogList();
    }
}

TEST(RecentFiles, TheLastTenStandInTheOrderOfTheirUse)
{
    Start("MK4 mm");
    const Folder folder;
    for (int i = 0; i < 12; ++i) LoadFile(folder.Put("p" + std::to_string(i), WithCrLf(MillProgram)));
    LoadFile(folder / "p5");
    std::filesystem::remove(folder / "p11");
    mnuRecentFile_Click(1);
    EXPECT_EQ(Boxes(), "p11 is no longer there");
    Desk.Files = {folder / "n&w"};
    mnuSaveAs_Click();
    EXPECT_EQ(Shared.DialogFile, folder / "n&w");
    EXPECT_EQ(Desk.Dialogs.back().Folder + "/", folder / "");
    std::string entries;
    for (const Control& entry : frmMain.mnuRecentFile) entries += entry.Visible ? entry.Text + "|" : "";
    EXPECT_EQ(entries, "&1  n&&w|&2  p5|&3  p10|&4  p9|&5  p8|&6  p7|&7  p6|&8  p4|&9  p3|&0  p2|");
}

TEST(Convert, EachValueByItself)
{
    const struct {
        const char* Profile; ///< what the program is converted from
        const char* Line;
        std::string Cells; ///< X, Y, Z, F, H behind it
    } cases[] = {
        {"MK4 mm", "G01 X1000 Z-2000 F200", "  394||-  787|  79|   "},
        {"MK4 inch", "G01 X125 Z-375 F125", "  318||-  952| 318|   "},
        {"MK4 mm", "G01 X0 Z0 F1", "   00||    00|  01|   "},
        {"MK4 mm", "G33 Z5 K1", "     ||    02|K 00|   "},
        {"MK4 mm", "M06 X-100 Z300 T100", "-  39||   118|T100|   "},
        {"MK4 mm", "G27 L02", "     ||      |L 02|   "},
        {"MK4 mm", "G84 X-500 Z-500 F50 H250", "- 197||-  197|  20|250"},
        {"MK4 mm", "M99 I500 K254", "I 197||K  100|    |   "},
        {"MK4 mm", "G04 X254", "  100||      |    |   "},
        {"F1 inch", "M06 D500 S2000 Z0 T20", "D 1270|S2000|    00|T 20|"},
        {"F1 inch", "M99 I100 J200 K0", "I  254|J 508|K   00|    |"},
        {"F1 mm H", "G01 X-19999 Y254 Z12345 F254", "- 7874|  100|  4860| 100|"},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        Enter("G21 / " + std::string(c.Line) + " / G21");
        const bool toInch = Shared.Metric;
        SelectRow(2);
        Shared.Changed = false;
        (toInch ? mnuMMtoINCH_click : mnuINCHtoMM_click)();
        std::string cells;
        for (size_t cell = CellX; cell <= CellH; ++cell) cells += CellOf(1, cell) + (cell < CellH ? "|" : "");
        EXPECT_EQ(cells, c.Cells) << c.Profile << " " << c.Line;
        EXPECT_EQ(Shared.Metric, !toInch) << c.Line;
        EXPECT_EQ(frmMain.mnuMMtoINCH.Enabled, !toInch) << c.Line;
        EXPECT_EQ(frmMain.mnuINCHtoMM.Enabled, toInch) << c.Line;
        EXPECT_TRUE(Shared.Changed) << c.Line;
        EXPECT_EQ(lvCncProgram.Selected, 2) << c.Line;
    }
}

TEST(Convert, AFileOfTheMk2AndAValueThatIsTooLarge)
{
    Start("MK4 mm");
    Load("%\n   N00 G01 X 1000 Z-  200 F254 c\n   M\n");
    ASSERT_EQ(CellOf(0, CellF), "254");
    mnuMMtoINCH_click();
    EXPECT_EQ(CellOf(0, CellF), " 100");
    EXPECT_EQ(MessageList(), "");

    Start("MK4 inch");
    Enter("G00 X10 Z12901 / G00 X10 Z12900");
    mnuINCHtoMM_click();
    EXPECT_EQ(CellOf(0, CellZ), " 12901"); // it stays, and is logged
    EXPECT_EQ(CellOf(0, CellX), "   25");
    EXPECT_EQ(CellOf(1, CellZ), " 32766");
    EXPECT_EQ(LogList(), "6 Convert");

    Start("MK4 inch");
    mnuINCHtoMM_click();
    EXPECT_FALSE(Shared.Metric); // nothing to convert
}

TEST(CodeComments, ComeAndGoWithTheirBox)
{
    Start("MK4 mm");
    Enter("G01 X10 Z0 F50 / M06 X0 Z0 T1 ;mine / G21 ;  / G26 X0 Z0 / G00 X0 Z0 ;@ x / M30");
    Shared.Changed = false;
    SetCheck(frmMain.chkViewGcode, true);
    EXPECT_TRUE(Shared.Changed);
    const char* const with[] = {"@  Linear Interpolation", "mine", "@  Empty Line", "", "@ x",
                                "@  End of Program"};
    for (int n = 0; n < 6; ++n) EXPECT_EQ(CellOf(n, CellComment), with[n]) << n;
    SetCheck(frmMain.chkViewGcode, false);
    const char* const without[] = {"", "mine", "", "", "@ x", ""};
    for (int n = 0; n < 6; ++n) EXPECT_EQ(CellOf(n, CellComment), without[n]) << n;

    SetCheck(frmMain.chkViewGcode, true);
    Shared.Changed = false;
    Load(MillProgram);
    EXPECT_EQ(CellOf(0, CellComment), "@  End of Program");
    EXPECT_FALSE(Shared.Changed);
    Load("%\n   N00 G26 X      Z       F    \n   N01 G27 X      Z       F 00\n   M\n");
    EXPECT_EQ(CellOf(0, CellComment), "@  Tool Change and Compensation");
    EXPECT_EQ(CellOf(1, CellComment), ""); // that control has no jumps
    LoadLanguageModule(LANGUAGES_DIR "/German.txt");
    EXPECT_EQ(CellOf(0, CellComment), "@  Werkzeugwechsel und -korrektur");
    EXPECT_FALSE(Shared.Changed); // by another language

    // An M99R has four characters and no description; the walk hasn't met it here.
    Start("MK4 mm");
    Enter("M30 / M99R R5 / M99 I0 K0");
    SetCheck(frmMain.chkViewGcode, true);
    EXPECT_EQ(CellOf(1, CellComment), "");
    EXPECT_EQ(CellOf(2, CellComment), "@  Partial Arc Center");
}

TEST(Profile, OtherUnitsJudgeTheSameValues)
{
    Start("MK4 mm");
    Enter("G01 X2000 Z0 F350");
    frmMain.txtFeedA.Text = "350";
    Shared.Changed = false;
    Choose(frmMain.optSettingsInch);
    EXPECT_EQ(MessageList(), "N00 !F= 199 maximum");
    EXPECT_EQ(CellOf(0, CellX), " 2000");
    EXPECT_EQ(frmMain.txtFeedA.Text, "199");
    EXPECT_EQ(frmMain.lblPPUnits.Text, "1/1000 \"");
    EXPECT_TRUE(Shared.Changed);
    Choose(frmMain.optSettingsMm);
    EXPECT_EQ(MessageList(), "");
    EXPECT_EQ(frmMain.txtFeedA.Text, "199");
    EXPECT_EQ(frmMain.optSettingsInch.Value, 0);
}

TEST(Profile, AnotherMachineBeginsAnew)
{
    Start("F1 mm H");
    Enter("G21");
    Desk.Answers = {Answer::No};
    Choose(frmMain.optSettingsMK2);
    EXPECT_EQ(Boxes(), "File has been changed. Clear anyway?");
    EXPECT_EQ(Desk.Boxes[0].Box.Title, "Clear?");
    EXPECT_TRUE(Desk.Boxes[0].Box.SafeIsNo);
    EXPECT_EQ(Shared.Machine, MachineKind::F1);
    EXPECT_EQ(frmMain.optSettingsF1CNC.Value, 1);
    EXPECT_EQ(frmMain.optSettingsMK2.Value, 0);
    EXPECT_EQ(LineCount(), 1);
    EXPECT_TRUE(Shared.Changed);
    EXPECT_FALSE(frmMain.cmdReturn.Visible);

    Desk.Answers = {Answer::Yes};
    Choose(frmMain.optSettingsMK2);
    EXPECT_EQ(Shared.Machine, MachineKind::MK2);
    EXPECT_EQ(LineCount(), 0);
    EXPECT_EQ(lvCncProgram.RowCount(), 1);
    EXPECT_FALSE(Shared.Changed);
    EXPECT_TRUE(frmMain.picZXaxes.Visible);
    EXPECT_EQ(frmMain.lblPPUnits.Text, "1/100 mm");
    EXPECT_NE(frmMain.Window.Text.find("Compact5 CNC MK2"), std::string::npos);
    EXPECT_EQ(lvCncProgram.Widths[CellY], 0);

    // The spindle is remembered; an unchanged program isn't asked for.
    Choose(frmMain.optSettingsF1CNC);
    EXPECT_EQ(Desk.Boxes.size(), 2U);
    EXPECT_EQ(frmMain.lblPPUnits.Text, "H 1/100 mm");
    EXPECT_EQ(lvCncProgram.Widths[CellY], 811);
    EXPECT_TRUE(frmMain.picXYaxes.Visible);
}

} // namespace
