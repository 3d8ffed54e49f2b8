// port.h: what the program asks of the serial port.
//
// One port is open at a time. Nothing here waits: a write takes the bytes into the port's buffer, from where
// they leave at the pace of the line, and the port tells by events when it has room, when characters came in,
// and when its device is gone. recording_port.h is the one that is no port at all; a front end gives a real
// one.

#pragma once

#include "platform/line_parameters.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The most ports that can be chosen from.
constexpr int MaxPorts = 4;

/// Why the port failed. Number is a run-time failure number: 8005 another program is using it, 8018 it isn't
/// open or can't be, 70 no permission.
struct PortFailure {
    int Number = 0;
    /// One of PortReasons, or "" when nothing more is known.
    std::string_view Reason = {};
    /// What stands in the places %1 and %2 of Reason.
    std::string Names[2] = {};
    /// The port is fine, but doesn't take these line parameters.
    bool Refused = false;
};

/// What the user can do about a port, in English: whoever shows one of them translates it.
namespace PortReasons {
inline constexpr std::string_view None = "There is no serial port";
/// %1: the device, or the group that may use it.
inline constexpr std::string_view Gone = "%1 is gone: check the cable or the adapter";
inline constexpr std::string_view Held = "%1 is used by another program";
inline constexpr std::string_view Forbidden = "no permission: add yourself to the group %1";
inline constexpr std::string_view Refused = "%1 does not accept these settings";
/// %2: why, NoSuchPort or the system's words.
inline constexpr std::string_view NotOpened = "%1 cannot be opened: %2";
inline constexpr std::string_view NoSuchPort = "there is no such port";
} // namespace PortReasons

/// Puts the devices of serial ports into the order in which they are numbered: adapters at the USB by their
/// number, then all others; at most MaxPorts are left.
void OrderPorts(std::vector<std::string>& devices);

enum class PortEvent {
    Sent = 1,     ///< what was written has nearly left, or has left
    Received = 2, ///< characters came in
    Failed = 3    ///< the device is gone; the port has closed itself
};

class Port
{
public:
    virtual ~Port() = default;

    /// Called at each event, never from inside of a call to the port by the program.
    std::function<void(PortEvent)> OnEvent;

    /// The devices of port 1, 2 and so on, as the system calls them: read anew each time, without opening
    /// any, at most MaxPorts.
    virtual std::vector<std::string> Devices() = 0;

    /// Chooses the port of a number from 1, to be opened next.
    virtual void Select(int number) = 0;
    /// Opens the chosen port; 8005 when one is open already.
    virtual std::optional<PortFailure> Open() = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;

    /// Sets the line parameters: of the open port at once, else of the next that is opened.
    virtual std::optional<PortFailure> SetLine(const std::string& parameters) = 0;

    /// Takes bytes into the buffer, all of them in order.
    virtual std::optional<PortFailure> Write(std::string_view bytes) = 0;
    /// Whether what was written has nearly left, so that more can follow without a gap on the line.
    virtual bool HasRoom() const = 0;
    /// Whether its last character has left.
    virtual bool IsEmpty() const = 0;

    /// Puts all characters that came in behind `bytes`; also those that came before the port failed.
    virtual std::optional<PortFailure> Read(std::string& bytes) = 0;

    /// What the last PortEvent::Failed was about.
    virtual PortFailure LastFailure() const = 0;
};

/// The port in use. Never null: until a front end sets its own, it is a recording one.
extern Port* ThePort;

/// When what was handed to a port has left it, by the line parameters: the system only tells when it has
/// taken the bytes, not when they have gone.
class LinePace
{
public:
    using Clock = std::chrono::steady_clock;

    void SetLine(const LineParameters& line) { Line = line; }
    /// Bytes were handed over: they leave behind those before.
    void Add(size_t bytes, Clock::time_point now);
    /// Nothing is under way any more.
    void Reset() { EmptyAt = {}; }

    /// When more can follow without a gap: a little earlier than EmptyAt, so that a late wake-up costs
    /// nothing.
    Clock::time_point RoomAt() const { return EmptyAt - Lead(); }
    /// When the last character has left.
    Clock::time_point WhenEmpty() const { return EmptyAt; }
    /// What the line sends from RoomAt to EmptyAt, in bytes, rounded up.
    size_t LeadBytes() const;

private:
    Clock::duration Lead() const;

    LineParameters Line;
    Clock::time_point EmptyAt{};
};
