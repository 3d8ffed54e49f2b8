// end_signals.h: the signals by which the system or the user asks a program to end, as events.

#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

/// While it lives SIGINT, SIGTERM and SIGHUP run a routine from the event loop instead of ending the program.
/// One at a time.
class EndSignals
{
public:
    explicit EndSignals(std::function<void()> onSignal);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    std::unique_ptr<QSocketNotifier> Notifier;
};
