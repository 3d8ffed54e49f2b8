// settings.h: the settings files: what the program keeps from one run to the next.

#pragma once

#include <optional>
#include <string>

/// Acts on the whole program: applies the file of the user's folder, or the default file beside it, or what
/// is built in; then the language module and the last file. `argument` is the file that the command line
/// names.
void LoadSettings(const std::optional<std::string>& argument);

/// Writes the editor's file. A failure is logged.
void SaveSettings();

/// Puts the default files that were installed into the user's folder, where they aren't there yet.
void InstallDefaults();

/// The font in force, in the boxes of the Printer tab.
void ShowFont();

/// The installed language modules as the choices of the General tab.
void FillLanguages();
void cboLanguage_Click();

/// Loads a language module; a missing file and a placeholder change nothing.
void LoadLanguageModule(const std::string& path);

/// Back to the defaults, after a question when the program has changed. Language and machine stay.
void mnuReset_Click();
