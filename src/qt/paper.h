// paper.h: jobs of the printer painted on pages, be they paper, a preview or a PDF file.

#pragma once

#include "platform/printer.h"

#include <QFont>

class QPageLayout;
class QPagedPaintDevice;

/// The typeface of a name; "" or one that isn't installed gives a typewriter's face.
QFont FontOfName(const std::string& name);

/// What can be printed on, within the margins, in 1/100 mm.
PageSize PrintablePage(const QPageLayout& layout);

/// Paints a job, whose orientation the device has already. False when the device can't be painted on.
bool PaintJob(const PrintJob& job, QPagedPaintDevice& device);

/// The bytes of a PDF file of a job, on paper of a layout; "" when it can't be made.
std::string PdfOf(const PrintJob& job, const QPageLayout& layout);

/// The same on A4.
PrintPdfRoutine PrintPdf;
