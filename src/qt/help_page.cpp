#include "qt/help_page.h"

#include "core/app_data.h"
#include "core/main_window.h"
#include "core/shared_state.h"

#include <QEvent>
#include <QScrollBar>

namespace {

/// Room for the search and the button that leaves the page.
constexpr int TopMargin = 44;

} // namespace

HelpPage::HelpPage(QWidget* parent) : QTextBrowser(parent)
{
    setOpenLinks(false); // links are the engine's
    document()->setDocumentMargin(16);
    setViewportMargins(0, TopMargin, 0, 0);
    setSearchPaths({QString::fromStdString(InstalledPath("help"))});
    setAutoFillBackground(true); // nothing shows through beside the search
    setBackgroundRole(QPalette::Base);
    // What was found is marked while the keys are in the search.
    QPalette colors = palette();
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        colors.setColor(QPalette::Inactive, role, colors.color(QPalette::Active, role));
    setPalette(colors);
}

void HelpPage::SetPage(const QString& html)
{
    Html = html;
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    document()->setDefaultStyleSheet(dark ? "a { color: #7fb8ff; }" : "a { color: #0b57a4; }");
    setHtml(html);
}

void HelpPage::resizeEvent(QResizeEvent* event)
{
    QScrollBar& bar = *verticalScrollBar();
    const bool atStart = bar.value() == 0;
    const QTextCursor first = cursorForPosition({0, 0});
    QTextBrowser::resizeEvent(event);
    if (!atStart) bar.setValue(bar.value() + cursorRect(first).top());
}

void HelpPage::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || Html.isEmpty()) return;
    const int place = verticalScrollBar()->value();
    SetPage(QString(Html));
    verticalScrollBar()->setValue(place);
}

void HelpPage::Render(const Control& record)
{
    if (!record.Visible) return;
    if (Jumps != Shared.HelpJumps) {
        Jumps = Shared.HelpJumps;
        moveCursor(QTextCursor::Start);
        if (record.Tag.empty()) {
            verticalScrollBar()->setValue(0);
        } else {
            scrollToAnchor(QString::fromStdString(record.Tag));
        }
    }
    if (Searches != Shared.HelpSearches) {
        Searches = Shared.HelpSearches;
        Find(QString::fromStdString(frmMain.txtHelpFind.Text));
    }
}

void HelpPage::Find(const QString& text)
{
    if (text.isEmpty() || find(text)) return;
    const QTextCursor before = textCursor();
    moveCursor(QTextCursor::Start);
    if (!find(text)) setTextCursor(before);
}
