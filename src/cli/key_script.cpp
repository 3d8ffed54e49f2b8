#include "cli/key_script.h"

#include "cli/open_program.h"
#include "cli/port_items.h"
#include "cli/script_words.h"
#include "cli/window_items.h"
#include "commands/keyboard.h"
#include "commands/session.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "platform/failing_disk.h"
#include "ui/choice.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/text_box.h"

namespace {

struct NamedKey {
    std::string_view Name;
    KeyName Key;
};
constexpr NamedKey NamedKeys[] = {
    {"ENTER", KeyName::Enter},   {"TAB", KeyName::Tab},
    {"ESC", KeyName::Escape},    {"UP", KeyName::Up},
    {"DOWN", KeyName::Down},     {"LEFT", KeyName::Left},
    {"RIGHT", KeyName::Right},   {"HOME", KeyName::Home},
    {"END", KeyName::End},       {"PGUP", KeyName::PageUp},
    {"PGDN", KeyName::PageDown}, {"INSERT", KeyName::Insert},
    {"DELETE", KeyName::Delete}, {"BACKSPACE", KeyName::Backspace},
    {"F1", KeyName::F1},         {"F2", KeyName::F2},
};

/// Runs an action on the control that the next word names, which must be of a kind that `fits`.
template <class Action> Fault WithControl(std::string_view rest, bool (*fits)(const Control&), Action action)
{
    const std::string name = NextWord(rest);
    Control* const control = FindControl(name);
    if (control == nullptr) return NoSuch(name);
    if (!fits(*control)) return name + " is of another kind";
    return action(*control, rest);
}

bool IsAny(const Control&)
{
    return true;
}
bool IsMenu(const Control& control)
{
    return control.Is == Kind::Menu;
}
bool IsCheckBox(const Control& control)
{
    return control.Is == Kind::CheckBox;
}
bool IsList(const Control& control)
{
    return control.Is == Kind::List || control.Is == Kind::Combo || control.Is == Kind::Tabs;
}
bool IsTextBox(const Control& control)
{
    return control.Is == Kind::TextBox || control.Is == Kind::Combo;
}
bool IsUnits(const Control& control)
{
    return control.In == &frmMain.frSettingsLathe || control.In == &frmMain.frSettingsMill;
}

Fault Click(std::string_view rest)
{
    return WithControl(rest, IsAny, [](Control& control, std::string_view) -> Fault {
        ClickControl(control);
        return Fine;
    });
}

Fault Check(std::string_view rest)
{
    return WithControl(rest, IsCheckBox, [](Control& box, std::string_view) -> Fault {
        ClickControl(box);
        return Fine;
    });
}

Fault Menu(std::string_view rest)
{
    return WithControl(rest, IsMenu, [](Control& entry, std::string_view) -> Fault {
        ChooseMenu(entry);
        return Fine;
    });
}

Fault Row(std::string_view rest)
{
    return WithNumber(rest, ClickRow);
}

Fault RightRow(std::string_view rest)
{
    return WithNumber(rest, RightClickRow);
}

Fault Select(std::string_view rest)
{
    return WithNumber(rest, [](int row) {
        if (row >= 1 && row <= lvCncProgram.RowCount()) SelectRow(row);
    });
}

Fault Header(std::string_view rest)
{
    return WithNumber(rest, ClickHeader);
}

Fault Pick(std::string_view rest)
{
    return WithControl(rest, IsList, [](Control& list, std::string_view number) {
        return WithNumber(number, [&](int item) { PickListItem(list, item - 1); });
    });
}

Fault GiveFocus(std::string_view rest)
{
    return WithControl(rest, TakesFocus, [](Control& control, std::string_view) -> Fault {
        if (&control != &frmFind.txtFind) SetFocus(control);
        return Fine;
    });
}

Fault ReplaceText(std::string_view rest)
{
    return WithControl(rest, IsTextBox, [](Control& box, std::string_view value) -> Fault {
        if (!IsUsable(box)) return Fine;
        SelectAll(box);
        InsertText(box, std::string(value));
        if (box.On.Change != nullptr) box.On.Change();
        return Fine;
    });
}

/// Chooses an option that the user finds on its tab.
Fault ChooseOption(Control& option)
{
    for (const Control* at = &option; at != nullptr; at = at->In) {
        if (!at->Enabled) return Fine;
    }
    if (IsUsable(option)) {
        ClickControl(option);
        return Fine;
    }
    // On a tab that isn't shown it can't keep the focus, but the field that is left is judged first.
    SetFocus(frmMain.lvCncProgram);
    if (HasFocus(frmMain.lvCncProgram) && !RefuseWhileBusy()) Choose(option);
    return Fine;
}

Fault ChooseMachine(std::string_view rest)
{
    const std::string name = NextWord(rest);
    if (name == "MK2") return ChooseOption(frmMain.optSettingsMK2);
    if (name == "MK4") return ChooseOption(frmMain.optSettingsMK4);
    if (name == "F1") return ChooseOption(frmMain.optSettingsF1CNC);
    return NoSuch(name);
}

Fault ChooseUnits(std::string_view rest)
{
    return WithControl(rest, IsUnits, [](Control& option, std::string_view) { return ChooseOption(option); });
}

Fault AnswerBox(std::string_view rest)
{
    constexpr std::pair<std::string_view, Answer> Answers[] = {
        {"Yes", Answer::Yes}, {"No", Answer::No}, {"Cancel", Answer::Cancel}, {"OK", Answer::OK}};
    const std::string word = NextWord(rest);
    for (const auto& [name, answer] : Answers) {
        if (name != word) continue;
        Console.Answers.push_back(answer);
        return Fine;
    }
    return NoSuch(word);
}

Fault AnswerFile(std::string_view rest)
{
    if (rest.empty()) {
        Console.Files.push_back(std::nullopt);
        return Fine;
    }
    Console.Files.push_back(AbsolutePath(std::string(rest)));
    return Fine;
}

Fault AnswerColor(std::string_view rest)
{
    return WithNumber(rest, [](int color) { Console.Colors.push_back(color); });
}

Fault AnswerPrinter(std::string_view rest)
{
    const auto copies = NumberOf(NextWord(rest));
    if (!copies || *copies < 0) return "a number is missing";
    Console.Printer.Answers.push_back(*copies);
    return Fine;
}

Fault Disk(std::string_view rest)
{
    const std::string state = NextWord(rest);
    if (state != "FULL" && state != "OK") return NoSuch(state);
    FillDisk(state == "FULL");
    return Fine;
}

constexpr Item EditorItems[] = {
    {"CLICK", Click},
    {"CHECK", Check},
    {"MENU", Menu},
    {"ROW", Row},
    {"RIGHTROW", RightRow},
    {"SELECT", Select},
    {"HEADER", Header},
    {"PICK", Pick},
    {"FOCUS", GiveFocus},
    {"TEXT", ReplaceText},
    {"MACHINE", ChooseMachine},
    {"UNITS", ChooseUnits},
    {"ANSWER", AnswerBox},
    {"FILE", AnswerFile},
    {"COLOR", AnswerColor},
    {"COPIES", AnswerPrinter},
    {"DISK", Disk},
};

/// "{CTRL-S}", "{SHIFT-CTRL-E}", "{ENTER}": a key with what is held down; nothing when it is none.
std::optional<KeyStroke> KeyOf(std::string_view name)
{
    KeyStroke key;
    for (;;) {
        if (name.starts_with("CTRL-")) {
            key.Ctrl = true;
            name.remove_prefix(5);
        } else if (name.starts_with("ALT-")) {
            key.Alt = true;
            name.remove_prefix(4);
        } else if (name.starts_with("SHIFT-")) {
            key.Shift = true;
            name.remove_prefix(6);
        } else {
            break;
        }
    }
    for (const NamedKey& named : NamedKeys) {
        if (named.Name != name) continue;
        key.Name = named.Key;
        return key;
    }
    const bool letter = name.size() == 1 && (key.Ctrl || key.Alt) && name[0] >= 'A' && name[0] <= 'Z';
    if (!letter) return std::nullopt;
    key.Typed = name[0];
    return key;
}

Fault RunItem(std::string_view item)
{
    if (const auto key = KeyOf(item)) {
        PressKey(*key);
        return Fine;
    }
    std::string_view rest = item;
    const std::string name = NextWord(rest);
    for (const std::span<const Item> items : {std::span<const Item>(EditorItems), WindowItems, PortItems}) {
        for (const Item& known : items) {
            if (known.Name == name) return known.Run(rest);
        }
    }
    return "there is no such item";
}

} // namespace

std::optional<std::string> RunKeyScript(std::string_view script)
{
    while (!script.empty() && !Shared.Ended) {
        const char c = script.front();
        if (c == '{' && !script.starts_with("{{")) {
            const size_t end = script.find('}');
            if (end == std::string_view::npos)
                return "a brace isn't closed: " + std::string(script.substr(0, 40));
            const std::string_view item = script.substr(1, end - 1);
            if (const Fault fault = RunItem(item)) return "{" + std::string(item) + "}: " + *fault;
            script.remove_prefix(end + 1);
        } else {
            const bool doubled = script.starts_with("{{") || script.starts_with("}}");
            script.remove_prefix(doubled ? 2 : 1);
            if (c == '\r' || c == '\n') continue;
            PressKey({KeyName::Character, c});
        }
        AfterEvent();
    }
    FinishTransmission();
    return std::nullopt;
}
