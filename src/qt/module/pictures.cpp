// pictures.cpp: what the console program loads when a picture or a PDF file is asked for.

#include "qt/paper.h"
#include "qt/picture_writer.h"

#include <QGuiApplication>

namespace {

void BeginPainting()
{
    // Painting without a display: no window is opened, and there is nobody to hear the toolkit's remarks.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static int count = 1;
    static char name[] = "brixley-cli";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(count, arguments);
}

} // namespace

extern "C" __attribute__((visibility("default"))) std::string
BrixleyPaintPicture(const PictureRequest& request)
{
    BeginPainting();
    return PaintPicture(request);
}

extern "C" __attribute__((visibility("default"))) std::string BrixleyPrintPdf(const PrintJob& job)
{
    BeginPainting();
    return PrintPdf(job);
}
