#include "files/print_job.h"

#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "files/writer.h"
#include "platform/platform.h"

#include <algorithm>
#include <cstdio>

PrintJob NewPrintJob()
{
    // Beyond these a page shows nothing, or not one line.
    constexpr double Least = 1, Most = 200, Standard = 10;
    PrintJob job;
    job.FontName = Shared.FontName;
    const double size = Val(Shared.FontSize);
    job.FontSize = size > 0 ? std::clamp(size, Least, Most) : Standard;
    job.Path = frmMain.lblPath.Text;
    job.Name = FileNameOf(job.Path);
    const DateTime now = ThePlatform->Now();
    char date[40];
    std::snprintf(date, sizeof date, "%04d-%02d-%02d", now.Year, now.Month, now.Day);
    job.Date = date;
    job.PageText = Tr("Page %1 of %2");
    return job;
}

std::string ListingText()
{
    Shared.PrintMode = true;
    std::string text = GenerateAll();
    Shared.PrintMode = false;
    return text;
}

PrintJob ListingJob()
{
    PrintJob job = NewPrintJob();
    job.Header = ListingHeader();
    job.Items = {{FileNameOf(Shared.DialogFile)}, {Shared.DialogFile}, {""}};
    job.Items.push_back({ListingText(), std::nullopt, true});
    return job;
}

void ReportPrinting(const PrintOutcome& outcome, std::string_view procedure)
{
    if (outcome.Is != PrintOutcome::Kind::Failed) return;
    NoteFailure(Failures::PrinterError, procedure);
    ShowMessage(Tr("Printing failed: %1", {Tr(outcome.Reason)}), "", Icon::Exclamation);
}
