// arrangement.h: where the parts of the main window stand.
//
// Rectangles that the engine sets are in the records; what stands between them is here. Inside a pane
// layouts do the work.

#pragma once

class ControlWidgets;
class QWidget;

/// Gives each pane the layout of its content. Once, when the widgets have been made.
void LayOutPanes(ControlWidgets& widgets);

/// Puts the panes into the window's content, by their records.
void PlacePanes(const ControlWidgets& widgets, const QWidget& content);
