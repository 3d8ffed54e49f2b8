// load.h: opening a file of any kind.

#pragma once

#include <string>

/// Opens a file, or asks for one when the path is empty: a program of any machine replaces the open one
/// after the user was asked about its changes. Anything that stops the load (a cancel, a failed save, a
/// file that can't be read or isn't known) leaves the open program as it is; a file that doesn't exist
/// stops it without a message.
void LoadFile(const std::string& path);
void mnuOpen_Click();

/// Puts a program that has no file yet in the place of the open one, and closes the receive pane. False, and
/// nothing has changed, when the text isn't known as a program: the user was told, by the name that it has.
bool LoadUnnamed(const std::string& bytes, const std::string& name);
