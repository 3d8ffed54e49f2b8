// text_sync.h: texts and carets between the records and the widgets that type.
//
// A record counts characters and ends its lines with CR LF; a widget counts UTF-16 units and ends lines
// with LF.

#pragma once

#include "core/control.h"

class QWidget;

/// Copies text and selection of a text box or an editable combo into its record.
void CopyIn(QWidget& widget, Control& record);

/// Puts the record's text into the widget where it differs.
void PushText(QWidget& widget, const Control& record);

/// Puts the record's selection into the widget where it differs.
void PushSelection(QWidget& widget, const Control& record);

/// [LEFT] and [RIGHT] leave a selection at its start or end. False when there is none, or the widget does so
/// itself.
bool LeaveSelection(QWidget& widget, const KeyStroke& key);

/// Replaces the selection by a character, as if it had been typed.
void TypeCharacter(QWidget& widget, char typed);
