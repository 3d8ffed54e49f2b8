// writer.h: the one text that goes to disk, to the machine and, in a longer form, to the printer.

#pragma once

#include <string>

/// The program as text in the form of Shared.Machine, lines ended by CR LF, or as the printed listing
/// while Shared.PrintMode is set. "" when the program has no lines. Only reads cells: a program with
/// errors is written with its errors.
std::string GenerateAll();

/// The line with the titles of the listing's columns, without its line end; blank on MK2 without columns.
std::string ListingHeader();
