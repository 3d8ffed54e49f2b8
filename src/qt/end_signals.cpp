#include "qt/end_signals.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int Signals[] = {SIGINT, SIGTERM, SIGHUP};

/// A handler may do no more than write to a pipe, whose other end is an event. It stays open when the signals
/// are given back: one that is under way finds it.
int SignalPipe[2] = {-1, -1};

void PassOn(int)
{
    const char mark = 0;
    [[maybe_unused]] const ssize_t written = ::write(SignalPipe[1], &mark, 1);
}

/// A signal that is ignored, as under nohup, stays so.
void Handle(void (*routine)(int))
{
    for (const int number : Signals) {
        if (std::signal(number, routine) == SIG_IGN) std::signal(number, SIG_IGN);
    }
}

} // namespace

EndSignals::EndSignals(std::function<void()> onSignal)
{
    if (SignalPipe[0] < 0 && ::pipe2(SignalPipe, O_NONBLOCK | O_CLOEXEC) != 0) return;
    Notifier = std::make_unique<QSocketNotifier>(SignalPipe[0], QSocketNotifier::Read);
    QObject::connect(Notifier.get(), &QSocketNotifier::activated, [routine = std::move(onSignal)] {
        char mark;
        while (::read(SignalPipe[0], &mark, 1) > 0) continue;
        routine();
    });
    Handle(PassOn);
}

EndSignals::~EndSignals()
{
    Handle(SIG_DFL);
}
