// The desktop program: brixley [FILE]
//
// Help and version are printed on the console, also where there is no display.

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
#include <QCommandLineParser>
#include <QFileInfo>
#include <QTimer>

#include <cstdlib>
#include <optional>
#include <string>

namespace {

constexpr const char* What =
    "Writes, checks, draws and transfers part programs for small Emco training machines.";

/// Ends the program when help or version was asked for.
void AnswerOnConsole(QCommandLineParser& parser, int argc, char** argv)
{
    parser.setApplicationDescription(What);
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions); // as the toolkit's own
    const QCommandLineOption help = parser.addHelpOption(), version = parser.addVersionOption();
    parser.addPositionalArgument("FILE", "The program to open; without it, the one that was open last.",
                                 "[FILE]");
    parser.parse({argv, argv + argc});
    if (!parser.isSet(help) && !parser.isSet(version)) return;
    const QCoreApplication console(argc, argv);
    if (parser.isSet(version)) parser.showVersion();
    parser.showHelp();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication::setApplicationName("brixley");
    QApplication::setApplicationVersion(ProductVersion);
    QCommandLineParser parser;
    AnswerOnConsole(parser, argc, argv);
    const QApplication application(argc, argv);
    parser.process(application);
    QApplication::setDesktopFileName("org.brixley.Brixley"); // a desktop shows that entry's icon

    std::optional<std::string> file;
    const QStringList named = parser.positionalArguments();
    if (!named.isEmpty()) file = QFileInfo(named.first()).absoluteFilePath().toStdString();
    if (file && !QFileInfo::exists(named.first()))
        qWarning("brixley: %s: the file does not exist", qUtf8Printable(named.first()));

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
    // The toolkit ends the program itself when the display is gone.
    std::atexit([] {
        if (!Shared.Ended) KeepUnsaved();
    });
    const EndSignals ends([&desktop] { desktop.End(); }); // the settings are loaded, so they can be saved
    QTimer::singleShot(0, &desktop, [&desktop] { desktop.RunLater(OfferKeptProgram); });
    return QApplication::exec();
}
