// printing.h: the listing goes to the printer.

#pragma once

/// Prints the listing, each copy as a job of its own. The menu asks for printer and copies first, with a
/// preview; the button of the tool bar prints directly.
void mnuPrint_Click();
void PrintDirect();

/// Asks for printer, paper and copies of later jobs.
void cmdPrinterDialog_Click();
