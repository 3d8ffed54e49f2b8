// sheet.h: what stands where on a sheet of paper, before anything is painted.
//
// Places are in 1/100 mm from the upper left corner of what can be printed on, x to the right, y downward.

#pragma once

#include "platform/printer.h"

#include <string>
#include <string_view>
#include <vector>

/// A line of text from X on; Y is the top of the line.
struct SheetText {
    double X, Y, Points;
    std::string Text;
};

struct SheetLine {
    double X1, Y1, X2, Y2;
};

struct Sheet {
    std::vector<SheetText> Texts;
    std::vector<SheetLine> Lines;
    std::optional<PrintedImage> Image;
};

/// Measures texts of a font as the printer will set them.
class Face
{
public:
    virtual ~Face() = default;
    /// The width of a text in letters of so many points, in 1/100 mm.
    virtual double Width(std::string_view text, double points) const = 0;
    /// From one line to the next.
    virtual double LineHeight(double points) const = 0;
};

/// The lines of a text, however they end, without blanks at their ends; tabs are 8 blanks wide at most. ""
/// is one empty line, and a line end behind the last line begins no other.
std::vector<std::string> PrintedLines(std::string_view text);

/// Breaks a line that is wider than `width` into several, behind a blank, else behind a folder's name, where
/// one stands in the second half, else anywhere. All but the first begin with `indent` blanks where these
/// leave half the width. No character but blanks is lost.
std::vector<std::string> WrapLine(const std::string& line, double width, double points, const Face& face,
                                  size_t indent = 0);
