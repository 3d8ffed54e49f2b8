// window_start.cpp: opens a window and ends when it has been painted for the first time: the desktop
// program's, or the smallest that the toolkit makes, with one word in it. bench/start_time measures both.
// Usage: window_start program|minimal

#include "commands/session.h"
#include "qt/main_frame.h"
#include "ui/tick.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

#include <cstdlib>
#include <string_view>

namespace {

/// Ends the process behind the first painting of a window.
class EndWhenPainted : public QObject
{
public:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() != QEvent::UpdateRequest) return false;
        receiver->event(event);
        std::_Exit(0);
    }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    EndWhenPainted end;
    if (argc > 1 && std::string_view(argv[1]) == "program") {
        Desktop desktop;
        ResetState();
        MainFrame window(desktop);
        FindFrame find(desktop, &window);
        window.TakeScreen();
        desktop.Run([] { StartProgram(std::nullopt); });
        desktop.Run(tmr1sec_Timer);
        window.installEventFilter(&end);
        window.Open();
        return QApplication::exec();
    }
    QMainWindow window;
    window.setCentralWidget(new QLabel("Text", &window));
    window.resize(1000, 667);
    window.installEventFilter(&end);
    window.show();
    return QApplication::exec();
}
