// printer.h: the printers of the system, and PDF files, which can be had always.

#pragma once

#include "platform/printer.h"

#include <QString>

#include <functional>
#include <memory>

class QPrinter;

class QtPrinter : public Printer
{
public:
    QtPrinter();
    ~QtPrinter() override;

    /// Runs before a dialog is shown, so that the window behind it shows what it is about.
    std::function<void()> BeforeDialog;

    std::vector<std::string> Fonts() override;
    std::string TypewriterFont() override;
    bool Choose(const PrintJob* preview) override;
    int Copies() override { return ChosenCopies; }
    PageSize Page(Orientation orientation) override;
    PrintOutcome Print(const PrintJob& job, int copy) override;

    /// Whether jobs become files: there is no printer, or the user has chosen so.
    bool MakesFiles();

private:
    /// Made when it is first used: asking the system for its printers takes time.
    QPrinter& Device();
    /// Back to the printer that was chosen last, from files.
    void ReturnToPrinter();
    void TakeChoice();
    PrintOutcome PrintFile(const PrintJob& job, int copy);
    PrintOutcome PrintOnPaper(const PrintJob& job);

    std::unique_ptr<QPrinter> Chosen;
    QString PrinterName;
    int ChosenCopies = 1;
    /// The file that the dialog named for the next job, and that of the job's first copy.
    std::string NamedFile, FirstFile;
};
