// panes.h: what the parts of the main window do together.

#pragma once

/// Locks or unlocks the window's user controls and keeps the state in ControlsEnabled. Unlocking leaves
/// disabled what the machine's profile and the fields of the code disable. In Run mode the frame of Step
/// and Stop stays usable.
void ControlsEnable(bool enable);

/// Enables what the machine has and disables what it hasn't.
void EnableByProfile();

/// A run, a transmission or the receive pane holds the rows: nothing may change them.
bool Busy();
/// When Busy: puts the reason on the list's tip and returns true.
bool RefuseWhileBusy();

/// Closes whatever lies over the list (help pages, axes pictures) and unlocks the window.
void cmdReturn_Click();

/// Whether a help page lies over the list.
bool IsHelpUp();

/// Hides the axes pictures and the button that leads back from them.
void HideAxesPictures();

/// Hides the five parameter fields and their labels; empties their limits and tips, never their texts.
void HideInputFields();
/// Empties the texts of the five parameter fields and of the comment.
void ClearInputTexts();

/// Says the message of the selected line, else that of the first line with one, and how many lines have one;
/// while the rows are held, why. Runs when an event is over.
void ShowLineMessage();
/// Says what the control that has the cursor wants: the limits of a field, else its tip. Runs likewise.
void ShowHint();

/// Sets the nine labels of the axes to "0".
void ClearAxesProperties();
/// Shows LineCount in the program properties.
void ShowLineCount();
