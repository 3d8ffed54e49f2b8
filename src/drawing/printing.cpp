#include "drawing/printing.h"

#include "core/draw_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "drawing/drawing_state.h"
#include "drawing/walk.h"
#include "files/print_job.h"
#include "platform/platform.h"
#include "ui/choice.h"

#include <cmath>
#include <utility>

namespace {

/// A length of the canvas on paper at its own size, in 1/100 mm.
double OnPaper(int twips)
{
    constexpr double TwipsPerInch = 1440, PerInch = 2540;
    return std::round(twips * PerInch / TwipsPerInch);
}

/// Walks run through while one is there.
class NoWaits
{
public:
    NoWaits() : Before(std::exchange(DrawSlot.WithoutWaits, true)) {}
    ~NoWaits() { DrawSlot.WithoutWaits = Before; }
    NoWaits(const NoWaits&) = delete;
    NoWaits& operator=(const NoWaits&) = delete;

private:
    const bool Before;
};

} // namespace

bool PrintPictureToFitPage()
{
    PrintedImage image{&Picture.Operations(), CanvasWidth(), CanvasHeight(), Picture.Settings().Back};
    image.UnitTwips = Shared.DrawScale;
    image.LengthText = Tr(Shared.Metric ? "%1 mm" : "%1 inch");
    image.Metric = Shared.Metric;

    PrintJob job = NewPrintJob();
    job.Orientation = image.Height >= image.Width ? Orientation::Portrait : Orientation::Landscape;
    const PageSize page = ThePrinter->Page(*job.Orientation);
    image.PaperWidth = OnPaper(image.Width);
    image.PaperHeight = OnPaper(image.Height);
    if (image.PaperWidth > page.Width || image.PaperHeight > page.Height) {
        const double ratio = image.PaperWidth / image.PaperHeight;
        const bool isWide = ratio >= page.Width / page.Height;
        image.PaperWidth = std::round(isWide ? page.Width : page.Height * ratio);
        image.PaperHeight = std::round(isWide ? page.Width / ratio : page.Height);
    }
    job.Items.push_back({"", image});
    job.Items.push_back({job.Path});

    const PrintOutcome outcome = ThePrinter->Print(job, 1);
    ReportPrinting(outcome, "PrintPictureToFitPage");
    return outcome.Is == PrintOutcome::Kind::Sent;
}

void cmdPrint_Click()
{
    if (Shared.ErrorsPresent) return;
    if (lvCncProgram.RowCount() == 0) {
        ShowMessage(TextOf(Messages::NoLines));
        return;
    }
    const NoWaits throughout;
    if (frmDraw.chkPrintableBackground.Value == 1) {
        // The box was marked, and nothing was drawn since.
        if (Picture.Settings().Back != Colors::White) Redraw();
        PrintPictureToFitPage();
        return;
    }
    SetCheck(frmDraw.chkPrintableBackground, true);
    Redraw();
    PrintPictureToFitPage();
    SetCheck(frmDraw.chkPrintableBackground, false);
    Redraw();
}
