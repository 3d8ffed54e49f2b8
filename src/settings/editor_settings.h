// editor_settings.h: "Settings.edt", what the editor keeps from one run to the next.

#pragma once

#include "platform/line_parameters.h"
#include "settings/setting_rows.h"

#include <array>

/// The values of the file; what stands here is in force where it says nothing.
struct EditorSettings {
    std::string LanguageFileName, LastFileUsed;
    bool Horizontal = false, Metric = false;
    std::string Machine = "MK4";
    bool AutoWidth = false;
    int FeedA = 200, FeedB = 50;
    int IncrColor = 255, AbsColor = 16711680;
    int DeleteWithoutConfirm = 0;
    int ToolPosition = 0, LineProperties = 0, FileNotes = 0, Gcode = 0, MachineTime = 0;
    int Port = 1;
    bool ComPortEnable = false;
    std::string BaudTX = BaudRates.StandardValue(), ParityTX = Parities.StandardValue(),
                DataBitsTX = DataBitCounts.StandardValue(), StopBitsTX = StopBitCounts.StandardValue();
    int XonXoffTX = 0, DtrDsrTX = 0, RtsCtsTX = 0, FilterTX = 1;
    std::string BaudRX = BaudRates.StandardValue(), ParityRX = Parities.StandardValue(),
                DataBitsRX = DataBitCounts.StandardValue(), StopBitsRX = StopBitCounts.StandardValue();
    int XonXoffRX = 0, DtrDsrRX = 0, RtsCtsRX = 0, FilterRX = 1;
    /// "": the first typewriter's face among the printer's fonts, at the printer's size.
    std::string FontName, FontSize;
    /// No value: the window is centred as it is.
    std::optional<Geometry> EditorWindow;
    bool DrawWindowActive = false;
    /// The files opened or saved last, the latest first; "" behind the last.
    std::array<std::string, 10> RecentFiles;
};

/// What a file says, and what it means for the file that is opened at the start.
struct EditorSettingsFile {
    EditorSettings Values;
    /// The saved machine is to be selected: no file will be loaded.
    bool SelectsMachine = false;
    /// A line had a bad value, or was none.
    bool IsDamaged = false;
};

/// Reads the file. `argument` is the command line's file when there is one: it takes the place of the last
/// file used, and one that isn't there means that none is loaded.
EditorSettingsFile ReadEditorSettings(std::string_view bytes, const std::optional<std::string>& argument);

/// The text of the file, with the version in its first line.
std::string EditorSettingsText(const EditorSettings& settings);
