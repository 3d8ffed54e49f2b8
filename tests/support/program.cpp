#include "support/program.h"

#include "commands/load.h"
#include "commands/session.h"
#include "core/failure.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "interpreter/interpreter.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

ScriptedPlatform Desk;

namespace {

std::string Padded(const std::string& text, size_t width)
{
    return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

std::string TwoDigits(long value)
{
    const std::string digits = std::to_string(std::abs(value));
    return (value < 0 ? "-" : "") + (digits.size() < 2 ? "0" + digits : digits);
}

/// A word such as X-200 or K100: a sign takes the place of X, Y, Z and F, other letters stay.
std::string WordCell(char letter, long value, size_t digits)
{
    if (std::string_view("XYZFH").find(letter) == std::string_view::npos) {
        return letter + Padded(TwoDigits(value), digits);
    }
    return (value < 0 ? '-' : ' ') + Padded(TwoDigits(std::labs(value)), digits);
}

ProgramLine LineOf(const std::string& text, long number)
{
    const bool mill = Shared.Machine == MachineKind::F1;
    const size_t xDigits = mill ? 5 : 4;
    ProgramLine row;
    row[CellN] = Padded(TwoDigits(number), 3);
    row[CellX] = std::string(xDigits + 1, ' ');
    row[CellY] = mill ? "     " : "";
    row[CellZ] = "      ";
    row[CellF] = "    ";
    row[CellH] = mill ? "" : "   ";
    const size_t semicolon = text.find(';');
    if (semicolon != std::string::npos) row[CellComment] = text.substr(semicolon + 1);

    std::istringstream words(text.substr(0, semicolon));
    std::string code, word;
    words >> code;
    row[CellCode] = Padded(code[0] == 'G' ? " " + code.substr(1) : code, 3) + (code.size() < 4 ? " " : "");
    const bool thread = code == "G33" || code == "G78";
    while (words >> word) {
        const char letter = word[0];
        const long value = std::strtol(word.c_str() + 1, nullptr, 10);
        switch (letter) {
        case 'Y':
        case 'S':
        case 'J': row[CellY] = WordCell(letter, value, 4); break;
        case 'Z': row[CellZ] = WordCell(letter, value, 5); break;
        case 'K': row[thread ? CellF : CellZ] = WordCell(letter, value, thread ? 3 : 5); break;
        case 'F':
        case 'T':
        case 'L': row[CellF] = WordCell(letter, value, 3); break;
        case 'H': row[mill ? CellF : CellH] = (mill ? " " : "") + Padded(TwoDigits(value), 3); break;
        default: row[CellX] = WordCell(letter, value, xDigits); break;
        }
        if (letter == 'R') Shared.M99RRadius = static_cast<float>(value);
    }
    return row;
}

std::string Joined(std::string list, std::string_view separator, const std::string& item)
{
    return list.empty() ? item : list.append(separator).append(item);
}

} // namespace

void Start(std::string_view profile)
{
    Desk = {};
    ThePlatform = &Desk;
    ThePort = &Desk.Port;
    ThePrinter = &Desk.Printer;
    ResetState();
    const MachineKind machine = profile.starts_with("MK2")   ? MachineKind::MK2
                                : profile.starts_with("MK4") ? MachineKind::MK4
                                                             : MachineKind::F1;
    StartNew(machine, profile.find("mm") != std::string_view::npos, profile.ends_with(" H"));
}

void Enter(std::string_view lines)
{
    lvCncProgram.Rows.clear();
    while (!lines.empty()) {
        const size_t end = lines.find(" / ");
        std::string line(lines.substr(0, end));
        lines.remove_prefix(end == std::string_view::npos ? lines.size() : end + 3);
        const size_t star = line.find('*');
        const bool repeated = star != std::string::npos && star < line.find(';');
        const int times = repeated ? std::atoi(line.c_str()) : 1;
        if (repeated) line.erase(0, star + 1);
        for (int i = 0; i < times; ++i) lvCncProgram.Rows.push_back(LineOf(line, lvCncProgram.RowCount()));
    }
    AddBlankLine(true);
    Shared.Changed = true;
    Interpreter();
}

void Load(std::string_view text)
{
    const Folder folder;
    LoadFile(folder.Put("program.cnc", WithCrLf(text)));
}

const std::string& CellOf(int number, size_t cell)
{
    return lvCncProgram.Row(number + 1)[cell];
}

std::string ToolOf(int number)
{
    std::istringstream cells(CellOf(number, CellToolX) + " " + CellOf(number, CellToolY) + " " +
                             CellOf(number, CellToolZ));
    std::string list, cell;
    while (cells >> cell) list = Joined(list, " ", cell);
    return list;
}

std::string MessageList()
{
    std::string list;
    for (int n = 0; n < LineCount(); ++n) {
        const std::string& message = CellOf(n, CellError);
        if (message != std::string(15, ' ')) list = Joined(list, "; ", "N" + TwoDigits(n) + " " + message);
    }
    return list;
}

std::string Unreached()
{
    std::string list;
    for (int n = 0; n < LineCount(); ++n) {
        if (CellOf(n, CellToolX) == "     ?") list = Joined(list, " ", "N" + TwoDigits(n));
    }
    return list;
}

std::string LogList()
{
    std::string list;
    for (const LogRecord& record : Log.Records) {
        list = Joined(list, "; ", std::to_string(record.Number) + " " + record.Procedure);
    }
    return list;
}

std::string WithCrLf(std::string_view text)
{
    std::string bytes;
    for (const char c : text) bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return bytes;
}

Folder::Folder()
{
    std::string name = (std::filesystem::temp_directory_path() / "brixley-test-XXXXXX").string();
    EXPECT_NE(::mkdtemp(name.data()), nullptr);
    Path = name;
}

Folder::~Folder()
{
    std::error_code ignored;
    std::filesystem::remove_all(Path, ignored);
}

std::string Folder::Put(std::string_view name, std::string_view bytes) const
{
    std::ofstream(Path / name, std::ios::binary) << bytes;
    return *this / name;
}

std::string BytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
