// panes.h: what the parts of the main window do together.

#pragma once

/// Locks or unlocks the window's user controls and keeps the state in ControlsEnabled.
void ControlsEnable(bool enable);

/// Closes whatever lies over the list (help pages, axes pictures) and unlocks the window.
void cmdReturn_Click();

/// Hides the axes pictures and the button that leads back from them.
void HideAxesPictures();

/// Hides the five parameter fields and their labels; empties their limits and tips, never their texts.
void HideInputFields();
/// Empties the texts of the five parameter fields and of the comment.
void ClearInputTexts();

/// Sets the nine labels of the axes to "0".
void ClearAxesProperties();
/// Shows LineCount in the program properties.
void ShowLineCount();
