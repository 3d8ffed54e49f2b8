// drawing_page.h: a drawing laid out on a sheet of paper. Lengths on paper are 1/100 mm.

#pragma once

#include "files/sheet.h"

/// Puts the image of a job on a sheet, and below it, never across it, the job's texts and a scale bar in the
/// program's units. Where the page has no room below the image, that is made smaller as a whole.
Sheet LayOutDrawing(const PrintJob& job, PageSize page, const Face& face);

/// A length that is easily read off, and what it is called: "20 mm", "0.5 inch".
struct ScaleBar {
    /// On paper.
    double Length;
    std::string Label;
};
/// The longest bar of 1, 2 or 5 times a power of ten that is no longer than `most` on paper. `unit` is what
/// 1/100 mm (metric) or 1/1000 inch of the program is on paper; `lengthText` has %1 in the place of the
/// number.
ScaleBar ScaleBarOf(double unit, bool metric, double most, const std::string& lengthText);

/// Whether a job is a drawing.
bool IsDrawing(const PrintJob& job);
