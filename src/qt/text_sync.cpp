#include "qt/text_sync.h"

#include "ui/text_box.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <algorithm>

namespace {

const QLineEdit* LineOf(const QWidget& widget)
{
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return combo->lineEdit();
    return qobject_cast<const QLineEdit*>(&widget);
}

QLineEdit* LineOf(QWidget& widget)
{
    return const_cast<QLineEdit*>(LineOf(std::as_const(widget)));
}

/// Characters of the record for the first units of a widget's text, and the other way.
int CharactersIn(const QString& text, qsizetype units)
{
    int characters = 0;
    for (qsizetype i = 0; i < std::min(units, text.size()); ++i) {
        if (text.at(i).isLowSurrogate()) continue;
        characters += text.at(i) == '\n' ? 2 : 1;
    }
    return characters;
}

int UnitsOf(const QString& text, int characters)
{
    qsizetype units = 0;
    while (units < text.size() && CharactersIn(text, units) < characters) {
        units += text.at(units).isHighSurrogate() ? 2 : 1;
    }
    return static_cast<int>(units);
}

QString TextOf(const QWidget& widget)
{
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(&widget)) return edit->toPlainText();
    const QLineEdit* const line = LineOf(widget);
    return line != nullptr ? line->text() : QString();
}

QString WidgetText(const Control& record)
{
    QString text = QString::fromStdString(record.Text);
    if (record.MultiLine) text.replace("\r\n", "\n").replace('\r', '\n');
    return text;
}

} // namespace

void CopyIn(const QWidget& widget, Control& record)
{
    QString text = TextOf(widget);
    int start = 0, end = 0;
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(&widget)) {
        start = edit->textCursor().selectionStart();
        end = edit->textCursor().selectionEnd();
    } else if (const QLineEdit* const line = LineOf(widget); line != nullptr) {
        start = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
        end = line->hasSelectedText() ? line->selectionEnd() : start;
    } else {
        return;
    }
    record.SelStart = CharactersIn(text, start);
    record.SelLength = CharactersIn(text, end) - record.SelStart;
    if (text == WidgetText(record)) return;
    if (record.MultiLine) text.replace('\n', "\r\n");
    record.Text = text.toStdString();
}

void PushText(QWidget& widget, const Control& record)
{
    const QString text = WidgetText(record);
    if (TextOf(widget) == text) return;
    const QSignalBlocker quiet(widget);
    if (auto* edit = qobject_cast<QPlainTextEdit*>(&widget)) {
        edit->setPlainText(text);
    } else if (QLineEdit* const line = LineOf(widget); line != nullptr) {
        const QSignalBlocker alsoQuiet(*line);
        line->setText(text);
    }
}

void PushSelection(QWidget& widget, const Control& record)
{
    Control clamped = record;
    ClampSelection(clamped);
    const QString text = TextOf(widget);
    const int start = UnitsOf(text, clamped.SelStart);
    const int end = UnitsOf(text, clamped.SelStart + clamped.SelLength);
    if (auto* edit = qobject_cast<QPlainTextEdit*>(&widget)) {
        QTextCursor cursor = edit->textCursor();
        if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        edit->setTextCursor(cursor);
    } else if (QLineEdit* const line = LineOf(widget); line != nullptr) {
        if (start == end) {
            if (line->hasSelectedText() || line->cursorPosition() != start) line->setCursorPosition(start);
            if (line->hasSelectedText()) line->deselect();
        } else if (line->selectionStart() != start || line->selectionEnd() != end) {
            line->setSelection(start, end - start);
        }
    }
}

bool LeaveSelection(QWidget& widget, const KeyStroke& key)
{
    const bool left = key.Name == KeyName::Left, right = key.Name == KeyName::Right;
    QLineEdit* const line = LineOf(widget);
    if (line == nullptr || !line->hasSelectedText() || key.Shift || key.Ctrl || !(left || right))
        return false;
    line->setCursorPosition(left ? line->selectionStart() : line->selectionEnd());
    return true;
}

void TypeCharacter(QWidget& widget, char typed)
{
    if (auto* edit = qobject_cast<QPlainTextEdit*>(&widget)) {
        edit->insertPlainText(QString(QLatin1Char(typed)));
    } else if (QLineEdit* const line = LineOf(widget); line != nullptr) {
        line->insert(QString(QLatin1Char(typed)));
    }
}
