// print_job.h: what a job of the printer begins with, and the listing's own.

#pragma once

#include "platform/printer.h"

#include <string>
#include <string_view>

/// A job without items: the font that is set, from 1 to 200 points (10 where none is set), and what its pages
/// tell about the open program.
PrintJob NewPrintJob();

/// The text of the printed listing; "" when the program has no lines.
std::string ListingText();

/// The listing as a job: the name and the path that the file dialog gave last, an empty line, the listing.
PrintJob ListingJob();

/// Logs a job that failed under the routine's name, a string literal, and tells the user.
void ReportPrinting(const PrintOutcome& outcome, std::string_view procedure);
