#include "commands/printing.h"

#include "core/messages.h"
#include "core/program_list.h"
#include "files/print_job.h"
#include "platform/platform.h"
#include "ui/panes.h"

namespace {

void PrintListing(bool asksFirst)
{
    cmdReturn_Click();
    if (LineCount() < 1) {
        ShowMessage(TextOf(Messages::NoLines));
        return;
    }
    const PrintJob job = ListingJob();
    if (asksFirst && !ThePrinter->Choose(&job)) return;
    for (int copy = 1; copy <= ThePrinter->Copies(); ++copy) {
        const PrintOutcome outcome = ThePrinter->Print(job, copy);
        ReportPrinting(outcome, "mnuPrint_Click");
        if (outcome.Is != PrintOutcome::Kind::Sent) return;
    }
}

} // namespace

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
