// open_program.h: a file loaded by the program's own reader, as every command begins.

#pragma once

#include "core/shared_state.h"
#include "platform/scripted.h"

#include <optional>
#include <string>
#include <vector>

/// What is in force before a load. A file that says otherwise wins.
struct LoadOptions {
    /// "" for what a new program has: MK4, mm, vertical, or what the settings say.
    std::string Machine, Units, Orientation;
    /// The folder of the settings to start from, "" for none.
    std::string Settings;
    /// A language module to load first, "" for none.
    std::string Language;
    /// Boxes of the View frame that are checked: gcode, toolpos, properties, time.
    std::vector<std::string> View;
};

/// The names that View takes.
extern const std::vector<std::string> ViewNames;

/// The platform of the commands: nobody is asked, boxes and dialogs are kept.
extern ScriptedPlatform Console;

/// The file's path from the root on; links in its folders are followed, the file itself may be one.
std::string AbsolutePath(const std::string& file);

/// Starts anew with an empty program, or as the settings say; nothing of it counts as changed. The user's
/// data lies in dataFolder; "" for a run that has none. The serial ports only record. Returns why the
/// language module could not be loaded.
std::optional<std::string> BeginProgram(const LoadOptions& options, const std::string& dataFolder = "",
                                        int ports = 1);

/// Loads the file into the program that was begun. Returns why that failed, behind the file's name.
std::optional<std::string> LoadInto(const std::string& file);

/// Starts anew and loads the file. Returns why that failed.
std::optional<std::string> OpenProgram(const LoadOptions& options, const std::string& file);
/// The same for what needs lines: a program without any is refused too.
std::optional<std::string> OpenLines(const LoadOptions& options, const std::string& file);

/// The text of the last message box that reported a failure, "" when there was none; boxes that had come
/// before, `earlier` of them, don't count.
std::string LastRefusal(size_t earlier = 0);
