#include "editor/activation.h"

#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "editor/code_box.h"
#include "editor/fields.h"
#include "editor/lines.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/text_box.h"

#include <algorithm>

namespace {

/// Where a field of the entry comes from, and the letters that are taken out of the cell.
struct Source {
    Control MainWindow::*Field;
    size_t Cell;
    std::string_view Letters;
};
constexpr Source Sources[] = {
    {&MainWindow::txtXI, CellX, "DIR"}, {&MainWindow::txtYJ, CellY, "JS"},
    {&MainWindow::txtZK, CellZ, "K"},   {&MainWindow::txtFKTL, CellF, "KTL"},
    {&MainWindow::txtH, CellH, ""},     {&MainWindow::txtComment, CellComment, ""},
};

void FillEntry(const ProgramLine& row)
{
    for (const Source& source : Sources) {
        const bool millH = source.Cell == CellH && IsMill();
        std::string text = row[millH ? static_cast<size_t>(CellF) : source.Cell];
        std::erase_if(text, [&](char c) { return source.Letters.find(c) != std::string_view::npos; });
        (frmMain.*source.Field).Text = text;
    }
}

/// The code with its letter: "G01 ", "M06 ", and "G" alone for the blank row.
std::string CodeOfRow(const ProgramLine& row)
{
    std::string code = row[CellCode];
    code.erase(0, std::min(code.find_first_not_of(' '), code.size()));
    return StartsNoCase(code, "M") ? code : "G" + code;
}

} // namespace

void lvCncProgram_Click()
{
    if (Shared.Transmitting) return;
    frmMain.tabSettings.Visible = false;
    ShowLineCount();
    if (lvCncProgram.Selected == 0) return;
    Shared.Activating = true;
    const ProgramLine& row = lvCncProgram.Row(lvCncProgram.Selected);
    const std::string code = CodeOfRow(row);
    PickCode(code);
    InputFields(code);
    FillEntry(row);
    SelectAll(frmMain.txtGMcode);
    SetFocus(frmMain.txtGMcode);
    Shared.Activating = false;
}

bool lvCncProgram_KeyDown(Control&, const KeyStroke& key)
{
    const int rows = lvCncProgram.RowCount(), page = std::max(1, lvCncProgram.VisibleRows - 1);
    const auto move = [&](int to) {
        if (rows > 0) SelectRow(std::clamp(to, 1, rows));
    };
    const int at = lvCncProgram.Selected;
    switch (key.Name) {
    case KeyName::Delete:
    case KeyName::Insert:
        if (key.Shift || key.Ctrl) return false; // cut, paste and copy of some desktops
        key.Name == KeyName::Delete ? cmdDelete_Click() : cmdInsert_Click();
        return true;
    case KeyName::Enter:
    case KeyName::F2: lvCncProgram_Click(); return true;
    case KeyName::Up: move(at - 1); return true;
    case KeyName::Down: move(at + 1); return true;
    case KeyName::PageUp: move(at - page); return true;
    case KeyName::PageDown: move(at + page); return true;
    case KeyName::Home: move(1); return true;
    case KeyName::End: move(rows); return true;
    default: return false;
    }
}

void lvCncProgram_ColumnClick(int header)
{
    if (header != static_cast<int>(CellError) + 1 || lvCncProgram.RowCount() == 0) return;
    SelectRow(std::clamp(Shared.ErrorLine + 1, 1, lvCncProgram.RowCount()));
    lvCncProgram_Click();
}
