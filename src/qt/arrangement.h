// arrangement.h: where the panes of the main window stand.
//
// Rectangles that the engine sets are in the records; what stands between them is here. Inside a pane
// layouts do the work (layouts.h).

#pragma once

class ControlWidgets;
class QWidget;

/// Puts the panes into the window's content, by their records.
void PlacePanes(const ControlWidgets& widgets, const QWidget& content);
