// print_command.h: listing and drawing as PDF files, printed by the window's own commands.

#pragma once

#include "cli/draw_command.h"

struct PrintOptions {
    std::string FontName = "Courier New";
    double FontSize = 10;
    int Copies = 1;
    /// The drawing in place of the listing, with these options.
    bool Drawing = false;
    DrawOptions Draw;
};

/// Loads the file and prints it to `target`, a .pdf file.
Outcome PrintFile(const LoadOptions& load, const PrintOptions& options, const std::string& file,
                  const std::string& target);
