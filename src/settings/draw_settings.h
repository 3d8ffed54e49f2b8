// draw_settings.h: "Settings.drw", what the drawing window keeps from one opening to the next.

#pragma once

#include "core/shared_state.h"
#include "settings/setting_rows.h"

constexpr const char* DrawSettingsFile = "Settings.drw";

struct DrawSettings {
    DrawBoxValues Boxes;
    /// No value: the window is centred.
    std::optional<Geometry> DrawWindow, ProgramWindow;
    bool ProgramWindowActive = false;
    bool IsDamaged = false;
};

/// Reads the file. Keys and the word "True" are compared exactly.
DrawSettings ReadDrawSettings(std::string_view bytes);
std::string DrawSettingsText(const DrawSettings& settings);
