// help_page.h: a pane that shows a help page: its pictures, its places, the search.

#pragma once

#include "core/control.h"

#include <QTextBrowser>

class QLabel;

class HelpPage : public QTextBrowser
{
public:
    explicit HelpPage(QWidget* parent);

    /// Shows the text of a page, with links that stand out from the ground.
    void SetPage(const QString& html);

    /// Goes to the place that was asked for last, and from there to the next place with the text searched
    /// for. A text that the page doesn't have is told.
    void Render(const Control& record);

protected:
    /// The first line stays the first.
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Goes to the next place of a text, behind the last one to the first; false when the page has none.
    bool Find(const QString& text);

    QString Html;
    /// Tells beside the search that a text was not found.
    QLabel* const Missed;
    unsigned Jumps = 0, Searches = 0;
};
