// program_list.h: the program. It lives in the rows of lvCncProgram and nowhere else.
//
// Every value of a line is a text in a cell of fixed width; the cells 1 to 7 joined are the machine
// format, so a cell of the wrong length moves every later field. The last row is blank: it holds "NN"
// as its number and is no program line.

#pragma once

#include <array>
#include <string>
#include <vector>

/// Cells of a row, and columns of the list, by number.
enum Cell : size_t {
    CellRowText = 0,
    CellN = 1,
    CellCode = 2,
    CellX = 3,
    CellY = 4,
    CellZ = 5,
    CellF = 6,
    CellH = 7,
    CellError = 8,
    CellToolX = 9,
    CellToolY = 10,
    CellToolZ = 11,
    CellCenterX = 12,
    CellCenterY = 13,
    CellCenterZ = 14,
    CellRadius = 15,
    CellAngle = 16,
    CellTime = 17,
    CellComment = 18,
};
constexpr size_t CellCount = 19;

/// Colour of the cells 1 to 7: as the list has it until a pass walks the line.
enum class LineColor { None, Incremental, Absolute };

struct ProgramLine {
    std::array<std::string, CellCount> Cells;
    LineColor Color = LineColor::None;

    std::string& operator[](size_t cell) { return Cells[cell]; }
    const std::string& operator[](size_t cell) const { return Cells[cell]; }
};

struct ProgramList {
    std::vector<ProgramLine> Rows;
    /// Counts the changes of the rows, so that whoever shows them needs to look only when it has changed:
    /// every pass of the check and every row that comes or goes.
    unsigned Version = 0;
    /// The editing cursor: index of the selected row from 1, 0 for none.
    int Selected = 0;
    /// The first visible row, from 1, and how many rows are visible.
    int TopRow = 1;
    int VisibleRows = 26;
    /// Header text and width in twips by cell number; a width of 0 hides the column.
    std::array<std::string, CellCount> Headers{
        "X",      "N",      "G",      "X",        "Y",        "Z",        "F",      "H",      "Error in line",
        "Tool X", "Tool Y", "Tool Z", "Center X", "Center Y", "Center Z", "Radius", "Angle°", "Time",
        "Comment"};
    std::array<int, CellCount> Widths{0, 495, 1058, 706, 0, 1431, 1058, 495, 0,   0,
                                      0, 0,   0,    0,   0, 0,    0,    0,   4830};

    /// The row of a list index from 1.
    ProgramLine& Row(int index) { return Rows[static_cast<size_t>(index - 1)]; }
    int RowCount() const { return static_cast<int>(Rows.size()); }
};
extern ProgramList lvCncProgram;

/// Number of program lines: the rows, less one when the last row's number holds a capital N.
int LineCount();

/// Adds a row as the index-th of the list (from 1, at most one behind the last). The first row that
/// enters an empty list is selected; a selection at or behind the index stays on its row.
void InsertRow(int index, ProgramLine line);

/// Makes a row the editing cursor and scrolls it into view.
void SelectRow(int index);

/// Scrolls as little as needed so that the row can be seen.
void ScrollIntoView(int index);

/// Removes a row. A selection behind it stays on its row; that of the row itself goes to the next one.
void RemoveRow(int index);

/// Appends the blank row unless the last row's number starts with N. Selects row 1 when the program has
/// no lines, else the last row when selectLast; otherwise the selection stays.
void AddBlankLine(bool selectLast);
