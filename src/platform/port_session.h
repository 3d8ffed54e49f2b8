// port_session.h: a port for a program without a window, and the event loop that it needs.
//
// The engine and the console know no toolkit. The module that the console loads when a port is wanted gives
// this one routine.

#pragma once

#include "platform/port.h"

#include <functional>
#include <string>

class PortSession
{
public:
    virtual ~PortSession() = default;

    virtual Port& ThisPort() = 0;
    /// Called when the user asks the program to end ([CTRL-C], a hang-up, a request of the system).
    std::function<void()> OnInterrupt;

    /// Calls a routine once after a time; replaces the one that waits.
    virtual void CallAfter(double seconds, std::function<void()> routine) = 0;

    /// Lets events through until Quit is called.
    virtual void Run() = 0;
    virtual void Quit() = 0;
};

/// A session with the port of a device. The caller owns it; there can be one a run of the program.
using PortSessionRoutine = PortSession*(const std::string& device);

/// The routine's name in the module.
constexpr const char* PortSessionName = "BrixleyPortSession";
