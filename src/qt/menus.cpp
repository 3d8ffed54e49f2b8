#include "qt/menus.h"

#include "commands/keyboard.h"
#include "core/control_names.h"
#include "core/main_window.h"
#include "qt/desktop.h"
#include "ui/tick.h"

#include <QMenu>
#include <QMenuBar>

#include <unordered_map>

namespace {

/// Entries that begin a new group of their menu.
constexpr Control MainWindow::*BeginGroup[] = {
    &MainWindow::mnuSave,       &MainWindow::mnuFind,        &MainWindow::mnuRecent, &MainWindow::mnuExit,
    &MainWindow::mnuCalculator, &MainWindow::mnuDelComments, &MainWindow::mnuAbout,  &MainWindow::RCmnuTX};

bool BeginsGroup(const Control& entry)
{
    for (const auto first : BeginGroup) {
        if (&(frmMain.*first) == &entry) return true;
    }
    return false;
}

bool HasEntries(const Control& menu)
{
    bool has = false;
    frmMain.ForEach([&](Control& control) { has = has || control.In == &menu; });
    return has;
}

QKeySequence ShortcutTextOf(const Control& entry)
{
    if (&entry == &frmMain.mnuHelpText) return QKeySequence(Qt::Key_F1);
    const char letter = ShortcutOf(entry);
    return letter == 0 ? QKeySequence() : QKeySequence(QString("Ctrl+") + letter);
}

} // namespace

void MakeMenus(Desktop& desktop, QMenuBar& bar, QMenu& popUp)
{
    std::unordered_map<const Control*, QMenu*> menus;
    frmMain.ForEach([&](Control& record) {
        if (record.Is != Kind::Menu) return;
        const auto above = menus.find(record.In);
        if (&record == &frmMain.mnuRightClick) {
            menus[&record] = &popUp;
            desktop.Widgets.Add(record, popUp.menuAction());
            return;
        }
        QMenu* const in = above == menus.end() ? nullptr : above->second;
        if (in != nullptr && BeginsGroup(record)) in->addSeparator();
        if (HasEntries(record)) {
            QMenu* const menu = in != nullptr ? in->addMenu("") : bar.addMenu("");
            menu->setObjectName(QString::fromStdString(FullName(record)) + ".menu");
            menu->setToolTipsVisible(true);
            // The entries are enabled by the tick; a menu that opens shows them as they are now.
            QObject::connect(menu, &QMenu::aboutToShow, &desktop, [&desktop] { desktop.Run(tmr1sec_Timer); });
            menus[&record] = menu;
            desktop.Widgets.Add(record, menu->menuAction());
            return;
        }
        QAction* const action = in->addAction("");
        action->setShortcut(ShortcutTextOf(record));
        action->setMenuRole(QAction::NoRole);
        QObject::connect(action, &QAction::triggered, &desktop,
                         [&desktop, &record] { desktop.Run([&] { ChooseMenu(record); }); });
        desktop.Widgets.Add(record, action);
    });
}
