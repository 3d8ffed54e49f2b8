// help_page.h: a pane that shows a help page: its pictures, its places, the search.

#pragma once

#include "core/control.h"

#include <QTextBrowser>

class HelpPage : public QTextBrowser
{
public:
    explicit HelpPage(QWidget* parent);

    /// Shows the text of a page, with links that stand out from the ground.
    void SetPage(const QString& html);

    /// Goes to the place that was asked for last, and to the next place with the text searched for.
    void Render(const Control& record);

protected:
    /// The first line stays the first.
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Find(const QString& text);

    QString Html;
    unsigned Jumps = 0, Searches = 0;
};
