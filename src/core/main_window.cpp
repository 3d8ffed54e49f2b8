#include "core/main_window.h"

#include "core/codes.h"
#include "platform/port.h"

MainWindow frmMain;
FindWindow frmFind;

namespace {

/// The controls of one direction of the transfer, as long as they are alike for both.
struct Direction {
    const char* Caption;
    const char* PortCaption;
    Control (MainWindow::*Frames)[8];
    Control (MainWindow::*Ports)[MaxPorts];
    Control (MainWindow::*Bauds)[7];
    Control (MainWindow::*Parities)[3];
    Control (MainWindow::*DataBits)[2];
    Control (MainWindow::*StopBits)[2];
    Control MainWindow::*Filter;
    Control MainWindow::*Standard;
    Control MainWindow::*Emco;
};
constexpr Direction Directions[] = {
    {"Transmit", "TX Port", &MainWindow::frTX, &MainWindow::optPortTX, &MainWindow::optBaudTX,
     &MainWindow::optParityTX, &MainWindow::optDataBitsTX, &MainWindow::optStopBitsTX,
     &MainWindow::chkTXfilter, &MainWindow::lblTXstandard, &MainWindow::cmdTXEmco},
    {"Receive", "RX Port", &MainWindow::frRX, &MainWindow::optPortRX, &MainWindow::optBaudRX,
     &MainWindow::optParityRX, &MainWindow::optDataBitsRX, &MainWindow::optStopBitsRX,
     &MainWindow::chkRXfilter, &MainWindow::lblRXstandard, &MainWindow::cmdRXEmco},
};

/// An option group: its captions are the values, and what the machines are set to is on at first.
template <size_t N> void Fill(Control (&group)[N], const LineChoice<N>& choice)
{
    for (size_t i = 0; i < N; ++i) group[i].Text = choice.Values[i];
    group[choice.Standard].Value = 1;
}

void FillDirection(MainWindow& window, const Direction& direction)
{
    auto& frames = window.*direction.Frames;
    const char* const captions[] = {direction.Caption, direction.PortCaption, "Baudrate",  "Parity",
                                    "Data Bits",       "Stop Bits",           "Handshake", ""};
    for (size_t i = 0; i < std::size(frames); ++i) {
        frames[i].Text = captions[i];
        if (i > 0) frames[i].In = &frames[0];
    }
    for (Control& port : window.*direction.Ports) port.Text = "Com" + std::to_string(port.Element + 1);
    (window.*direction.Ports)[0].Value = 1;
    Fill(window.*direction.Bauds, BaudRates);
    Fill(window.*direction.Parities, Parities);
    Fill(window.*direction.DataBits, DataBitCounts);
    Fill(window.*direction.StopBits, StopBitCounts);
    (window.*direction.Filter).Value = 1;
    (window.*direction.Standard).Enabled = (window.*direction.Emco).Enabled = false;
}

struct ToolBarButton {
    const char *Caption, *Tip;
};
constexpr ToolBarButton ToolBar[] = {
    {"Open", "Open File"},  {"Save", "Save File"},   {"New", "New File"},   {"Print", "Print File"},
    {"Set", "Settings"},    {"Axes", "Show Axes"},   {"Axes", "Show Axes"}, {"Draw", "Draw Toolpath"},
    {"RX", "Receive File"}, {"TX", "Transmit File"},
};

/// The first control of each tab of the settings; those of the table behind it stand on the same tab.
constexpr Control MainWindow::*FirstOfPage[] = {
    &MainWindow::chkSettingsAutowidth, &MainWindow::frSettingsLathe, &MainWindow::lblSettingsFileName,
    &MainWindow::optSettingsMK2,       &MainWindow::lblSettingsFont, &MainWindow::frComEnable};

void PutOnPages(MainWindow& window)
{
    int page = -1;
    window.ForEach([&](Control& control) {
        if (control.In != &window.tabSettings) return;
        const size_t next = static_cast<size_t>(page + 1);
        if (next < std::size(FirstOfPage) && &control == &(window.*FirstOfPage[next])) ++page;
        control.Page = page;
    });
}

} // namespace

MainWindow::MainWindow()
{
#define CONTROL(kind, name, in, text, tabStop)
#define CONTROLS(kind, name, count, in)                                                                      \
    for (Control & element : name) {                                                                         \
        element.Is = Kind::kind;                                                                             \
        element.Name = #name;                                                                                \
        element.Element = static_cast<int>(&element - name);                                                 \
        element.In = &in;                                                                                    \
    }
#include "core/main_window.def"
#undef CONTROL
#undef CONTROLS

    // The place and size of a new window in twips.
    Window.Left = 6900;
    Window.Top = 2800;
    Window.Width = 15000;
    Window.Height = 10000;

    lstMK2Gcodes.Items = MK2Gcodes();
    lstMK4Gcodes.Items = MK4Gcodes();
    lstMK4Mcodes.Items = MK4Mcodes();
    lstF1Gcodes.Items = F1Gcodes();
    lstF1Mcodes.Items = F1Mcodes();

    tabSettings.Items = {"General", "Units", "Info", "Machine", "Printer", "COM"};
    tabSettings.Index = 0;
    cboFontSize.Items = {"8", "10", "12", "14", "16", "18", "20"};
    for (size_t i = 0; i < std::size(cmdTopButtons); ++i) {
        cmdTopButtons[i].Text = ToolBar[i].Caption;
        cmdTopButtons[i].ToolTip = ToolBar[i].Tip;
    }
    for (const Direction& direction : Directions) FillDirection(*this, direction);
    for (Control* button : {&cmdReceiveImport, &cmdReceiveSave, &cmdReceiveNew, &cmdReceiveExit})
        button->ToolTip = button->Text;
    for (Control* label : {&lblGMcode, &lblCode, &txtGMcode}) label->ToolTip = "[-] = M-code";
    txtGMcode.MaxLength = 3;
    txtH.MaxLength = 3;
    txtComment.MaxLength = 44;

    for (Control* entry :
         {&mnuMachine, &mnuUnits, &mnuFont, &mnuComm, &mnuPaths, &mnuRightClick, &tabSettings, &rtfHelp,
          &rtfGcodeHelpMK2, &rtfGcodeHelpMK4, &rtfAbout, &lstAbout, &txtHelpFind, &picZXaxes, &picXYaxes,
          &cmdReturn, &frRXcode, &frCmdRX, &cmdReceiveLast}) {
        entry->Visible = false;
    }
    mnuINCHtoMM.Enabled = false;
    mnuRecent.Visible = false;
    for (Control& entry : mnuRecentFile) entry.Visible = false;
    txtFileNotes.MultiLine = txtRX.MultiLine = true;
    for (Control* path : {&txtSettingsFileName, &txtSettingsPathName, &txtSettingsAppPathName,
                          &txtSettingsAppDataFolderName}) {
        path->ReadOnly = true;
    }
    PutOnPages(*this);
}

void MainWindow::ForEach(const std::function<void(Control&)>& visit)
{
#define CONTROL(kind, name, in, text, tabStop) visit(name);
#define CONTROLS(kind, name, count, in)                                                                      \
    for (Control & element : name) visit(element);
#include "core/main_window.def"
#undef CONTROL
#undef CONTROLS
}
