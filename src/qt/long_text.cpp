#include "qt/long_text.h"

#include "core/text.h"

#include <QTextBlock>

#include <algorithm>

namespace {

/// Stands in front of a break that the text hasn't: a blank without width.
constexpr QChar Mark(0x200B);
/// Where a line is broken, in units of the document.
constexpr int LongestLine = 500;

bool IsBroken(const QString& line)
{
    return line.endsWith(Mark);
}

/// Whether a unit of the document is a character of the text of its own.
bool Counts(QChar unit)
{
    return !unit.isLowSurrogate() && unit != Mark;
}

int CountIn(QStringView line)
{
    return static_cast<int>(std::count_if(line.begin(), line.end(), Counts));
}

/// Takes the end of a line, one or two characters, from the front of the text.
int TakeLineEnd(std::string_view& text)
{
    const size_t length = text.starts_with(LineEnd) ? 2 : 1;
    text.remove_prefix(std::min(length, text.size()));
    return static_cast<int>(length);
}

} // namespace

void LongText::Show(const std::string& text)
{
    const bool same = document()->revision() == Revision;
    if (same && text == Shown) return;
    if (same && text.starts_with(Shown) && !Shown.empty()) {
        std::string_view added = std::string_view(text).substr(Shown.size());
        // The second half of a line end that is shown already.
        if (Shown.ends_with('\r') && added.starts_with('\n')) added.remove_prefix(1);
        Append(added);
        if (textCursor().position() == End()) ensureCursorVisible();
    } else {
        clear();
        Append(text);
        moveCursor(QTextCursor::Start);
    }
    document()->clearUndoRedoStacks();
    Shown = text;
    Revision = document()->revision();
}

void LongText::Append(std::string_view text)
{
    QString added = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    added.replace("\r\n", "\n").replace('\r', '\n');
    QString broken;
    int column = document()->lastBlock().length() - 1;
    for (const QChar unit : added) {
        if (unit == '\n') {
            column = -1;
        } else if (column >= LongestLine && !unit.isLowSurrogate()) {
            broken += Mark;
            broken += '\n';
            column = 0;
        }
        broken += unit;
        ++column;
    }
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(broken);
}

const std::string& LongText::Text()
{
    if (document()->revision() == Revision) return Shown;
    QString text = toPlainText();
    text.remove(QString(Mark) + '\n').remove(Mark).replace('\n', "\r\n");
    Shown = text.toStdString();
    Revision = document()->revision();
    return Shown;
}

int LongText::CharactersAt(int position)
{
    std::string_view rest = Text();
    if (position >= End()) return static_cast<int>(CharacterCount(rest));
    int characters = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const QString line = block.text();
        const int inside = position - block.position();
        if (inside <= line.size()) return characters + CountIn(QStringView(line).first(std::max(inside, 0)));
        const int count = CountIn(line);
        rest = FromCharacter(rest, static_cast<size_t>(count));
        characters += count + (IsBroken(line) ? 0 : TakeLineEnd(rest));
    }
    return characters;
}

int LongText::PositionAt(int characters)
{
    std::string_view rest = Text();
    if (static_cast<size_t>(characters) >= CharacterCount(rest)) return End();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const QString line = block.text();
        const int count = CountIn(line);
        if (characters <= count) {
            int units = 0;
            while (characters > 0 || (units < line.size() && line[units].isLowSurrogate()))
                characters -= Counts(line[units++]) ? 1 : 0;
            return block.position() + units;
        }
        characters -= count;
        rest = FromCharacter(rest, static_cast<size_t>(count));
        if (!IsBroken(line)) characters -= std::min(characters, TakeLineEnd(rest));
    }
    return End();
}
