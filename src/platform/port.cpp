#include "platform/port.h"

#include <algorithm>
#include <cmath>
#include <tuple>

void OrderPorts(std::vector<std::string>& devices)
{
    // Adapters first, then by name, and within one by the number behind it: ttyUSB2 before ttyUSB10.
    const auto place = [](const std::string& device) {
        const size_t name = device.find_last_not_of("0123456789") + 1;
        const bool usb = device.starts_with("ttyUSB") || device.starts_with("ttyACM");
        const std::string number = device.substr(name);
        return std::tuple(!usb, device.substr(0, name), number.size(), number);
    };
    std::sort(devices.begin(), devices.end(),
              [&](const std::string& a, const std::string& b) { return place(a) < place(b); });
    if (devices.size() > MaxPorts) devices.resize(MaxPorts);
}

void LinePace::Add(size_t bytes, Clock::time_point now)
{
    const std::chrono::duration<double> time(static_cast<double>(bytes) * Line.CharacterTime());
    EmptyAt = std::max(EmptyAt, now) + std::chrono::ceil<Clock::duration>(time);
}

LinePace::Clock::duration LinePace::Lead() const
{
    // A character at least; and what a busy machine may take to wake the program, in seconds.
    constexpr double WakeUp = 0.03;
    const std::chrono::duration<double> lead(std::max(WakeUp, Line.CharacterTime()));
    return std::chrono::duration_cast<Clock::duration>(lead);
}

size_t LinePace::LeadBytes() const
{
    const double lead = std::chrono::duration<double>(Lead()).count();
    return static_cast<size_t>(std::ceil(lead / Line.CharacterTime()));
}
