// commands.h: the commands of brixley-cli.

#pragma once

#include "cli/open_program.h"
#include "cli/outcome.h"

#include <string>
#include <vector>

/// Prints every message and one line a file.
Outcome CheckFiles(const LoadOptions& options, const std::vector<std::string>& files);
/// Prints the program as a table, or its state as JSON.
Outcome ShowFile(const LoadOptions& options, const std::string& file, bool asJson, bool withColor);
/// Prints the text of the printed listing.
Outcome ListFile(const LoadOptions& options, const std::string& file);
/// Loads the file and writes it again.
Outcome SaveFile(const LoadOptions& options, const std::string& file, const std::string& target);
/// Converts the program's units, "mm" or "inch", and writes it.
Outcome ConvertFile(const LoadOptions& options, const std::string& file, const std::string& units,
                    const std::string& target);
/// Types a script into the program, with a file loaded first unless `file` is empty, and prints the state.
Outcome TypeKeys(const LoadOptions& options, const std::string& file, const std::string& script, int ports,
                 bool asJson, bool withColor);
/// Prints one number over all that loading, checking, writing and converting the files gives. A change
/// that keeps the program's behaviour keeps the number.
Outcome FingerprintFiles(const LoadOptions& options, const std::vector<std::string>& files);
