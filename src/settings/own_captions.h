// own_captions.h: the captions that no section of a language module gives but the last, by their English
// form.

#pragma once

#include "core/main_window.h"

/// The main window as it is built, in English.
const MainWindow& BuiltInWindow();

/// Puts the captions of the main window and of the Program Lines window into the language in force.
void ShowOwnCaptions();

/// The same for the drawing window, which is made anew at each opening.
void ShowOwnDrawCaptions();
