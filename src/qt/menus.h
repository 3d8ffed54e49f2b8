// menus.h: the menu bar and the list's pop-up menu, made from the records of kind Menu.

#pragma once

class Desktop;
class QMenu;
class QMenuBar;

/// Fills the bar and the menu that opens over a row.
void MakeMenus(Desktop& desktop, QMenuBar& bar, QMenu& popUp);
