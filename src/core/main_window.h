// main_window.h: the records of the main window's controls.

#pragma once

#include "core/control.h"

#include <functional>

struct MainWindow {
    Control Window{Kind::Form, "frmMain"};
#define CONTROL(kind, name, in, text, tabStop) Control name{Kind::kind, #name, -1, &in, text, tabStop};
#define CONTROLS(kind, name, count, in) Control name[count];
#include "core/main_window.def"
#undef CONTROL
#undef CONTROLS

    /// The start state: captions of the table, the code lists, what is hidden or disabled at first.
    MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// Calls `visit` with each control in the order of the table; elements of an array one by one.
    void ForEach(const std::function<void(Control&)>& visit);
};
extern MainWindow frmMain;

/// The lists that a code can be picked from, of all machines.
inline constexpr Control MainWindow::*CodeLists[] = {&MainWindow::lstMK2Gcodes, &MainWindow::lstMK4Gcodes,
                                                     &MainWindow::lstMK4Mcodes, &MainWindow::lstF1Gcodes,
                                                     &MainWindow::lstF1Mcodes};

/// The find dialog. It stays on top of the other windows and is hidden, not closed, between searches.
struct FindWindow {
    Control Window{Kind::Form, "frmFind"};
    Control txtFind{Kind::TextBox, "txtFind", -1, &Window};

    FindWindow() { Window.Visible = false; }
    FindWindow(const FindWindow&) = delete;
    FindWindow& operator=(const FindWindow&) = delete;
};
extern FindWindow frmFind;
