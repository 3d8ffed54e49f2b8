#include "editor/lines.h"

#include "core/codes.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/text.h"
#include "editor/code_box.h"
#include "editor/entry.h"
#include "editor/fields.h"
#include "editor/value_entry.h"
#include "editor/whole_program.h"
#include "interpreter/interpreter.h"
#include "interpreter/limits.h"
#include "platform/platform.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/redraw.h"
#include "ui/text_box.h"

#include <algorithm>
#include <array>

namespace {

/// The controls of the entry that an end code goes through; kept and put back around it.
constexpr Control MainWindow::*EntryControls[] = {
    &MainWindow::lblGMcode,  &MainWindow::txtGMcode, &MainWindow::lblXI,    &MainWindow::txtXI,
    &MainWindow::lblYJ,      &MainWindow::txtYJ,     &MainWindow::lblZK,    &MainWindow::txtZK,
    &MainWindow::lblFKTL,    &MainWindow::txtFKTL,   &MainWindow::lblH,     &MainWindow::txtH,
    &MainWindow::txtComment, &MainWindow::cmdFeedA,  &MainWindow::cmdFeedB,
};

/// Writes the numbers of all lines, and moves the targets of jumps and calls that stand at or above
/// `first` by a step, except where the comment says not to.
void Renumber(std::string_view procedure, int first, int step)
{
    for (int i = 1; i <= LineCount(); ++i) {
        ProgramLine& row = lvCncProgram.Row(i);
        row[CellN] = RightPad(FormatWhole(i - 1, 2), 3);
        Word target{};
        if (!Attempt(procedure, [&] { target = WordVal(row[CellF]); })) continue;
        if (UpperCase(target.Letter) != 'L' || StartsNoCase(row[CellComment], "CMDNORENUM")) continue;
        if (target.Value >= static_cast<float>(first)) {
            row[CellF] = "L" + RightPad(FormatWhole(static_cast<double>(target.Value) + step, 2), 3);
        }
    }
}

ProgramLine EmptyLine(int number)
{
    const Profile& profile = ActiveProfile();
    ProgramLine row;
    row[CellRowText] = row[CellN] = RightPad(FormatWhole(number, 2), 3);
    row[CellCode] = " 21 ";
    row[CellX] = profile.BlankX;
    row[CellY] = profile.BlankY;
    row[CellZ] = profile.BlankZ;
    row[CellF] = profile.BlankF;
    row[CellH] = profile.BlankH;
    return row;
}

/// The code or the field that a page took the cursor from is judged as if the cursor left it now. False when
/// it was refused, or when the code has other fields, which nobody has seen yet.
bool SettleUnseen()
{
    Control* const left = TakeOwedFocus();
    if (left == nullptr || !IsUsable(*left)) return true;
    if (left == &frmMain.txtGMcode) return SettleCode();
    left->On.LostFocus(*left);
    return !HasFocus(*left);
}

/// Completes the entry, writes it into the selected row and lets the program be checked.
void WriteEntry()
{
    const std::string& code = frmMain.txtGMcode.Text;
    std::string& fourth = frmMain.txtFKTL.Text;
    if (code == "06") {
        if (IsBlank(fourth)) fourth = "01";
    } else if (Val(fourth) < SmallestFeed) {
        fourth = frmMain.txtFeedA.Text;
    }

    Shared.Changed = true;
    if (frmMain.chkViewGcode.Value == 1 && IsBlank(frmMain.txtComment.Text)) CodeDescription();
    ProgramLine& row = lvCncProgram.Row(lvCncProgram.Selected);
    const std::string& letter = frmMain.lblGMcode.Text;
    row[CellCode] = letter == "G" ? " " + code + " " : letter + std::string(FirstCharacters(code + " ", 3));
    FormatInputs();
    row[CellComment] = frmMain.txtComment.Text;

    Interpreter();
    AddBlankLine(lvCncProgram.Selected == lvCncProgram.RowCount());
}

} // namespace

void LineEdit()
{
    // The very first start has not even the blank row: the first line that is typed makes it.
    if (lvCncProgram.Rows.empty()) AddBlankLine(true);
    if (RefuseWhileBusy()) return;
    HideAxesPictures();
    if (frmMain.txtGMcode.Text.empty() || lvCncProgram.Selected == 0) return;
    if (!SettleUnseen() || !WorkOutFields()) return;
    WriteEntry();
    const bool emptyLine = frmMain.lblGMcode.Text == "G" && frmMain.txtGMcode.Text == "21";
    if (!emptyLine) FollowEdit();
    SelectAll(frmMain.txtGMcode);
    SetFocus(frmMain.txtGMcode);
}

void LineInsert()
{
    if (RefuseWhileBusy() || lvCncProgram.Selected == 0) return;
    if (LineCount() >= MaxLines()) {
        ShowMessage(TextOf(Messages::MaxLinesReached));
        return;
    }
    const int top = lvCncProgram.TopRow, at = lvCncProgram.Selected;
    Shared.Changed = true;
    frmMain.lblGMcode.Text = "G";
    frmMain.txtGMcode.Text = "21";
    InputFields("");
    InsertRow(at, EmptyLine(at - 1));
    SelectRow(at);
    Renumber("LineInsert", at - 1, 1);
    if (frmMain.chkViewGcode.Value == 1) {
        const std::string typed = frmMain.txtComment.Text;
        CodeDescription();
        lvCncProgram.Row(at)[CellComment] = frmMain.txtComment.Text;
        if (!IsBlank(typed) && !typed.starts_with(AutomaticComment)) frmMain.txtComment.Text = typed;
    }
    Interpreter();
    AddBlankLine(false);
    ScrollIntoView(top + 1);
    SelectRow(at);
    SetFocus(frmMain.lvCncProgram);
}

void cmdInsert_Click()
{
    LineInsert();
}

void LineDelete()
{
    if (RefuseWhileBusy() || LineCount() < 1 || lvCncProgram.Selected == 0) return;
    const int at = lvCncProgram.Selected;
    if (FindNoCase(lvCncProgram.Row(at)[CellN], "N") != std::string::npos) return;
    if (frmMain.chkSettingsDWC.Value == 0) {
        const MessageBox box{TextOf(Messages::DeleteLine), Tr("Confirm"), Buttons::YesNo};
        if (ThePlatform->Show(box) != Answer::Yes) return;
    }
    Shared.Changed = true;
    RemoveRow(at);
    // The row below takes the selection, and behind the last line the line above.
    SelectRow(std::clamp(at, 1, std::max(1, LineCount())));
    Renumber("LineDelete", at, -1);
    Interpreter();
    // An emptied program still differs from its file.
    Shared.Changed = true;
    FollowEdit();
    AddBlankLine(false);
    SetFocus(frmMain.lvCncProgram);
}

void cmdDelete_Click()
{
    LineDelete();
}

void AddEndOfProgram()
{
    if (Shared.EndCodeSeen) return;
    std::array<Control, std::size(EntryControls)> entry;
    for (size_t i = 0; i < entry.size(); ++i) entry[i] = frmMain.*EntryControls[i];
    const bool feedButtons = Shared.FeedButtonsOn;
    const int selected = lvCncProgram.Selected, top = lvCncProgram.TopRow;

    frmMain.lblGMcode.Text = ActiveProfile().EndLetter;
    frmMain.txtGMcode.Text = ActiveProfile().EndDigits;
    frmMain.txtComment.Text.clear();
    SetUpFields(frmMain.txtGMcode.Text);
    Shared.EndCodeSeen = true;
    SelectRow(lvCncProgram.RowCount());
    // What the user hasn't finished is not settled here: it waits in the entry.
    WriteEntry();

    SelectRow(selected);
    lvCncProgram.TopRow = top;
    Shared.FeedButtonsOn = feedButtons;
    for (size_t i = 0; i < entry.size(); ++i) frmMain.*EntryControls[i] = entry[i];
}
