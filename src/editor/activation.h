// activation.h: the program list: a row brought into the entry, and the list's own keys.

#pragma once

#include "core/control.h"

/// Brings the selected row into the entry, the cursor in the code box. Shows the row's values as they are
/// and checks nothing. Nothing during a transmission.
void lvCncProgram_Click();

/// [DELETE], [INSERT], [ENTER], [F2]; [UP], [DOWN] and the like move the selection.
bool lvCncProgram_KeyDown(Control& list, const KeyStroke& key);

/// A click on a header, by its item from 1: that of the error column (9) opens the faulty line.
void lvCncProgram_ColumnClick(int header);
