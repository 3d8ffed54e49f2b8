#include "commands/printing.h"

#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "files/print_job.h"
#include "platform/platform.h"
#include "ui/focus.h"
#include "ui/panes.h"

#include <algorithm>

namespace {

void PrintListing(bool asksFirst)
{
    cmdReturn_Click();
    if (LineCount() < 1) {
        ShowMessage(TextOf(Messages::NoLines));
        return;
    }
    TakeFont();
    const PrintJob job = ListingJob();
    if (asksFirst && !ThePrinter->Choose(&job)) return;
    for (int copy = 1; copy <= ThePrinter->Copies(); ++copy) {
        const PrintOutcome outcome = ThePrinter->Print(job, copy);
        ReportPrinting(outcome, "mnuPrint_Click");
        if (outcome.Is != PrintOutcome::Kind::Sent) return;
    }
}

} // namespace

std::string StandardFont()
{
    const auto& fonts = frmMain.cboFontName.Items;
    const auto found = std::find_if(fonts.begin(), fonts.end(), [](const std::string& font) {
        return font == "Courier" || font == "Courier New";
    });
    return found == fonts.end() ? ThePrinter->TypewriterFont() : *found;
}

void TakeFont()
{
    for (Control* box : {&frmMain.cboFontName, &frmMain.cboFontSize}) {
        if (HasFocus(*box)) box->On.LostFocus(*box);
    }
}

void mnuPrint_Click()
{
    PrintListing(true);
}

void PrintDirect()
{
    PrintListing(false);
}

void cmdPrinterDialog_Click()
{
    ThePrinter->Choose(nullptr);
}
