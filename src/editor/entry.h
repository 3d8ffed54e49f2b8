// entry.h: the entry fields written into the cells of a row.

#pragma once

/// Writes number and parameters of the entry into the cells 1 and 3 to 7 of the selected row, in the
/// widths of the machine. A hidden field gives blanks. The radius of an M99R is kept in Shared.M99RRadius for
/// its arc.
void FormatInputs();
