#include "settings/editor_settings.h"

#include "core/app_data.h"
#include "platform/files.h"
#include "platform/port.h"

namespace {

using S = EditorSettings;
using Row = SettingRow<S>;
using Number = NumberPlace<S>;
using Choice = ChoicePlace<S>;

constexpr Number Box(int S::*at)
{
    return {at, 0, 1};
}
constexpr const char* Machines[] = {"MK2", "MK4", "F1"};

/// The file, line by line. Keys are read in any case.
constexpr Row Rows[] = {
    {""},
    {";Recent files"},
    {"LanguageFileName", &S::LanguageFileName},
    {"LastFileUsed", &S::LastFileUsed},
    {""},
    {";Settings"},
    {"Horizontal", &S::Horizontal},
    {"Metric", &S::Metric},
    {"Machine", Choice{&S::Machine, Machines}},
    {"AutoWidth", &S::AutoWidth},
    {"FeedA", Number{&S::FeedA, 0, 32767}},
    {"FeedB", Number{&S::FeedB, 0, 32767}},
    {"IncrColor", ColorPlace<S>{&S::IncrColor}},
    {"AbsColor", ColorPlace<S>{&S::AbsColor}},
    {"Delete without confirm", Box(&S::DeleteWithoutConfirm)},
    {""},
    {";Checkboxes Editor"},
    {"ToolPosition", Box(&S::ToolPosition)},
    {"LineProperties", Box(&S::LineProperties)},
    {"FileNotes", Box(&S::FileNotes)},
    {"Gcode", Box(&S::Gcode)},
    {"MachineTime", Box(&S::MachineTime)},
    {""},
    {";Comm Settings General"},
    {"Port", Number{&S::Port, 1, MaxPorts}},
    {"ComPortEnable", &S::ComPortEnable},
    {""},
    {";Comm Settings Transmit"},
    {"BaudTX", Choice{&S::BaudTX, BaudRates.Values}},
    {"ParityTX", Choice{&S::ParityTX, Parities.Values}},
    {"DataBitsTX", Choice{&S::DataBitsTX, DataBitCounts.Values}},
    {"StopBitsTX", Choice{&S::StopBitsTX, StopBitCounts.Values}},
    {"XonXoffTX", Box(&S::XonXoffTX)},
    {"DtrDsrTX", Box(&S::DtrDsrTX)},
    {"RtsCtsTX", Box(&S::RtsCtsTX)},
    {"TXfilter ", Box(&S::FilterTX)},
    {""},
    {";Comm Settings Receive"},
    {"BaudRX", Choice{&S::BaudRX, BaudRates.Values}},
    {"ParityRX", Choice{&S::ParityRX, Parities.Values}},
    {"DataBitsRX", Choice{&S::DataBitsRX, DataBitCounts.Values}},
    {"StopBitsRX", Choice{&S::StopBitsRX, StopBitCounts.Values}},
    {"XonXoffRX", Box(&S::XonXoffRX)},
    {"DtrDsrRX", Box(&S::DtrDsrRX)},
    {"RtsCtsRX", Box(&S::RtsCtsRX)},
    {"RXfilter", Box(&S::FilterRX)},
    {""},
    {";Printer Settings"},
    {"FontName", &S::FontName},
    {"FontSize ", SizePlace<S>{&S::FontSize}},
    {""},
    {";Windows Parameters HLTW"},
    {"EditorWindow", &S::EditorWindow},
    {"DrawWindow Active", &S::DrawWindowActive},
};

constexpr std::string_view OwnComment = "\r\n;Brixley: files opened or saved last\r\n";
constexpr std::string_view RecentKey = "RecentFile";

/// "RecentFile1" to "RecentFile10"; false for every other key.
bool ReadRecentFile(EditorSettings& settings, const KeyValue& setting)
{
    if (!StartsNoCase(setting.Key, RecentKey)) return false;
    const auto number = ReadNumber(std::string_view(setting.Key).substr(RecentKey.size()), 1,
                                   static_cast<int>(settings.RecentFiles.size()));
    if (number) settings.RecentFiles[static_cast<size_t>(*number - 1)] = setting.Value;
    return true;
}

} // namespace

EditorSettingsFile ReadEditorSettings(std::string_view bytes, const std::optional<std::string>& argument)
{
    EditorSettingsFile file;
    EditorSettings& values = file.Values;
    // The command line's file takes the place of the last one, also where no line names one.
    const std::string named = argument && FileExists(*argument) ? *argument : "";
    bool namesLast = false;
    for (const std::string& line : LinesOf(bytes)) {
        if (line.empty() || line.starts_with(';')) continue;
        auto setting = SettingOf(line);
        if (!setting) {
            file.IsDamaged = true;
            continue;
        }
        const auto isKey = [&](const char* key) { return EqualsNoCase(setting->Key, key); };
        if (isKey("LastFileUsed")) {
            namesLast = true;
            if (argument) setting->Value = named;
        }
        // A program that will be loaded brings its own machine and units.
        const bool loads = !values.LastFileUsed.empty();
        if (isKey("Metric") && loads) continue;
        if (isKey("Machine")) file.SelectsMachine = !loads || !FileExists(values.LastFileUsed);
        if (ReadRecentFile(values, *setting)) continue;
        if (!ReadSetting<EditorSettings>(values, Rows, *setting)) file.IsDamaged = true;
    }
    if (!namesLast) values.LastFileUsed = named;
    return file;
}

std::string EditorSettingsText(const EditorSettings& settings)
{
    std::string text = std::string(";BXL ") + ProductVersion + " EDITOR SETTINGS user file" +
                       std::string(LineEnd) + SettingsText<EditorSettings>(settings, Rows);
    text += OwnComment;
    for (size_t i = 0; i < settings.RecentFiles.size() && !settings.RecentFiles[i].empty(); ++i) {
        text += std::string(RecentKey) + std::to_string(i + 1) + "=" + OnOneLine(settings.RecentFiles[i]) +
                std::string(LineEnd);
    }
    return text;
}
