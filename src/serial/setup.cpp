#include "serial/setup.h"

#include "core/main_window.h"
#include "core/shared_state.h"
#include "platform/port.h"
#include "serial/transfer.h"
#include "ui/choice.h"
#include "ui/panes.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace {

using W = MainWindow;

/// The controls of one direction, and its line parameters.
struct Side {
    Control (W::*Frames)[8];
    Control (W::*Ports)[MaxPorts];
    Control (W::*Bauds)[7];
    Control (W::*Parities)[3];
    Control (W::*DataBits)[2];
    Control (W::*StopBits)[2];
    Control W::*Handshake[3];
    Control W::*Filter;
    Control W::*StandardLabel;
    Control W::*StandardButton;
    std::string SharedState::*Settings;
};
constexpr Side TX{&W::frTX,
                  &W::optPortTX,
                  &W::optBaudTX,
                  &W::optParityTX,
                  &W::optDataBitsTX,
                  &W::optStopBitsTX,
                  {&W::chkTXxonxoff, &W::chkTXdtrdsr, &W::chkTXrtscts},
                  &W::chkTXfilter,
                  &W::lblTXstandard,
                  &W::cmdTXEmco,
                  &SharedState::SettingsTX};
constexpr Side RX{&W::frRX,
                  &W::optPortRX,
                  &W::optBaudRX,
                  &W::optParityRX,
                  &W::optDataBitsRX,
                  &W::optStopBitsRX,
                  {&W::chkRXxonxoff, &W::chkRXdtrdsr, &W::chkRXrtscts},
                  &W::chkRXfilter,
                  &W::lblRXstandard,
                  &W::cmdRXEmco,
                  &SharedState::SettingsRX};

/// The value of the option that is on; the first when none is.
template <size_t N> std::string Chosen(const Control (&options)[N], const LineChoice<N>& choice)
{
    const auto* on = std::find_if(std::begin(options), std::end(options),
                                  [](const Control& option) { return option.Value == 1; });
    return choice.Values[on == std::end(options) ? 0 : static_cast<size_t>(on - options)];
}

bool IsStandard(const Side& side)
{
    return Shared.*side.Settings == StandardLine() && (frmMain.*side.Filter).Value == 1 &&
           std::none_of(std::begin(side.Handshake), std::end(side.Handshake),
                        [](const auto box) { return (frmMain.*box).Value == 1; });
}

void MakeSettings(const Side& side)
{
    Shared.*side.Settings =
        Chosen(frmMain.*side.Bauds, BaudRates) + "," + Chosen(frmMain.*side.Parities, Parities) + "," +
        Chosen(frmMain.*side.DataBits, DataBitCounts) + "," + Chosen(frmMain.*side.StopBits, StopBitCounts);
    (frmMain.*side.StandardLabel).Enabled = (frmMain.*side.StandardButton).Enabled = !IsStandard(side);
}

template <size_t N> void Enable(Control (&controls)[N], bool enabled)
{
    for (Control& control : controls) control.Enabled = enabled;
}

void EnableSide(const Side& side, bool enabled)
{
    Enable(frmMain.*side.Frames, enabled);
    Enable(frmMain.*side.Bauds, enabled);
    Enable(frmMain.*side.Parities, enabled);
    Enable(frmMain.*side.DataBits, enabled);
    Enable(frmMain.*side.StopBits, enabled);
    for (const auto box : side.Handshake) (frmMain.*box).Enabled = enabled;
    (frmMain.*side.Filter).Enabled = enabled;
}

/// Shows the port in force in both groups, whatever was clicked.
void ShowPort()
{
    for (const Side& side : {TX, RX}) {
        for (Control& option : frmMain.*side.Ports) option.Value = option.Element + 1 == Shared.Port ? 1 : 0;
    }
}

void OpenEnabledPort(std::string_view procedure)
{
    if (!Shared.ComEnabled || ThePort->IsOpen()) return;
    if (const auto failure = ThePort->Open()) PortTrouble(*failure, procedure);
}

void SelectPort(int index, std::string_view procedure)
{
    if (Shared.Transmitting) { // the program that goes out stays on its port
        ShowPort();
        RefuseWhileBusy();
        return;
    }
    Shared.Port = index + 1;
    ShowPort();
    if (ThePort->IsOpen()) ThePort->Close();
    ThePort->Select(Shared.Port);
    MakeComSettings();
    OpenEnabledPort(procedure);
}

void MakeStandard(const Side& side)
{
    Choose((frmMain.*side.Ports)[0]);
    Choose((frmMain.*side.Bauds)[BaudRates.Standard]);
    Choose((frmMain.*side.Parities)[Parities.Standard]);
    Choose((frmMain.*side.DataBits)[DataBitCounts.Standard]);
    Choose((frmMain.*side.StopBits)[StopBitCounts.Standard]);
    for (const auto box : side.Handshake) SetCheck(frmMain.*box, false);
    SetCheck(frmMain.*side.Filter, true);
    MakeComSettings();
}

} // namespace

void BeginCommunication()
{
    const int count = static_cast<int>(ThePort->Devices().size());
    RefreshPorts();
    MakeComSettings();
    if (count > 0) {
        Shared.Port = std::clamp(Shared.Port, 1, count);
        ShowPort();
        ThePort->Select(Shared.Port);
        if (const auto failure = ThePort->SetLine(Shared.SettingsTX)) PortTrouble(*failure, "Form_Load");
    } else {
        frmMain.chkEnableCom.Value = 0;
        chkEnableCom_click();
    }
    if (!Shared.ComEnabled && ThePort->IsOpen()) ThePort->Close();
    OpenEnabledPort("Form_Load");
}

void RefreshPorts()
{
    const std::vector<std::string> devices = ThePort->Devices();
    for (const Side& side : {TX, RX}) {
        for (Control& option : frmMain.*side.Ports) {
            const size_t index = static_cast<size_t>(option.Element);
            option.Enabled = index < devices.size();
            option.Text = "Com" + std::to_string(index + 1);
            if (option.Enabled) option.Text += " – " + devices[index];
        }
    }
}

void tabSettings_Click()
{
    constexpr int ComTab = 5;
    if (frmMain.tabSettings.Visible && frmMain.tabSettings.Index == ComTab) RefreshPorts();
}

void LeaveSettings()
{
    OpenEnabledPort("mnuSettingsShow_Click");
}

void chkEnableCom_click()
{
    const bool on = frmMain.chkEnableCom.Value == 1;
    if (!on && Shared.Transmitting) {
        // The port is needed until the stop mark is out.
        frmMain.chkEnableCom.Value = 1;
        RefuseWhileBusy();
        return;
    }
    if (!on && ThePort->IsOpen()) ThePort->Close();
    Shared.ComEnabled = on;
    if (on && frmMain.frRXcode.Visible) LeaveSettings(); // the pane goes on with what comes
    frmMain.mnuTX.Enabled = frmMain.mnuRX.Enabled = on;
    // While the window is locked its buttons stay so.
    for (const size_t button : {8U, 9U}) frmMain.cmdTopButtons[button].Enabled = on && Shared.ControlsEnabled;
    for (const Side& side : {TX, RX}) EnableSide(side, on);
}

void optPortTX_Click(int index)
{
    SelectPort(index, "optPortTX_Click");
}

void optPortRX_Click(int index)
{
    SelectPort(index, "optPortRX_Click");
}

void MakeComSettings()
{
    MakeSettings(TX);
    MakeSettings(RX);
}

void cmdTXEmco_Click()
{
    MakeStandard(TX);
}

void cmdRXEmco_Click()
{
    MakeStandard(RX);
}
