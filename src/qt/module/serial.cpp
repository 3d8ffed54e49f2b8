// serial.cpp: what the console program loads when a port is asked for.

#include "platform/port_session.h"
#include "qt/end_signals.h"
#include "qt/serial_port.h"

#include <QCoreApplication>

namespace {

class Session : public PortSession
{
public:
    explicit Session(const std::string& device) : Serial(device)
    {
        Timer.setSingleShot(true);
        QObject::connect(&Timer, &QTimer::timeout, &Application, [this] { Waiting(); });
    }

    Port& ThisPort() override { return Serial; }
    void CallAfter(double seconds, std::function<void()> routine) override
    {
        Waiting = std::move(routine);
        Timer.start(static_cast<int>(seconds * 1000));
    }
    void Run() override { QCoreApplication::exec(); }
    void Quit() override { QCoreApplication::quit(); }

private:
    int Count = 1;
    char ProgramName[12] = "brixley-cli";
    char* Arguments[2] = {ProgramName, nullptr};
    QCoreApplication Application{Count, Arguments};
    SerialPort Serial;
    QTimer Timer;
    std::function<void()> Waiting;
    EndSignals Signals{[this] {
        if (OnInterrupt) OnInterrupt();
    }};
};

} // namespace

extern "C" __attribute__((visibility("default"))) PortSession* BrixleyPortSession(const std::string& device)
{
    // There is nobody to hear the toolkit's remarks: what fails is told by the program.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return new Session(device);
}
