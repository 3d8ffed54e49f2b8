#include "qt/help_page.h"

#include "core/app_data.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"

#include <QEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTextBlock>

namespace {

/// Room for the search and the button that leaves the page.
constexpr int TopMargin = 44;
/// Where the room beside the search begins (see arrangement.cpp), and what the button leaves of it.
constexpr int BesideSearch = 292, BesideButton = 120;

/// The cursor in front of a named place, at the start of the page when there is none of that name.
QTextCursor CursorAt(QTextDocument& document, const QString& place)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (!part.fragment().charFormat().anchorNames().contains(place)) continue;
            QTextCursor cursor(&document);
            cursor.setPosition(part.fragment().position());
            return cursor;
        }
    }
    return QTextCursor(&document);
}

} // namespace

HelpPage::HelpPage(QWidget* parent) : QTextBrowser(parent), Missed(new QLabel(this))
{
    Missed->setObjectName("helpMissed");
    Missed->setTextFormat(Qt::PlainText);
    Missed->hide();
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
    Missed->setGeometry(BesideSearch, 0, std::max(0, width() - BesideSearch - BesideButton), TopMargin);
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
        Searches = Shared.HelpSearches; // what was searched for before was for another place
        Missed->hide();
        const QString place = QString::fromStdString(record.Tag);
        setTextCursor(CursorAt(*document(), place)); // the next search begins here
        if (place.isEmpty()) {
            verticalScrollBar()->setValue(0);
        } else {
            scrollToAnchor(place);
        }
    }
    if (Searches != Shared.HelpSearches) {
        Searches = Shared.HelpSearches;
        const std::string& text = frmMain.txtHelpFind.Text;
        Missed->setVisible(!Find(QString::fromStdString(text)));
        Missed->setText(QString::fromStdString(Tr("\"%1\" is not on this page", {text})));
    }
}

bool HelpPage::Find(const QString& text)
{
    if (text.isEmpty() || find(text)) return true;
    const QTextCursor before = textCursor();
    moveCursor(QTextCursor::Start);
    if (find(text)) return true;
    setTextCursor(before);
    return false;
}
