#include "core/codes.h"

#include "core/text.h"

#include <algorithm>

namespace {

/// One code and its description on each machine; "" where the machine doesn't have the code.
struct ListedCode {
    std::string_view Code, MK2, MK4, F1;
};

constexpr std::string_view Rapid = "Rapid Traverse";
constexpr std::string_view Linear = "Linear Interpolation";
constexpr std::string_view Clockwise = "CW Circular Interpolation";
constexpr std::string_view CounterClockwise = "CCW Circular Interpolation";
constexpr std::string_view Dwell = "Dwell xxxx/100 sec.";
constexpr std::string_view Empty = "Empty Line";
constexpr std::string_view RadiusMode = "Radius Mode (ABS mode only)";
constexpr std::string_view SetRegister = "Set XZ Register (+ ABS/diameter  mode)";
constexpr std::string_view FeedPerMinute = "Feed in mm/min (or inch/min)";
constexpr std::string_view FeedPerRevolution = "Feed in mm/rev (or inch/rev)";

constexpr ListedCode GCodes[] = {
    {"G00", Rapid, Rapid, Rapid},
    {"G01", Linear, Linear, Linear},
    {"G02", Clockwise, Clockwise, Clockwise},
    {"G03", CounterClockwise, CounterClockwise, CounterClockwise},
    {"G04", "", Dwell, Dwell},
    {"G20", "Programmed Stop (Pause)", "", ""},
    {"G21", Empty, Empty, Empty},
    {"G22", "End of Program", "", ""},
    {"G23", "Output switch or pulse X62", "", ""},
    {"G24", RadiusMode, RadiusMode, ""},
    {"G25", "", "Sub-routine call", "Sub-routine call"},
    {"G26", "Tool Change and Compensation", "", ""},
    {"G27", "", "Jump Instruction", "Jump Instruction"},
    {"G33", "Threading", "Threading", ""},
    {"G40", "", "", "Tool Radius compensation cancelled"},
    {"G45", "", "", "Add Tool Radius"},
    {"G46", "", "", "Subtract Tool Radius"},
    {"G47", "", "", "Add Tool Radius twice"},
    {"G48", "", "", "Subtract Tool Radius twice"},
    {"G72", "", "", "Pocket milling Cycle"},
    {"G73", "", "Drilling Cycle with Chip Breakage", "Chip Breaking Cycle"},
    {"G78", "Threading Cycle", "Threading Cycle", ""},
    {"G81", "", "Drilling Cycle", "Fixed Boring Cycle"},
    {"G82", "", "Drilling Cycle with Dwell", "Fixed Boring Cycle with Dwell"},
    {"G83", "", "Drilling Cycle with Withdrawal", "Fixed Boring Cycle with Withdrawal"},
    {"G84", "Longitudinal Cycle", "Longitudinal Cycle", ""},
    {"G85", "", "Reaming Cycle", "Fixed Reaming Cycle"},
    {"G86", "", "Grooving Cycle", ""},
    {"G88", "", "Facing Cycle", ""},
    {"G89", "", "Reaming Cycle with Dwell", "Fixed Reaming Cycle with Dwell"},
    {"G90", "Absolute (diameter) Mode", "Absolute (diameter) Mode", "Absolute Mode"},
    {"G91", "Incremental Mode", "Incremental (radius) Mode", "Incremental Mode"},
    {"G92", SetRegister, SetRegister, "Set XYZ Register (ABS)"},
    {"G94", FeedPerMinute, FeedPerMinute, ""},
    {"G95", FeedPerRevolution, FeedPerRevolution, ""},
};

constexpr ListedCode MCodes[] = {
    {"M00", "", "Programmed Stop (Pause)", "Programmed Stop (Pause)"},
    {"M03", "", "Spindle ON", "Spindle ON"},
    {"M05", "", "Spindle OFF", "Spindle OFF"},
    {"M06", "", "Tool Change and Compensation", "Tool Change and Radius"},
    {"M08", "", "Switch output X62 PIN 15 HIGH", "Switch output X62 PIN 15 HIGH"},
    {"M09", "", "Switch output X62 PIN 15 LOW", "Switch output X62 PIN 15 LOW"},
    {"M17", "", "Return to Main Program", "Return to Main Program"},
    {"M20", "", "", "Switch output X62 PIN 7 HIGH"},
    {"M21", "", "", "Switch output X62 PIN 7 LOW"},
    {"M22", "", "Switch output X62 PIN 18 HIGH", "Switch output X62 PIN 18 HIGH"},
    {"M23", "", "Switch output X62 PIN 18 LOW", "Switch output X62 PIN 18 LOW"},
    {"M26", "", "Output pulses X62 PIN 20", "Output pulses X62 PIN 20"},
    {"M30", "", "End of Program", "End of Program"},
    {"M98", "", "Compensation of Play", "Compensation of Play"},
    {"M99", "", "Partial Arc Center", "Partial Arc Center"},
    {"M99R", "", "Partial Arc Radius", "Partial Arc Radius"},
};

std::vector<std::string> List(std::span<const ListedCode> codes, std::string_view ListedCode::*machine)
{
    std::vector<std::string> items;
    for (const ListedCode& listed : codes) {
        if ((listed.*machine).empty()) continue;
        std::string item(listed.Code);
        item.resize(4, ' ');
        items.push_back(item + "\t" + std::string(listed.*machine));
    }
    return items;
}

} // namespace

Code CodeOfCell(std::string_view cell)
{
    if (cell.size() != 4 || !IsDigit(cell[1]) || !IsDigit(cell[2])) return NoCode;
    const int number = (cell[1] - '0') * 10 + (cell[2] - '0');
    const bool letterM = UpperCase(cell[0]) == 'M';
    if (letterM && number == 99 && UpperCase(cell[3]) == 'R') return M99R;
    if (cell[3] != ' ') return NoCode;
    if (letterM) return M(number);
    return cell[0] == ' ' ? G(number) : NoCode;
}

bool ListHolds(std::string_view list, Code code)
{
    bool holds = false;
    ForEachCode(list, [&](Code listed) { holds = holds || listed == code; });
    return holds;
}

std::vector<std::string> MK2Gcodes()
{
    return List(GCodes, &ListedCode::MK2);
}

std::vector<std::string> MK4Gcodes()
{
    return List(GCodes, &ListedCode::MK4);
}

std::vector<std::string> F1Gcodes()
{
    return List(GCodes, &ListedCode::F1);
}

std::vector<std::string> MK4Mcodes()
{
    return List(MCodes, &ListedCode::MK4);
}

std::vector<std::string> F1Mcodes()
{
    // The mill's item for M99R has a blank in front of its tab.
    std::vector<std::string> items = List(MCodes, &ListedCode::F1);
    items.back().insert(4, " ");
    return items;
}

std::string ItemDescription(std::string_view item)
{
    std::string description(Trimmed(FromCharacter(item, 4)));
    std::erase(description, '\t');
    return description;
}
