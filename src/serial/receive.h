// receive.h: a program that the machine sends.
//
// As soon as characters come in the receive pane opens by itself and shows them; nothing in the editor
// changes until the user imports them (commands/receive_import.h). There is no protocol on this side, only
// text that grows. A text that was neither saved nor imported is kept in a file of the user's folder until
// the next stream.

#pragma once

#include "platform/files.h"
#include "platform/port.h"

#include <optional>
#include <string>

/// Opens the receive pane, empty, and the port if it is closed.
void mnuRX_Click();

/// The port has something to say.
void MSComm1_OnComm(PortEvent event);

/// Asks for a file and writes the text into it behind a "%" line.
void cmdReceiveSave_Click();
/// Empties the pane.
void cmdReceiveNew_Click();
/// Brings the text back that was received last and neither saved nor imported.
void cmdReceiveLast_Click();
/// Back to the editor.
void cmdReceiveExit_Click();
/// The user changed the text.
void txtRX_Change();

/// Leaves the pane without looking at its text. A run or a transmission keeps the window locked.
void CloseReceivePane();
/// The text needs no keeping any more, and no kept one is left.
void ForgetReceived();
/// Keeps a text that was neither saved nor imported. False when that failed and the user wants to stay.
bool KeepReceived();
/// The same without a question: the failure, if any.
std::optional<FileFailure> WriteReceived();

/// Forgets what was received, for a new beginning of the program.
void ResetReception();

/// How many lines came.
std::string ReceptionText();
/// Offers the kept text in an empty pane.
void ShowReception();
