// desktop.h: events of the toolkit become events of the engine, and its records become widgets again.
//
// An event copies the caret in, runs one routine of the engine and AfterEvent(), and renders. Only one runs
// at a time: what arrives while a box is up waits or is dropped. Keys are offered to the engine first; what
// it leaves is typed by the widget. The focus is the engine's, and put where it says.

#pragma once

#include "qt/control_widgets.h"
#include "qt/dialog_language.h"
#include "qt/qt_platform.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

class QInputMethodEvent;
class QKeyEvent;
class QWidget;

class Desktop : public QObject
{
public:
    Desktop();
    ~Desktop() override;

    ControlWidgets Widgets;

    /// Takes in a window whose keys and clicks are the engine's. `render` pushes what is its own.
    void AddWindow(Control& form, QWidget* window, std::function<void()> render);

    /// Runs a routine of the engine as one event. Nothing while another event runs.
    void Run(const std::function<void()>& routine);
    /// Runs it when the event that runs now is over.
    void RunLater(const std::function<void()>& routine);
    /// The system ends the program: what is unsaved is kept, a box that is up is given up, nobody is asked.
    void End();

    /// Connects the clicks and choices of the widgets that have been made.
    void ConnectWidgets(Control& record);

    /// Pushes all records into the widgets.
    void Render();

    /// Pushes what the windows show, behind a box that comes up within an event.
    void ShowBehindBox();

    /// The tick of each second.
    void StartTick();

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    /// The record of the window that a widget stands in, null for a window that isn't ours.
    Control* FormOf(const QObject* receiver) const;
    void CopyCaretIn();
    void PushFocus();
    /// Brings the window that the engine has chosen to the front.
    void PushActiveWindow();
    bool TakeKey(QObject* receiver, QKeyEvent* event);
    bool TakeInputMethod(QInputMethodEvent* event);
    /// Offers a key and lets the widget type what is left; `native` is the event to type with, if any.
    void OfferAndType(const KeyStroke& key, QObject* receiver, QKeyEvent* native);
    bool TakePress(QObject* receiver);
    bool TakeRelease(QObject* receiver, const QPointF& at);

    struct Window {
        Control* Form;
        QWidget* Widget;
        std::function<void()> Render;
    };
    std::vector<Window> Windows;
    std::vector<std::function<void()>> Later;
    QtPlatform Platform;
    DialogLanguage Dialogs;
    QTimer Tick;
    bool InEvent = false;
    const Control* PushedActive = nullptr;
    /// The box that the button pressed just now has brought the cursor into.
    Control* ClickedInto = nullptr;
};
