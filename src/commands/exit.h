// exit.h: leaving the program, by the user or by the system.
//
// The user is asked about a changed program. The system (a signal, the end of the session) asks nobody and
// waits for nobody, so what would be lost is kept in the user's folder: a received text like one that was
// left in its pane, a changed program in a file "Unsaved-NUMBER.cnc", which the next start offers.

#pragma once

/// Leaves the program: asks to save a changed one; a cancel or a save that fails stops the exit.
void mnuExit_Click();

/// Keeps what is unsaved, without a question, and changes nothing else: a session whose end was called off
/// goes on. A failure is logged.
void KeepUnsaved();

/// Keeps what is unsaved and leaves the program without a question, also behind a box that is up. A
/// transmission ends where it is.
void EndOfSession();

/// Asks of each program that was kept whether it is to be opened, until one is. Refused, it is offered again
/// at the next start; opened, it has no file, and is kept until this run has saved it or given it up.
void OfferKeptProgram();

/// The open program was saved or given up: what was kept of it is no longer offered.
void ForgetKeptProgram();

/// Forgets which kept program is open, for a new beginning of the program.
void ResetKeptProgram();
