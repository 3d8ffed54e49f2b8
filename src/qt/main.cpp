// The desktop program: brixley [FILE]

#include "commands/load.h"
#include "commands/session.h"
#include "core/app_data.h"
#include "qt/main_frame.h"
#include "qt/serial_port.h"
#include "serial/receive.h"

#include <QApplication>
#include <QFileInfo>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("brixley");
    QApplication::setApplicationDisplayName(ProductName);
    QApplication::setApplicationVersion(ProductVersion);

    Desktop desktop;
    SerialPort port;
    ThePort = &port;
    ResetState();
    port.OnEvent = [&desktop](PortEvent event) { desktop.RunLater([event] { MSComm1_OnComm(event); }); };
    MainFrame window(desktop);
    FindFrame find(desktop, &window);
    desktop.Run([] { StartNew(MachineKind::MK4, true, false); });
    window.Open();

    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1) {
        const std::string file = QFileInfo(arguments[1]).absoluteFilePath().toStdString();
        desktop.Run([&] { LoadFile(file); });
    }
    desktop.StartTick();
    return QApplication::exec();
}
