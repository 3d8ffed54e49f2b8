#include "cli/print_command.h"

#include "cli/module.h"
#include "commands/printing.h"
#include "core/numbers.h"
#include "core/text.h"
#include "drawing/picture_file.h"
#include "drawing/printing.h"
#include "platform/files.h"

#include <ctime>

namespace {

/// Each copy is a file.
class PdfFiles : public Printer
{
public:
    PdfFiles(std::string target, int copies, PrintPdfRoutine* paint)
        : Target(std::move(target)), Count(copies), Paint(paint)
    {
    }

    /// Set for a drawing, whose command knows no copies.
    int CopyOfDrawing = 0;

    std::vector<std::string> Fonts() override { return {}; }
    bool Choose(const PrintJob*) override { return true; }
    int Copies() override { return Count; }
    PageSize Page(Orientation orientation) override
    {
        const double across = A4.Width - 2 * PaperMargin, down = A4.Height - 2 * PaperMargin;
        return orientation == Orientation::Portrait ? PageSize{across, down} : PageSize{down, across};
    }
    PrintOutcome Print(const PrintJob& job, int copy) override
    {
        const std::string name = NameOfCopy(Target, std::max(copy, CopyOfDrawing));
        const std::string bytes = Paint(job);
        if (bytes.empty()) return {PrintOutcome::Kind::Failed, "the pages could not be made"};
        if (const auto failure = ReplaceFile(name, bytes))
            return {PrintOutcome::Kind::Failed, failure->Reason};
        return {};
    }

private:
    const std::string Target;
    const int Count;
    PrintPdfRoutine* const Paint;
};

DateTime LocalTime()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

/// The printer of the commands while they print.
class InPlaceOfPrinter
{
public:
    explicit InPlaceOfPrinter(Printer& printer) { ThePrinter = &printer; }
    ~InPlaceOfPrinter() { ThePrinter = &Console.Printer; }
    InPlaceOfPrinter(const InPlaceOfPrinter&) = delete;
    InPlaceOfPrinter& operator=(const InPlaceOfPrinter&) = delete;
};

} // namespace

Outcome PrintFile(const LoadOptions& load, const PrintOptions& options, const std::string& file,
                  const std::string& target)
{
    PictureFormat format{};
    if (!FormatOfFile(target, format) || format != PictureFormat::Pdf)
        return Failed(target + ": the name of a printed file must end in .pdf");
    if (options.Drawing) {
        if (const Outcome opened = OpenDrawing(load, options.Draw, file); opened.Status != StatusDone)
            return opened;
    } else {
        if (const auto why = OpenLines(load, file)) return Failed(*why);
    }
    std::string why;
    PrintPdfRoutine* const paint = LoadPdfPrinter(why);
    if (paint == nullptr) return Failed(why);

    Console.Clock = LocalTime(); // the date stands on the paper
    Shared.FontName = options.FontName;
    Shared.FontSize = PlainNumber(options.FontSize);
    Console.Boxes.clear();
    PdfFiles printer(target, options.Copies, paint);
    const InPlaceOfPrinter meanwhile(printer);
    if (options.Drawing) {
        for (int copy = 1; copy <= options.Copies; ++copy) {
            printer.CopyOfDrawing = copy;
            cmdPrint_Click();
        }
    } else {
        PrintDirect();
    }
    if (const std::string refusal = LastRefusal(); !refusal.empty()) return Failed(target + ": " + refusal);
    return {};
}
