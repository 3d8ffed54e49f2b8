#include "sample_program.h"

#include "commands/session.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/program_list.h"
#include "core/text.h"
#include "files/reader.h"
#include "interpreter/interpreter.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <span>

namespace {

// One line: code, words, comment. F is the fourth word of every code, whatever letter the code gives it;
// reading puts I, J, K, T and D in their places, as it does with lines that a control has sent.

constexpr std::string_view MK2Block[] = {
    "G92 X4000 Z500 ;Work piece of 40 mm",
    "G00 X3800 Z200",
    "G01 X3600 Z-1000 F120",
    "G91",
    "G26 X0 Z0 F1 ;Roughing tool",
    "G84 X-200 Z-2000 F100",
    "G00 X-100 Z0",
    "G01 X0 Z-800 F80 ;Turn the shoulder",
    "G03 X500 Z-500 F60",
    "G02 X300 Z-300 F60",
    "G01 X-200 Z-300 F100",
    "G00 X100 Z0",
    "G21 ;Groove and thread follow",
    "G26 X50 Z-120 F3",
    "G78 X-60 Z-1500 F150",
    "G33 Z-1000 F100",
    "G00 X0 Z1000",
    "G01 X-150 Z0 F40",
    "G00 X150 Z0",
    "G94",
    "G01 X-100 Z0 F50 ;Part off",
    "G20",
    "G90",
    "G00 X3000 Z400",
    "G01 X3200 Z350 F90",
    "G00 X4000 Z500",
};

constexpr std::string_view MK4Block[] = {
    "G92 X4000 Z500 ;Work piece of 40 mm",
    "G00 X3800 Z200",
    "G01 X3600 Z-1000 F120",
    "G91",
    "M06 X0 Z0 F1 ;Roughing tool",
    "M03",
    "G84 X-200 Z-2000 F100 H50",
    "G00 X-100 Z0",
    "G01 X0 Z-800 F80 ;Turn the shoulder",
    "G03 X500 Z-500 F60",
    "M99 X500 Z0",
    "G02 X300 Z-300 F60",
    "G01 X-200 Z-300 F100",
    "G88 X-300 Z-200 F80 H100",
    "G21 ;Groove and thread follow",
    "M06 X50 Z120 F3",
    "G86 X-300 Z-500 F40 H300",
    "G78 X-60 Z-1500 F150 H20",
    "G33 Z-1000 F100",
    "G04 X150",
    "G73 Z-900 F50 ;Chips break here",
    "G83 Z-1200 F60",
    "G90",
    "G00 X3000 Z400",
    "G01 X3200 Z350 F90",
    "M05",
};

constexpr std::string_view F1Block[] = {
    "G92 X0 Y0 Z500 ;Corner of the plate",
    "G00 X1000 Y1000 Z500",
    "G01 X1000 Y1000 Z-100 F120",
    "G91",
    "M06 X500 Y1500 Z0 F1 ;End mill of 10 mm",
    "M03",
    "G00 X-100 Y0 Z0",
    "G01 X2000 Y0 Z0 F200 ;Along the edge",
    "G01 X0 Y1500 Z0 F200",
    "G03 X-500 Y500 Z0 F100",
    "M99 X500 Y0 Z0",
    "G02 X-300 Y300 Z0 F100",
    "G01 X-200 Y-300 Z0 F150",
    "G72 X3000 Y2000 Z-300 F120 ;Pocket",
    "G21 ;Holes follow",
    "M06 X250 Y2000 Z120 F3",
    "G81 Z-600 F60",
    "G00 X1200 Y0 Z0",
    "G82 Z-600 F60",
    "G04 X150",
    "G73 Z-900 F50",
    "G83 Z-1200 F60 ;Withdraws in between",
    "G90",
    "G00 X3000 Y400 Z-100",
    "G01 X3200 Y350 Z-100 F90",
    "M05",
};

constexpr std::string_view EndCodes[] = {"G22", "M30", "M30"};

struct Words {
    std::string_view Code, Comment;
    std::optional<int> X, Y, Z, F, H;
};

Words Parse(std::string_view line)
{
    Words words;
    const size_t comment = line.find(';');
    if (comment != std::string_view::npos) words.Comment = line.substr(comment + 1);
    std::string_view rest = line.substr(0, comment);
    words.Code = rest.substr(0, 3);
    for (size_t at = rest.find(' '); at != std::string_view::npos; at = rest.find(' ')) {
        rest.remove_prefix(at + 1);
        if (rest.empty()) break;
        const int value = static_cast<int>(Val(rest.substr(1, rest.find(' ') - 1)));
        switch (rest.front()) {
        case 'X': words.X = value; break;
        case 'Y': words.Y = value; break;
        case 'Z': words.Z = value; break;
        case 'F': words.F = value; break;
        default: words.H = value; break;
        }
    }
    return words;
}

/// A value with its sign in front of so many digits, or the blanks of a word that isn't there.
std::string Signed(std::optional<int> value, size_t digits)
{
    if (!value) return std::string(digits + 1, ' ');
    return (*value < 0 ? "-" : " ") + RightPad(FormatWhole(std::abs(*value), 2), digits);
}

std::string FileLine(MachineKind machine, int number, const Words& words)
{
    const std::string code = (words.Code[0] == 'G' ? " " : "M") + std::string(words.Code.substr(1));
    const std::string n = RightPad(FormatWhole(number, 2), 3);
    switch (machine) {
    case MachineKind::MK2:
        return "   N" + std::string(LastCharacters(FormatWhole(number, 2), 2)) + " G" + code.substr(1) +
               " X" + Signed(words.X, 4) + " Z" + Signed(words.Z, 5) + " F" + Signed(words.F, 3).substr(1) +
               " " + std::string(words.Comment);
    case MachineKind::MK4:
        return "   " + n + code + " " + Signed(words.X, 4) + " " + Signed(words.Z, 5) + Signed(words.F, 3) +
               Signed(words.H, 3) + "  " + std::string(words.Comment);
    case MachineKind::F1: break;
    }
    return "   " + n + code + Signed(words.X, 5) + Signed(words.Y, 4) + Signed(words.Z, 5) +
           Signed(words.F, 3) + " " + std::string(words.Comment);
}

std::span<const std::string_view> BlockOf(MachineKind machine)
{
    switch (machine) {
    case MachineKind::MK2: return MK2Block;
    case MachineKind::MK4: return MK4Block;
    case MachineKind::F1: break;
    }
    return F1Block;
}

void RefuseFaults()
{
    const std::string limit = TextOf(Messages::MaxLinesReached);
    for (const ProgramLine& row : lvCncProgram.Rows) {
        if (IsBlank(row[CellError]) || row[CellError] == limit) continue;
        std::fprintf(stderr, "A sample has a fault: N%s %s\n", row[CellN].c_str(), row[CellError].c_str());
        std::exit(1);
    }
    if (lvCncProgram.Rows[static_cast<size_t>(LineCount() - 1)][CellToolX].ends_with('?')) {
        std::fprintf(stderr, "The walk of a sample doesn't reach its end\n");
        std::exit(1);
    }
}

} // namespace

std::string SampleFile(MachineKind machine, int lines)
{
    std::string text = "Sample to measure with\r\n%\r\n";
    if (machine == MachineKind::MK4) text += "    N` G`   X `    Z `  F`  H \r\n";
    if (machine == MachineKind::F1) text += "    N` G`  X  `  Y `   Z ` F  \r\n";
    const auto block = BlockOf(machine);
    for (int i = 0; i < lines; ++i) {
        const std::string_view line = i == lines - 1 ? EndCodes[static_cast<size_t>(machine)]
                                                     : block[static_cast<size_t>(i) % block.size()];
        text.append(FileLine(machine, i, Parse(line))).append(LineEnd);
    }
    return text.append(machine == MachineKind::F1 ? "   MI" : "   M").append(LineEnd);
}

void LoadSample(MachineKind machine, int lines)
{
    ResetState();
    StartNew(machine, true, false);
    lvCncProgram.Rows = ReadProgram(SampleFile(machine, lines)).Rows;
    SelectRow(1);
    AddBlankLine(false);
    Interpreter();
    RefuseFaults();
}
