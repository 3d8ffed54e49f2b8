// reader.h: the text of a program file, taken apart into rows.
//
// Reading touches nothing of the open program: the outcome is a value, and LoadFile (commands/load.h)
// decides what to do with it. Files hold 8-bit text in fixed columns; docs/file-format.md tells them
// byte by byte.

#pragma once

#include "core/program_list.h"
#include "core/shared_state.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The files that a dialog shows; the ending has no meaning for the format.
constexpr const char* ProgramFileFilter =
    "cnc files (*.txt or *.cnc or *.c5n)|*.cnc;*.txt;*.c5n|All Files (*.*)|*.*|";

/// Rows that a file may bring. The controls hold far fewer; the pass reports those that are too many.
constexpr int MaxFileLines = 32000;

/// What a file's trailer says. A lathe's trailer says nothing of the spindle.
struct Trailer {
    bool Metric;
    std::optional<bool> Horizontal;
};

struct ProgramFile {
    MachineKind Machine = MachineKind::MK4;
    std::string Notes;
    std::vector<ProgramLine> Rows;
    std::optional<Trailer> End;
    /// The file has more than MaxFileLines lines; Rows holds the first of them.
    bool TooLong = false;
};

enum class FileKind { Program, Language, Unknown };

/// What a file is, by its content alone.
FileKind KindOfFile(std::string_view bytes);

/// Reads a program of any machine. The bytes must be of kind Program; any others give no rows.
/// A damaged file gives the rows that can be made of it.
ProgramFile ReadProgram(std::string_view bytes);
