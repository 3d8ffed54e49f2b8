#include "ui/tick.h"

#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "ui/profile_controls.h"

#include <initializer_list>

namespace {

using W = MainWindow;

void Enable(std::initializer_list<Control W::*> controls, bool enabled)
{
    for (const auto control : controls) (frmMain.*control).Enabled = enabled;
}

void EnableButtons(std::initializer_list<size_t> buttons, bool enabled)
{
    for (const size_t index : buttons) frmMain.cmdTopButtons[index].Enabled = enabled;
}

void EnableCommands()
{
    const bool transfer = frmMain.chkEnableCom.Value == 1;
    Enable({&W::mnuSaveAs}, true);
    Enable({&W::mnuSave}, Shared.Changed);
    EnableButtons({1}, Shared.Changed);
    Enable({&W::RCmnuTX, &W::RCmnuRX, &W::mnuTX, &W::mnuRX}, transfer);
    EnableButtons({8, 9}, transfer);
    if (LineCount() < 1) {
        EnableButtons({1, 2, 3, 7, 9}, false);
        Enable({&W::mnuSave, &W::mnuSaveAs, &W::mnuNew, &W::mnuPrint, &W::mnuDraw, &W::mnuTX, &W::RCmnuDelete,
                &W::RCmnuInsert, &W::RCmnuTX, &W::cmdDelete, &W::cmdRun},
               false);
    } else {
        EnableButtons({2, 3, 7}, true);
        Enable({&W::mnuNew, &W::mnuPrint, &W::mnuDraw, &W::RCmnuDelete, &W::RCmnuInsert, &W::cmdDelete,
                &W::cmdInsert, &W::cmdRun},
               true);
    }
    if (Shared.ErrorsPresent) EnableButtons({7}, false);
}

} // namespace

void tmr1sec_Timer()
{
    if (Shared.Transmitting) return; // nothing changes while a program is sent
    if (Shared.ControlsEnabled) EnableCommands();
    if (Shared.Minimized || Shared.Maximized) return;
    if (frmMain.Window.Height < MinHeight) {
        frmMain.Window.Height = MinHeight;
        ControlsPositioning();
    }
    if (frmMain.Window.Width < MinWidth) {
        frmMain.Window.Width = MinWidth;
        ControlsPositioning();
    }
}
