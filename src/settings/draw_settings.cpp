#include "settings/draw_settings.h"

#include "core/app_data.h"

namespace {

struct BoxRow {
    const char* Key;
    int DrawBoxValues::*Box;
};
constexpr BoxRow Boxes[] = {
    {"Radii", &DrawBoxValues::Radii},           {"ToolWidth", &DrawBoxValues::ToolWidth},
    {"ToolCenter", &DrawBoxValues::ToolCenter}, {"FillCycles", &DrawBoxValues::FillCycles},
    {"Program", &DrawBoxValues::Program},       {"Grid", &DrawBoxValues::Grid},
    {"Background", &DrawBoxValues::Background}, {"Diameter", &DrawBoxValues::Diameter},
    {"AutoRedraw", &DrawBoxValues::AutoRedraw},
};
constexpr const char* DrawWindowKey = "DrawWindow";
constexpr const char* ProgramWindowKey = "ProgramWindow";

/// The four numbers and the word behind them. Without a word the window counts as active.
bool ReadProgramWindow(DrawSettings& settings, std::string_view value)
{
    const auto place = ReadGeometry(value);
    if (!place) return false;
    for (int numbers = 4; numbers > 0; --numbers) {
        const size_t comma = value.find(',');
        value = comma == std::string_view::npos ? "" : value.substr(comma + 1);
    }
    settings.ProgramWindow = place;
    settings.ProgramWindowActive = Trimmed(value) != "Inactive";
    return true;
}

bool ReadKey(DrawSettings& settings, const KeyValue& setting)
{
    for (const BoxRow& row : Boxes) {
        if (setting.Key != row.Key) continue;
        settings.Boxes.*row.Box = setting.Value == "True";
        return true;
    }
    if (setting.Key == ProgramWindowKey) return ReadProgramWindow(settings, setting.Value);
    if (setting.Key != DrawWindowKey) return true;
    const auto place = ReadGeometry(setting.Value);
    if (place) settings.DrawWindow = place;
    return place.has_value();
}

} // namespace

DrawSettings ReadDrawSettings(std::string_view bytes)
{
    DrawSettings settings;
    for (const std::string& line : LinesOf(bytes)) {
        if (line.empty() || line.starts_with(';')) continue;
        const auto setting = SettingOf(line);
        if (!setting || !ReadKey(settings, *setting)) settings.IsDamaged = true;
    }
    return settings;
}

std::string DrawSettingsText(const DrawSettings& settings)
{
    const std::string end(LineEnd);
    std::string text = std::string(";BXL ") + ProductVersion + " DRAW SETTINGS user file" + end + end +
                       ";Checkboxes draw mode" + end;
    for (const BoxRow& row : Boxes) {
        text += std::string(row.Key) + "=" + (settings.Boxes.*row.Box != 0 ? "True" : "False") + end;
    }
    text += end + ";Windows Parameters HLTW" + end;
    text += std::string(DrawWindowKey) + "=" + GeometryText(settings.DrawWindow.value_or(Geometry{})) + end;
    text += std::string(ProgramWindowKey) + "=" + GeometryText(settings.ProgramWindow.value_or(Geometry{})) +
            ", " + (settings.ProgramWindowActive ? "Active" : "Inactive") + end;
    return text;
}
