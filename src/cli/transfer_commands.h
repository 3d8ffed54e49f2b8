// transfer_commands.h: a program to the machine and back, over a real port.

#pragma once

#include "cli/open_program.h"
#include "cli/outcome.h"
#include "platform/line_parameters.h"

#include <string>

/// The values of the COM tab: "300,N,8,1".
struct LineOptions {
    std::string Device;
    std::string Parameters = StandardLine();
};

/// Transmits a program line by line, with its progress on standard error. An interrupt sends the stop mark in
/// place of the next line; a second one waits for nothing.
Outcome SendFile(const LoadOptions& load, const LineOptions& line, const std::string& file, bool filter);

/// Stores what comes in, less NULs, until `idle` seconds of silence behind the first character, or an
/// interrupt.
Outcome ReceiveFile(const LineOptions& line, const std::string& target, double idle);
