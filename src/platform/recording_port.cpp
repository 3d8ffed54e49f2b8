#include "platform/recording_port.h"

#include "platform/failure_numbers.h"

#include <algorithm>
#include <utility>

namespace {

RecordingPort FirstPort;

constexpr int AlreadyOpen = Failures::PortAlreadyOpen, NotOpen = Failures::PortNotOpen;

} // namespace

Port* ThePort = &FirstPort;

void RecordingPort::Receive(std::string_view bytes)
{
    if (!Opened || bytes.empty()) return;
    Input += bytes;
    Raise(PortEvent::Received);
}

void RecordingPort::Leave()
{
    if (std::exchange(Waiting, 0) > 0) Raise(PortEvent::Sent);
}

void RecordingPort::Unplug()
{
    Unplugged = true;
    if (!Opened) return;
    Opened = false;
    Waiting = 0;
    Last = {NotOpen, PortReasons::Gone, {"ttyUSB" + std::to_string(Number - 1)}};
    Raise(PortEvent::Failed);
}

std::vector<std::string> RecordingPort::Devices()
{
    std::vector<std::string> devices;
    for (int i = 0; i < std::min(Count, MaxPorts); ++i) {
        if (!Unplugged || i + 1 != Number) devices.push_back("ttyUSB" + std::to_string(i));
    }
    return devices;
}

std::optional<PortFailure> RecordingPort::Open()
{
    if (const auto failure = Fault()) return failure;
    if (Opened) return PortFailure{AlreadyOpen};
    if (Unplugged || Number > Count) return PortFailure{NotOpen, PortReasons::None};
    Opened = true;
    return std::nullopt;
}

void RecordingPort::Close()
{
    Opened = false;
    Waiting = 0;
    Input.clear();
}

std::optional<PortFailure> RecordingPort::SetLine(const std::string& parameters)
{
    if (const auto failure = Fault()) return failure;
    Line = parameters;
    return std::nullopt;
}

std::optional<PortFailure> RecordingPort::Write(std::string_view bytes)
{
    if (const auto failure = Fault()) return failure;
    if (!Opened) return PortFailure{NotOpen};
    Sent += bytes;
    Waiting += bytes.size();
    return std::nullopt;
}

std::optional<PortFailure> RecordingPort::Read(std::string& bytes)
{
    const auto failure = Fault();
    if (!failure && !Opened && Input.empty()) return PortFailure{NotOpen};
    bytes += std::exchange(Input, {}); // what came before the failure is not lost
    return failure;
}

std::optional<PortFailure> RecordingPort::Fault()
{
    const int number = std::exchange(NextFailure, 0);
    if (number == 0) return std::nullopt;
    return PortFailure{number};
}

void RecordingPort::Raise(PortEvent event)
{
    if (OnEvent) OnEvent(event);
}
