#include "editor/lines.h"

#include "core/main_window.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/text.h"
#include "editor/entry.h"
#include "editor/fields.h"
#include "editor/whole_program.h"
#include "interpreter/interpreter.h"
#include "ui/panes.h"

#include <array>

namespace {

constexpr double SmallestFeed = 2;

/// The result cells of a line that no pass has seen yet.
void BlankResults(ProgramLine& row)
{
    row[CellError] = "               ";
    for (size_t cell = CellToolX; cell <= CellRadius; ++cell) row[cell] = "      ";
    row[CellAngle] = "   ";
}

/// The controls of the entry that an end code goes through; kept and put back around it.
constexpr Control MainWindow::*EntryControls[] = {
    &MainWindow::lblGMcode,  &MainWindow::txtGMcode, &MainWindow::lblXI,    &MainWindow::txtXI,
    &MainWindow::lblYJ,      &MainWindow::txtYJ,     &MainWindow::lblZK,    &MainWindow::txtZK,
    &MainWindow::lblFKTL,    &MainWindow::txtFKTL,   &MainWindow::lblH,     &MainWindow::txtH,
    &MainWindow::txtComment, &MainWindow::cmdFeedA,  &MainWindow::cmdFeedB,
};

} // namespace

void LineEdit()
{
    HideAxesPictures();
    const std::string& code = frmMain.txtGMcode.Text;
    if (code.empty() || lvCncProgram.Selected == 0) return;
    std::string& fourth = frmMain.txtFKTL.Text;
    if (code == "06") {
        if (fourth.empty()) fourth = "01";
    } else if (Val(fourth) < SmallestFeed) {
        fourth = frmMain.txtFeedA.Text;
    }

    Shared.Changed = true;
    if (frmMain.chkViewGcode.Value == 1 && frmMain.txtComment.Text.empty()) CodeDescription();
    ProgramLine& row = lvCncProgram.Row(lvCncProgram.Selected);
    const std::string& letter = frmMain.lblGMcode.Text;
    row[CellCode] = letter == "G" ? " " + code + " " : letter + std::string(FirstCharacters(code + " ", 3));
    FormatInputs();
    BlankResults(row);
    row[CellComment] = frmMain.txtComment.Text;
    const bool isEmptyLine = row[CellCode] == " 21 ";

    Interpreter();
    AddBlankLine(lvCncProgram.Selected == lvCncProgram.RowCount());
    if (!isEmptyLine) Shared.RedrawPending = true;
}

void AddEndOfProgram()
{
    if (Shared.EndCodeSeen) return;
    std::array<Control, std::size(EntryControls)> entry;
    for (size_t i = 0; i < entry.size(); ++i) entry[i] = frmMain.*EntryControls[i];
    const int selected = lvCncProgram.Selected;
    const bool redraw = Shared.RedrawPending;

    frmMain.lblGMcode.Text = ActiveProfile().EndLetter;
    frmMain.txtGMcode.Text = ActiveProfile().EndDigits;
    frmMain.txtComment.Text.clear();
    InputFields(frmMain.txtGMcode.Text);
    Shared.EndCodeSeen = true;
    SelectRow(lvCncProgram.RowCount());
    LineEdit();

    SelectRow(selected);
    Shared.RedrawPending = redraw;
    for (size_t i = 0; i < entry.size(); ++i) frmMain.*EntryControls[i] = entry[i];
}
