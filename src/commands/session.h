// session.h: the beginning of a run, and what happens when an event is over.

#pragma once

#include "core/shared_state.h"

#include <optional>
#include <string>

/// Puts every record and flag back to its start value and connects the controls with the routines that
/// answer them. Each run and each test begins so.
void ResetState();

/// Starts with a new, empty program on a machine, in units, with a spindle.
void StartNew(MachineKind machine, bool metric, bool horizontal);

/// Starts as the settings of the user's folder say, with the file of the command line when there is one.
void StartProgram(const std::optional<std::string>& argument);

/// Does what the routines of an event have asked for, and writes the log. Every front end calls it when
/// an event is over.
void AfterEvent();
