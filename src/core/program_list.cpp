#include "core/program_list.h"

#include "core/text.h"

#include <algorithm>
#include <utility>

ProgramList lvCncProgram;

int LineCount()
{
    const auto& rows = lvCncProgram.Rows;
    if (rows.empty()) return 0;
    const bool lastIsBlank = rows.back()[CellN].find('N') != std::string::npos;
    return lvCncProgram.RowCount() - (lastIsBlank ? 1 : 0);
}

void InsertRow(int index, ProgramLine line)
{
    auto& rows = lvCncProgram.Rows;
    ++lvCncProgram.Version;
    rows.insert(rows.begin() + (index - 1), std::move(line));
    if (rows.size() == 1) {
        lvCncProgram.Selected = 1;
    } else if (lvCncProgram.Selected >= index) {
        ++lvCncProgram.Selected;
    }
}

void SelectRow(int index)
{
    lvCncProgram.Selected = index;
    ScrollIntoView(index);
}

void ScrollIntoView(int index)
{
    int& top = lvCncProgram.TopRow;
    top = std::max({1, std::min(top, index), index - lvCncProgram.VisibleRows + 1});
}

void RemoveRow(int index)
{
    auto& rows = lvCncProgram.Rows;
    ++lvCncProgram.Version;
    rows.erase(rows.begin() + (index - 1));
    int& selected = lvCncProgram.Selected;
    if (selected > index) --selected;
    selected = std::min(selected, lvCncProgram.RowCount());
}

void AddBlankLine(bool selectLast)
{
    const auto& rows = lvCncProgram.Rows;
    if (!rows.empty() && StartsNoCase(rows.back()[CellN], "N")) return;
    ProgramLine blank;
    for (size_t cell = CellCode; cell < CellCount; ++cell) blank[cell] = " ";
    blank[CellN] = "NN";
    InsertRow(lvCncProgram.RowCount() + 1, std::move(blank));
    if (LineCount() == 0) {
        SelectRow(1);
    } else if (selectLast) {
        SelectRow(lvCncProgram.RowCount());
    }
}
