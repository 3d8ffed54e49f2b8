// Keys, clicks and menu commands in any order, in every state: random scripts drive the program, and after
// each item what must always hold is checked. A failing script is cut down to the items that it needs.

#include "cli/key_script.h"
#include "cli/open_program.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "ui/focus.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Script = std::vector<std::string>;

/// Items by how often they come: what types lines comes most.
const std::vector<std::pair<int, Script>> Vocabulary = {
    {60, {"0",   "1",    "2",    "5", "8", "00", "01", "02", "25", "27", "84", "06", "30",
          "100", "2000", "-500", "+", "-", "*",  "/",  "P",  "A",  "B",  "G",  "M",  "R"}},
    {60, {"{ENTER}", "{ENTER}", "{ENTER}", "{TAB}", " ", ",", "."}},
    {12,
     {"00{ENTER}100{ENTER}-200{ENTER}{ENTER}", "01{ENTER}50{ENTER}60{ENTER}100{ENTER}{ENTER}",
      "90{ENTER}{ENTER}", "25{ENTER}{ENTER}5{ENTER}{ENTER}", "M17{ENTER}{ENTER}",
      "02{ENTER}500{ENTER}-500{ENTER}60{ENTER}{ENTER}"}},
    {10,
     {"{UP}", "{DOWN}", "{LEFT}", "{RIGHT}", "{HOME}", "{END}", "{PGUP}", "{PGDN}", "{ESC}", "{SHIFT-TAB}",
      "{BACKSPACE}", "{DELETE}", "{INSERT}", "{F1}", "{F2}"}},
    {8,
     {"{ROW 1}", "{ROW 3}", "{ROW 7}", "{SELECT 2}", "{SELECT 5}", "{RIGHTROW 2}", "{HEADER 9}",
      "{HEADER 2}"}},
    {6,
     {"{ALT-D}", "{ALT-I}", "{ALT-R}", "{ALT-S}", "{CLICK cmdStep}", "{CLICK cmdStop}", "{CLICK cmdRun}",
      "{CLICK cmdDelete}", "{CLICK cmdInsert}", "{CLICK cmdFeedA}", "{CLICK cmdFeedB}"}},
    {4,
     {"{CTRL-A}", "{CTRL-C}", "{CTRL-V}", "{CTRL-X}", "{CTRL-E}", "{SHIFT-CTRL-E}", "{CTRL-F}", "{CTRL-G}",
      "{CTRL-S}", "{CTRL-D}"}},
    {4,
     {"{CLICK txtFeedA}", "{CLICK txtFeedB}", "{CLICK txtXI}", "{CLICK txtZK}", "{CLICK txtComment}",
      "{CLICK txtFileNotes}", "{CLICK txtGMcode}", "{CLICK lvCncProgram}", "{CLICK cmdReturn}",
      "{CLICK picZXaxes}"}},
    {3,
     {"{CHECK chkViewGcode}", "{CHECK chkViewToolPos}", "{CHECK chkViewLineProperties}",
      "{CHECK chkViewFileNotes}", "{CHECK chkSettingsDWC}", "{CHECK chkSettingsAutowidth}",
      "{CLICK cmdTopButtons(4)}", "{CLICK cmdTopButtons(5)}", "{CLICK cmdTopButtons(6)}"}},
    {3,
     {"{PICK lstMK4Gcodes 3}", "{PICK lstMK4Mcodes 4}", "{PICK lstMK2Gcodes 3}", "{PICK lstF1Gcodes 10}",
      "{PICK lstF1Mcodes 15}", "{PICK lstF1Mcodes 12}"}},
    {2,
     {"{MENU mnuMMtoINCH}", "{MENU mnuINCHtoMM}", "{MENU mnuDelComments}", "{MENU mnuAbout}", "{MENU mnuNew}",
      "{MENU RCmnuDelete}", "{MENU RCmnuInsert}", "{TICK}"}},
    {2,
     {"{TEXT txtXI 9/0}", "{TEXT txtZK 99999999999}", "{TEXT txtComment cmdSKIP}",
      "{TEXT txtComment cmdNORENUM}", "{TEXT txtFKTL 1+2+3+4+5+6+7+8+9+1+2}", "{TEXT txtFileNotes a note}"}},
    {2,
     {"{MACHINE MK2}", "{MACHINE MK4}", "{MACHINE F1}", "{UNITS optSettingsInch}", "{UNITS optSettingsMm}",
      "{UNITS optSettingsHmm}", "{UNITS optSettingsVinch}"}},
    {2,
     {"{ANSWER No}", "{ANSWER Cancel}", "{RESIZE frmMain 12000 9000}", "{RESIZE frmMain 16000 9000}",
      "{MAXIMIZE frmMain}", "{RESTORE frmMain}", "{MINIMIZE frmMain}"}},
    {3,
     {"{MENU mnuDraw}",
      "{PICK frmDraw.cboRun 1}",
      "{PICK frmDraw.cboRun 2}",
      "{PICK frmDraw.cboRun 3}",
      "{CLICK frmDraw.cmdStep}",
      "{CLICK frmDraw.cmdAbort}",
      "{CANVAS 3000 3000}",
      "{MOVE 4000 2000}",
      "{CHECK frmDraw.chkAutoRedraw}",
      "{CHECK frmDraw.chkProgramWindow}",
      "{CHECK frmDraw.chkToolWidth}",
      "{CLICK frmDraw.cmdZeroPoint}",
      "{CLICK frmDraw.cmdAutoFit}",
      "{CLICK frmDraw.cmdCloseControls}",
      "{DRAG frControls 2000 2000}",
      "{RESIZE frmDraw 8000 7000}",
      "{CLOSE frmDraw}",
      "{PAUSES ON}",
      "{TICK Timer1}",
      "{ACTIVATE frmMain}",
      "{CLOSE frmProgramWindow}"}},
};

std::string RandomItem(std::mt19937& random)
{
    int total = 0;
    for (const auto& [weight, items] : Vocabulary) total += weight;
    int at = static_cast<int>(random() % static_cast<unsigned>(total));
    for (const auto& [weight, items] : Vocabulary) {
        if (at < weight) return items[random() % items.size()];
        at -= weight;
    }
    return "";
}

/// What the user wrote: everything that a save would keep.
std::string Content()
{
    std::string content = frmMain.txtFileNotes.Text;
    for (int i = 1; i <= LineCount(); ++i) {
        for (size_t cell = CellN; cell <= CellH; ++cell) content += lvCncProgram.Row(i)[cell] + "|";
        content += lvCncProgram.Row(i)[CellComment] + "\n";
    }
    return content;
}

std::string FaultOfRow(int index)
{
    const ProgramLine& row = lvCncProgram.Row(index);
    const size_t x = ActiveProfile().XDigits + 1;
    const std::string number = RightPad(FormatWhole(index - 1, 2), 3);
    if (row[CellN] != number) return "number of row " + std::to_string(index) + " is '" + row[CellN] + "'";
    const std::pair<size_t, size_t> widths[] = {{CellCode, 4}, {CellX, x}, {CellZ, 6}, {CellF, 4}};
    for (const auto& [cell, width] : widths) {
        if (CharacterCount(row[cell]) == width) continue;
        return "cell " + std::to_string(cell) + " of row " + std::to_string(index) + " is '" + row[cell] +
               "'";
    }
    return "";
}

/// The log holds only what a typed sum or the program's own numbers provoke.
std::string FaultOfLog()
{
    for (const LogRecord& record : Log.Records) {
        const std::string& name = record.Procedure;
        const bool provoked = name == "MathString" || name == "EvalText" || name == "Interpreter" ||
                              name == "FindCenter" || name == "Convert" || name == "DrawThread";
        if (!provoked) return "logged " + std::to_string(record.Number) + " in " + name;
    }
    return "";
}

/// What doesn't hold in the state as it stands, "" when all does.
std::string FaultOfState()
{
    const auto& rows = lvCncProgram.Rows;
    if (rows.empty() || rows.back()[CellN] != "NN") return "the list doesn't end in the blank row";
    if (LineCount() != lvCncProgram.RowCount() - 1) return "more than one blank row";
    for (int i = 1; i <= LineCount(); ++i) {
        if (std::string fault = FaultOfRow(i); !fault.empty()) return fault;
    }
    if (lvCncProgram.Selected < 1 || lvCncProgram.Selected > lvCncProgram.RowCount())
        return "no row is selected";
    if (Focused() != nullptr && !IsUsable(*Focused()))
        return std::string("the focus is on ") + Focused()->Name;
    return FaultOfLog();
}

bool ReplacesProgram(const std::string& item)
{
    return item.find("MACHINE") != std::string::npos || item == "{MENU mnuNew}" || item == "{CTRL-S}" ||
           item == "{CTRL-A}";
}

/// Runs the script from a new program on; the first fault with the item behind which it stood.
std::string FaultOf(const Script& script, const LoadOptions& start)
{
    BeginProgram(start);
    for (const std::string& item : script) {
        const std::string before = Content();
        if (const auto misspelt = RunKeyScript(item)) return *misspelt;
        std::string fault = FaultOfState();
        const bool cleared = LineCount() == 0; // behind a question
        if (fault.empty() && Content() != before && !Shared.Changed && !cleared && !ReplacesProgram(item)) {
            fault = "a change that Changed doesn't tell";
        }
        if (!fault.empty()) return fault + " (behind " + item + ")";
    }
    return "";
}

/// Leaves out whatever isn't needed for a fault, in halves, quarters, down to single items.
Script Minimised(Script script, const LoadOptions& start)
{
    for (size_t length = script.size() / 2; length > 0; length /= 2) {
        for (size_t at = 0; at + length <= script.size();) {
            Script shorter = script;
            shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(at),
                          shorter.begin() + static_cast<std::ptrdiff_t>(at + length));
            if (FaultOf(shorter, start).empty()) {
                at += length;
            } else {
                script = shorter;
            }
        }
    }
    return script;
}

TEST(RandomScript, NothingBreaksTheProgram)
{
    constexpr unsigned Scripts = 600, Length = 200;
    constexpr const char* Machines[] = {"MK4", "F1", "MK2"};
    for (unsigned seed = 1; seed <= Scripts; ++seed) {
        std::mt19937 random(seed);
        LoadOptions start;
        start.Machine = Machines[seed % 3];
        start.Units = seed % 2 == 0 ? "mm" : "inch";
        Script script;
        for (unsigned i = 0; i < Length; ++i) script.push_back(RandomItem(random));
        if (FaultOf(script, start).empty()) continue;
        std::string text;
        script = Minimised(script, start);
        for (const std::string& item : script) text += item;
        FAIL() << "seed " << seed << ", " << start.Machine << " " << start.Units << ": "
               << FaultOf(script, start) << "\n"
               << text;
    }
}

} // namespace
