#include "commands/session.h"

#include "commands/drawing.h"
#include "commands/exit.h"
#include "commands/help.h"
#include "commands/load.h"
#include "commands/printing.h"
#include "commands/program.h"
#include "commands/receive_import.h"
#include "commands/recent_files.h"
#include "commands/save.h"
#include "commands/settings.h"
#include "commands/window.h"
#include "core/app_data.h"
#include "core/draw_window.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "drawing/draw_controls.h"
#include "drawing/walk.h"
#include "editor/activation.h"
#include "editor/code_box.h"
#include "editor/feeds.h"
#include "editor/find.h"
#include "editor/lines.h"
#include "editor/run.h"
#include "editor/value_entry.h"
#include "editor/whole_program.h"
#include "interpreter/interpreter.h"
#include "interpreter/limits.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/port.h"
#include "platform/printer.h"
#include "serial/receive.h"
#include "serial/setup.h"
#include "serial/transfer.h"
#include "serial/transmit.h"
#include "settings/user_files.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/profile_controls.h"

#include <memory>
#include <utility>

namespace {

using W = MainWindow;

/// Which routines answer the events of a control, the user's or those that a routine sets off.
struct Event {
    Control W::*Of;
    Slots On;
};

constexpr Slots FieldSlots{nullptr, nullptr, Field_GotFocus, Field_LostFocus, Field_KeyDown, Field_KeyPress};
constexpr Slots FeedSlots{nullptr, nullptr, Feed_GotFocus, Feed_LostFocus, nullptr, Feed_KeyPress};

constexpr Event Events[] = {
    // Entry
    {&W::txtGMcode,
     {nullptr, nullptr, txtGMcode_GotFocus, txtGMcode_LostFocus, txtGMcode_KeyDown, txtGMcode_KeyPress}},
    {&W::txtXI, FieldSlots},
    {&W::txtYJ, FieldSlots},
    {&W::txtZK, FieldSlots},
    {&W::txtFKTL, FieldSlots},
    {&W::txtH, FieldSlots},
    {&W::txtComment,
     {nullptr, nullptr, txtComment_GotFocus, nullptr, txtComment_KeyDown, txtComment_KeyPress}},
    {&W::lvCncProgram, {lvCncProgram_Click, nullptr, nullptr, nullptr, lvCncProgram_KeyDown}},
    {&W::txtFeedA, FeedSlots},
    {&W::txtFeedB, FeedSlots},
    {&W::txtFileNotes,
     {nullptr, nullptr, txtFileNotes_GotFocus, nullptr, nullptr, txtFileNotes_Keypress, txtFileNotes_Change}},
    {&W::cmdFeedA, {cmdFeedA_Click}},
    {&W::cmdFeedB, {cmdFeedB_Click}},
    {&W::cmdInsert, {cmdInsert_Click}},
    {&W::cmdDelete, {cmdDelete_Click}},
    {&W::cmdRun, {cmdRun_Click}},
    {&W::cmdStep, {cmdStep_Click}},
    {&W::cmdStop, {cmdStop_Click}},
    {&W::lstMK2Gcodes, {lstMK2Gcodes_Click}},
    {&W::lstMK4Gcodes, {lstMK4Gcodes_Click}},
    {&W::lstMK4Mcodes, {lstMK4Mcodes_Click}},
    {&W::lstF1Gcodes, {lstF1Gcodes_Click}},
    {&W::lstF1Mcodes, {lstF1Mcodes_Click}},

    // View and settings
    {&W::chkViewToolPos, {chkViewToolPos_Click}},
    {&W::chkViewLineProperties, {chkViewLineProperties_Click}},
    {&W::chkViewMachineTime, {chkViewMachineTime_Click}},
    {&W::chkViewGcode, {chkViewGcode_Click}},
    {&W::chkViewFileNotes, {ControlsPositioning}},
    {&W::chkSettingsAutowidth, {chkSettingsAutowidth_Click}},
    {&W::cmdResetAll, {mnuReset_Click}},
    {&W::cboLanguage, {cboLanguage_Click}},
    {&W::cboFontName, {nullptr, nullptr, nullptr, cboFontName_LostFocus}},
    {&W::cboFontSize, {nullptr, nullptr, nullptr, cboFontSize_LostFocus}},
    {&W::cmdPrinterDialog, {cmdPrinterDialog_Click}},
    {&W::optSettingsMK2, {optSettingsMK2_Click}},
    {&W::optSettingsMK4, {optSettingsMK4_Click}},
    {&W::optSettingsF1CNC, {optSettingsF1CNC_Click}},
    {&W::optSettingsMm, {optSettingsMm_click}},
    {&W::optSettingsInch, {optSettingsInch_click}},
    {&W::optSettingsVmm, {optSettingsVmm_click}},
    {&W::optSettingsVinch, {optSettingsVinch_click}},
    {&W::optSettingsHmm, {optSettingsHmm_click}},
    {&W::optSettingsHinch, {optSettingsHinch_click}},
    {&W::lblSettingsIncrColor, {lblSettingsIncrColor_Click}},
    {&W::frSettingsIncr, {lblSettingsIncrColor_Click}},
    {&W::cmdSettingsColorIncremental, {lblSettingsIncrColor_Click}},
    {&W::lblSettingsAbsColor, {lblSettingsAbsColor_Click}},
    {&W::frSettingsAbs, {lblSettingsAbsColor_Click}},
    {&W::cmdSettingsColorAbsolute, {lblSettingsAbsColor_Click}},

    // Transfer
    {&W::tabSettings, {tabSettings_Click}},
    {&W::chkEnableCom, {chkEnableCom_click}},
    {&W::chkTXxonxoff, {MakeComSettings}},
    {&W::chkTXdtrdsr, {MakeComSettings}},
    {&W::chkTXrtscts, {MakeComSettings}},
    {&W::chkTXfilter, {MakeComSettings}},
    {&W::chkRXxonxoff, {MakeComSettings}},
    {&W::chkRXdtrdsr, {MakeComSettings}},
    {&W::chkRXrtscts, {MakeComSettings}},
    {&W::chkRXfilter, {MakeComSettings}},
    {&W::cmdTXEmco, {cmdTXEmco_Click}},
    {&W::lblTXstandard, {cmdTXEmco_Click}},
    {&W::cmdRXEmco, {cmdRXEmco_Click}},
    {&W::lblRXstandard, {cmdRXEmco_Click}},
    {&W::mnuTX, {mnuTX_Click}},
    {&W::RCmnuTX, {mnuTX_Click}},
    {&W::mnuRX, {mnuRX_Click}},
    {&W::RCmnuRX, {mnuRX_Click}},
    {&W::cmdReceiveImport, {cmdReceiveImport_Click}},
    {&W::cmdReceiveSave, {cmdReceiveSave_Click}},
    {&W::cmdReceiveNew, {cmdReceiveNew_Click}},
    {&W::cmdReceiveExit, {cmdReceiveExit_Click}},
    {&W::cmdReceiveLast, {cmdReceiveLast_Click}},
    {&W::txtRX, {nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, txtRX_Change}},

    // Menu
    {&W::mnuOpen, {mnuOpen_Click}},
    {&W::mnuNew, {mnuNew_Click}},
    {&W::mnuSave, {mnuSave_Click}},
    {&W::mnuSaveAs, {mnuSaveAs_Click}},
    {&W::mnuFind, {mnuFind_click}},
    {&W::mnuDraw, {mnuDraw_Click}},
    {&W::mnuPrint, {mnuPrint_Click}},
    {&W::mnuExit, {mnuExit_Click}},
    {&W::mnuSettingsShow, {mnuSettingsShow_Click}},
    {&W::mnuReset, {mnuReset_Click}},
    {&W::mnuMMtoINCH, {mnuMMtoINCH_click}},
    {&W::mnuINCHtoMM, {mnuINCHtoMM_click}},
    {&W::mnuCalculator, {mnuCalculator_Click}},
    {&W::mnuDelComments, {mnuDelComments_Click}},
    {&W::mnuHelpText, {mnuHelpText_Click}},
    {&W::mnuGhelp, {mnuGhelp_Click}},
    {&W::mnuAbout, {mnuAbout_Click}},
    {&W::RCmnuDelete, {cmdDelete_Click}},
    {&W::RCmnuInsert, {LineInsert}},

    // Over the list
    {&W::cmdReturn, {cmdReturn_Click}},
    {&W::lstAbout, {lstAbout_Click}},
    {&W::txtHelpFind, {nullptr, nullptr, txtHelpFind_GotFocus, nullptr, nullptr, txtHelpFind_KeyPress}},
    {&W::picZXaxes, {AxesPicture_Click}},
    {&W::picXYaxes, {AxesPicture_Click}},
};

/// The options of the COM tab, group by group.
void ConnectComTab()
{
    for (Control& option : frmMain.optPortTX) option.On.ClickElement = optPortTX_Click;
    for (Control& option : frmMain.optPortRX) option.On.ClickElement = optPortRX_Click;
    const auto connect = [](auto&... groups) {
        const auto each = [](auto& group) {
            for (Control& option : group) option.On.Click = MakeComSettings;
        };
        (each(groups), ...);
    };
    connect(frmMain.optBaudTX, frmMain.optParityTX, frmMain.optDataBitsTX, frmMain.optStopBitsTX,
            frmMain.optBaudRX, frmMain.optParityRX, frmMain.optDataBitsRX, frmMain.optStopBitsRX);
}

template <class Window> void MakeAnew(Window& window)
{
    std::destroy_at(&window);
    std::construct_at(&window);
}

} // namespace

void ResetState()
{
    MakeAnew(frmMain);
    MakeAnew(frmFind);
    MakeAnew(frmProgramWindow);
    const unsigned version = lvCncProgram.Version;
    lvCncProgram = {};
    lvCncProgram.Version = version + 1;
    Shared = {};
    Translated = {};
    Log = {};
    ResetFocus();
    ResetInterpreter();
    ResetTransmission();
    ResetReception();
    ResetKeptProgram();
    ThePort->OnEvent = MSComm1_OnComm;
    UnloadDrawing();
    for (const Event& event : Events) (frmMain.*event.Of).On = event.On;
    for (Control& button : frmMain.cmdTopButtons) button.On.ClickElement = cmdTopButtons_Click;
    for (Control& entry : frmMain.mnuRecentFile) entry.On.ClickElement = mnuRecentFile_Click;
    ConnectComTab();
    frmMain.Window.On.Change = Form_Resize;
    frmFind.txtFind.On = {nullptr, nullptr,          txtFind_GotFocus, nullptr,
                          nullptr, txtFind_KeyPress, txtFind_Change};
}

namespace {

/// The printer's fonts, and the one that is chosen at first.
void FillFonts()
{
    frmMain.cboFontName.Items = ThePrinter->Fonts();
    Shared.FontName = StandardFont();
    ShowFont();
}

/// What every start begins with: the user's folder, the fonts, the drawing's window in its hidden state.
void BeginStart()
{
    if (const std::string folder = AppDataPath(); !folder.empty()) {
        if (const auto failure = MakeFolders(folder)) NoteFailure(failure->Number, "Form_Load");
    }
    if (HasUserFile("Transmit.txt")) RemoveFile(UserFile("Transmit.txt")); // of a run that broke off
    FillFonts();
    frmDraw_Load();
}

/// Not even a PDF file can be had. The settings, which haven't been read, stay as they are.
void EndWithoutPrinter()
{
    NoteFailure(Failures::PrinterError, "Form_Load");
    ShowMessage("No printer found. A printer MUST be installed in Windows before running BXL", "",
                Icon::Critical);
    WriteLog();
    Shared.Ended = true;
}

void FinishStart()
{
    FitSmallScreen();
    Form_Activate();
    BeginCommunication();
    SetFocus(frmMain.txtGMcode);
    AfterEvent();
}

} // namespace

void StartNew(MachineKind machine, bool metric, bool horizontal)
{
    BeginStart();
    Shared.Machine = machine;
    Shared.Metric = metric;
    Shared.Horizontal = horizontal;
    mnuNew_Click();
    ClampFeeds();
    FinishStart();
}

void StartProgram(const std::optional<std::string>& argument)
{
    BeginStart();
    if (frmMain.cboFontName.Items.empty()) {
        EndWithoutPrinter();
        return;
    }
    FillLanguages();
    Shared.Metric = false;
    LoadSettings(argument);
    ControlsPositioning();
    FinishStart();
}

void AfterEvent()
{
    ResumeInterpreter();
    ResumeTransmission();
    if (Shared.ExitPending && !Shared.Transmitting) mnuExit_Click();
    if (std::exchange(Shared.DrawingFollows, false)) RefreshDrawing();
    ResumeDrawing();
    const bool settings = frmMain.tabSettings.Visible;
    if (std::exchange(Shared.SettingsWereUp, settings) && !settings) LeaveSettings();
    MendFocus();
    frmMain.lblChanged.Text = Shared.Changed ? "*" : "";
    ShowTransfer();
    ShowLetterTip();
    ShowLineMessage();
    ShowHint();
    WriteLog();
}
