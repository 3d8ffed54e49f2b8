#include "ui/text_box.h"

#include "core/text.h"

#include <algorithm>

namespace {

/// Outlasts a reset, as the system's does.
std::string Clipboard;

int Length(const Control& box)
{
    return static_cast<int>(CharacterCount(box.Text));
}

/// The text in front of the selection, in it, and behind it.
struct Pieces {
    std::string Before, Selected, Behind;
};

Pieces Cut(const Control& box)
{
    const auto start = static_cast<size_t>(box.SelStart), length = static_cast<size_t>(box.SelLength);
    const std::string_view text(box.Text);
    const std::string_view rest = FromCharacter(text, start);
    return {std::string(FirstCharacters(text, start)), std::string(FirstCharacters(rest, length)),
            std::string(FromCharacter(rest, length))};
}

void Replace(Control& box, const std::string& by)
{
    const Pieces pieces = Cut(box);
    box.Text = pieces.Before + by + pieces.Behind;
    box.SelStart += static_cast<int>(CharacterCount(by));
    box.SelLength = 0;
}

/// Removes the selection, or the character beside the caret.
bool Remove(Control& box, int from)
{
    if (box.SelLength == 0) {
        const int at = box.SelStart + from;
        if (at < 0 || at >= Length(box)) return false;
        box.SelStart = at;
        box.SelLength = 1;
        // CR LF is one step.
        const std::string_view behind = FromCharacter(box.Text, static_cast<size_t>(at));
        if (behind.starts_with(LineEnd)) box.SelLength = 2;
        if (from < 0 && behind.starts_with('\n') && at > 0) {
            --box.SelStart;
            box.SelLength = 2;
        }
    }
    Replace(box, "");
    return true;
}

void MoveCaret(Control& box, int to)
{
    box.SelStart = std::clamp(to, 0, Length(box));
    box.SelLength = 0;
}

bool UseClipboard(Control& box, char letter)
{
    if (letter != 'V' && box.SelLength > 0) Clipboard = Cut(box).Selected;
    if (letter == 'C' || (letter == 'X' && box.SelLength == 0)) return false;
    if (letter == 'V' && Clipboard.empty()) return false;
    InsertText(box, letter == 'V' ? Clipboard : "");
    return true;
}

} // namespace

void SelectAll(Control& box)
{
    box.SelStart = 0;
    box.SelLength = Length(box);
}

void ClampSelection(Control& box)
{
    box.SelStart = std::clamp(box.SelStart, 0, Length(box));
    box.SelLength = std::clamp(box.SelLength, 0, Length(box) - box.SelStart);
}

bool IsAllSelected(const Control& box)
{
    return box.SelStart == 0 && box.SelLength >= Length(box);
}

bool IsCaretAtStart(const Control& box)
{
    return box.SelStart == 0 || box.Text.empty();
}

void InsertText(Control& box, const std::string& text)
{
    ClampSelection(box);
    size_t room = CharacterCount(text);
    if (box.MaxLength > 0) {
        room = static_cast<size_t>(std::max(0, box.MaxLength - (Length(box) - box.SelLength)));
    }
    Replace(box, std::string(FirstCharacters(text, room)));
}

bool EditText(Control& box, const KeyStroke& key, bool multiLine)
{
    ClampSelection(box);
    const int end = box.SelStart + box.SelLength;
    switch (key.Name) {
    case KeyName::Left: MoveCaret(box, box.SelLength > 0 ? box.SelStart : box.SelStart - 1); return false;
    case KeyName::Right: MoveCaret(box, box.SelLength > 0 ? end : end + 1); return false;
    case KeyName::Home: MoveCaret(box, 0); return false;
    case KeyName::End: MoveCaret(box, Length(box)); return false;
    case KeyName::Backspace: return Remove(box, -1);
    case KeyName::Delete: return Remove(box, 0);
    case KeyName::Enter:
        if (multiLine) InsertText(box, std::string(LineEnd));
        return multiLine;
    case KeyName::Character: break;
    default: return false;
    }
    if (key.Ctrl)
        return std::string_view("CVX").find(key.Typed) != std::string_view::npos &&
               UseClipboard(box, key.Typed);
    if (key.Alt) return false;
    const std::string before = box.Text;
    InsertText(box, std::string(1, key.Typed));
    return box.Text != before;
}
