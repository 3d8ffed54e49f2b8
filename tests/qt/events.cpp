#include "qt/events.h"

#include <QApplication>
#include <QTest>
#include <QWidget>

#include <utility>

namespace {

constexpr std::pair<std::string_view, Qt::Key> NamedKeys[] = {
    {"ENTER", Qt::Key_Return},  {"KEYPAD", Qt::Key_Enter},  {"TAB", Qt::Key_Tab},
    {"ESC", Qt::Key_Escape},    {"UP", Qt::Key_Up},         {"DOWN", Qt::Key_Down},
    {"LEFT", Qt::Key_Left},     {"RIGHT", Qt::Key_Right},   {"HOME", Qt::Key_Home},
    {"END", Qt::Key_End},       {"DELETE", Qt::Key_Delete}, {"BACKSPACE", Qt::Key_Backspace},
    {"INSERT", Qt::Key_Insert}, {"F1", Qt::Key_F1},         {"F2", Qt::Key_F2},
};

void SendNamed(std::string_view name)
{
    Qt::KeyboardModifiers held;
    const auto take = [&](std::string_view word, Qt::KeyboardModifier modifier) {
        if (!name.starts_with(word)) return;
        held |= modifier;
        name.remove_prefix(word.size());
    };
    take("SHIFT-", Qt::ShiftModifier);
    take("CTRL-", Qt::ControlModifier);
    take("ALT-", Qt::AltModifier);
    for (const auto& [word, key] : NamedKeys) {
        if (word == name) return QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(name[0]), held);
}

} // namespace

void SendKeys(std::string_view script)
{
    while (!script.empty()) {
        if (script[0] == '{') {
            const size_t end = script.find('}');
            SendNamed(script.substr(1, end - 1));
            script.remove_prefix(end + 1);
        } else {
            QTest::keyClick(QApplication::focusWidget(), script[0]);
            script.remove_prefix(1);
        }
    }
}
