#include "qt/printer.h"

#include "core/app_data.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "qt/paper.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPageLayout>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

QPageLayout::Orientation Turned(Orientation orientation)
{
    return orientation == Orientation::Landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

/// The preview paints on an engine of its own; the job itself is printed when the dialog has closed.
bool IsPreview(const QPrinter& device)
{
    return device.paintEngine() != nullptr && device.paintEngine()->type() == QPaintEngine::Picture;
}

bool ShowPreview(QPrinter& device, const PrintJob& job)
{
    QPrintPreviewDialog dialog(&device, QApplication::activeWindow());
    dialog.setObjectName("printPreview");
    const QString command = QString::fromStdString(frmMain.mnuPrint.Text).remove('&');
    dialog.setWindowTitle(
        job.Name.empty() ? command : QString::fromStdString(Tr("%1: %2", {command.toStdString(), job.Name})));
    dialog.resize(900, 760);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&job](QPrinter* on) {
        if (IsPreview(*on)) PaintJob(job, *on);
    });
    return dialog.exec() == QDialog::Accepted;
}

bool AskForPrinter(QPrinter& device)
{
    QPrintDialog dialog(&device, QApplication::activeWindow());
    dialog.setObjectName("printDialog");
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace

QtPrinter::QtPrinter() = default;
QtPrinter::~QtPrinter() = default;

QPrinter& QtPrinter::Device()
{
    if (Chosen) return *Chosen;
    constexpr double Margin = PaperMargin / 100;
    Chosen = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (MakesFiles()) Chosen->setPageSize(QPageSize(QPageSize::A4));
    Chosen->setPageMargins(QMarginsF(Margin, Margin, Margin, Margin), QPageLayout::Millimeter);
    Chosen->setCreator(ProductName);
    PrinterName = Chosen->printerName();
    return *Chosen;
}

std::vector<std::string> QtPrinter::Fonts()
{
    std::vector<std::string> names;
    for (const QString& family : QFontDatabase::families()) names.push_back(family.toStdString());
    return names;
}

std::string QtPrinter::TypewriterFont()
{
    return QFontInfo(FontOfName("")).family().toStdString();
}

bool QtPrinter::MakesFiles()
{
    return Device().outputFormat() == QPrinter::PdfFormat;
}

void QtPrinter::ReturnToPrinter()
{
    if (!MakesFiles() || PrinterName.isEmpty() || QPrinterInfo::printerInfo(PrinterName).isNull()) return;
    Device().setOutputFileName(QString());
    Device().setOutputFormat(QPrinter::NativeFormat);
    Device().setPrinterName(PrinterName);
}

void QtPrinter::TakeChoice()
{
    QPrinter& device = Device();
    ChosenCopies = std::max(1, device.copyCount());
    NamedFile = MakesFiles() ? device.outputFileName().toStdString() : "";
    if (!MakesFiles()) PrinterName = device.printerName();
}

bool QtPrinter::Choose(const PrintJob* preview)
{
    if (Shared.Ended) return false;
    if (BeforeDialog) BeforeDialog();
    ReturnToPrinter();
    QPrinter& device = Device();
    device.setCopyCount(ChosenCopies);
    if (preview != nullptr) device.setDocName(QString::fromStdString(preview->Name));
    const bool chosen = preview != nullptr ? ShowPreview(device, *preview) : AskForPrinter(device);
    if (chosen) TakeChoice();
    device.setCopyCount(1); // each copy is a job of its own
    return chosen;
}

PageSize QtPrinter::Page(Orientation orientation)
{
    QPageLayout layout = Device().pageLayout();
    layout.setOrientation(Turned(orientation));
    return PrintablePage(layout);
}

PrintOutcome QtPrinter::Print(const PrintJob& job, int copy)
{
    QPrinter& device = Device();
    const QPageLayout::Orientation before = device.pageLayout().orientation();
    if (job.Orientation) device.setPageOrientation(Turned(*job.Orientation));
    const PrintOutcome outcome = MakesFiles() ? PrintFile(job, copy) : PrintOnPaper(job);
    device.setPageOrientation(before);
    return outcome;
}

namespace {

/// Asks where a job's file goes; "" when that was given up.
std::string AskForPdf(const PrintJob& job)
{
    const std::string name = job.Name.empty() ? "program" : job.Name.substr(0, job.Name.rfind('.'));
    FileDialog dialog{FileDialog::Purpose::Save, name + ".pdf", Tr("PDF document") + "|*.pdf|",
                      job.Path.substr(0, job.Path.rfind('/') + 1)};
    dialog.AsksBeforeReplacing = true;
    return ThePlatform->AskForFile(dialog).value_or("");
}

} // namespace

PrintOutcome QtPrinter::PrintFile(const PrintJob& job, int copy)
{
    if (copy == 1) {
        FirstFile = std::exchange(NamedFile, "");
        if (FirstFile.empty()) FirstFile = AskForPdf(job);
    }
    if (FirstFile.empty()) return {PrintOutcome::Kind::GivenUp};
    const std::string bytes = PdfOf(job, Device().pageLayout());
    if (bytes.empty()) return {PrintOutcome::Kind::Failed, "the pages could not be made"};
    if (const auto failure = ReplaceFile(NameOfCopy(FirstFile, copy), bytes))
        return {PrintOutcome::Kind::Failed, failure->Reason};
    return {};
}

PrintOutcome QtPrinter::PrintOnPaper(const PrintJob& job)
{
    QPrinter& device = Device();
    if (QPrinterInfo::printerInfo(device.printerName()).isNull())
        return {PrintOutcome::Kind::Failed, "the printer is no longer there"};
    device.setDocName(job.Name.empty() ? ProductName : QString::fromStdString(job.Name));
    if (!PaintJob(job, device) || device.printerState() == QPrinter::Error)
        return {PrintOutcome::Kind::Failed, "the printer accepts no pages"};
    return {};
}
