#include "platform/port.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>

namespace {

constexpr std::string_view Bauds[] = {"110", "300", "600", "1200", "2400", "4800", "9600"};
constexpr std::string_view Parities[] = {"N", "E", "O"};
constexpr std::string_view DataBits[] = {"7", "8"};
constexpr std::string_view StopBits[] = {"1", "2"};

/// Takes the next part of the text, up to a comma; "" when it is none of the values.
template <size_t N> std::string_view NextOf(const std::string_view (&values)[N], std::string_view& text)
{
    const std::string_view part = text.substr(0, text.find(','));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    return std::find(std::begin(values), std::end(values), part) == std::end(values) ? "" : part;
}

} // namespace

double LineParameters::CharacterTime() const
{
    const int bits = 1 + DataBits + (Parity == 'N' ? 0 : 1) + StopBits;
    return static_cast<double>(bits) / Baud;
}

std::optional<LineParameters> ReadLineParameters(std::string_view text)
{
    if (std::count(text.begin(), text.end(), ',') != 3) return std::nullopt;
    const std::string_view baud = NextOf(Bauds, text), parity = NextOf(Parities, text),
                           dataBits = NextOf(DataBits, text), stopBits = NextOf(StopBits, text);
    if (baud.empty() || parity.empty() || dataBits.empty() || stopBits.empty()) return std::nullopt;
    return LineParameters{std::stoi(std::string(baud)), parity[0], dataBits[0] - '0', stopBits[0] - '0'};
}

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
