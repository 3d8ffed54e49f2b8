// profile_controls.h: applies machine and units to the main window.

#pragma once

#include "core/control.h"
#include "core/shared_state.h"

/// The option of the Machine tab that stands for a machine.
Control& OptionOfMachine(MachineKind machine);

/// Arranges all that depends on the machine: titles, columns, enabled frames, then the units.
void ApplyMachine();

/// Shows the units in force, and returns their option.
Control& ShowUnits();

/// Selects metric or imperial units and shows them: the option that fits machine, units and spindle is
/// chosen, which runs its handler when it was off, so Changed may become true.
void SetUnits(bool metric);

/// Sizes the content of the main window and applies the machine's profile to it.
void ControlsPositioning();

/// Puts the colours of incremental and absolute lines on their labels.
void ShowLineColors();

/// Shows the path of the program in full where it is shortened, and the folders on the Info tab.
void ShowPaths();

/// Writes the window's title: product, version, machine, file name.
void MakeFormCaption();
