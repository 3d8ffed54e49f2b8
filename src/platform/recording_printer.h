// recording_printer.h: a printer without paper, for the console's scripts and the tests. It keeps its jobs.

#pragma once

#include "platform/printer.h"

#include <deque>
#include <functional>

class RecordingPrinter : public Printer
{
public:
    /// Copies for coming dialogs; 0 cancels one, and one without an answer gives 1.
    std::deque<int> Answers;
    std::vector<PrintJob> Jobs;
    /// What each further job fails with; "" for none that fails.
    std::string Fault;
    /// Called with each dialog's answer.
    std::function<void(int copies)> OnDialog;

    std::vector<std::string> Fonts() override { return {"Courier New", "DejaVu Sans", "Liberation Mono"}; }
    bool Choose(const PrintJob* preview) override;
    int Copies() override { return Chosen; }
    /// A4 less margins of 10 mm.
    PageSize Page(Orientation orientation) override;
    PrintOutcome Print(const PrintJob& job, int copy) override;

private:
    int Chosen = 1;
};
