// printing.h: the drawing goes to the printer.

#pragma once

/// Prints the drawing on white, whatever the window shows. Nothing while the program has errors; an empty
/// list is refused. The walks that this takes don't wait, whatever the run mode.
void cmdPrint_Click();

/// Prints the picture as it stands: upright, or across the paper when it is wider than high, at its own size
/// or fitted to the page. True when the job was sent.
bool PrintPictureToFitPage();
