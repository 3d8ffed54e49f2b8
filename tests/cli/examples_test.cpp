// examples_test.cpp: the programs of examples/ are what a beginner takes for right.
//
// Files whose names end in "-mistakes.cnc" show messages; all others run without one, and between them
// they hold every code that a file of their machine can hold.

#include "cli/commands.h"
#include "cli/open_program.h"
#include "cli/summary.h"
#include "core/codes.h"
#include "core/program_list.h"
#include "core/text.h"
#include "support/program.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace fs = std::filesystem;

namespace {

/// Pins all that loading, checking, listing, writing and converting gives for every example. A change
/// of behaviour or of an example changes it; the new number is printed by
///     brixley-cli fingerprint examples/*.cnc
constexpr const char* Behaviour = "8ebc5f6f3620d098";

/// All examples with their folder, sorted by name.
std::vector<std::string> Examples()
{
    std::vector<std::string> files;
    for (const auto& entry : fs::directory_iterator(EXAMPLES_DIR)) {
        if (entry.path().extension() == ".cnc") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool ShowsMistakes(const std::string& file)
{
    return file.ends_with("-mistakes.cnc");
}

/// The codes of a machine's picking lists, "G01" or "M06". M99R is typed only: its first walk makes it M99.
std::set<std::string> CodesOf(const std::string& machine)
{
    std::vector<std::vector<std::string>> lists{MK2Gcodes()};
    if (machine == "MK4") lists = {MK4Gcodes(), MK4Mcodes()};
    if (machine == "F1") lists = {F1Gcodes(), F1Mcodes()};
    std::set<std::string> codes;
    for (const auto& list : lists) {
        for (const std::string& item : list) codes.insert(std::string(Trimmed(item.substr(0, 4))));
    }
    codes.erase("M99R");
    return codes;
}

} // namespace

TEST(Examples, RunWithoutAMessage)
{
    for (const std::string& file : Examples()) {
        if (ShowsMistakes(file)) continue;
        const Outcome checked = CheckFiles({}, {file});
        EXPECT_EQ(checked.Status, StatusDone) << checked.Output << checked.Why;
        EXPECT_EQ(checked.Output.find("not reached"), std::string::npos) << checked.Output;
    }
}

TEST(Examples, MistakesShowTheirMessages)
{
    const std::map<std::string, std::vector<std::string>> expected{
        {"f1-mistakes.cnc",
         {"N01 !Must be preceded by M06", "N04 !X= 9999 maximum", "N05 !Z= -19999 minimum",
          "N07 !No 3-d allowed", "N08 !F= 2 minimum", "N09 !Unknown ControlCommand", "N10 !Endless loop",
          "N11 !Endless loop", "N12 !Endless loop"}},
        {"mk2-mistakes.cnc",
         {"N01 !X= 5999 maximum", "N02 !F= 499 maximum", "N03 !F= 2 minimum", "N04 !K= 499 maximum",
          "N05 !Unknown ControlCommand", "N07 !G24 must precede G90/G92"}},
        {"mk4-mistakes.cnc",
         {"N02 !X= 5999 maximum", "N03 !F= 499 maximum", "N05 !H= 10 minimum", "N06 !K= 2 minimum",
          "N07 !X= 0 minimum", "N08 !Unknown ControlCommand", "N10 !Not a full quadrant"}},
    };
    std::map<std::string, std::vector<std::string>> shown;
    for (const std::string& file : Examples()) {
        if (!ShowsMistakes(file)) continue;
        ASSERT_FALSE(OpenProgram({}, file));
        for (const LineMessage& message : MessagesOfProgram()) {
            shown[FileNameOf(file)].push_back(message.Number + " " + message.Text);
        }
    }
    EXPECT_EQ(shown, expected);
}

TEST(Examples, HoldEveryCode)
{
    std::map<std::string, std::set<std::string>> used;
    std::map<std::string, int> files;
    for (const std::string& file : Examples()) {
        if (ShowsMistakes(file)) continue;
        ASSERT_FALSE(OpenProgram({}, file));
        const std::string line = SummaryLine();
        const std::string machine = line.substr(0, line.find(','));
        ++files[machine];
        for (int i = 1; i <= LineCount(); ++i) {
            std::string code(Trimmed(lvCncProgram.Row(i)[CellCode]));
            if (!code.starts_with('M')) code.insert(0, "G");
            used[machine].insert(code);
        }
    }
    for (const char* machine : {"MK2", "MK4", "F1"}) {
        EXPECT_EQ(used[machine], CodesOf(machine)) << machine;
        EXPECT_GE(files[machine], 3) << machine;
    }
}

TEST(Examples, SavingGivesTheirBytesAgain)
{
    const Folder folder;
    for (const std::string& file : Examples()) {
        EXPECT_EQ(SaveFile({}, file, folder / "saved.cnc").Why, "");
        EXPECT_EQ(BytesOf(folder / "saved.cnc"), BytesOf(file)) << file;
    }
}

TEST(Examples, BehaveAsBefore)
{
    EXPECT_EQ(FingerprintFiles({}, Examples()).Output, std::string(Behaviour) + "\n");
}
