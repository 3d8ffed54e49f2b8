// summary.h: the program told in lines of text: its messages, its key figures, its table.

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The text with a "?" for each control character but those that are kept: a file may bring any byte, and a
/// terminal must not take one for a command.
std::string Printable(std::string_view text, std::string_view kept = "");

/// One message of the error column: the line's number as "N05" and the text.
struct LineMessage {
    std::string Number, Text;
};
std::vector<LineMessage> MessagesOfProgram();

/// "MK4, 1/100 mm, 25 lines, 59 executed, 00:12:34, 0 messages", and how many lines were not reached.
std::string SummaryLine();

/// The program as a table under its headers: only columns that hold something, faulty lines marked.
/// With colour for a terminal, lines in absolute and incremental mode and messages differ in it too.
std::string ProgramTable(bool withColor);
