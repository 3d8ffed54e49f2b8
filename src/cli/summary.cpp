#include "cli/summary.h"

#include "core/main_window.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/text.h"

#include <algorithm>

namespace {

constexpr const char* Plain = "\x1b[0m";
constexpr const char* Bold = "\x1b[1m";
constexpr const char* Red = "\x1b[31m";
constexpr const char* Blue = "\x1b[34m";

/// A column of the table: a cell of the rows, and on which side its texts line up.
struct Column {
    size_t Cell;
    bool Left;
    size_t Width = 0;
};

bool IsLeft(size_t cell)
{
    return cell == CellError || cell == CellComment || cell == CellCode;
}

bool HasMessage(const ProgramLine& row)
{
    return !IsBlank(row[CellError]);
}

/// Columns that hold something in any line. The lathes have no Y, so its zeros are left out there.
std::vector<Column> ColumnsInUse()
{
    std::vector<Column> columns;
    const int lines = LineCount();
    for (size_t cell = CellN; cell < CellCount; ++cell) {
        const bool isY = cell == CellY || cell == CellToolY || cell == CellCenterY;
        if (isY && Shared.Machine != MachineKind::F1) continue;
        Column column{cell, IsLeft(cell)};
        bool holds = false;
        for (int i = 1; i <= lines; ++i) {
            const std::string_view text = Trimmed(lvCncProgram.Row(i)[cell]);
            holds = holds || !text.empty();
            column.Width = std::max(column.Width, CharacterCount(lvCncProgram.Row(i)[cell]));
        }
        column.Width = std::max(column.Width, CharacterCount(lvCncProgram.Headers[cell]));
        if (holds) columns.push_back(column);
    }
    return columns;
}

std::string Aligned(std::string_view raw, const Column& column)
{
    const std::string text = Printable(raw);
    const size_t length = CharacterCount(text);
    const std::string blanks(column.Width > length ? column.Width - length : 0, ' ');
    return column.Left ? text + blanks : blanks + text;
}

std::string WithoutTrailingBlanks(std::string line)
{
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::string TableLine(const ProgramLine& row, const std::vector<Column>& columns)
{
    std::string line = HasMessage(row) ? "> " : "  ";
    for (const Column& column : columns) {
        if (&column != &columns.front()) line += "  ";
        line += Aligned(column.Left ? Trimmed(row[column.Cell]) : std::string_view(row[column.Cell]), column);
    }
    return WithoutTrailingBlanks(line);
}

const char* ColorOf(const ProgramLine& row)
{
    if (HasMessage(row)) return Red;
    return row.Color == LineColor::Absolute ? Blue : "";
}

} // namespace

std::string Printable(std::string_view text, std::string_view kept)
{
    std::string printable(text);
    for (char& c : printable) {
        const bool control = static_cast<unsigned char>(c) < ' ' || c == '\x7f';
        if (control && kept.find(c) == std::string_view::npos) c = '?';
    }
    return printable;
}

std::vector<LineMessage> MessagesOfProgram()
{
    std::vector<LineMessage> messages;
    for (int i = 1; i <= LineCount(); ++i) {
        const ProgramLine& row = lvCncProgram.Row(i);
        if (HasMessage(row)) messages.push_back({"N" + FormatWhole(i - 1, 2), row[CellError]});
    }
    return messages;
}

std::string SummaryLine()
{
    int notReached = 0;
    for (int i = 1; i <= LineCount(); ++i) {
        if (lvCncProgram.Row(i)[CellToolX].ends_with('?')) ++notReached;
    }
    std::string line = std::string(ActiveProfile().Name) + ", " + frmMain.lblPPUnits.Text + ", " +
                       std::to_string(LineCount()) + " lines, " + frmMain.lblPPLinesExe.Text + " executed, " +
                       frmMain.lblPPMachineTime.Text + ", " + std::to_string(MessagesOfProgram().size()) +
                       " messages";
    if (notReached > 0) line += ", " + std::to_string(notReached) + " lines not reached";
    return line;
}

std::string ProgramTable(bool withColor)
{
    const std::vector<Column> columns = ColumnsInUse();
    std::string header = "  ";
    for (const Column& column : columns) {
        if (&column != &columns.front()) header += "  ";
        header += Aligned(lvCncProgram.Headers[column.Cell], column);
    }
    header = WithoutTrailingBlanks(header);

    std::string table = withColor ? Bold + header + Plain : header;
    table += '\n';
    for (int i = 1; i <= LineCount(); ++i) {
        const ProgramLine& row = lvCncProgram.Row(i);
        const std::string line = TableLine(row, columns);
        table += withColor ? ColorOf(row) + line + Plain : line;
        table += '\n';
    }
    return table;
}
