#include "qt/text_sync.h"

#include "qt/long_text.h"
#include "ui/text_box.h"

#include <QComboBox>
#include <QLineEdit>

#include <algorithm>

namespace {

QLineEdit* LineOf(QWidget& widget)
{
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return combo->lineEdit();
    return qobject_cast<QLineEdit*>(&widget);
}

/// Characters of the record for the first units of a line's text, and the other way.
int CharactersIn(const QString& text, qsizetype units)
{
    int characters = 0;
    for (qsizetype i = 0; i < std::min(units, text.size()); ++i) characters += !text.at(i).isLowSurrogate();
    return characters;
}

int UnitsOf(const QString& text, int characters)
{
    qsizetype units = 0;
    for (; units < text.size() && characters > 0; --characters)
        units += text.at(units).isHighSurrogate() ? 2 : 1;
    return static_cast<int>(units);
}

} // namespace

void CopyIn(QWidget& widget, Control& record)
{
    if (auto* const box = dynamic_cast<LongText*>(&widget)) {
        const QTextCursor cursor = box->textCursor();
        record.SelStart = box->CharactersAt(cursor.selectionStart());
        record.SelLength =
            cursor.hasSelection() ? box->CharactersAt(cursor.selectionEnd()) - record.SelStart : 0;
        if (record.Text != box->Text()) record.Text = box->Text();
    } else if (const QLineEdit* const line = LineOf(widget); line != nullptr) {
        const int start = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
        const int end = line->hasSelectedText() ? line->selectionEnd() : start;
        record.SelStart = CharactersIn(line->text(), start);
        record.SelLength = CharactersIn(line->text(), end) - record.SelStart;
        record.Text = line->text().toStdString();
    }
}

void PushText(QWidget& widget, const Control& record)
{
    const QSignalBlocker quiet(widget);
    if (auto* const box = dynamic_cast<LongText*>(&widget)) {
        box->Show(record.Text);
    } else if (QLineEdit* const line = LineOf(widget); line != nullptr) {
        const QString text = QString::fromStdString(record.Text);
        if (line->text() == text) return;
        const QSignalBlocker alsoQuiet(*line);
        line->setText(text);
    }
}

void PushSelection(QWidget& widget, const Control& record)
{
    Control clamped = record;
    ClampSelection(clamped);
    if (auto* const box = dynamic_cast<LongText*>(&widget)) {
        const int start = box->PositionAt(clamped.SelStart);
        const int end =
            clamped.SelLength == 0 ? start : box->PositionAt(clamped.SelStart + clamped.SelLength);
        QTextCursor cursor = box->textCursor();
        if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        box->setTextCursor(cursor);
    } else if (QLineEdit* const line = LineOf(widget); line != nullptr) {
        const int start = UnitsOf(line->text(), clamped.SelStart);
        const int end = UnitsOf(line->text(), clamped.SelStart + clamped.SelLength);
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
    if (auto* const box = dynamic_cast<LongText*>(&widget)) {
        box->insertPlainText(QString(QLatin1Char(typed)));
    } else if (QLineEdit* const line = LineOf(widget); line != nullptr) {
        line->insert(QString(QLatin1Char(typed)));
    }
}
