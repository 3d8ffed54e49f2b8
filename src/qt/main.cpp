// The desktop program: brixley [FILE]

#include "commands/load.h"
#include "commands/session.h"
#include "core/app_data.h"
#include "drawing/drawing_state.h"
#include "qt/draw_frame.h"
#include "qt/main_frame.h"
#include "qt/picture_writer.h"
#include "ui/tick.h"

#include <QApplication>
#include <QFileInfo>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("brixley");
    QApplication::setApplicationVersion(ProductVersion);

    Desktop desktop;
    ResetState();
    MainFrame window(desktop);
    FindFrame find(desktop, &window);
    DrawFrame drawing(desktop);
    ProgramFrame lines(desktop, &drawing);
    ThePicturePainter = PaintPicture;
    Drawing.YieldAfter = 50; // long walks stay abortable
    desktop.Run([] { StartNew(MachineKind::MK4, true, false); });
    desktop.Run(tmr1sec_Timer); // what is enabled at first
    window.Open();

    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1) {
        const std::string file = QFileInfo(arguments[1]).absoluteFilePath().toStdString();
        desktop.Run([&] { LoadFile(file); });
    }
    desktop.StartTick();
    return QApplication::exec();
}
