#include "qt/desktop.h"

#include "commands/exit.h"
#include "commands/help.h"
#include "commands/keyboard.h"
#include "commands/session.h"
#include "commands/windows.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/shared_state.h"
#include "editor/find.h"
#include "qt/keys.h"
#include "qt/pane.h"
#include "qt/style.h"
#include "qt/text_sync.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/tick.h"

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextBrowser>

#include <algorithm>
#include <utility>

Desktop::Desktop()
{
    ThePlatform = &Platform;
    if (QApplication::style()->name() == "fusion") QApplication::setStyle(new FrameStyle("fusion"));
    Platform.BeforeBox = [this] { ShowBehindBox(); };
    qApp->installEventFilter(this);
    // The engine says when the program ends; a window that goes doesn't.
    QApplication::setQuitOnLastWindowClosed(false);
    // The end of a session comes in two steps. Behind the first it may be called off yet.
    connect(
        qApp, &QGuiApplication::commitDataRequest, this, [] { KeepUnsaved(); }, Qt::DirectConnection);
    Tick.setInterval(1000);
    connect(&Tick, &QTimer::timeout, this, [this] { Run(tmr1sec_Timer); });
}

void Desktop::ShowBehindBox()
{
    Dialogs.Follow();
    Widgets.Push();
    for (const Window& window : Windows) window.Render();
}

Desktop::~Desktop()
{
    qApp->removeEventFilter(this);
}

void Desktop::AddWindow(Control& form, QWidget* window, std::function<void()> render)
{
    Widgets.Add(form, window);
    Windows.push_back({&form, window, std::move(render)});
}

void Desktop::StartTick()
{
    Tick.start();
}

void Desktop::Run(const std::function<void()>& routine)
{
    if (InEvent || Shared.Ended) return;
    InEvent = true;
    CopyCaretIn();
    routine();
    AfterEvent();
    InEvent = false;
    Render();
    if (Shared.Ended) QApplication::exit();
    const auto waiting = std::exchange(Later, {});
    for (const auto& next : waiting) Run(next);
}

void Desktop::End()
{
    if (!InEvent) {
        Run(EndOfSession);
    } else if (!Shared.Ended) {
        EndOfSession();
        QApplication::exit(); // the loop of the box as well: it gets its safe answer, and its event ends
    }
}

void Desktop::RunLater(const std::function<void()>& routine)
{
    if (!InEvent) {
        Run(routine);
    } else {
        Later.push_back(routine);
    }
}

void Desktop::Render()
{
    // Widgets that move or change while they are pushed report nothing back.
    InEvent = true;
    Dialogs.Follow();
    Widgets.Push();
    for (const Window& window : Windows) window.Render();
    PushActiveWindow();
    PushFocus();
    InEvent = false;
}

Control* Desktop::FormOf(const QObject* receiver) const
{
    if (receiver == nullptr || !receiver->isWidgetType()) return nullptr;
    const QWidget* const window = static_cast<const QWidget*>(receiver)->window();
    for (const Window& ours : Windows) {
        if (ours.Widget == window) return ours.Form;
    }
    return nullptr;
}

void Desktop::CopyCaretIn()
{
    Control* const box = TypingBox();
    if (box == nullptr) return;
    if (QWidget* const widget = Widgets.Of(*box)) CopyIn(*widget, *box);
}

void Desktop::PushActiveWindow()
{
    const Control* const active = &ActiveWindow();
    if (active == PushedActive) return;
    PushedActive = active;
    QWidget* const window = Widgets.Of(*active);
    if (window == nullptr || !window->isVisible() || window->isActiveWindow()) return;
    window->raise();
    window->activateWindow();
}

namespace {

/// The part of a widget that takes its keys: the line of an editable combo.
QWidget* TakerOfKeys(QWidget* widget)
{
    while (widget->focusProxy() != nullptr) widget = widget->focusProxy();
    return widget;
}

} // namespace

void Desktop::PushFocus()
{
    if (IsFindInFront()) {
        if (QWidget* const box = Widgets.Of(frmFind.txtFind)) {
            box->setFocus(Qt::OtherFocusReason);
            PushSelection(*box, frmFind.txtFind);
        }
        return;
    }
    Control* focused = Focused();
    if (IsHelpUp() && focused != &frmMain.cmdReturn && focused != &frmMain.txtHelpFind) {
        for (Control* page :
             {&frmMain.rtfHelp, &frmMain.rtfGcodeHelpMK2, &frmMain.rtfGcodeHelpMK4, &frmMain.rtfAbout})
            if (page->Visible) focused = page;
    }
    if (focused == nullptr) return;
    QWidget* const widget = Widgets.Of(*focused);
    if (widget == nullptr) return;
    QWidget* const target = TakerOfKeys(widget);
    if (target->window()->focusWidget() != target) target->setFocus(Qt::OtherFocusReason);
    if (focused == TypingBox()) PushSelection(*widget, *focused);
}

void Desktop::ConnectWidgets(Control& record)
{
    QWidget* const widget = Widgets.Of(record);
    const auto change = [this, &record, widget] {
        CopyIn(*widget, record);
        Run([&record] {
            if (record.On.Change != nullptr) record.On.Change();
        });
    };
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        connect(button, &QAbstractButton::clicked, this,
                [this, &record] { Run([&] { ClickControl(record); }); });
    } else if (auto* list = qobject_cast<QListWidget*>(widget)) {
        connect(list, &QListWidget::clicked, this, [this, &record](const QModelIndex& index) {
            Run([&, row = index.row()] { PickListItem(record, row); });
        });
    } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        connect(combo, &QComboBox::activated, this,
                [this, &record](int index) { Run([&, index] { PickListItem(record, index); }); });
        if (combo->isEditable()) connect(combo->lineEdit(), &QLineEdit::textEdited, this, change);
    } else if (auto* tabs = dynamic_cast<TabPane*>(widget)) {
        connect(tabs->Buttons(), &QButtonGroup::idClicked, this,
                [this, &record](int index) { Run([&, index] { PickListItem(record, index); }); });
    } else if (auto* page = qobject_cast<QTextBrowser*>(widget)) {
        connect(page, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
            Run([target = link.toString().toStdString()] { FollowHelpLink(target); });
        });
    } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
        connect(line, &QLineEdit::textEdited, this, change);
    } else if (auto* edit = qobject_cast<QPlainTextEdit*>(widget)) {
        connect(edit, &QPlainTextEdit::textChanged, this, change);
    }
}

namespace {

/// Buttons show that they have the focus while the keyboard is in use.
void ShowFocus(const QObject* receiver, bool shown)
{
    if (!receiver->isWidgetType()) return;
    static_cast<const QWidget*>(receiver)->window()->setAttribute(Qt::WA_KeyboardFocusChange, shown);
}

} // namespace

bool Desktop::eventFilter(QObject* receiver, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Quit: // the second step; the program's own end is no event
        // Before the settings are loaded there is nothing to keep, and they would be written over.
        if (receiver != qApp || !Tick.isActive()) break;
        End();
        return true;
    case QEvent::ShortcutOverride: {
        if (FormOf(receiver) == nullptr) break;
        const auto key = KeyStrokeOf(*static_cast<QKeyEvent*>(event));
        if (!key || !IsShortcut(*key)) break;
        event->accept();
        return true;
    }
    case QEvent::KeyPress:
        ShowFocus(receiver, true);
        if (FormOf(receiver) != nullptr && qobject_cast<QMenuBar*>(receiver) == nullptr)
            return TakeKey(receiver, static_cast<QKeyEvent*>(event));
        break;
    case QEvent::Wheel:
        // In the drawing the wheel belongs to the scale, also above the lists of the frame.
        if (FormOf(receiver) != &frmDraw.Window || qobject_cast<QComboBox*>(receiver) == nullptr) break;
        event->ignore();
        return true;
    case QEvent::InputMethod:
        if (FormOf(receiver) != nullptr) return TakeInputMethod(static_cast<QInputMethodEvent*>(event));
        break;
    case QEvent::MouseButtonPress: ShowFocus(receiver, false); [[fallthrough]];
    case QEvent::MouseButtonDblClick:
        if (FormOf(receiver) != nullptr) return TakePress(receiver);
        break;
    case QEvent::MouseButtonRelease:
        if (FormOf(receiver) != nullptr)
            return TakeRelease(receiver, static_cast<QMouseEvent*>(event)->position());
        break;
    default: break;
    }
    return false;
}

bool Desktop::TakeKey(QObject* receiver, QKeyEvent* event)
{
    const auto key = KeyStrokeOf(*event);
    if (!key) return false;
    event->accept();
    // Keys come to the window that is in front on the screen, so it is in front for the engine too.
    Control* const form = FormOf(receiver);
    if (form != &frmFind.Window && form != &ActiveWindow()) Run([&] { BringToFront(*form); });
    OfferAndType(*key, receiver, event);
    return true;
}

bool Desktop::TakeInputMethod(QInputMethodEvent* event)
{
    Control* const box = TypingBox();
    if (box == nullptr || event->commitString().isEmpty()) return box != nullptr;
    for (const QChar& c : event->commitString()) {
        QKeyEvent typed(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        OfferAndType(KeyStrokeOf(c), QApplication::focusWidget(), &typed);
    }
    event->accept();
    return true;
}

void Desktop::OfferAndType(const KeyStroke& key, QObject* receiver, QKeyEvent* native)
{
    if (InEvent) return;
    std::optional<KeyStroke> left;
    Run([&] { left = OfferKey(key); });
    if (!left || Shared.Ended || receiver == nullptr) return;
    Control* const box = TypingBox();
    if (box != nullptr && LeaveSelection(*Widgets.Of(*box), *left)) return;
    const bool otherCase = left->Name == KeyName::Character && left->Typed != key.Typed;
    if (box != nullptr && otherCase) {
        QWidget* const widget = Widgets.Of(*box);
        TypeCharacter(*widget, left->Typed);
        CopyIn(*widget, *box);
    } else {
        // Keys may come to the old window for a moment after another was opened for them.
        QObject* const target = box != nullptr ? TakerOfKeys(Widgets.Of(*box)) : receiver;
        target->event(native);
    }
}

bool Desktop::TakePress(QObject* receiver)
{
    if (InEvent) return true;
    Control* const record = Widgets.RecordOf(receiver);
    if (record == nullptr || (record->Is != Kind::TextBox && record->Is != Kind::Combo)) return false;
    // The widget puts its caret only when the engine has let the cursor come.
    if (record == &frmFind.txtFind) return false;
    const bool had = HasFocus(*record);
    // What a list chooses is told by the widget: opening it chooses nothing.
    Run([&] {
        BringToFront(WindowOf(*record));
        SetFocus(*record);
    });
    if (!had && HasFocus(*record)) ClickedInto = record;
    return !HasFocus(*record);
}

bool Desktop::TakeRelease(QObject* receiver, const QPointF& at)
{
    // A click that brings the cursor into a box leaves selected what the engine has selected.
    if (Control* const box = std::exchange(ClickedInto, nullptr)) {
        const auto* const line = Widgets.As<QLineEdit>(*box);
        if (line != nullptr && !line->hasSelectedText() && HasFocus(*box))
            PushSelection(*Widgets.Of(*box), *box);
    }
    // About is left by a click anywhere, not only on its items.
    if (receiver->parent() == Widgets.Of(frmMain.lstAbout)) {
        Run([] { ClickControl(frmMain.lstAbout); });
        return false;
    }
    Control* const record = Widgets.RecordOfExactly(receiver);
    if (record == nullptr || record->On.Click == nullptr) return false;
    const bool plain = record->Is == Kind::Label || record->Is == Kind::Frame || record->Is == Kind::Picture;
    if (!plain || !static_cast<QWidget*>(receiver)->rect().contains(at.toPoint())) return false;
    Run([&] { ClickControl(*record); });
    return true;
}
