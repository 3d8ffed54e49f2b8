// setup.h: the serial port's options on the COM tab, and the port at the start of the program.
//
// Both directions use one port and have line parameters of their own. The port stays open as long as
// communication is enabled, so that the machine can begin to send at any time. The options reach the port
// only when something is sent or received. No handshake is ever set on it: the boxes of that name count for
// the standard setting alone.

#pragma once

/// Finds the ports and sets up the chosen one; opens it when communication is enabled. Without any port
/// communication is switched off. Runs once, when the settings have been read.
void BeginCommunication();

/// Reads anew which ports the system has, and shows the device of each with its option.
void RefreshPorts();
/// The user picked a tab of the settings: the ports are read anew for that of the port.
void tabSettings_Click();
/// The settings pane was left, or communication enabled beside the receive pane: a closed port opens when
/// communication is enabled.
void LeaveSettings();

/// Switches communication on or off, as the box says. Off closes the port.
void chkEnableCom_click();

/// A port was chosen in one of the groups, by index from 0: it holds for both.
void optPortTX_Click(int index);
void optPortRX_Click(int index);

/// Another option or box was chosen: joins the line parameters, and enables the buttons that lead back to the
/// standard setting.
void MakeComSettings();

/// Puts a direction back to the standard setting of the machines: 300 baud, no parity, 8 data bits, 1 stop
/// bit.
void cmdTXEmco_Click();
void cmdRXEmco_Click();
