// state_json.h: the program's state as JSON, for scripts and tests.

#pragma once

#include <string>

/// The state as it stands: machine, flags, labels, every row with its cells, column widths, the log.
std::string StateAsJson();

/// The same with what a window shows: focus, controls, boxes and dialogs that came up, flags of the run.
std::string WindowStateAsJson();
