// help_page.h: a pane that shows a help page: its pictures, its places, the search.

#pragma once

#include "core/control.h"

#include <QTextBrowser>

class HelpPage : public QTextBrowser
{
public:
    explicit HelpPage(QWidget* parent);

    /// Goes to the place that was asked for last, and to the next place with the text searched for.
    void Render(const Control& record);

private:
    void Find(const QString& text);

    unsigned Jumps = 0, Searches = 0;
};
