// help.h: the help pages: manual, codes of the machine, about.
//
// Each locks the window but for the Help menu; its command called again closes it.

#pragma once

#include "core/control.h"

#include <string>

/// The manual, at what the cursor is on.
void mnuHelpText_Click();
/// The codes of the machine.
void mnuGhelp_Click();
/// Version and translator over the version history.
void mnuAbout_Click();
void lstAbout_Click();

/// [F1] in a field of a code, or in a list of codes, opens the page of the codes there. False when the cursor
/// is elsewhere, or when the Help menu takes nothing.
bool ShowHelpOfField();
/// [F1] in the receive pane, which keeps the menu locked, opens the manual there. False without the pane, and
/// when a page is up already.
bool ShowHelpOfReception();
/// [F1] in the drawing's windows: the manual comes to the front with what it tells about the drawing.
void ShowHelpOfDrawing();

/// A link of a page was clicked: "#G84", "German-MK4.html#G84".
void FollowHelpLink(const std::string& link);

/// Hides all pages; what they have locked stays locked.
void HideHelpPages();

/// The search in a page: [ENTER] finds the next place.
void FocusHelpSearch();
void txtHelpFind_GotFocus(Control& box);
char txtHelpFind_KeyPress(Control& box, char typed);
