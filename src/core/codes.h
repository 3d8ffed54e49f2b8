// codes.h: the G and M codes: their keys for tables, and the picking lists of the machines.
//
// Cells hold codes as 4 characters (" 21 ", "M06 ", "M99R"). Tables and switches use a small number
// instead, so that a pass compares no texts.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A code as a number: 0 to 99 G codes, 100 to 199 M codes, then M99R and "no code".
using Code = uint8_t;

constexpr Code G(int number)
{
    return static_cast<Code>(number);
}
constexpr Code M(int number)
{
    return static_cast<Code>(100 + number);
}
constexpr Code M99R = 200;
constexpr Code NoCode = 201;
constexpr int CodeCount = 202;

/// The code of a cell's 4 characters in any case; NoCode for every other text.
Code CodeOfCell(std::string_view cell);

/// The codes of a table's list, such as "G00 G01 M06 M99R" (capitals, single blanks between them).
constexpr Code CodeOfName(std::string_view name)
{
    if (name == "M99R") return M99R;
    const int number = (name[1] - '0') * 10 + (name[2] - '0');
    return name[0] == 'M' ? M(number) : G(number);
}
/// Calls visit(code) for each code of a table's list.
template <class Visit> void ForEachCode(std::string_view list, Visit visit)
{
    while (!list.empty()) {
        const size_t end = list.find(' ');
        visit(CodeOfName(list.substr(0, end)));
        list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
    }
}
/// Whether a table's list of codes holds the code.
bool ListHolds(std::string_view list, Code code);

/// The picking list of one machine and letter: code padded to 4 characters, a tab, the description.
std::vector<std::string> MK2Gcodes();
std::vector<std::string> MK4Gcodes();
std::vector<std::string> F1Gcodes();
std::vector<std::string> MK4Mcodes();
std::vector<std::string> F1Mcodes();

/// What an automatic comment begins with; the system rewrites such comments, never the user's.
constexpr std::string_view AutomaticComment = "@  ";

/// The description of a list item: the text from the fifth character on, trimmed, without tabs.
std::string ItemDescription(std::string_view item);
