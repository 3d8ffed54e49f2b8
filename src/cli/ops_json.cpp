#include "cli/ops_json.h"

#include <cmath>
#include <cstdint>
#include <cstdio>

namespace {

using Json = nlohmann::ordered_json;

/// What stands behind an operation's name: a setting's value, or so many numbers.
struct Form {
    const char* Name;
    enum class Of { Nothing, Color, Whole, Style, Mode, Fill, Numbers } Is;
    size_t Count = 0;
};
/// In the order of Operation::Kind.
constexpr Form Forms[] = {
    {"ClearCanvas", Form::Of::Nothing}, {"SetBackColor", Form::Of::Color},
    {"SetForeColor", Form::Of::Color},  {"SetPenWidth", Form::Of::Whole},
    {"SetPenStyle", Form::Of::Style},   {"SetPenMode", Form::Of::Mode},
    {"SetFillStyle", Form::Of::Fill},   {"SetFillColor", Form::Of::Color},
    {"Pen", Form::Of::Numbers, 2},      {"DrawLine", Form::Of::Numbers, 4},
    {"LineTo", Form::Of::Numbers, 2},   {"DrawBox", Form::Of::Numbers, 2},
    {"SetPoint", Form::Of::Numbers, 2}, {"DrawCircle", Form::Of::Numbers, 3},
    {"DrawArc", Form::Of::Numbers, 5},
};
constexpr const char* Styles[] = {"solid", "dotted"};
constexpr const char* Modes[] = {"copy", "invert"};
constexpr const char* Fills[] = {"transparent", "solid", "diagonal"};

/// A number with up to 4 decimals; a whole one without any.
Json NumberAsJson(float value)
{
    const double rounded = std::round(double{value} * 1e4) / 1e4;
    constexpr double Exact = 1e15;
    if (rounded == std::floor(rounded) && std::abs(rounded) < Exact) return static_cast<int64_t>(rounded);
    return rounded;
}

} // namespace

nlohmann::ordered_json OperationAsJson(const Operation& operation)
{
    const Form& form = Forms[static_cast<size_t>(operation.Is)];
    Json json = {form.Name};
    switch (form.Is) {
    case Form::Of::Nothing: break;
    case Form::Of::Color: json.push_back(ColorText(operation.Value)); break;
    case Form::Of::Whole: json.push_back(operation.Value); break;
    case Form::Of::Style: json.push_back(Styles[operation.Value]); break;
    case Form::Of::Mode: json.push_back(Modes[operation.Value]); break;
    case Form::Of::Fill: json.push_back(Fills[operation.Value]); break;
    case Form::Of::Numbers:
        for (size_t i = 0; i < form.Count; ++i) json.push_back(NumberAsJson(operation.At[i]));
    }
    return json;
}

std::string ColorText(int color)
{
    char text[8];
    const unsigned c = static_cast<unsigned>(color);
    std::snprintf(text, sizeof text, "#%02x%02x%02x", c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
    return text;
}
