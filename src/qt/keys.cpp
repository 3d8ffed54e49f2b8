#include "qt/keys.h"

namespace {

struct NamedKey {
    int Key;
    KeyName Name;
};
constexpr NamedKey NamedKeys[] = {
    {Qt::Key_Return, KeyName::Enter},
    {Qt::Key_Enter, KeyName::Enter},
    {Qt::Key_Tab, KeyName::Tab},
    {Qt::Key_Backtab, KeyName::Tab},
    {Qt::Key_Escape, KeyName::Escape},
    {Qt::Key_Up, KeyName::Up},
    {Qt::Key_Down, KeyName::Down},
    {Qt::Key_Left, KeyName::Left},
    {Qt::Key_Right, KeyName::Right},
    {Qt::Key_Home, KeyName::Home},
    {Qt::Key_End, KeyName::End},
    {Qt::Key_PageUp, KeyName::PageUp},
    {Qt::Key_PageDown, KeyName::PageDown},
    {Qt::Key_Insert, KeyName::Insert},
    {Qt::Key_Delete, KeyName::Delete},
    {Qt::Key_Backspace, KeyName::Backspace},
    {Qt::Key_F1, KeyName::F1},
    {Qt::Key_F2, KeyName::F2},
};

} // namespace

std::optional<KeyStroke> KeyStrokeOf(const QKeyEvent& event)
{
    KeyStroke key;
    key.Shift = event.modifiers().testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
    key.Ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    key.Alt = event.modifiers().testFlag(Qt::AltModifier);
    for (const NamedKey& named : NamedKeys) {
        if (named.Key != event.key()) continue;
        key.Name = named.Name;
        return key;
    }
    const bool letter = event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z;
    // [CTRL] with [ALT] types a character on some keyboards, so it is no shortcut.
    if (key.Ctrl != key.Alt) {
        if (!letter) return std::nullopt;
        key.Typed = static_cast<char>(event.key());
        return key;
    }
    if (event.text().isEmpty() || !event.text().at(0).isPrint()) return std::nullopt;
    key.Ctrl = key.Alt = false;
    key.Typed = KeyStrokeOf(event.text().at(0)).Typed;
    return key;
}

KeyStroke KeyStrokeOf(QChar typed)
{
    KeyStroke key;
    key.Typed = typed.unicode() < 128 ? static_cast<char>(typed.unicode()) : static_cast<char>(-1);
    return key;
}
