#include "cli/state_json.h"

#include "cli/open_program.h"
#include "cli/ops_json.h"
#include "core/code_page.h"
#include "core/control_names.h"
#include "core/draw_window.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "drawing/drawing_state.h"
#include "drawing/walk.h"
#include "editor/find.h"
#include "ui/focus.h"
#include "ui/text_box.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

constexpr Control MainWindow::*StateLabels[] = {
    &MainWindow::lblPPLines,     &MainWindow::lblPPLinesExe, &MainWindow::lblPPMachineTime,
    &MainWindow::lblPPUnits,     &MainWindow::lblXAxisMin,   &MainWindow::lblXAxisMax,
    &MainWindow::lblXAxisTravel, &MainWindow::lblYAxisMin,   &MainWindow::lblYAxisMax,
    &MainWindow::lblYAxisTravel, &MainWindow::lblZAxisMin,   &MainWindow::lblZAxisMax,
    &MainWindow::lblZAxisTravel,
};

const char* ColorName(LineColor color)
{
    switch (color) {
    case LineColor::Absolute: return "abs";
    case LineColor::Incremental: return "incr";
    case LineColor::None: break;
    }
    return "none";
}

Json Rows()
{
    Json rows = Json::array();
    for (const ProgramLine& row : lvCncProgram.Rows) {
        rows.push_back({{"cells", row.Cells}, {"color", ColorName(row.Color)}});
    }
    return rows;
}

Json LogRecords()
{
    Json records = Json::array();
    for (const LogRecord& record : Log.Records) {
        records.push_back({{"number", record.Number},
                           {"description", record.Description},
                           {"procedure", record.Procedure}});
    }
    return records;
}

Json State()
{
    Json labels;
    for (const auto label : StateLabels) labels[(frmMain.*label).Name] = (frmMain.*label).Text;
    return {
        {"machine", ActiveProfile().Name},
        {"metric", Shared.Metric},
        {"horizontal", Shared.Horizontal},
        {"path", frmMain.lblPath.Text},
        {"notes", frmMain.txtFileNotes.Text},
        {"changed", Shared.Changed},
        {"selected", lvCncProgram.Selected},
        {"flags",
         {{"ErrorsPresent", Shared.ErrorsPresent},
          {"EndCodeSeen", Shared.EndCodeSeen},
          {"ArcsPresent", Shared.ArcsPresent},
          {"AbsoluteMode", Shared.AbsoluteMode}}},
        {"errorHeader", lvCncProgram.Headers[CellError]},
        {"errorColumnWidth", lvCncProgram.Widths[CellError]},
        {"labels", labels},
        {"rows", Rows()},
        {"widths", lvCncProgram.Widths},
        {"log", LogRecords()},
    };
}

Json ControlState(const Control& control)
{
    Control copy = control;
    ClampSelection(copy);
    Json json = {{"text", control.Text},
                 {"visible", control.Visible},
                 {"enabled", control.Enabled},
                 {"usable", IsUsable(control)},
                 {"tip", control.ToolTip}};
    switch (control.Is) {
    case Kind::TextBox:
        json["limits"] = control.Tag;
        json["selStart"] = copy.SelStart;
        json["selLength"] = copy.SelLength;
        break;
    case Kind::CheckBox:
    case Kind::Option: json["value"] = control.Value; break;
    case Kind::List:
    case Kind::Combo:
    case Kind::Tabs:
        json["items"] = control.Items;
        json["index"] = control.Index;
        break;
    default: break;
    }
    const std::pair<const char*, int> places[] = {
        {"left", control.Left}, {"top", control.Top}, {"width", control.Width}, {"height", control.Height}};
    for (const auto& [name, value] : places) {
        if (value != Unset) json[name] = value;
    }
    if (control.Back >= 0) json["back"] = ColorText(control.Back);
    if (control.Fore >= 0) json["fore"] = ColorText(control.Fore);
    return json;
}

Json WindowState(const Control& window, bool minimized, bool maximized)
{
    Json state = ControlState(window);
    state["state"] = minimized ? "minimized" : maximized ? "maximized" : "normal";
    return state;
}

Json Controls()
{
    Json controls;
    controls["frmMain"] = WindowState(frmMain.Window, Shared.Minimized, Shared.Maximized);
    if (frmDraw.Window.Visible)
        controls["frmDraw"] = WindowState(frmDraw.Window, Drawing.Minimized, Drawing.Maximized);
    if (Drawing.ProgramWindowLoaded)
        controls["frmProgramWindow"] = WindowState(frmProgramWindow.Window, false, false);
    frmMain.ForEach([&](Control& control) { controls[FullName(control)] = ControlState(control); });
    controls["txtFind"] = ControlState(frmFind.txtFind);
    return controls;
}

const char* NameOf(Buttons buttons)
{
    return buttons == Buttons::OK ? "OK" : buttons == Buttons::YesNo ? "YesNo" : "YesNoCancel";
}

const char* NameOf(Icon icon)
{
    constexpr const char* Names[] = {"none", "information", "exclamation", "critical", "question"};
    return Names[static_cast<size_t>(icon)];
}

const char* NameOf(Answer answer)
{
    constexpr const char* Names[] = {"OK", "Yes", "No", "Cancel"};
    return Names[static_cast<size_t>(answer)];
}

Json MessageBoxes()
{
    Json messages = Json::array();
    for (const auto& [box, given] : Console.Boxes) {
        messages.push_back({{"text", box.Text},
                            {"title", box.Title},
                            {"buttons", NameOf(box.Buttons)},
                            {"icon", NameOf(box.Icon)},
                            {"answer", NameOf(given)}});
    }
    return messages;
}

Json Dialogs()
{
    Json dialogs = Json::array();
    for (const auto& dialog : Console.Dialogs) {
        dialogs.push_back({{"kind", dialog.Kind},
                           {"name", dialog.Name},
                           {"filter", dialog.Filter},
                           {"answer", dialog.Given.value_or("Cancel")}});
    }
    return dialogs;
}

/// A number as a person writes it: 10, not 10.0.
Json Tidy(double number)
{
    return number == std::floor(number) ? Json(static_cast<int64_t>(number)) : Json(number);
}

Json Globals()
{
    return {{"FeedA", Shared.FeedA},
            {"FeedB", Shared.FeedB},
            {"LanguageName", Shared.LanguageName},
            {"LanguageFileName", Shared.LanguageFileName},
            {"TranslatorName", Shared.TranslatorName},
            {"IncrColor", static_cast<int>(Shared.IncrColor)},
            {"AbsColor", static_cast<int>(Shared.AbsColor)},
            {"RunMode", Shared.RunMode},
            {"StepRequested", Shared.StepRequested},
            {"Transmitting", Shared.Transmitting},
            {"ControlsEnabled", Shared.ControlsEnabled},
            {"ComEnabled", Shared.ComEnabled},
            {"Port", Shared.Port},
            {"SettingsTX", Shared.SettingsTX},
            {"SettingsRX", Shared.SettingsRX},
            {"M99RRadius", Shared.M99RRadius},
            {"DrawScale", Shared.DrawScale}};
}

Json PortState()
{
    const RecordingPort& port = Console.Port;
    return {{"open", port.IsOpen()},
            {"number", port.Number},
            {"settings", port.Line},
            {"sent", FromCodePage(port.Sent)}};
}

Json PrintedJobs()
{
    Json jobs = Json::array();
    for (const PrintJob& job : Console.Printer.Jobs) {
        Json items = Json::array();
        for (const PrintItem& item : job.Items) {
            if (!item.Image) {
                items.push_back(Json::array({"text", item.Text}));
                continue;
            }
            const PrintedImage& image = *item.Image;
            items.push_back(Json::array({"image", Tidy(image.X), Tidy(image.Y), Tidy(image.PaperWidth),
                                         Tidy(image.PaperHeight), ColorText(image.Ground)}));
        }
        const bool across = job.Orientation == Orientation::Landscape;
        jobs.push_back({{"orientation", across ? "landscape" : "portrait"},
                        {"font", job.FontName},
                        {"size", Tidy(job.FontSize)},
                        {"items", items}});
    }
    return jobs;
}

const char* PointerName(bool crosshair)
{
    return crosshair ? "crosshair" : "default";
}

Json DrawState()
{
    if (!frmDraw.Window.Visible) return nullptr;
    Json controls, ops = Json::array();
    frmDraw.ForEach([&](Control& control) { controls[control.Name] = ControlState(control); });
    for (const Operation& operation : Picture.Operations()) ops.push_back(OperationAsJson(operation));
    return {{"title", frmDraw.Window.Text},
            {"scale", Shared.DrawScale},
            {"zero", {Drawing.ZeroPointX, Drawing.ZeroPointY}},
            {"drawing", Drawing.DrawingNow},
            {"stepping", Drawing.Stepping},
            {"line", WaitingLine()},
            {"MeasureStarted", Drawing.MeasureStarted},
            {"MeasureDone", Drawing.MeasureDone},
            {"PickingZeroPoint", Drawing.PickingZeroPoint},
            {"GridDivision", Drawing.GridDivision},
            {"pointer", PointerName(Drawing.IsPicking())},
            {"controls", controls},
            {"ops", ops}};
}

Json ProgramWindowState()
{
    if (!Drawing.ProgramWindowLoaded) return nullptr;
    Json controls;
    frmProgramWindow.ForEach([&](Control& control) { controls[control.Name] = ControlState(control); });
    const Control& list = frmProgramWindow.lstCncLines;
    return {{"visible", frmProgramWindow.Window.Visible},
            {"lines", list.Items},
            {"index", list.Index},
            {"controls", controls}};
}

std::string Printed(const Json& state)
{
    return state.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace

std::string StateAsJson()
{
    return Printed(State());
}

std::string WindowStateAsJson()
{
    Json state = State();
    const bool finding = IsFindInFront();
    const Control* const focused = finding ? &frmFind.txtFind : Focused();
    state["focus"] = focused != nullptr ? FullName(*focused) : "";
    state["activeWindow"] = finding ? "frmFind" : ActiveWindow().Name;
    state["title"] = frmMain.Window.Text;
    state["ended"] = Shared.Ended;
    state["topRow"] = lvCncProgram.TopRow;
    state["controls"] = Controls();
    state["headers"] = lvCncProgram.Headers;
    state["messages"] = MessageBoxes();
    state["dialogs"] = Dialogs();
    state["globals"] = Globals();
    state["port"] = PortState();
    state["printed"] = PrintedJobs();
    state["beeps"] = Console.Beeps;
    state["launched"] = Console.Launched;
    state["pointer"] = Shared.Transmitting ? "hourglass" : "default";
    state["draw"] = DrawState();
    state["programWindow"] = ProgramWindowState();
    return Printed(state);
}
