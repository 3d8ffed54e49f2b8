// draw_command.h: the tool path as a picture, or as the operations of its canvas.

#pragma once

#include "cli/open_program.h"
#include "cli/outcome.h"

#include <optional>
#include <string>
#include <utility>

struct DrawOptions {
    /// Size of the drawing window in twips.
    int Width = 12000, Height = 9000;
    /// Twips for a program unit, and where the zero point lies; what isn't given is fitted.
    std::optional<double> Scale;
    std::optional<std::pair<double, double>> Zero;
    DrawBoxValues Boxes;
    /// Draw a program with errors too.
    bool Force = false;
};

/// "WIDTHxHEIGHT" in twips, "X,Y" in twips; false when the text is none.
bool ReadCanvasSize(const std::string& text, DrawOptions& options);
bool ReadZeroPoint(const std::string& text, DrawOptions& options);

/// Opens the drawing of the program that stands, as the window would, whatever messages it has: in a window
/// of that size without its controls, drawn in one go.
void ShowDrawing(const DrawOptions& options);

/// Loads the file and shows its drawing. One with messages is refused, unless it is forced.
Outcome OpenDrawing(const LoadOptions& load, const DrawOptions& options, const std::string& file);

/// Loads the file and draws it into `target`, an .svg, .png or .pdf file. With an empty target the operations
/// are the output.
Outcome DrawFile(const LoadOptions& load, const DrawOptions& options, const std::string& file,
                 const std::string& target);
