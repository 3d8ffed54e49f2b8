// window.h: the commands of the main window beside the program's: settings, tool bar, size.

#pragma once

#include "core/control.h"

/// The settings pane over the code lists, shown or hidden.
void mnuSettingsShow_Click();
/// The tool bar, by the button's index.
void cmdTopButtons_Click(int index);
/// A click on an axes picture closes it, and the settings.
void AxesPicture_Click();

/// Starts a desktop calculator, or says that there is none.
void mnuCalculator_Click();

/// A text that stands in the box becomes the printer's font, its size in points.
void cboFontName_LostFocus(Control& box);
void cboFontSize_LostFocus(Control& box);
void lblSettingsIncrColor_Click();
void lblSettingsAbsColor_Click();

/// The main window came to the front from another window of the program.
void Form_Activate();
/// The window has another size. On a screen that has no room for a maximised window it goes back to
/// normal state, with a message.
void Form_Resize();
/// Maximises the window on a small screen, or says that the task bar covers its lower part.
void FitSmallScreen();
