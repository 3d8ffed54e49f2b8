// key_script.h: a script of keys, clicks and answers, typed into the program without a window.

#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Runs the script on the program as it stands; each item is an event of its own. Line ends in the script
/// are ignored. A transmission that still runs at its end goes out. Returns what is wrong with the first item
/// that is misspelt or names no control; the items in front of it have run.
std::optional<std::string> RunKeyScript(std::string_view script);
