#include "commands/session.h"

#include "commands/program.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "editor/whole_program.h"

#include <memory>

namespace {

/// Which routine answers the click on a control, the user's or one that Choose and SetCheck make.
struct Event {
    Control MainWindow::*Of;
    void (*Click)();
};

constexpr Event Events[] = {
    {&MainWindow::optSettingsMK2, optSettingsMK2_Click},
    {&MainWindow::optSettingsMK4, optSettingsMK4_Click},
    {&MainWindow::optSettingsF1CNC, optSettingsF1CNC_Click},
    {&MainWindow::optSettingsMm, optSettingsMm_click},
    {&MainWindow::optSettingsInch, optSettingsInch_click},
    {&MainWindow::optSettingsVmm, optSettingsVmm_click},
    {&MainWindow::optSettingsVinch, optSettingsVinch_click},
    {&MainWindow::optSettingsHmm, optSettingsHmm_click},
    {&MainWindow::optSettingsHinch, optSettingsHinch_click},
    {&MainWindow::chkViewToolPos, chkViewToolPos_Click},
    {&MainWindow::chkViewLineProperties, chkViewLineProperties_Click},
    {&MainWindow::chkViewMachineTime, chkViewMachineTime_Click},
    {&MainWindow::chkViewGcode, chkViewGcode_Click},
    {&MainWindow::chkSettingsAutowidth, chkSettingsAutowidth_Click},
    {&MainWindow::mnuMMtoINCH, mnuMMtoINCH_click},
    {&MainWindow::mnuINCHtoMM, mnuINCHtoMM_click},
};

} // namespace

void ResetState()
{
    std::destroy_at(&frmMain);
    std::construct_at(&frmMain);
    lvCncProgram = {};
    Shared = {};
    Translated = {};
    Log = {};
    for (const Event& event : Events) (frmMain.*event.Of).On.Click = event.Click;
}

void StartNew(MachineKind machine, bool metric, bool horizontal)
{
    Shared.Machine = machine;
    Shared.Metric = metric;
    Shared.Horizontal = horizontal;
    mnuNew_Click();
    AfterEvent();
}

void AfterEvent()
{
    Shared.RedrawPending = false; // nothing is drawn yet
    WriteLog();
}
