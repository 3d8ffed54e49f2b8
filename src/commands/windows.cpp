#include "commands/windows.h"

#include "commands/exit.h"
#include "commands/window.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "editor/find.h"
#include "ui/focus.h"
#include "ui/panes.h"

void BringToFront(Control& window)
{
    if (!window.Visible) return;
    if (&window == &frmFind.Window) {
        BringFindToFront();
        return;
    }
    const bool fromFind = &window == &frmMain.Window && IsFindInFront();
    if (&window == &frmMain.Window) BringMainToFront();
    if (&window == &ActiveWindow() && !fromFind) return;
    SetActiveWindow(window);
    if (&window == &frmProgramWindow.Window) return;
    if (IsHelpUp()) cmdReturn_Click();
    &window == &frmDraw.Window ? frmDraw_Activate() : Form_Activate();
}

void CloseWindow(Control& window)
{
    if (&window == &frmMain.Window) {
        mnuExit_Click();
    } else if (&window == &frmFind.Window) {
        HideFind();
    } else if (&window == &frmDraw.Window) {
        frmDraw_Close();
        BringToFront(frmMain.Window);
    } else {
        Drawing.ProgramWindowLoaded = frmProgramWindow.Window.Visible = false;
        if (&ActiveWindow() == &window)
            BringToFront(frmDraw.Window.Visible ? frmDraw.Window : frmMain.Window);
    }
}
