#include "ui/columns.h"

#include "core/main_window.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/text.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int ErrorColumnWidth = 3885;
constexpr int TimeColumnWidth = 1050;
constexpr int SmallestCommentWidth = 4830;
/// Room that the list itself takes beside its columns.
constexpr int ListBorder = 80;
/// What the window needs beside the columns N to Time.
constexpr int WindowBesideColumns = 8093;
constexpr int ListLessThanWindow = 3700;

/// The width that a column wants, or more where a translated header needs it: 104 twips a character.
int WidthFor(size_t cell, int wanted)
{
    return std::max(wanted, 104 * static_cast<int>(CharacterCount(lvCncProgram.Headers[cell])) + 193);
}

void Open(size_t cell, bool open, int wanted)
{
    lvCncProgram.Widths[cell] = open ? WidthFor(cell, wanted) : 0;
}

} // namespace

void MakeToolpositionColums()
{
    const bool open = frmMain.chkViewToolPos.Value == 1;
    Open(CellToolX, open, 811);
    Open(CellToolY, open && IsMill(), 811);
    Open(CellToolZ, open, 811);
}

void MakeLinePropertiesColumns()
{
    const bool open = frmMain.chkViewLineProperties.Value == 1;
    const bool arcs = open && Shared.ArcsPresent;
    Open(CellAngle, open, 811);
    Open(CellCenterX, arcs, 1020);
    Open(CellCenterY, arcs && IsMill(), 1020);
    Open(CellCenterZ, arcs, 1020);
    Open(CellRadius, arcs, 811);
    AutoWidth();
}

void MakeMachineTimeColumn()
{
    lvCncProgram.Widths[CellTime] = frmMain.chkViewMachineTime.Value == 1 ? TimeColumnWidth : 0;
}

void AutoWidth()
{
    if (!Shared.AutoWidthOn || Shared.Minimized || Shared.Maximized) return;
    const auto& widths = lvCncProgram.Widths;
    const int columns = std::accumulate(widths.begin() + CellN, widths.begin() + CellComment, 0);
    Control& window = frmMain.Window;
    const int wanted = columns + WindowBesideColumns + ActiveProfile().WidthCorrection;
    const int before = window.Width;
    window.Width = std::min(wanted, Shared.Screen.Width);
    if (window.Width != before && window.On.Change != nullptr) window.On.Change();
}

void ShowErrorColumn(int line)
{
    if (Shared.ErrorsPresent) return;
    if (lvCncProgram.Selected > 0) {
        ProgramLine& selected = lvCncProgram.Row(lvCncProgram.Selected);
        for (size_t cell = CellToolX; cell <= CellTime; ++cell) selected[cell] = " xxxxx";
    }
    lvCncProgram.Widths[CellError] = ErrorColumnWidth;
    AutoWidth();
    lvCncProgram.Headers[CellError] = Shared.ErrorColumnTitle + " " + std::to_string(line);
    Shared.ErrorLine = line;
    Shared.ErrorsPresent = true;
}

void HideErrorColumn()
{
    lvCncProgram.Widths[CellError] = 0;
}

void MakeCommentColumn()
{
    const auto& widths = lvCncProgram.Widths;
    const int others = std::accumulate(widths.begin(), widths.begin() + CellComment, 0);
    const int list = frmMain.Window.Width - ListLessThanWindow;
    lvCncProgram.Widths[CellComment] = std::max(SmallestCommentWidth, list - others - ListBorder);
}
