// transmit.h: a program on its way to the machine.
//
// The program's text goes out line by line, one way, without any answer. A line is handed to the port only
// when the one before has nearly left it, so Stop takes effect within a line's time and the progress is that
// of the line. In between the routine waits as a coroutine: the window, the drawing and the port go on.

#pragma once

#include "core/shared_state.h"

#include <string>
#include <string_view>
#include <vector>

/// Sends the program. The window is locked until it is out, but for Stop, and the selection follows the line
/// that goes out.
void mnuTX_Click();

/// Goes on with a transmission when the port has room. Runs when an event is over.
void ResumeTransmission();

/// Ends a transmission without a further character, for a program that is left at once.
void AbandonTransmission();

/// Forgets the last transmission, for a new beginning of the program.
void ResetTransmission();

/// The device went while a program was sent.
void TransmissionLostPort();

/// How a transmission ended, or that it hasn't yet.
enum class TransmissionEnd { Running, Sent, Stopped, Failed };
TransmissionEnd HowTransmissionEnded();

/// How far it is: "12 of 25 lines sent, 00:00:14 left, first message in N05".
std::string TransmissionText();

/// How a transmission ended beside the receive pane that is up; "" for none.
std::string TransmissionResult();
/// The receive pane closes; its next reception begins without the result.
void ForgetTransmissionResult();

/// The lines that go out for a text, without their line ends. With the filter what only people read stays
/// behind: the notes in front of the "%" line, and everything behind column 30. Empty lines and comment lines
/// never go out.
std::vector<std::string> LinesToSend(std::string_view text, bool filter);

/// The list row of a line on the wire: the number in its columns plus 1. 1 for a line without one.
double RowOfLine(std::string_view line, MachineKind machine);
