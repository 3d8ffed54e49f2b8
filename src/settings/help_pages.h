// help_pages.h: the help pages of the language in force, which are installed in the folder "help".
//
// A language module names its manual, "German.html". The other pages of the language stand beside it:
// "German-MK4.html" and so on. A page that a language lacks is that of the English one.

#pragma once

#include "core/control.h"

#include <string>
#include <string_view>

/// A module names its manual: it goes into the manual's pane. One that isn't installed leaves English.
void TakeHelpFile(const std::string& name);

/// Puts a page of the language in force into a pane: "" the manual, "-MK4" and so on.
void FillHelpPage(Control& pane, std::string_view page);

/// The page that a link's file name leads to: "-MK4" for "German-MK4.html".
std::string HelpPageOfFile(std::string_view file);
