// layouts.h: how the controls stand inside the panes of the main window.

#pragma once

class ControlWidgets;

/// Pixels between two controls; between two panes, and between a pane and the window's edge.
constexpr int Gap = 4, Space = 8;

/// Gives each pane the layout of its content. Once, when the widgets have been made.
void LayOutPanes(ControlWidgets& widgets);

/// The fields of a code keep their places also while it doesn't use them; those that the machine hasn't
/// leave theirs to the others.
void KeepPlaces(const ControlWidgets& widgets);
