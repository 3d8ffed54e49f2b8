// example.h: the worked programs of the code pages: typed into the program, checked and drawn by it.

#pragma once

#include <map>
#include <string>

/// What a program of examples.txt gives to a page.
struct Example {
    /// The program with its calculated columns, the worked line in bold.
    std::string Table;
    /// What was typed for the worked line: "84 [ENTER] 1600 [ENTER] ...".
    std::string Keys;
    /// The drawing as SVG, "" when the program moves nothing.
    std::string Picture;
};

/// The lines of examples.txt by "MACHINE CODE"; the code "*" stands for codes without an entry of their own.
using ExampleLines = std::map<std::string, std::string>;
ExampleLines ReadExamples(const std::string& text);

/// Types the lines "92 X2000 Z100 / * 84 X1600 Z-1500 F80 H100 / M30" into the new program that stands ready;
/// "* @" is a worked line of the code alone. Behind " ~ " may stand where the picture shows the cutter, and
/// its radius: "X500 Y500 R250 / ...". A value that is missing, refused or reported is a fault of the source:
/// throws std::runtime_error.
Example MakeExample(const std::string& source, const std::string& code);
