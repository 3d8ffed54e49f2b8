// program.h: a new program, and the choice of machine and units.

#pragma once

/// Asks whether a program that was changed may be cleared. True without a question when there is nothing to
/// lose.
bool MayClear();

/// Empties the program after asking when it was changed; No leaves it as it is.
void ClearProgram_Click();
/// The same, with the blank row ready to type on.
void mnuNew_Click();

/// The user selects a machine: the program is cleared, unless the user refuses that.
void optSettingsMK2_Click();
void optSettingsMK4_Click();
void optSettingsF1CNC_Click();

/// The user selects units (and on the mill the spindle): the limits change, the values don't.
void optSettingsMm_click();
void optSettingsInch_click();
void optSettingsVmm_click();
void optSettingsVinch_click();
void optSettingsHmm_click();
void optSettingsHinch_click();

/// The View boxes: the columns open or close, and the program is checked again.
void chkViewToolPos_Click();
void chkViewLineProperties_Click();
void chkViewMachineTime_Click();
void chkSettingsAutowidth_Click();
