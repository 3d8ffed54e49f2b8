#include "cli/script_words.h"

#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/numbers.h"
#include "editor/find.h"
#include "ui/focus.h"

#include <algorithm>
#include <functional>

namespace {

void VisitControls(const Control& window, const std::function<void(Control&)>& visit)
{
    if (&window == &frmMain.Window) frmMain.ForEach(visit);
    if (&window == &frmDraw.Window) frmDraw.ForEach(visit);
    if (&window == &frmProgramWindow.Window) frmProgramWindow.ForEach(visit);
    if (&window == &frmFind.Window) visit(frmFind.txtFind);
}

Control* FindIn(const Control& window, std::string_view name, int element)
{
    Control* found = nullptr;
    VisitControls(window, [&](Control& control) {
        if (name == control.Name && element == control.Element) found = &control;
    });
    return found;
}

} // namespace

std::string NextWord(std::string_view& rest)
{
    rest = rest.substr(std::min(rest.find_first_not_of(' '), rest.size()));
    const std::string word(rest.substr(0, rest.find(' ')));
    rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    return word;
}

std::optional<int> NumberOf(const std::string& word)
{
    if (word.empty() || word.size() > 8) return std::nullopt;
    const size_t digits = word.find_first_not_of("0123456789", word[0] == '-' ? 1 : 0);
    if (digits != std::string::npos || word == "-") return std::nullopt;
    return static_cast<int>(Val(word));
}

Control* WindowOfName(std::string_view name)
{
    for (Control* window : {&frmMain.Window, &frmFind.Window, &frmDraw.Window, &frmProgramWindow.Window}) {
        if (name == window->Name) return window;
    }
    return nullptr;
}

Control* FindControl(std::string name)
{
    const Control* window = nullptr;
    if (const size_t dot = name.find('.'); dot != std::string::npos) {
        window = WindowOfName(name.substr(0, dot));
        if (window == nullptr) return nullptr;
        name.erase(0, dot + 1);
    }
    int element = -1;
    if (const size_t bracket = name.find('('); bracket != std::string::npos && name.back() == ')') {
        element = NumberOf(name.substr(bracket + 1, name.size() - bracket - 2)).value_or(-2);
        name.erase(bracket);
    }
    if (window != nullptr) return FindIn(*window, name, element);
    Control* const inFront = FindIn(IsFindInFront() ? frmFind.Window : ActiveWindow(), name, element);
    return inFront != nullptr ? inFront : FindIn(frmMain.Window, name, element);
}

Fault NoSuch(const std::string& what)
{
    return "there is no \"" + what + "\"";
}
