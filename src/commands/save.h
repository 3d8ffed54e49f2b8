// save.h: writing the program to disk.

#pragma once

/// Saves the program, with an end code if it has none. Asks for a name when saveAs is set or no file is
/// known. When anything fails the file on disk is as it was, the user is told why, and Changed stays.
void SaveFile_Click(bool saveAs);
void mnuSave_Click();
void mnuSaveAs_Click();
