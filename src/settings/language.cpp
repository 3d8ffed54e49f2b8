#include "settings/language.h"

#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "settings/help_pages.h"
#include "settings/own_captions.h"
#include "settings/setting_rows.h"

#include <algorithm>
#include <array>
#include <functional>
#include <span>

namespace {

using W = MainWindow;
using D = DrawWindow;

/// A key of a section and the control whose caption, or tip, it gives. One key may stand twice.
struct CaptionRow {
    const char* Key;
    std::function<Control&()> Of;
    std::string Control::*Text = &Control::Text;
};

CaptionRow Caption(const char* key, Control W::*control)
{
    return {key, [control]() -> Control& { return frmMain.*control; }};
}
CaptionRow Caption(const char* key, Control D::*control)
{
    return {key, [control]() -> Control& { return frmDraw.*control; }};
}
CaptionRow Tip(const char* key, Control W::*control)
{
    return {key, [control]() -> Control& { return frmMain.*control; }, &Control::ToolTip};
}
CaptionRow ButtonTip(const char* key, size_t button)
{
    return {key, [button]() -> Control& { return frmMain.cmdTopButtons[button]; }, &Control::ToolTip};
}

/// A section of a module. Its lines are taken by key, or by their position from 0 on.
struct Section {
    const char* Head;
    std::vector<CaptionRow> Captions = {};
    /// A code list: each line is an item.
    Control W::*List = nullptr;
    /// A table of texts, from this index on.
    TextTable TranslatedTables::*Table = nullptr;
    size_t First = 1;
    /// What else a line does, and the beginning and the end of the section.
    void (*Line)(const KeyValue& line, size_t position) = nullptr;
    void (*Begin)() = nullptr;
    void (*End)() = nullptr;
};

// What sections do beside their captions.

void TakeSystemVariable(const KeyValue& line, size_t)
{
    if (EqualsNoCase(line.Key, "Language Name")) Shared.LanguageName = line.Value;
    if (EqualsNoCase(line.Key, "Translated by")) Shared.TranslatorName = line.Value;
    if (EqualsNoCase(line.Key, "Help File Name")) TakeHelpFile(line.Value);
}

/// Only English has words short enough for the tool bar; other languages have the pictures alone.
void BeginToolBar()
{
    const bool english = EqualsNoCase(Shared.LanguageName, "English");
    for (Control& button : frmMain.cmdTopButtons)
        button.Text = english ? BuiltInWindow().cmdTopButtons[button.Element].Text : "";
}

void TakeHeader(const KeyValue& line, size_t position)
{
    const size_t cell = position + 1;
    if (cell >= CellCount) return;
    lvCncProgram.Headers[cell] = line.Value;
    if (cell == CellError) Shared.ErrorColumnTitle = line.Value;
}

void TakeEntryCaption(const KeyValue& line, size_t)
{
    if (EqualsNoCase(line.Key, "Parameters")) Shared.EntryCaption = line.Value;
}

/// The words of the mill's two orientations; the captions are composed when all lines of the section are
/// known.
std::string Horizontal, Vertical;

void TakeSetting(const KeyValue& line, size_t)
{
    const std::vector<std::string>& tabs = BuiltInWindow().tabSettings.Items;
    for (size_t i = 0; i < tabs.size(); ++i) {
        if (EqualsNoCase(line.Key, tabs[i])) frmMain.tabSettings.Items[i] = line.Value;
    }
    if (EqualsNoCase(line.Key, "Horizontal")) Horizontal = line.Value;
    if (EqualsNoCase(line.Key, "Vertical")) Vertical = line.Value;
}

void BeginSettings()
{
    Horizontal.clear();
    Vertical.clear();
}

void EndSettings()
{
    const std::string& mm = frmMain.optSettingsMm.Text;
    const std::string& inch = frmMain.optSettingsInch.Text;
    if (!Horizontal.empty()) {
        frmMain.optSettingsHmm.Text = Horizontal + " " + mm;
        frmMain.optSettingsHinch.Text = Horizontal + " " + inch;
    }
    if (!Vertical.empty()) {
        frmMain.optSettingsVmm.Text = Vertical + " " + mm;
        frmMain.optSettingsVinch.Text = Vertical + " " + inch;
    }
}

/// Keys and values can't hold brackets and equals signs: braces and a tilde stand for them.
std::string Unescaped(std::string text)
{
    for (char& c : text) {
        if (c == '{') c = '[';
        if (c == '}') c = ']';
        if (c == '~') c = '=';
    }
    return text;
}

void TakeOwnText(const KeyValue& line, size_t)
{
    Translated.Own[Unescaped(line.Key)] = Unescaped(line.Value);
}

CaptionRow FrameCaption(const char* key, Control (W::*frames)[8])
{
    return {key, [frames]() -> Control& { return (frmMain.*frames)[0]; }};
}

/// Items without a translation keep their text.
void Fill(Control& list, const TextTable& table)
{
    for (size_t i = 0; i < list.Items.size(); ++i) list.Items[i] = TextOr(list.Items[i], table[i]);
    list.Text = list.Index < 0 ? "" : list.Items[static_cast<size_t>(list.Index)];
}

void EndRunItems()
{
    frmDraw.cboRun.Index = 0;
    Fill(frmDraw.cboRun, Translated.DrawRunTable);
}

/// The box is empty until the window comes to the front.
void EndScaleItems()
{
    Fill(frmDraw.cboScale, Translated.DrawScaleTable);
    frmDraw.cboScale.Text.clear();
}

/// The sections in their order.
const std::vector<Section>& Sections()
{
    using T = TranslatedTables;
    static const std::vector<Section> sections{
        {.Head = "[System Variables]", .Line = TakeSystemVariable},
        {"[menu RightClick]",
         {Caption("Delete line", &W::RCmnuDelete), Caption("Insert line", &W::RCmnuInsert),
          Caption("Receive file", &W::RCmnuRX), Caption("Transmit file", &W::RCmnuTX)}},
        {"[menu File]",
         {Caption("File", &W::mnuFile), Caption("Open", &W::mnuOpen), Caption("New", &W::mnuNew),
          Caption("Save", &W::mnuSave), Caption("Save As", &W::mnuSaveAs), Caption("Draw", &W::mnuDraw),
          Caption("Print", &W::mnuPrint), Caption("Exit", &W::mnuExit)}},
        {"[menu Settings]",
         {Caption("Settings", &W::mnuSettings), Caption("Settings", &W::mnuSettingsShow),
          Caption("Reset all", &W::mnuReset)}},
        {"[menu Transfer]",
         {Caption("Transfer", &W::mnuXfer), Caption("Receive from Emco", &W::mnuRX),
          Caption("Transmit to Emco", &W::mnuTX)}},
        {"[menu Convert]",
         {Caption("Convert", &W::mnuConvert), Caption("mm to inch", &W::mnuMMtoINCH),
          Caption("inch to mm", &W::mnuINCHtoMM), Caption("Calculator", &W::mnuCalculator),
          Caption("Delete all comments", &W::mnuDelComments)}},
        {"[menu Help]",
         {Caption("Help", &W::mnuHelp), Caption("Help", &W::mnuHelpText), Caption("G-Code", &W::mnuGhelp),
          Caption("About", &W::mnuAbout)}},
        {.Head = "[G-code MK2]", .List = &W::lstMK2Gcodes},
        {.Head = "[G-code MK4]", .List = &W::lstMK4Gcodes},
        {.Head = "[G-code F1]", .List = &W::lstF1Gcodes},
        {.Head = "[M-Code MK4]", .List = &W::lstMK4Mcodes},
        {.Head = "[M-Code F1]", .List = &W::lstF1Mcodes},
        {.Head = "[Toolbar]",
         .Captions = {ButtonTip("Open File", 0), ButtonTip("Save File", 1), ButtonTip("New File", 2),
                      ButtonTip("Print File", 3), ButtonTip("Settings", 4), ButtonTip("Show Axes", 5),
                      ButtonTip("Show Axes", 6), ButtonTip("Draw Toolpath", 7), ButtonTip("Receive File", 8),
                      ButtonTip("Transmit File", 9)},
         .Begin = BeginToolBar},
        {.Head = "[Column Headers]", .Line = TakeHeader},
        {"[Frame Path]", {Caption("Current File", &W::lblCurrentFile)}},
        {"[Frame Set & Replace]",
         {Caption("Set/Replace", &W::frSetReplace), Caption("Feed A", &W::cmdFeedA),
          Caption("Feed B", &W::cmdFeedB)}},
        {"[Frame View]",
         {Caption("View", &W::frView), Caption("Tool Position", &W::chkViewToolPos),
          Caption("Line Properties", &W::chkViewLineProperties),
          Caption("Machine Time", &W::chkViewMachineTime), Caption("Gcode", &W::chkViewGcode),
          Caption("File Notes", &W::chkViewFileNotes)}},
        {"[Frame Axes Properties]",
         {Caption("Axes Properties", &W::frAxesProperties), Caption("Min", &W::lblAxesMin),
          Caption("Max", &W::lblAxesMax), Caption("Travel", &W::lblAxesTravel),
          Caption("X-axis", &W::frXAxis), Caption("Y-axis", &W::frYaxis), Caption("Z-axis", &W::frZAxis)}},
        {"[Frame Program Properties]",
         {Caption("Program Properties", &W::frProgramProperties),
          Caption("Machine Type", &W::lblPPMachineTypeTXT), Caption("Units", &W::lblPPUnitsTXT),
          Caption("Lines", &W::lblPPLinesTXT), Caption("Lines Executed", &W::lblPPLinesExeTXT),
          Caption("Machine Time", &W::lblPPMachineTimeTXT)}},
        {.Head = "[Frame Entry]",
         .Captions = {Caption("Parameters", &W::frEntry), Caption("Code", &W::lblCode),
                      Caption("Comment", &W::lblComment), Caption("Run", &W::cmdRun),
                      Caption("Step", &W::cmdStep), Caption("Stop", &W::cmdStop),
                      Caption("Insert", &W::cmdInsert), Caption("Delete", &W::cmdDelete)},
         .Line = TakeEntryCaption},
        {"[Frame File Notes]", {Caption("File Notes", &W::frFileNotes)}},
        {.Head = "[Settings]",
         .Captions = {Caption("AutoWidth", &W::chkSettingsAutowidth),
                      Caption("Delete without confirmation", &W::chkSettingsDWC),
                      Caption("Color Incremental", &W::lblSettingsIncrColor),
                      Caption("Color Absolute", &W::lblSettingsAbsColor),
                      Caption("Reset all settings", &W::cmdResetAll),
                      Caption("Compact5 CNC", &W::frSettingsLathe),
                      Caption("mm", &W::optSettingsMm),
                      Caption("Inch", &W::optSettingsInch),
                      Caption("F1 CNC", &W::frSettingsMill),
                      Caption("F1 CNC", &W::optSettingsF1CNC),
                      Caption("Current File", &W::lblSettingsFileName),
                      Caption("Current File Path", &W::lblSettingsPathName),
                      Caption("Application Path", &W::lblSettingsAppPath),
                      Caption("Settings Path", &W::lblSettingsAppDataFolder),
                      Caption("Compact5 CNC MK2", &W::optSettingsMK2),
                      Caption("Compact5 CNC MK4", &W::optSettingsMK4),
                      Caption("Font", &W::lblSettingsFont),
                      Caption("Size", &W::lblSettingsSize),
                      Caption("Printer Settings", &W::cmdPrinterDialog),
                      Caption("Com ports", &W::frComEnable),
                      Caption("Enable Communication", &W::chkEnableCom),
                      FrameCaption("Transmit", &W::frTX),
                      FrameCaption("Receive", &W::frRX),
                      Caption("G/M-code filter", &W::chkTXfilter),
                      Caption("G/M-code filter", &W::chkRXfilter),
                      Caption("Standard setting", &W::lblTXstandard),
                      Caption("Standard setting", &W::lblRXstandard)},
         .Line = TakeSetting,
         .Begin = BeginSettings,
         .End = EndSettings},
        {.Head = "[Program error codes]", .Table = &T::ProgramErrorTable},
        {.Head = "[Error Messages]", .Table = &T::ErrorMessageTable},
        {.Head = "[Messages]", .Table = &T::MessageTable},
        {.Head = "[DRAW Frame View]",
         .Captions = {Caption("View", &D::frView), Caption("Radii Arcs", &D::chkShowRadii),
                      Caption("Tool Width", &D::chkToolWidth), Caption("Tool Center", &D::chkToolCenter),
                      Caption("Fill Cycles", &D::chkFillCycles), Caption("Program", &D::chkProgramWindow),
                      Caption("Grid", &D::chkGrid), Caption("Background", &D::chkPrintableBackground),
                      Caption("Diameter", &D::chkDiameter), Caption("AutoRedraw", &D::chkAutoRedraw),
                      Caption("Measure", &D::frMeasure)},
         .Table = &T::DrawViewTable},
        {.Head = "[DRAW Buttons]",
         .Captions = {Caption("Zero Point", &D::cmdZeroPoint), Caption("AutoFit", &D::cmdAutoFit),
                      Caption("Editor", &D::cmdEditor), Caption("Print", &D::cmdPrint),
                      Caption("Redraw", &D::cmdRedraw), Caption("Step", &D::cmdStep),
                      Caption("Abort", &D::cmdAbort)},
         .Table = &T::DrawButtonTable},
        {.Head = "[DRAW Combo Run]", .Table = &T::DrawRunTable, .First = 0, .End = EndRunItems},
        {.Head = "[DRAW Combo Scale]", .Table = &T::DrawScaleTable, .First = 0, .End = EndScaleItems},
        {.Head = "[DRAW Window]", .Table = &T::DrawWindowTable},
        {.Head = "[DRAW Error Message]", .Table = &T::DrawErrorTable},
        {.Head = "[DRAW Message]", .Table = &T::DrawMessageTable},
        {"[TRANSFER Frames]", {Caption("Received Code from Emco", &W::frRXcode)}},
        {"[TRANSFER Buttons Tooltips]",
         {Tip("Bring Code to BXL editor", &W::cmdReceiveImport),
          Tip("Exit Transfer Mode", &W::cmdReceiveExit), Tip("Clear Received Code", &W::cmdReceiveNew),
          Tip("Save Received Code", &W::cmdReceiveSave)}},
        {.Head = "[Brixley]", .Line = TakeOwnText},
    };
    return sections;
}

/// An item as the program's own lists have them: the code padded to 4 characters, a tab, the description.
std::string CodeItem(const KeyValue& line)
{
    std::string code = line.Key;
    code.resize(std::max<size_t>(code.size(), 4), ' ');
    return code + "\t" + line.Value;
}

void TakeLine(const Section& section, const KeyValue& line, size_t position)
{
    for (const CaptionRow& row : section.Captions) {
        if (EqualsNoCase(row.Key, line.Key)) row.Of().*row.Text = line.Value;
    }
    if (section.List != nullptr) {
        auto& items = (frmMain.*section.List).Items;
        if (position < items.size()) items[position] = CodeItem(line);
    }
    if (section.Table != nullptr && section.First + position < TableSize)
        (Translated.*section.Table)[section.First + position] = line.Value;
    if (section.Line != nullptr) section.Line(line, position);
}

/// Reads lines section by section. The head that ends a section is looked for further down the list only; one
/// that isn't there is skipped with its lines, and the next head is looked for in the whole list again.
class Sweep
{
public:
    void Take(const std::string& line)
    {
        if (line.empty() || line.starts_with(';')) return;
        if (line.starts_with('[')) {
            const size_t from = Inside ? At + 1 : 0;
            Leave();
            Enter(line, from);
        } else if (Inside && line.find('=') != std::string::npos) {
            TakeLine(Sections()[At], SplitKeyValue(line), Position++);
        }
    }
    void Leave()
    {
        if (Inside && Sections()[At].End != nullptr) Sections()[At].End();
        Inside = false;
    }

private:
    void Enter(const std::string& head, size_t from)
    {
        for (At = from; At < Sections().size(); ++At) {
            if (!EqualsNoCase(Sections()[At].Head, head)) continue;
            Inside = true;
            Position = 0;
            if (Sections()[At].Begin != nullptr) Sections()[At].Begin();
            return;
        }
    }

    bool Inside = false;
    size_t At = 0, Position = 0;
};

/// Texts that routines put into captions, as they read in the language in force.
std::array<std::string, 4> ComposedTexts()
{
    return {Tr("Drawing"), TextOf(Messages::XDiameter) + "=", TextOf(Messages::XRadius) + "=", Tr("Line")};
}

/// What stands in a caption or a tip since it was composed follows the new language.
void FollowLanguage(const std::array<std::string, 4>& before)
{
    const auto now = ComposedTexts();
    for (Control* shown : {&frmDraw.Window, &frmMain.lblFKTL}) {
        const auto at = std::find(before.begin(), before.end(), shown->Text);
        if (at != before.end()) shown->Text = now[static_cast<size_t>(at - before.begin())];
    }
    for (Control* field : {&frmMain.txtXI, &frmMain.txtYJ, &frmMain.txtZK, &frmMain.txtFKTL, &frmMain.txtH,
                           &frmMain.txtFeedA, &frmMain.txtFeedB}) {
        if (!field->Tag.empty()) field->ToolTip = LimitTip(field->Tag);
    }
}

} // namespace

bool ReadLanguageModule(std::string_view bytes)
{
    const std::vector<std::string> lines = LinesOf(bytes);
    if (lines.size() > 1 && FindNoCase(lines[1], "dummy") != std::string::npos) return false;
    const auto before = ComposedTexts();
    Shared.LanguageName.clear();
    Shared.TranslatorName.clear();
    Sweep sweep;
    for (const std::string& line : lines) sweep.Take(line);
    sweep.Leave();
    ++Translated.Version;
    FollowLanguage(before);
    ShowOwnCaptions();
    return true;
}

std::string LanguageNameOf(std::string_view bytes)
{
    for (const std::string& line : LinesOf(bytes)) {
        const auto setting = SettingOf(line);
        if (setting && EqualsNoCase(setting->Key, "Language Name")) return setting->Value;
    }
    return "";
}

void ShowDrawCaptions()
{
    if (Shared.LanguageName.empty()) return;
    constexpr Control D::*Views[] = {
        &D::frView,        &D::chkShowRadii,     &D::chkToolWidth, &D::chkToolCenter,
        &D::chkFillCycles, &D::chkProgramWindow, &D::chkGrid,      &D::chkPrintableBackground,
        &D::chkDiameter,   &D::chkAutoRedraw,    &D::frMeasure};
    constexpr Control D::*Buttons[] = {&D::cmdAutoFit, &D::cmdZeroPoint, &D::cmdRedraw, &D::cmdStep,
                                       &D::cmdPrint,   &D::cmdEditor,    &D::cmdAbort};
    const auto caption = [](std::span<Control D::*const> controls, const TextTable& table) {
        for (size_t i = 0; i < controls.size(); ++i) {
            std::string& text = (frmDraw.*controls[i]).Text;
            text = TextOr(text, table[i + 1]);
        }
    };
    ShowOwnDrawCaptions();
    caption(Views, Translated.DrawViewTable);
    caption(Buttons, Translated.DrawButtonTable);
    Fill(frmDraw.cboRun, Translated.DrawRunTable);
    Fill(frmDraw.cboScale, Translated.DrawScaleTable);
}
