// columns.h: the widths of the list's columns, and the error column's header.
//
// Widths are in twips, 0 hides a column. The user may drag a width; the routines here set theirs again
// whenever they run.

#pragma once

/// The tool position columns: open when chkViewToolPos is checked, Y on the F1 only.
void MakeToolpositionColums();
/// Angle, and with arcs in the program centre and radius, when chkViewLineProperties is checked; the
/// centre's Y on the F1 only. Ends with AutoWidth.
void MakeLinePropertiesColumns();
/// The time column: open when chkViewMachineTime is checked.
void MakeMachineTimeColumn();

/// While AutoWidthOn, gives a window in normal state the width that shows all open columns.
void AutoWidth();

/// Opens the error column for the first error of a pass and names its line (the N number) in the
/// header; marks the result cells of the selected row. Nothing when ErrorsPresent is set already.
void ShowErrorColumn(int line);
/// Closes the error column.
void HideErrorColumn();

/// Gives the comment column the rest of the list's width, at least 4830.
void MakeCommentColumn();
