#include "platform/line_parameters.h"

#include <algorithm>

namespace {

/// Takes the next part of the text, up to a comma; "" when it is none of the values.
template <size_t N> std::string_view NextOf(const LineChoice<N>& choice, std::string_view& text)
{
    const std::string_view part = text.substr(0, text.find(','));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    const auto& values = choice.Values;
    return std::find(values.begin(), values.end(), part) == values.end() ? "" : part;
}

} // namespace

std::string StandardLine()
{
    return std::string(BaudRates.StandardValue()) + "," + Parities.StandardValue() + "," +
           DataBitCounts.StandardValue() + "," + StopBitCounts.StandardValue();
}

double LineParameters::CharacterTime() const
{
    const int bits = 1 + DataBits + (Parity == 'N' ? 0 : 1) + StopBits;
    return static_cast<double>(bits) / Baud;
}

std::optional<LineParameters> ReadLineParameters(std::string_view text)
{
    if (std::count(text.begin(), text.end(), ',') != 3) return std::nullopt;
    const std::string_view baud = NextOf(BaudRates, text), parity = NextOf(Parities, text),
                           dataBits = NextOf(DataBitCounts, text), stopBits = NextOf(StopBitCounts, text);
    if (baud.empty() || parity.empty() || dataBits.empty() || stopBits.empty()) return std::nullopt;
    return LineParameters{std::stoi(std::string(baud)), parity[0], dataBits[0] - '0', stopBits[0] - '0'};
}
