// text_box.h: a text box where there is no widget: what a native one does with the keys that the
// engine leaves to it.

#pragma once

#include "core/control.h"

/// Selects the whole text.
void SelectAll(Control& box);
/// Cuts the selection to the text.
void ClampSelection(Control& box);
/// Whether the selection covers the whole text, also in an empty box.
bool IsAllSelected(const Control& box);
bool IsCaretAtStart(const Control& box);

/// Edits the text as a native text box does: characters, [BACKSPACE], [DELETE], [LEFT], [RIGHT], [HOME],
/// [END], cut, copy, paste. In a box of several lines [ENTER] puts CR LF. Returns whether the text changed.
bool EditText(Control& box, const KeyStroke& key, bool multiLine);

/// Replaces the selection by a text, cut to what the box takes.
void InsertText(Control& box, const std::string& text);
