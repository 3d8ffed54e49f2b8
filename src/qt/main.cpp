// The desktop program: brixley [FILE]

#include "commands/exit.h"
#include "commands/session.h"
#include "commands/settings.h"
#include "core/app_data.h"
#include "drawing/drawing_state.h"
#include "qt/draw_frame.h"
#include "qt/end_signals.h"
#include "qt/main_frame.h"
#include "qt/picture_writer.h"
#include "qt/printer.h"
#include "qt/serial_port.h"
#include "serial/receive.h"
#include "ui/tick.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

#include <optional>
#include <string>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("brixley");
    QApplication::setApplicationVersion(ProductVersion);
    QApplication::setDesktopFileName("org.brixley.Brixley"); // a desktop shows that entry's icon

    std::optional<std::string> file;
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1) file = QFileInfo(arguments[1]).absoluteFilePath().toStdString();

    Desktop desktop;
    SerialPort port;
    ThePort = &port;
    ResetState();
    port.OnEvent = [&desktop](PortEvent event) { desktop.RunLater([event] { MSComm1_OnComm(event); }); };
    MainFrame window(desktop);
    FindFrame find(desktop, &window);
    DrawFrame drawing(desktop);
    QtPrinter printer;
    printer.BeforeDialog = [&desktop] { desktop.ShowBehindBox(); };
    ThePrinter = &printer;
    ProgramFrame lines(desktop, &drawing);
    ThePicturePainter = PaintPicture;
    Drawing.YieldAfter = 50; // long walks stay abortable
    window.TakeScreen();
    desktop.Run([&] {
        InstallDefaults();
        StartProgram(file);
    });
    if (Shared.Ended) return 1;
    desktop.Run(tmr1sec_Timer); // what is enabled at first
    window.Open();
    desktop.StartTick();
    const EndSignals ends([&desktop] { desktop.End(); }); // the settings are loaded, so they can be saved
    QTimer::singleShot(0, &desktop, [&desktop] { desktop.Run(OfferKeptProgram); });
    return QApplication::exec();
}
