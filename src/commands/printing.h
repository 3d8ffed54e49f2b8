// printing.h: the listing goes to the printer.

#pragma once

#include <string>

/// Prints the listing, each copy as a job of its own. The menu asks for printer and copies first, with a
/// preview; the button of the tool bar prints directly.
void mnuPrint_Click();
void PrintDirect();

/// The font where none was chosen, a typewriter's face since a listing stands in columns: the first of the
/// printer's that is called Courier or Courier New, else the one that the printer takes by itself.
std::string StandardFont();

/// A font that was picked counts at once, while its box still has the cursor.
void TakeFont();

/// Asks for printer, paper and copies of later jobs.
void cmdPrinterDialog_Click();
