// program_window.h: the window that lists the program beside the drawing and follows the walk.

#pragma once

/// Shows the window and fills its list: an entry for each row, the blank one too, with the columns that the
/// machine has, each cell's last 7 characters, then 44 of the comment.
void FillProgramWindow();

/// Takes the labels over the columns from the headers of the program list, so that they follow the language.
void frmProgramWindow_Load();

/// Shows the labels of the machine's columns and puts each over its column.
void SetProgramColumns();

/// Shows the line that is selected in the editor, unless a walk is at one or a message stands at the end.
void ShowSelectedProgramLine();

/// The list follows the window's size.
void frmProgramWindow_Resize();
