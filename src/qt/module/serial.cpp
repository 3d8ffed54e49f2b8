// serial.cpp: what the console program loads when a port is asked for.

#include "platform/port_session.h"
#include "qt/serial_port.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// Signals become events by a pipe: a handler may do no more than write to it.
int SignalPipe[2] = {-1, -1};

void PassOn(int)
{
    const char mark = 0;
    [[maybe_unused]] const ssize_t written = ::write(SignalPipe[1], &mark, 1);
}

class Session : public PortSession
{
public:
    explicit Session(const std::string& device) : Serial(device)
    {
        Timer.setSingleShot(true);
        QObject::connect(&Timer, &QTimer::timeout, &Application, [this] { Waiting(); });
        if (::pipe2(SignalPipe, O_NONBLOCK | O_CLOEXEC) != 0) return;
        auto* const notifier = new QSocketNotifier(SignalPipe[0], QSocketNotifier::Read, &Application);
        QObject::connect(notifier, &QSocketNotifier::activated, &Application, [this] {
            char mark;
            while (::read(SignalPipe[0], &mark, 1) > 0) continue;
            if (OnInterrupt) OnInterrupt();
        });
        for (const int number : {SIGINT, SIGTERM, SIGHUP}) std::signal(number, PassOn);
    }
    ~Session() override
    {
        for (const int number : {SIGINT, SIGTERM, SIGHUP}) std::signal(number, SIG_DFL);
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
};

} // namespace

extern "C" __attribute__((visibility("default"))) PortSession* BrixleyPortSession(const std::string& device)
{
    // There is nobody to hear the toolkit's remarks: what fails is told by the program.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return new Session(device);
}
