// recent_files.h: the files opened or saved last, as entries of the File menu.

#pragma once

#include <string>

/// Puts a file in front of the list of recent files; the oldest of more than ten is dropped.
void RememberFile(const std::string& path);

/// Shows the list in the menu.
void ShowRecentFiles();

/// Opens the file of an entry. One that isn't there any more is told to the user and dropped.
void mnuRecentFile_Click(int index);

/// The folder of the file that was opened or saved last, "" for none: dialogs begin there.
std::string FolderOfLastFile();
