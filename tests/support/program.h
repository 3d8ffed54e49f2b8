// program.h: programs for tests, written as people read them.
//
// A test begins with Start, puts lines into the program with Enter or Load, and looks at cells by the
// line's N number.

#pragma once

#include "platform/scripted.h"

#include <filesystem>
#include <string>
#include <string_view>

/// Answers the boxes and dialogs of a test and keeps what was shown; new with each Start.
extern ScriptedPlatform Desk;

/// Everything reset, and a new program on a profile: "MK2 mm", "MK4 inch", "F1 mm" (the spindle is
/// vertical), "F1 inch H".
void Start(std::string_view profile);

/// Replaces the program by lines such as "G90 / G00 X1000 Z-50 ;comment / 5*G21 / M99R R500", in the cell
/// forms of the machine in force, as if they had been typed, and checks it. Any word may stand on any
/// code, as in a file; the blank row is selected.
void Enter(std::string_view lines);

/// Loads a program from text whose lines end in LF, through a file that ends its lines in CR LF.
void Load(std::string_view text);

/// A cell of the line with the N number, blanks kept.
const std::string& CellOf(int number, size_t cell);
/// The tool position behind the line as "X Y Z".
std::string ToolOf(int number);
/// All messages as "N01 !Invalid SUB; N04 !No 3-d allowed".
std::string MessageList();
/// The lines that the walk hasn't reached, as "N02 N03".
std::string Unreached();
/// The log as "6 Interpreter; 5 FindCenter".
std::string LogList();

/// The text with each LF as CR LF.
std::string WithCrLf(std::string_view text);

/// A folder that is removed at the end of the test.
class Folder
{
public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string operator/(std::string_view name) const { return (Path / name).string(); }
    /// Writes a file and returns its path.
    std::string Put(std::string_view name, std::string_view bytes) const;

private:
    std::filesystem::path Path;
};

std::string BytesOf(const std::string& path);
