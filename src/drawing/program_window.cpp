#include "drawing/program_window.h"

#include "core/draw_window.h"
#include "core/numbers.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "drawing/drawing_state.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

using P = ProgramWindow;

/// A column: its cell and its label.
struct ColumnRow {
    Cell Of;
    Control P::*Label;
};
constexpr ColumnRow Columns[] = {
    {CellN, &P::lblN},         {CellCode, &P::lblG},      {CellX, &P::lblX}, {CellY, &P::lblY},
    {CellZ, &P::lblZ},         {CellF, &P::lblF},         {CellH, &P::lblH}, {CellToolX, &P::lblToolX},
    {CellToolY, &P::lblToolY}, {CellToolZ, &P::lblToolZ},
};

constexpr size_t ColumnWidth = 7;
constexpr size_t CommentWidth = 44;
/// The header of a tool column is cut to so many characters; it ends in its axis all the same.
constexpr size_t ToolHeaderWidth = 9;

bool HasColumn(Cell cell)
{
    if (cell == CellY || cell == CellToolY) return IsMill();
    return cell != CellH || Shared.Machine == MachineKind::MK4;
}

std::string EntryOf(const ProgramLine& row)
{
    std::string entry;
    for (const ColumnRow& column : Columns) {
        if (HasColumn(column.Of)) entry += RightPad(Trimmed(row[column.Of]), ColumnWidth);
    }
    entry += "  ";
    entry += FirstCharacters(Trimmed(row[CellComment]), CommentWidth);
    return entry;
}

std::string ToolHeader(Cell cell, char axis)
{
    std::string header(FirstCharacters(lvCncProgram.Headers[cell], ToolHeaderWidth));
    if (!header.ends_with(axis)) header += axis;
    return header;
}

} // namespace

void frmProgramWindow_Load()
{
    for (const ColumnRow& column : Columns) {
        (frmProgramWindow.*column.Label).Text = lvCncProgram.Headers[column.Of];
    }
    frmProgramWindow.lblToolX.Text = ToolHeader(CellToolX, 'X');
    frmProgramWindow.lblToolY.Text = ToolHeader(CellToolY, 'Y');
    frmProgramWindow.lblToolZ.Text = ToolHeader(CellToolZ, 'Z');
    frmProgramWindow.lblComment.Text = lvCncProgram.Headers[CellComment];
    frmProgramWindow_Resize();
}

void SetProgramColumns()
{
    // A column takes 7 characters of a typewriter's face at 10 points; its label stands over the last of
    // them.
    constexpr int CharacterTwips = 120, LeftEdge = 120;
    int left = LeftEdge;
    for (const ColumnRow& column : Columns) {
        Control& label = frmProgramWindow.*column.Label;
        label.Visible = HasColumn(column.Of);
        if (!label.Visible) continue;
        label.Left = left;
        left += static_cast<int>(ColumnWidth) * CharacterTwips;
        label.Width = left - label.Left;
    }
    frmProgramWindow.lblComment.Left = left + 2 * CharacterTwips;
}

void frmProgramWindow_Resize()
{
    frmProgramWindow.lstCncLines.Width = frmProgramWindow.Window.Width - 200;
    frmProgramWindow.lstCncLines.Height = frmProgramWindow.Window.Height - 600;
}

void ShowSelectedProgramLine()
{
    Control& list = frmProgramWindow.lstCncLines;
    const int rows = static_cast<int>(list.Items.size());
    if (Drawing.DrawingNow || rows != lvCncProgram.RowCount() || lvCncProgram.Selected < 1) return;
    list.Index = std::min(lvCncProgram.Selected, rows) - 1;
}

void FillProgramWindow()
{
    if (!Drawing.ProgramWindowLoaded) frmProgramWindow_Load();
    Drawing.ProgramWindowLoaded = frmProgramWindow.Window.Visible = true;
    SetProgramColumns();
    Control& list = frmProgramWindow.lstCncLines;
    list.Items.clear();
    for (const ProgramLine& row : lvCncProgram.Rows) list.Items.push_back(EntryOf(row));
    list.Index = -1;
}
