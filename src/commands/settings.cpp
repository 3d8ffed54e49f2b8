#include "commands/settings.h"

#include "commands/drawing.h"
#include "commands/load.h"
#include "commands/printing.h"
#include "commands/program.h"
#include "commands/recent_files.h"
#include "commands/window.h"
#include "core/app_data.h"
#include "core/draw_window.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/measure.h"
#include "drawing/program_window.h"
#include "editor/feeds.h"
#include "editor/whole_program.h"
#include "files/reader.h"
#include "interpreter/interpreter.h"
#include "interpreter/limits.h"
#include "platform/files.h"
#include "serial/setup.h"
#include "settings/draw_settings.h"
#include "settings/editor_settings.h"
#include "settings/language.h"
#include "settings/user_files.h"
#include "settings/window_place.h"
#include "ui/choice.h"
#include "ui/columns.h"
#include "ui/panes.h"
#include "ui/profile_controls.h"
#include "ui/redraw.h"

#include <algorithm>
#include <span>

namespace {

using W = MainWindow;
using S = EditorSettings;

constexpr const char* EditorFile = "Settings.edt";
constexpr const char* EditorDefaults = "default.edt";
constexpr const char* DrawDefaults = "Default.drw";

/// Check boxes whose values are kept as they stand.
struct BoxRow {
    Control W::*Box;
    int S::*Value;
};
constexpr BoxRow Boxes[] = {
    {&W::chkSettingsDWC, &S::DeleteWithoutConfirm},
    {&W::chkViewToolPos, &S::ToolPosition},
    {&W::chkViewLineProperties, &S::LineProperties},
    {&W::chkViewFileNotes, &S::FileNotes},
    {&W::chkViewGcode, &S::Gcode},
    {&W::chkViewMachineTime, &S::MachineTime},
    {&W::chkTXxonxoff, &S::XonXoffTX},
    {&W::chkTXdtrdsr, &S::DtrDsrTX},
    {&W::chkTXrtscts, &S::RtsCtsTX},
    {&W::chkTXfilter, &S::FilterTX},
    {&W::chkRXxonxoff, &S::XonXoffRX},
    {&W::chkRXdtrdsr, &S::DtrDsrRX},
    {&W::chkRXrtscts, &S::RtsCtsRX},
    {&W::chkRXfilter, &S::FilterRX},
};

/// Option groups whose captions are the values.
struct OptionRow {
    std::string S::*Value;
    std::span<Control> (*Options)();
};
template <auto group> std::span<Control> Options()
{
    return frmMain.*group;
}
constexpr OptionRow OptionGroups[] = {
    {&S::BaudTX, Options<&W::optBaudTX>},         {&S::ParityTX, Options<&W::optParityTX>},
    {&S::DataBitsTX, Options<&W::optDataBitsTX>}, {&S::StopBitsTX, Options<&W::optStopBitsTX>},
    {&S::BaudRX, Options<&W::optBaudRX>},         {&S::ParityRX, Options<&W::optParityRX>},
    {&S::DataBitsRX, Options<&W::optDataBitsRX>}, {&S::StopBitsRX, Options<&W::optStopBitsRX>},
};

void SelectSavedMachine(const std::string& name)
{
    if (MachineKind machine{}; MachineOfName(name, machine)) OptionOfMachine(machine).On.Click();
}

void ChooseByCaption(std::span<Control> options, const std::string& caption)
{
    for (Control& option : options) {
        if (option.Text == caption) Choose(option);
    }
}

/// Puts a text into a combo box, and selects the item that it is.
void ShowInCombo(Control& combo, const std::string& text)
{
    const auto item = std::find(combo.Items.begin(), combo.Items.end(), text);
    combo.Index = item == combo.Items.end() ? -1 : static_cast<int>(item - combo.Items.begin());
    combo.Text = text;
}

} // namespace

void ShowFont()
{
    ShowInCombo(frmMain.cboFontName, Shared.FontName);
    ShowInCombo(frmMain.cboFontSize, Shared.FontSize);
}

namespace {

void ApplyFont(const EditorSettings& values)
{
    Shared.FontName = values.FontName.empty() ? StandardFont() : values.FontName;
    Shared.FontSize = values.FontSize.empty() ? SharedState{}.FontSize : values.FontSize;
    ShowFont();
}

/// What is 0 or less gets its default; a window without a place is centred with its size.
void ApplyGeometry(const std::optional<Geometry>& setting)
{
    constexpr int WidestDefault = 13800;
    const Screen& screen = Shared.Screen;
    Geometry saved = setting.value_or(Geometry{frmMain.Window.Height, 0, 0, frmMain.Window.Width});
    if (saved.Height <= 0) saved.Height = MinHeight;
    if (saved.Width <= 0) saved.Width = std::min(WidestDefault, screen.Width);
    Geometry place = OnScreen(saved, MinHeight, MinWidth);
    if (saved.Left <= 0) place.Left = std::max(0, (screen.Width - place.Width) / 2);
    if (saved.Top <= 0) place.Top = std::max(0, (screen.Height - place.Height) / 2);
    if (Shared.Minimized || Shared.Maximized) return;
    PlaceWindow(frmMain.Window, place);
}

void ApplyFeeds(const EditorSettings& values)
{
    frmMain.txtFeedA.Text = std::to_string(values.FeedA);
    frmMain.txtFeedB.Text = std::to_string(values.FeedB);
    Shared.FeedA = frmMain.txtFeedA.Text + " ";
    Shared.FeedB = frmMain.txtFeedB.Text + " ";
}

void ApplyPlainSettings(const EditorSettings& values)
{
    Shared.LanguageFileName = values.LanguageFileName;
    SetCheck(frmMain.chkSettingsAutowidth, values.AutoWidth);
    ApplyFeeds(values);
    Shared.IncrColor = static_cast<float>(values.IncrColor);
    Shared.AbsColor = static_cast<float>(values.AbsColor);
    for (const BoxRow& row : Boxes) SetCheck(frmMain.*row.Box, values.*row.Value != 0);
    for (const OptionRow& row : OptionGroups) ChooseByCaption(row.Options(), values.*row.Value);
    Shared.Port = values.Port;
    MakeComSettings();
    Shared.ComEnabled = values.ComPortEnable;
    SetCheck(frmMain.chkEnableCom, values.ComPortEnable);
    frmMain.mnuTX.Enabled = frmMain.mnuRX.Enabled = values.ComPortEnable;
    ApplyFont(values);
    Shared.RecentFiles.clear();
    for (const std::string& file : values.RecentFiles) {
        if (!file.empty()) Shared.RecentFiles.push_back(file);
    }
    ShowRecentFiles();
}

/// The module of the user's folder wins over the one that was in use.
void LoadModules()
{
    const std::string own = UserFile("Language.txt");
    if (HasUserFile("Language.txt")) LoadLanguageModule(own);
    if (Shared.LanguageFileName != own) LoadLanguageModule(Shared.LanguageFileName);
}

/// The paths of the modules that the General tab offers, beside the names of their languages there.
std::vector<std::string> LanguageFiles;

/// The choice of the General tab follows the module in use, none where that is a file of the user's own; the
/// texts are English without a module.
void ShowLanguage()
{
    Control& list = frmMain.cboLanguage;
    const std::string& module = Shared.LanguageFileName;
    const auto used = std::find_if(LanguageFiles.begin(), LanguageFiles.end(), [&](const std::string& file) {
        return module.empty() ? FileNameOf(file) == "English.txt" : IsSameFile(file, module);
    });
    list.Index = used == LanguageFiles.end() || list.Items.empty()
                     ? -1
                     : static_cast<int>(used - LanguageFiles.begin());
    list.Text = list.Index < 0 ? "" : list.Items[static_cast<size_t>(list.Index)];
}

/// What a full disk leaves of a file has nothing to keep, so that the defaults beside it hold.
bool ReplacesEmptyFile()
{
    std::string bytes;
    const bool empty = !ReadWholeFile(UserFile(EditorFile), bytes) && bytes.empty();
    if (!empty || !HasUserFile(EditorDefaults)) return false;
    KeepDamaged(EditorFile, bytes);
    return true;
}

/// Whether a file is a language module. It opens no program: machine and units are those that were saved.
bool IsModule(const std::string& path)
{
    std::string bytes;
    return FileExists(path) && !ReadWholeFile(path, bytes) && KindOfFile(bytes) == FileKind::Language;
}

} // namespace

void LoadSettings(const std::optional<std::string>& argument)
{
    Shared.ErrorColumnTitle = "Error in line";
    if (!HasUserFile(EditorFile) || ReplacesEmptyFile()) CopyUserFile(EditorDefaults, EditorFile);
    if (!HasUserFile(EditorFile)) {
        Shared.Machine = MachineKind::MK4;
        Shared.Metric = Shared.Horizontal = false;
        ShowUnits().Value = 1; // chosen by nobody: the presets stay as they are
        ApplyPlainSettings({});
        ApplyGeometry(std::nullopt);
        MakeFormCaption();
        if (argument && FileExists(*argument)) LoadFile(*argument);
        return;
    }

    const std::string bytes = ReadUserFile(EditorFile);
    const bool bringsTexts = argument && IsModule(*argument);
    const EditorSettingsFile file = ReadEditorSettings(bytes, bringsTexts ? "" : argument);
    if (file.IsDamaged) KeepDamaged(EditorFile, bytes);
    const EditorSettings& values = file.Values;
    Shared.Horizontal = values.Horizontal;
    SetUnits(values.Metric);
    if (file.SelectsMachine) SelectSavedMachine(values.Machine);
    ApplyPlainSettings(values);
    ApplyGeometry(values.EditorWindow);
    LoadModules();
    if (bringsTexts) LoadLanguageModule(*argument);
    Shared.Changed = false; // nothing was typed yet
    if (!values.LastFileUsed.empty()) LoadFile(values.LastFileUsed);
    // A last file that isn't recognised counts as missing.
    if (!file.SelectsMachine && frmMain.lblPath.Text.empty()) SelectSavedMachine(values.Machine);
    ApplyFeeds(values); // the units on the way to those of the file don't count
    ClampFeeds();
    if (values.DrawWindowActive) {
        frmDraw.Window.Visible = true;
        FollowLoad();
    }
}

void SaveSettings()
{
    if (AppDataPath().empty()) return;
    // What the user sees counts, also in a box that the cursor is still in.
    TakeFeeds();
    TakeFont();
    EditorSettings values;
    values.LanguageFileName = Shared.LanguageFileName;
    values.LastFileUsed = frmMain.lblPath.Text;
    values.Horizontal = Shared.Horizontal;
    values.Metric = Shared.Metric;
    values.Machine = ActiveProfile().Name;
    values.AutoWidth = Shared.AutoWidthOn;
    const auto feed = [](const std::string& preset) {
        return static_cast<int>(std::clamp(Val(preset), 2.0, Shared.Metric ? 499.0 : 199.0));
    };
    values.FeedA = feed(Shared.FeedA);
    values.FeedB = feed(Shared.FeedB);
    values.IncrColor = static_cast<int>(Shared.IncrColor);
    values.AbsColor = static_cast<int>(Shared.AbsColor);
    for (const BoxRow& row : Boxes) values.*row.Value = (frmMain.*row.Box).Value;
    for (const OptionRow& row : OptionGroups) {
        for (const Control& option : row.Options()) {
            if (option.Value == 1) values.*row.Value = option.Text;
        }
    }
    values.Port = Shared.Port;
    values.ComPortEnable = Shared.ComEnabled;
    values.FontName = Shared.FontName;
    values.FontSize = Shared.FontSize;
    values.EditorWindow = PlaceOf(frmMain.Window);
    values.DrawWindowActive = frmDraw.Window.Visible;
    for (size_t i = 0; i < std::min(Shared.RecentFiles.size(), values.RecentFiles.size()); ++i)
        values.RecentFiles[i] = Shared.RecentFiles[i];
    WriteUserFile(EditorFile, EditorSettingsText(values));
}

void InstallDefaults()
{
    if (AppDataPath().empty()) return;
    if (const auto failure = MakeFolders(AppDataPath())) NoteFailure(failure->Number, "LoadSettings");
    const bool newUser = !HasUserFile(EditorFile);
    for (const char* file : {EditorDefaults, DrawDefaults}) {
        std::string bytes;
        const std::string installed = InstalledPath(std::string("defaults/") + file);
        if (installed.empty() || HasUserFile(file) || ReadWholeFile(installed, bytes)) continue;
        WriteUserFile(file, bytes);
    }
    if (newUser && !HasUserFile(DrawSettingsFile)) CopyUserFile(DrawDefaults, DrawSettingsFile);
}

void FillLanguages()
{
    constexpr size_t ModuleHead = 1024;
    Control& list = frmMain.cboLanguage;
    list.Items.clear();
    LanguageFiles.clear();
    const std::string folder = InstalledPath("languages");
    for (const std::string& file : FilesIn(folder, ".txt")) {
        std::string bytes;
        if (ReadWholeFile(folder + "/" + file, bytes)) continue;
        // What a module is and its language's name stand in its first lines; whole ones, so that no letter is
        // cut.
        bytes.resize(bytes.rfind('\n', std::min(bytes.size(), ModuleHead)) + 1);
        if (KindOfFile(bytes) != FileKind::Language) continue;
        list.Items.emplace_back(TextOr(file, LanguageNameOf(bytes)));
        LanguageFiles.push_back(folder + "/" + file);
    }
    ShowLanguage();
}

void cboLanguage_Click()
{
    const Control& list = frmMain.cboLanguage;
    if (list.Index < 0) return;
    if (!RefuseWhileBusy()) LoadLanguageModule(LanguageFiles[static_cast<size_t>(list.Index)]);
    ShowLanguage(); // the one that stayed, where it was refused or can't be read
}

void LoadLanguageModule(const std::string& path)
{
    std::string bytes;
    if (path.empty() || !FileExists(path)) return;
    if (const auto failure = ReadWholeFile(path, bytes)) {
        NoteFailure(failure->Number, "LoadLanguageModule");
        return;
    }
    if (!ReadLanguageModule(bytes)) return;
    Shared.LanguageFileName = path;
    ShowLanguage();
    const bool changed = Shared.Changed;
    if (frmMain.chkViewGcode.Value == 1) {
        // Descriptions change their language with the lists.
        frmMain.chkViewGcode.Value = 0;
        chkViewGcode_Click();
        frmMain.chkViewGcode.Value = 1;
        chkViewGcode_Click();
    }
    Form_Activate();
    MakeFormCaption();
    MakeToolpositionColums();
    ShowUnits();
    Interpreter();
    Shared.Changed = changed;
    FollowMeasureLanguage();
    if (Drawing.ProgramWindowLoaded) frmProgramWindow_Load();
}

void mnuReset_Click()
{
    if (RefuseWhileBusy() || !MayClear()) return;
    Shared.Changed = false;
    frmDraw_Close();
    for (const char* file : {EditorFile, DrawSettingsFile}) {
        if (HasUserFile(file)) RemoveFile(UserFile(file));
    }
    CopyUserFile(EditorDefaults, EditorFile);
    CopyUserFile(DrawDefaults, DrawSettingsFile);
    const std::string language = Shared.LanguageFileName;
    const MachineKind machine = Shared.Machine;
    mnuNew_Click();
    Shared.DrawBoxes = {};
    UnloadDrawing();
    frmDraw_Load();
    LoadSettings(std::nullopt);
    Shared.LanguageFileName = language;
    LoadLanguageModule(language);
    Shared.Machine = machine;
    ApplyMachine();
    BeginCommunication();
    Shared.Changed = false;
}
