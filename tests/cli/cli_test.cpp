// brixley-cli as the shell sees it: exit status, standard output and standard error.

#include "support/program.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <sys/wait.h>

namespace {

const std::string Good = "Notes\n%\n    N` G`   X `    Z `  F`  H \n"
                         "    00 90\n    01 00  2000    100\n    02 01  2000 - 1000  50\n    03M30\n   M\n";
const std::string Bad =
    "%\n    N` G`   X `    Z `  F`  H \n    00 01  6000     00  50\n    01 27               10\n"
    "    02M30\n   M\n";

struct Ran {
    int Status;
    std::string Out, Err;
};

class Cli : public ::testing::Test
{
protected:
    Cli()
    {
        Work.Put("good.cnc", WithCrLf(Good));
        Work.Put("bad.cnc", WithCrLf(Bad));
        Work.Put("header.cnc", WithCrLf("%\n    N` G`   X `    Z `  F`  H \n"));
        Work.Put("letter.txt", "Dear reader");
        Work.Put("german.txt", "[Brixley, Language Resource]\r\n");
        Work.Put("old.cnc", "old");
        std::filesystem::create_directory(Work / "sub");
    }

    /// Runs it in the folder of the files; the words are for the shell.
    Ran Call(const std::string& words) const
    {
        const std::string line =
            "cd '" + (Work / "") + "' && >>.out 2>.err </dev/null '" BRIXLEY_CLI "' " + words;
        Work.Put(".out", "");
        const int status = std::system(line.c_str()); // NOLINT: what a shell does is what is tested
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, BytesOf(Work / ".out"), BytesOf(Work / ".err")};
    }
    std::string File(const char* name) const { return BytesOf(Work / name); }

    const Folder Work;
};

TEST_F(Cli, CheckPrintsEachMessageAndALineForEachFile)
{
    const Ran good = Call("check good.cnc");
    EXPECT_EQ(good.Status, 0);
    EXPECT_EQ(good.Out,
              "good.cnc: MK4, 1/100 mm, 4 lines, 4 executed, 00:00:15, 0 messages\n"); // 1.76 s, 13.2 s
    EXPECT_EQ(good.Err, "");

    const Ran both = Call("check good.cnc bad.cnc");
    EXPECT_EQ(both.Status, 1);
    EXPECT_EQ(both.Out,
              good.Out +
                  "bad.cnc:N00: !X= 5999 maximum\n"
                  "bad.cnc:N01: !Line doesn't exist\n"
                  "bad.cnc: MK4, 1/100 mm, 3 lines, 1 executed, xx:xx:xx, 2 messages, 2 lines not reached\n");
    EXPECT_EQ(both.Err, "");
}

TEST_F(Cli, WhatCannotBeDoneSaysWhyOnOneLine)
{
    const struct {
        const char* Words;
        const char* Why; ///< part of the line
    } cases[] = {
        {"", "a command is missing"},
        {"chek good.cnc", ""},
        {"check", "FILE"},
        {"check --speed good.cnc", "--speed"},
        {"check --machine MK3 good.cnc", "MK3"},
        {"show --view gcode,color good.cnc", "color"},
        {"save '' -o new.cnc", "no file is named"},
        {"check missing.cnc", "missing.cnc"},
        {"check sub", "sub"},
        {"check good.cnc letter.txt", "letter.txt"},
        {"check good.cnc bad.cnc german.txt", "language module"},
        {"check good.cnc --settings old.cnc", "old.cnc"},
        {"check good.cnc --settings ''", "--settings"},
        {"show --json german.txt", "language module"},
        {"listing header.cnc", "no lines"},
        {"save good.cnc", "-o"},
        {"save missing.cnc -o old.cnc", "missing.cnc"},
        {"save letter.txt -o old.cnc", "letter.txt"},
        {"save good.cnc -o sub", "sub"},
        {"save good.cnc -o missing/out.cnc", "out.cnc"},
        {"save good.cnc -o /proc/self/out.cnc", "out.cnc"},
        {"save good.cnc -o ''", ""},
        {"keys --script ''", "script"},
        {"check --language missing.txt good.cnc", "cli: missing.txt: the file does not exist"},
        {"convert good.cnc -o out.cnc", "--to"},
        {"convert good.cnc --to cm -o out.cnc", "cm"},
        {"show good.cnc >/dev/full", "written"},
        {"draw good.cnc", "-o"},
        {"draw good.cnc -o old.gif", ".png"},
        {"draw good.cnc --ops -o out.svg", "-o"},
        {"draw good.cnc --ops --canvas 0x900", "--canvas"},
        {"draw good.cnc --ops --canvas 900", "--canvas"},
        {"draw good.cnc --ops --canvas 9999999x900", "--canvas"},
        {"draw good.cnc --ops --zero 1,2,3", "--zero"},
        {"draw good.cnc --ops --scale 0", "--scale"},
        {"draw header.cnc --ops", "no lines"},
    };
    for (const auto& c : cases) {
        const Ran run = Call(c.Words);
        EXPECT_EQ(run.Status, 2) << c.Words;
        EXPECT_EQ(run.Out, "") << c.Words;
        EXPECT_EQ(std::count(run.Err.begin(), run.Err.end(), '\n'), 1) << c.Words << ": " << run.Err;
        EXPECT_TRUE(run.Err.ends_with("\n")) << c.Words;
        EXPECT_NE(run.Err.find(c.Why), std::string::npos) << c.Words << ": " << run.Err;
    }
    EXPECT_EQ(File("old.cnc"), "old");
    EXPECT_FALSE(std::filesystem::exists(Work / "out.cnc"));
}

TEST_F(Cli, ShowsProgramsWithMessagesToo)
{
    Work.Put("bad.cnc", "\x1b[2J\r\n" + WithCrLf(Bad));
    const Ran table = Call("show bad.cnc");
    EXPECT_EQ(table.Status, 0);
    EXPECT_TRUE(table.Out.starts_with("?[2J\n\n    N  G ")) << table.Out;
    EXPECT_NE(table.Out.find("\n> "), std::string::npos) << table.Out;
    EXPECT_EQ(table.Out.find('\x1b'), std::string::npos); // no terminal, no colour

    const Ran json = Call("show --json bad.cnc");
    EXPECT_EQ(json.Status, 0);
    const auto state = nlohmann::json::parse(json.Out);
    EXPECT_EQ(state["machine"], "MK4");
    EXPECT_EQ(state["path"], Work / "bad.cnc");
    EXPECT_EQ(state["rows"].size(), 4U);
    EXPECT_EQ(state["rows"][0]["cells"][8], "!X= 5999 maximum");
    EXPECT_EQ(state["rows"][3]["cells"][1], "NN");
    EXPECT_EQ(state["flags"]["ErrorsPresent"], true);
    EXPECT_EQ(state["errorHeader"], "Error in line 0");
    EXPECT_EQ(Call("--version").Status, 0);
    EXPECT_EQ(Call("save --help").Status, 0);
}

TEST_F(Cli, OptionsAreInForceUntilTheFileSaysOtherwise)
{
    EXPECT_NE(Call("check --units inch --machine F1 good.cnc").Out.find("MK4, 1/100 mm,"), std::string::npos);
    EXPECT_NE(Call("check --units inch header.cnc").Out.find("MK4, 1/1000 \","), std::string::npos);
    Work.Put("mill.cnc", WithCrLf("%\n    N` G`  X  `  Y `   Z ` F  \n    00M30\n"));
    EXPECT_NE(Call("check --orientation horizontal mill.cnc").Out.find("F1, H 1/100 mm,"), std::string::npos);
    const Ran listing = Call("listing --columns toolpos,gcode good.cnc");
    EXPECT_EQ(listing.Status, 0);
    EXPECT_NE(listing.Out.find("    Tool X    Tool Z   Comment\r\n"), std::string::npos) << listing.Out;
    EXPECT_NE(listing.Out.find("  1000       100  @  Rapid Traverse\r\n"), std::string::npos) << listing.Out;
}

TEST_F(Cli, SavesWhatItHasSavedByteForByte)
{
    Work.Put("open.cnc", WithCrLf("%\n    N` G`  X  `  Y `   Z ` F  \n    00 01 100\n   M\n"));
    for (const char* name : {"good.cnc", "bad.cnc", "open.cnc", "header.cnc"}) {
        EXPECT_EQ(Call(std::string("save ") + name + " -o first.cnc").Status, 0) << name;
        EXPECT_EQ(Call("save first.cnc -o second.cnc").Status, 0) << name;
        EXPECT_EQ(File("second.cnc"), File("first.cnc")) << name;
        EXPECT_NE(File("first.cnc").find("M30 "), std::string::npos) << name;
    }
    // Onto itself, and over another one.
    EXPECT_EQ(Call("save first.cnc -o first.cnc").Status, 0);
    EXPECT_EQ(File("first.cnc"), File("second.cnc"));
    const Ran over = Call("save good.cnc -o old.cnc");
    EXPECT_EQ(over.Status, 0);
    EXPECT_EQ(over.Out + over.Err, "");
    EXPECT_TRUE(File("old.cnc").starts_with("Notes\r\n%\r\n    N` G`"));
}

TEST_F(Cli, ConvertsOnlyWhatIsInOtherUnits)
{
    EXPECT_EQ(Call("convert good.cnc --to inch -o inch.cnc").Status, 0);
    EXPECT_NE(File("inch.cnc").find("    02 01   787 -  394  20"), std::string::npos) << File("inch.cnc");
    EXPECT_TRUE(File("inch.cnc").ends_with("   \"\r\n"));
    EXPECT_EQ(Call("convert inch.cnc --to inch -o same.cnc").Status, 0);
    EXPECT_EQ(File("same.cnc"), File("inch.cnc"));
}

TEST_F(Cli, DrawPrintsTheOperationsOfTheCanvas)
{
    const Ran run = Call("draw good.cnc --ops --scale 1 --zero 5000,4000");
    EXPECT_EQ(run.Status, 0);
    EXPECT_TRUE(run.Out.starts_with("[\"ClearCanvas\"]\n")) << run.Out;
    for (const char* line : {"[\"DrawLine\",0,4000,12000,4000]\n", "[\"DrawLine\",5000,0,5000,9000]\n",
                             "[\"SetForeColor\",\"#00ff00\"]\n[\"DrawLine\",5000,4000,5100,5000]\n",
                             "[\"SetForeColor\",\"#0000ff\"]\n[\"DrawLine\",5100,5000,4000,5000]\n"})
        EXPECT_NE(run.Out.find(line), std::string::npos) << line;
    // A scale alone keeps the drawing in the middle.
    const Ran centred = Call("draw good.cnc --ops --scale 2 --canvas 15000x12000");
    EXPECT_NE(centred.Out.find("[\"DrawLine\",8400,4500,8600,6500]"), std::string::npos) << centred.Out;

    EXPECT_NE(Call("draw good.cnc --ops --zero 0.0625,0").Out.find(",0.0625,"), std::string::npos);

    const Ran refused = Call("draw bad.cnc --ops");
    EXPECT_EQ(refused.Status, 1);
    EXPECT_EQ(refused.Out, "");
    EXPECT_NE(refused.Err.find("2 messages"), std::string::npos);
    EXPECT_EQ(Call("draw bad.cnc --ops --force").Status, 0);
}

#ifdef BRIXLEY_PICTURES
TEST_F(Cli, DrawWritesAPictureOrKeepsWhatWasThere)
{
    const std::pair<const char*, const char*> formats[] = {
        {"new.svg", "<?xml"}, {"new.png", "\x89PNG"}, {"new.PDF", "%PDF"}};
    for (const auto& [name, start] : formats) {
        const Ran run = Call(std::string("draw good.cnc --white -o ") + name);
        EXPECT_EQ(run.Status, 0) << run.Err;
        EXPECT_EQ(run.Out + run.Err, "") << name;
        EXPECT_TRUE(File(name).starts_with(start)) << name;
        EXPECT_GT(File(name).size(), 1000U) << name;
    }
    Work.Put("kept.png", "old");
    const struct {
        const char* Words;
        int Status;
        const char* Why;
    } failures[] = {
        {"draw bad.cnc -o kept.png", 1, "not drawn"},
        {"draw good.cnc -o kept.png --canvas 1000000x1000000", 2, "too large"}, // 17 GB
        {"draw good.cnc -o sub/../missing/kept.png", 2, "kept.png"},
        {"--version >/dev/null; ulimit -f 1; '" BRIXLEY_CLI "' draw good.cnc -o kept.png 2>>.err", 2,
         "kept.png"},
        {"--version >/dev/null; cp '" BRIXLEY_CLI "' alone; ./alone draw good.cnc -o kept.png 2>>.err", 2,
         "brixley-pictures.so"},
    };
    for (const auto& c : failures) {
        const Ran run = Call(c.Words);
        EXPECT_EQ(run.Status, c.Status) << c.Words;
        EXPECT_EQ(run.Out, "") << c.Words;
        EXPECT_TRUE(File("kept.png") == "old") << c.Words;
        EXPECT_NE(run.Err.find(c.Why), std::string::npos) << c.Words << ": " << run.Err;
        EXPECT_EQ(std::count(run.Err.begin(), run.Err.end(), '\n'), 1) << c.Words << ": " << run.Err;
    }
}
#endif

TEST_F(Cli, ASettingsFolderIsMade)
{
    EXPECT_EQ(Call("--version; TMPDIR=/missing '" BRIXLEY_CLI "' keys --keys=21").Status, 0)
        << "nor is there one";
    EXPECT_EQ(Call("keys --settings new/deep --keys='{MENU mnuExit}'").Status, 0);
    EXPECT_TRUE(File("new/deep/Settings.edt").starts_with(";BXL "));
}

TEST_F(Cli, TheBoxOfLanguagesNamesTheModuleInForce)
{
    std::filesystem::copy_file(LANGUAGES_DIR "/German.txt", Work / "German.txt");
    const std::string installed = std::filesystem::path(BRIXLEY_CLI).parent_path() / "languages/German.txt";
    const struct {
        std::string Name, Words, Shown;
    } cases[] = {
        {"none", "", "English"},
        {"an installed one", "--language " + installed, "Deutsch"},
        {"the user's own of the same name", "--language ./German.txt", ""},
        {"one that was chosen", "--keys='{MENU mnuSettingsShow}{PICK cboLanguage 4}'", "Deutsch"},
        {"one that was refused", "good.cnc --keys='{MENU mnuSettingsShow}{CLICK cmdRun}{PICK cboLanguage 4}'",
         "English"},
    };
    for (const auto& test : cases) {
        const Ran run = Call("keys --json " + test.Words);
        ASSERT_EQ(run.Status, 0) << test.Name << run.Err;
        const auto state = nlohmann::json::parse(run.Out);
        EXPECT_EQ(state["controls"]["cboLanguage"]["text"], test.Shown) << test.Name;
    }
}

/// Nobody types there: the file that was open last is neither written nor spoken of.
TEST_F(Cli, TheLastFileOfASettingsFolderStaysAsItIs)
{
    const std::string settings = "Metric=True\nMachine=MK4\nLastFileUsed=" + Work / "";
    Work.Put("sub/Settings.edt", WithCrLf(settings + "good.cnc\n"));
    for (const char* options : {"--view gcode", "--units inch", "--machine MK2", "--orientation horizontal"})
        EXPECT_EQ(Call("check bad.cnc --settings sub " + std::string(options)).Status, 1) << options;
    EXPECT_EQ(File("good.cnc"), WithCrLf(Good));
    Work.Put("sub/Settings.edt", WithCrLf(settings + "letter.txt\n"));
    EXPECT_EQ(Call("check missing.cnc --settings sub").Err,
              "brixley-cli: missing.cnc: the file does not exist\n");
}

/// Both instances write the settings at their exit: whoever comes last has written a whole file.
TEST_F(Cli, TwoInstancesLeaveNoTornSettings)
{
    Work.Put("sub/Settings.edt", WithCrLf("Metric=True\nMachine=MK4\n"));
    const std::string words = "keys good.cnc --settings sub --keys='{MENU mnuDraw}{MENU mnuExit}'";
    EXPECT_EQ(Call(words).Status, 0);
    const std::string editor = File("sub/Settings.edt"), drawing = File("sub/Settings.drw");
    EXPECT_TRUE(editor.starts_with(";BXL ") && drawing.ends_with("active\r\n")) << editor << drawing;
    // Two loops side by side, and one that looks.
    const auto loop = [&](const std::string& done) {
        return "(for i in 1 2 3 4 5 6 7 8 9 10; do '" BRIXLEY_CLI "' " + words + " >/dev/null; done; touch " +
               done + ") & ";
    };
    const Ran ran = Call("--version; " + loop("one") + loop("two") +
                         "until [ -e one ] && [ -e two ]; do cat sub/Settings.edt sub/Settings.drw | md5sum "
                         ">>.out; done; wait");
    std::set<std::string> seen;
    std::istringstream lines(ran.Out);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with(" -")) seen.insert(line);
    }
    EXPECT_EQ(seen.size(), 1U) << "the files were never seen but whole";
    EXPECT_EQ(File("sub/Settings.edt"), editor);
    EXPECT_EQ(File("sub/Settings.drw"), drawing);
    EXPECT_FALSE(std::filesystem::exists(Work / "sub/Settings.edt.bad"));
    const auto files = std::filesystem::directory_iterator(Work / "sub");
    EXPECT_EQ(std::distance(begin(files), end(files)), 2) << "nothing is left of the writing";
}

} // namespace
