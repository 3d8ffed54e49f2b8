// control_widgets.h: the widget of each record, and what of the record is pushed into it.
//
// The records are the truth. A widget is made once for its record and then follows it: after each event
// whatever differs is pushed, in this one direction.

#pragma once

#include "core/control.h"

#include <unordered_map>
#include <vector>

class QAction;
class QObject;
class QWidget;

class ControlWidgets
{
public:
    /// Makes the widget of a record inside a parent. Menus aren't made here.
    QWidget* Make(Control& record, QWidget* parent);
    /// Takes a widget that was made elsewhere.
    void Add(Control& record, QWidget* widget);
    /// Takes the entry of a menu, or of the menu bar.
    void Add(Control& record, QAction* action);

    /// The widget of a record; null for a menu, and for a record that has none yet.
    QWidget* Of(const Control& record) const;
    /// The same as a kind of widget; null when it is another.
    template <class Widget> Widget* As(const Control& record) const
    {
        return dynamic_cast<Widget*>(Of(record));
    }

    /// The record of a widget, or of what the widget is a part of; null for none.
    Control* RecordOf(const QObject* widget) const;
    /// The record whose own widget this is.
    Control* RecordOfExactly(const QObject* widget) const;

    /// Pushes all differences.
    void Push();

private:
    struct Bound {
        Control* Record;
        QWidget* Widget;
        QAction* Action;
        /// What was pushed last.
        Control Pushed;
        bool Fresh = true;
    };
    void PushWidget(Bound& bound);
    void PushAction(Bound& bound);

    std::vector<Bound> All;
    std::unordered_map<const QObject*, Control*> Records;
    std::unordered_map<const Control*, QWidget*> Widgets;
    /// Translated.Version when the records were pushed last, and whether names and tips are of another
    /// language.
    unsigned PushedLanguage = 0;
    bool NewLanguage = false;
};
