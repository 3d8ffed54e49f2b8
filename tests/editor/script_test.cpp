// The editor as a user meets it: each case types a script and looks at one thing.

#include "cli/key_script.h"
#include "cli/open_program.h"
#include "core/control_names.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "ui/focus.h"

#include <gtest/gtest.h>

namespace {

Control* ControlOf(const std::string& name)
{
    Control* found = nullptr;
    frmMain.ForEach([&](Control& control) {
        if (name == FullName(control)) found = &control;
    });
    return found;
}

/// What a case looks at: "row 3" (cells 1 to 7 without their blanks, a bar, the comment), "error 3", "focus",
/// "selected", "lines", "changed", "ended", "messages" (texts joined by bars), "tip NAME", "limits NAME",
/// "value NAME", "visible NAME", "usable NAME", or a control's name for its text.
std::string Look(const std::string& what)
{
    const std::string name = what.substr(std::min(what.find(' ') + 1, what.size()));
    const auto yes = [](bool is) { return std::string(is ? "yes" : "no"); };
    if (what.starts_with("row ") || what.starts_with("error ")) {
        const ProgramLine& row = lvCncProgram.Row(std::stoi(name));
        if (what.starts_with("error ")) return row[CellError];
        std::string words;
        for (size_t cell = CellN; cell <= CellH; ++cell) {
            std::string word = row[cell];
            std::erase(word, ' ');
            if (!word.empty()) words += word + " ";
        }
        return words + "|" + row[CellComment];
    }
    if (what == "focus") return Focused() == nullptr ? "" : Focused()->Name;
    if (what == "selected") return std::to_string(lvCncProgram.Selected);
    if (what == "lines") return std::to_string(LineCount());
    if (what == "changed") return yes(Shared.Changed);
    if (what == "ended") return yes(Shared.Ended);
    std::string joined;
    for (const auto& shown : Console.Boxes) joined += shown.Box.Text + "|";
    if (what == "messages") return joined;
    const Control& control = *ControlOf(name);
    if (what.starts_with("tip ")) return control.ToolTip;
    if (what.starts_with("limits ")) return control.Tag;
    if (what.starts_with("value ")) return std::to_string(control.Value);
    if (what.starts_with("visible ")) return yes(control.Visible);
    if (what.starts_with("usable ")) return yes(IsUsable(control));
    return control.Text;
}

struct Case {
    const char* Name;
    const char* Machine; ///< "MK4", "F1 inch", "F1 horizontal", ...
    const char* Script;
    const char* What;
    const char* Expected;
};

void RunCase(const Case& c)
{
    const std::string machine = c.Machine;
    LoadOptions options;
    options.Machine = machine.substr(0, machine.find(' '));
    if (machine.find("inch") != std::string::npos) options.Units = "inch";
    if (machine.find("horizontal") != std::string::npos) options.Orientation = "horizontal";
    BeginProgram(options);
    const auto fault = RunKeyScript(c.Script);
    EXPECT_EQ(fault.value_or(""), "") << c.Name;
    EXPECT_EQ(Look(c.What), c.Expected) << c.Name << " (" << c.What << ")";
}

// A line that every machine takes: G00 X100 Z-200.
#define RAPID "00{ENTER}100{ENTER}-200{ENTER}{ENTER}"

const Case Entry[] = {
    {"a line by the keypad alone", "MK4", "01.1000.-200.50.{ENTER}", "row 1", "00 01 1000 -200 50 |"},
    {"the feed preset of the code is proposed", "MK4", "84{ENTER}100{ENTER}-5{ENTER}{ENTER}{ENTER}{ENTER}",
     "row 1", "00 84 100 -05 200 00 |@  (1x)Longitudinal Cycle"},
    {"a drilling cycle proposes the other preset", "MK4", "81{ENTER}-5{ENTER}{ENTER}{ENTER}", "row 1",
     "00 81 -05 50 |"},
    {"the texts of the line before are proposed", "MK4", RAPID "{ENTER}{ENTER}{ENTER}{ENTER}", "row 2",
     "01 00 100 -200 |"},
    {"the mill's line is wider and has Y", "F1", "00{ENTER}1{ENTER}2{ENTER}3{ENTER}{ENTER}", "row 1",
     "00 00 01 02 03 |"},
    {"the tool of a mill: D and S lose their signs", "F1",
     "-06{ENTER}-500{ENTER}1000{ENTER}0{ENTER}2{ENTER}{ENTER}", "row 1", "00 M06 D500 S1000 00 T02 |"},
    {"pulses of the mill stand in the place of F", "F1", "M26{ENTER}7{ENTER}{ENTER}", "row 1", "00 M26 07 |"},
    {"one digit becomes two", "MK4", "5{ENTER}", "messages", "G05 Unknown code|"},
    {"the last two digits count", "MK4", "123{ENTER}", "messages", "G23 Unknown code|"},
    {"an unknown code keeps the cursor and goes", "MK4", "12{ENTER}", "txtGMcode", ""},
    {"the radius of an arc needs the letter M", "MK4", "R{ENTER}", "messages", "G99R Unknown code|"},
    {"MK2 has no letter M", "MK2", "-M23{ENTER}", "lblGMcode", "G"},
    {"a target of 0 becomes the preset", "MK4", "25{ENTER}0{ENTER}{ENTER}", "row 1", "00 25 L200 |"},
    {"T 00 stays", "MK4", "-06{ENTER}{ENTER}{ENTER}0{ENTER}{ENTER}", "row 1", "00 M06 00 00 T00 |"},
    {"the Z of an MK2 arc is worked out", "MK2", "02{ENTER}1000{ENTER}50{ENTER}{ENTER}", "row 1",
     "00 02 1000 -1000 50 |"},
    {"a click elsewhere goes where it was sent", "MK4", "01{CLICK txtComment}", "focus", "txtComment"},
    {"[ENTER] goes to the first field", "MK4", "33{ENTER}", "focus", "txtZK"},
    {"a code without parameters goes to the comment", "MK4", "21{ENTER}", "focus", "txtComment"},
    {"[UP] goes to the list", "MK4", "01{ENTER}{UP}", "focus", "lvCncProgram"},
    {"[RIGHT] with all selected goes on", "MK4", "01{ENTER}{RIGHT}", "focus", "txtZK"},
    {"[RIGHT] in the text moves the caret", "MK4", "01{ENTER}5{RIGHT}", "focus", "txtXI"},
    {"[LEFT] in the text does too", "MK4", "01{ENTER}{ENTER}-5{LEFT}", "focus", "txtZK"},
    {"[LEFT] at the start goes back", "MK4", "01{ENTER}{ENTER}{LEFT}", "focus", "txtXI"},
    {"letters can't be typed into a field", "MK4", "01{ENTER}1x2y.", "txtXI", "12"},
    {"the preset key moves on", "MK4", "01{ENTER}{ENTER}{ENTER}B", "focus", "txtComment"},
    {"a value too high empties the field", "MK4", "00{ENTER}6000{ENTER}", "messages",
     "Highest value for this field is 5999|"},
    {"and brings the cursor back", "MK4", "00{ENTER}6000{ENTER}", "focus", "txtXI"},
    {"a feed too low gets the preset again", "MK4 inch", "01{ENTER}{ENTER}{ENTER}1{ENTER}", "txtFKTL",
     " 199"},
    {"the 44th character is the last", "MK4",
     "21{ENTER}{TEXT txtComment 1234567890123456789012345678901234567890123456}", "txtComment",
     "12345678901234567890123456789012345678901234"},
    {"the mill proposes the depth of the hole before", "F1",
     "81{ENTER}-500{ENTER}60{ENTER}{ENTER}21{ENTER}{ENTER}82{ENTER}{ENTER}", "txtZK", "-500"},
    {"or of its own row", "F1",
     "81{ENTER}-500{ENTER}60{ENTER}{ENTER}82{ENTER}-700{ENTER}{ENTER}{ENTER}{ROW 2}{ENTER}", "txtZK",
     "-  700"},
    {"a line that no walk has reached keeps its Z", "F1",
     "90{ENTER}{ENTER}M17{ENTER}{ENTER}G01{ENTER}1{ENTER}0{ENTER}-500{ENTER}60{ENTER}{ENTER}"
     "{ROW 3}{ENTER}{ENTER}{ENTER}{ENTER}{ENTER}{ENTER}",
     "row 3", "02 01 01 00 -500 60 |"},
};

const Case Fields[] = {
    {"lathe, metric", "MK4", "00{ENTER}", "limits txtXI", "-5999TO5999"},
    {"lathe, inch", "MK2 inch", "00{ENTER}", "limits txtZK", "-12900TO12900"},
    {"mill, vertical", "F1", "00{ENTER}", "limits txtYJ", "-9999TO9999"},
    {"mill, horizontal", "F1 horizontal", "00{ENTER}", "limits txtXI", "-9999TO9999"},
    {"the tip tells the limits", "F1 inch", "81{ENTER}", "tip txtZK", "-7999 = Low, Hi = 7999"},
    {"centres are never negative", "F1", "M99{ENTER}", "limits txtXI", "0TO19999"},
    {"grooving needs a division", "MK4", "86{ENTER}", "limits txtH", "10TO999"},
    {"MK2 has no division", "MK2", "84{ENTER}", "visible txtH", "no"},
    {"pulses are not limited", "MK4", "M26{ENTER}", "limits txtH", ""},
    {"the dwell of the mill", "F1 inch", "04{ENTER}", "limits txtXI", "0TO19999"},
    {"no feed buttons at a rapid move", "MK4", "00{ENTER}", "usable cmdFeedA", "no"},
    {"feed buttons at a cut", "MK4", "01{ENTER}", "usable cmdFeedA", "yes"},
    {"the Z of an MK2 arc can't be typed", "MK2", "03{ENTER}", "usable txtZK", "no"},
};

const Case Lines[] = {
    {"a target behind the inserted line moves", "MK4", "27{ENTER}5{ENTER}{ENTER}" RAPID "{ROW 2}{UP}{INSERT}",
     "row 1", "00 27 L06 |"},
    {"a target in front of it stays", "MK4", RAPID RAPID "25{ENTER}2{ENTER}{ENTER}{SELECT 4}{ESC}{INSERT}",
     "row 3", "02 25 L02 |"},
    {"no renumbering where the comment says so", "MK4",
     "27{ENTER}5{ENTER}cmdNorenum x{ENTER}{ROW 1}{ESC}{INSERT}", "row 2", "01 27 L05 |cmdNorenum x"},
    {"a deleted line pulls targets behind it", "MK4", RAPID "27{ENTER}5{ENTER}{ENTER}{ROW 1}{ESC}{DELETE}",
     "row 1", "00 27 L04 |"},
    {"No keeps the line", "MK4", RAPID "{ROW 1}{ESC}{ANSWER No}{DELETE}", "lines", "1"},
    {"the line below takes the selection", "MK4", RAPID RAPID RAPID "{SELECT 2}{ESC}{DELETE}", "selected",
     "2"},
    {"behind the last line the one above", "MK4", RAPID RAPID "{SELECT 2}{ESC}{DELETE}", "selected", "1"},
    {"the blank row can't be deleted", "MK4", RAPID "{SELECT 2}{ESC}{DELETE}", "lines", "1"},
    {"an emptied program is still changed", "MK4", RAPID "{SELECT 1}{ESC}{DELETE}", "changed", "yes"},
    {"a row is copied to where the selection stands", "MK4",
     RAPID "01{ENTER}5{ENTER}6{ENTER}70{ENTER}{ENTER}{ROW 1}{ESC}{DOWN}{CLICK txtComment}{ENTER}", "row 2",
     "01 00 100 -200 |"},
    {"activating shows the cells", "F1", "M06{ENTER}500{ENTER}800{ENTER}0{ENTER}3{ENTER}x{ENTER}{ROW 1}",
     "txtYJ", " 800"},
    {"activating goes to the code box", "MK4", RAPID "{ROW 1}", "focus", "txtGMcode"},
    {"activating checks nothing", "MK4", RAPID "{UNITS optSettingsInch}{ROW 1}{ESC}", "messages", ""},
    {"a comment follows the picked code", "MK4",
     "{CHECK chkViewGcode}{CLICK txtGMcode}33{ENTER}-5{ENTER}100{ENTER}{ENTER}", "row 1",
     "00 33 -05 K100 |@  Threading (max RPM = 500)"},
    {"but never one that was typed", "MK4",
     "{CHECK chkViewGcode}{CLICK txtGMcode}00{ENTER}1{ENTER}2{ENTER}{TEXT txtComment mine}{ENTER}{ROW "
     "1}01{CLICK txtComment}",
     "txtComment", "mine"},
    {"[ENTER] in a preset replaces it in the program", "MK4",
     "01{ENTER}5{ENTER}6{ENTER}200{ENTER}{ENTER}{CLICK txtFeedA}150{ENTER}", "row 1", "00 01 05 06 150 |"},
    {"leaving a preset replaces nothing", "MK4",
     "01{ENTER}5{ENTER}6{ENTER}200{ENTER}{ENTER}{CLICK txtFeedA}150{CLICK txtComment}", "row 1",
     "00 01 05 06 200 |"},
    {"a text is found in a visible cell", "MK4", RAPID "21{ENTER}needle{ENTER}{CTRL-F}NEED{ENTER}",
     "selected", "2"},
    {"and the next one behind it", "MK4",
     "21{ENTER}pin{ENTER}21{ENTER}pin{ENTER}{CTRL-F}pin{ENTER}{CTRL-F}{ENTER}", "selected", "2"},
    {"not in a hidden column", "MK4", RAPID RAPID "{CTRL-F}-400{ENTER}", "selected", "3"},
    {"a click on the error's header opens its line", "MK4", RAPID "25{ENTER}2{ENTER}{ENTER}{HEADER 9}",
     "txtGMcode", "25"},
    {"[CTRL-E] finds it from anywhere", "MK4", RAPID "25{ENTER}2{ENTER}{ENTER}" RAPID "{CTRL-E}", "selected",
     "2"},
    {"[SHIFT-CTRL-E] goes back to one", "MK4",
     "00{ENTER}3000{ENTER}{ENTER}{ENTER}00{ENTER}3000{ENTER}{ENTER}{ENTER}00{ENTER}3000{ENTER}{ENTER}{ENTER}"
     "{UNITS optSettingsInch}{SHIFT-CTRL-E}",
     "selected", "3"},
    {"a path is only read", "MK4", "{MENU mnuSettingsShow}{PICK tabSettings 3}{CLICK txtSettingsFileName}x",
     "txtSettingsFileName", ""},
    {"keys walk the tabs and their stops, and press a box", "MK4",
     "{MENU mnuSettingsShow}{RIGHT}{RIGHT}{LEFT}{TAB}{TAB} ", "value optSettingsInch", "1"},
    {"the radius of an arc becomes its centre", "MK4",
     "02{ENTER}500{ENTER}-200{ENTER}50{ENTER}{ENTER}-99R{ENTER}600{ENTER}{ENTER}", "row 2",
     "01 M99 I449 K397 |"},
    {"a doubled brace is one", "MK4", "{CLICK txtFileNotes}{{a}}b}", "txtFileNotes", "{a}b}"},
    {"no % in the notes", "MK4", "{CLICK txtFileNotes}a%b", "txtFileNotes", "ab"},
    {"nor a pasted one", "MK4", "{TEXT txtFileNotes 50% %}", "txtFileNotes", "50 "},
    {"deleting all comments counts as a change", "MK4", "21{ENTER}cmdWRONG{ENTER}{MENU mnuDelComments}",
     "error 1", "               "},
    {"a conversion takes the entry along", "MK4",
     "01{ENTER}1000{ENTER}-2000{ENTER}200{ENTER}{ENTER}{SELECT 1}{ENTER}{MENU mnuMMtoINCH}{FOCUS "
     "txtComment}{ENTER}",
     "row 1", "00 01 394 -787 79 |"},
    {"and its limits", "MK4", RAPID "{MENU mnuMMtoINCH}", "limits txtXI", "-1999TO1999"},
    {"and what is proposed for the next line", "MK4",
     "01{ENTER}1000{ENTER}-2000{ENTER}200{ENTER}{ENTER}{MENU mnuMMtoINCH}{FOCUS txtGMcode}"
     "01{ENTER}{ENTER}{ENTER}{ENTER}{ENTER}",
     "row 2", "01 01 394 -787 79 |"},
};

const Case RunAndLeave[] = {
    {"Run waits at the first line", "MK4", RAPID "M30{ENTER}{ENTER}{ALT-R}", "selected", "1"},
    {"Stop can't be pressed before the first step", "MK4", RAPID "{ALT-R}", "usable cmdStop", "no"},
    {"a step goes on, into the subroutine", "MK4",
     "25{ENTER}3{ENTER}{ENTER}" RAPID "M30{ENTER}{ENTER}" RAPID "M17{ENTER}{ENTER}{ALT-R}{ALT-S}", "selected",
     "4"},
    {"at M30 the walk ends on its row", "MK4", RAPID "M30{ENTER}{ENTER}" RAPID "{ALT-R}{ALT-S}{ALT-S}",
     "selected", "2"},
    {"and stays locked", "MK4", RAPID "M30{ENTER}{ENTER}{ALT-R}{ALT-S}{ALT-S}", "usable txtComment", "no"},
    {"a walk that was stopped doesn't go on", "MK4",
     RAPID RAPID "{ALT-R}{ALT-S}{CLICK cmdStop}{SELECT 1}{ALT-S}", "selected", "1"},
    {"until Stop", "MK4", RAPID "M30{ENTER}{ENTER}{ALT-R}{ALT-S}{ALT-P}", "usable txtComment", "yes"},
    {"rows don't change under a walk", "MK4", RAPID RAPID "{ALT-R}{ESC}{DELETE}{INSERT}", "lines", "2"},
    {"the list says why", "MK4", RAPID "{ALT-R}{ESC}{DELETE}", "tip lvCncProgram",
     "The program is being stepped through: press Stop first"},
    {"an empty program doesn't run", "MK4", "{CLICK cmdRun}", "messages", "No Lines of code present|"},
    {"a window that is closed in a step ends", "MK4", RAPID "{ALT-R}{ANSWER No}{CLOSE frmMain}", "ended",
     "yes"},
    {"Cancel stays", "MK4", RAPID "{ANSWER Cancel}{MENU mnuExit}", "ended", "no"},
    {"a full disk stops the exit", "MK4", RAPID "{DISK FULL}{FILE out/x.cnc}{MENU mnuExit}{DISK OK}", "ended",
     "no"},
    {"a run ends where the exit saves", "MK4", RAPID "{ALT-R}{DISK FULL}{FILE x.cnc}{CLOSE frmMain}{DISK OK}",
     "lines", "2"},
    {"a code left for a help page doesn't keep the end code out", "MK4",
     RAPID "01{F1}{DISK FULL}{FILE x.cnc}{CLOSE frmMain}{DISK OK}", "lines", "2"},
    {"and a field left for one is still judged later", "MK4",
     RAPID "01{ENTER}9999{F1}{DISK FULL}{FILE x.cnc}{CLOSE frmMain}{DISK OK}{CLICK txtComment}{ENTER}",
     "focus", "txtXI"},
    {"a code left for one shows its fields first", "MK4", "33{F1}{F1}{CLICK txtComment}{ENTER}", "focus",
     "txtZK"},
    {"an unchanged program is left at once", "MK4", "{MENU mnuExit}", "messages", ""},
    {"the refused machine comes back", "MK4", RAPID "{ANSWER No}{MACHINE F1}", "value optSettingsMK4", "1"},
    {"help is a toggle", "MK4", "{F1}{F1}", "visible rtfHelp", "no"},
    {"[ESC] goes back from it into the field", "MK4", "01{ENTER}{F1}{ESC}", "focus", "txtXI"},
    {"and locks the window", "MK4", "{F1}", "usable txtGMcode", "no"},
    {"[ESC] closes it", "MK4", "{CTRL-G}{ESC}", "usable txtGMcode", "yes"},
    {"and leaves disabled what the code has no use for", "MK4", "{CTRL-G}{ESC}", "usable cmdFeedA", "no"},
    {"the MK2 has no colours", "MK2", "{CTRL-G}{ESC}{CLICK cmdTopButtons(4)}", "usable lblSettingsAbsColor",
     "no"},
    {"a narrow window has no Save", "MK4", "{RESIZE frmMain 11999 9000}", "visible cmdTopButtons(1)", "no"},
    {"a wider one has it, but not Set", "MK4", "{RESIZE frmMain 12000 9000}", "visible cmdTopButtons(4)",
     "no"},
    {"the notes take the place of the properties", "MK4",
     "{RESIZE frmMain 15300 10000}{CHECK chkViewFileNotes}", "visible frProgramProperties", "no"},
    {"the tick disables what needs a line", "MK4", "{TICK}", "usable cmdDelete", "no"},
    {"and the drawing of a program with messages", "MK4", RAPID "25{ENTER}2{ENTER}{ENTER}{TICK}",
     "usable cmdTopButtons(7)", "no"},
    {"the selected line's message is said", "MK4", "21{ENTER}cmdA{ENTER}21{ENTER}cmdB{ENTER}{SELECT 2}",
     "lblMessage", "N01:  !Unknown ControlCommand     (2 lines with messages)"},
};

TEST(Script, Entry)
{
    for (const Case& c : Entry) RunCase(c);
}

TEST(Script, FieldsOfCodes)
{
    for (const Case& c : Fields) RunCase(c);
}

TEST(Script, LinesAndProgram)
{
    for (const Case& c : Lines) RunCase(c);
}

TEST(Script, RunHelpAndExit)
{
    for (const Case& c : RunAndLeave) RunCase(c);
}

TEST(Script, Sums)
{
    constexpr std::pair<const char*, const char*> Sums[] = {
        {"5-", "05"},
        {"P", "03"},
        {"P*2", "06"},
        {"1000/254*100", "394"},
        {"5/2", "03"},
        {"1+2+", "03"},
        {"6*2*", "00"},
        {"-5*2", "-10"},
        {"P2", "00"},
        {"2P", "02"},
        {"P*1000", "3142"},
        {"200+300*4+1200/8*2+800", "1600"},
        {"1+1+1+1+1+1+1+1+1+1+1", "10"},
    };
    for (const auto& [sum, result] : Sums) {
        BeginProgram({});
        ASSERT_FALSE(RunKeyScript("00{ENTER}" + std::string(sum) + "{TAB}"));
        EXPECT_EQ(frmMain.txtXI.Text, result) << sum;
    }
    // What has no value is refused, and logged.
    for (const char* const sum : {"5/0", "99999999999"}) {
        BeginProgram({});
        ASSERT_FALSE(RunKeyScript("00{ENTER}" + std::string(sum) + "{TAB}"));
        EXPECT_EQ(Look("messages"), "Entered value must be numeric|") << sum;
        EXPECT_EQ(Look("focus"), "txtXI") << sum;
        EXPECT_EQ(frmMain.txtXI.Text, "00") << sum;
        EXPECT_EQ(Log.Records.size(), 1U) << sum;
    }
}

TEST(Script, ItemsThatAreWrongEndIt)
{
    for (const char* const script :
         {"{ENTR}", "{CLICK txtNothing}", "{ROW}", "{MENU txtXI}", "{CLICK", "{ANSWER Maybe}", "{CTRL-1}"}) {
        BeginProgram({});
        EXPECT_TRUE(RunKeyScript(script)) << script;
    }
}

} // namespace
