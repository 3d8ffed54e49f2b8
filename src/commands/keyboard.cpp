#include "commands/keyboard.h"

#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "editor/activation.h"
#include "editor/find.h"
#include "ui/choice.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/text_box.h"
#include "ui/tick.h"

#include <algorithm>

namespace {

using W = MainWindow;

/// [CTRL] with a letter, and [F1], choose a menu entry.
struct MenuShortcut {
    char Letter;
    Control W::*Entry;
};
constexpr MenuShortcut MenuShortcuts[] = {
    {'A', &W::mnuSaveAs},     {'D', &W::mnuDraw}, {'F', &W::mnuFind}, {'G', &W::mnuGhelp},
    {'M', &W::mnuCalculator}, {'N', &W::mnuNew},  {'O', &W::mnuOpen}, {'P', &W::mnuPrint},
    {'R', &W::mnuRX},         {'S', &W::mnuSave}, {'T', &W::mnuTX},
};

/// [ALT] with a letter presses a button, by the marked letter of its caption.
struct ButtonShortcut {
    char Letter;
    Control W::*Button;
};
constexpr ButtonShortcut ButtonShortcuts[] = {
    {'D', &W::cmdDelete}, {'I', &W::cmdInsert}, {'R', &W::cmdRun}, {'S', &W::cmdStep}};

} // namespace

bool TakesFocus(const Control& control)
{
    switch (control.Is) {
    case Kind::TextBox:
    case Kind::CheckBox:
    case Kind::Option:
    case Kind::Button:
    case Kind::Combo:
    case Kind::List:
    case Kind::ProgramList:
    case Kind::Tabs: return true;
    default: return false;
    }
}

namespace {

/// Gives the focus as a click does; false when the field that was left took it back.
bool TakeFocusByClick(Control& control)
{
    if (!TakesFocus(control)) return true;
    SetFocus(control);
    return HasFocus(control);
}

void RunClick(Control& control)
{
    if (control.On.ClickElement != nullptr) control.On.ClickElement(control.Element);
    if (control.On.Click != nullptr) control.On.Click();
}

/// The next or the previous line with a message, from the selected row on and round.
void SelectNextMessage(int step)
{
    const int lines = LineCount();
    // Behind the last line the next one is the first, and the previous one the last.
    const int from = step > 0 ? std::min(lvCncProgram.Selected, lines) : lvCncProgram.Selected;
    for (int i = 1; i <= lines; ++i) {
        const int row = ((from - 1 + step * i) % lines + lines) % lines + 1;
        if (lvCncProgram.Row(row)[CellError].find_first_not_of(' ') == std::string::npos) continue;
        SelectRow(row);
        SetFocus(frmMain.lvCncProgram);
        return;
    }
}

bool RunShortcut(const KeyStroke& key)
{
    if (key.Ctrl && key.Name == KeyName::Character) {
        if (key.Typed == 'E') {
            SelectNextMessage(key.Shift ? -1 : 1);
            return true;
        }
        for (const MenuShortcut& shortcut : MenuShortcuts) {
            if (shortcut.Letter != key.Typed) continue;
            ChooseMenu(frmMain.*shortcut.Entry);
            return true;
        }
    }
    if (key.Alt && key.Name == KeyName::Character) {
        tmr1sec_Timer();
        for (const ButtonShortcut& shortcut : ButtonShortcuts) {
            if (shortcut.Letter == key.Typed) ClickControl(frmMain.*shortcut.Button);
        }
        return true;
    }
    if (key.Name == KeyName::F1) {
        ChooseMenu(frmMain.mnuHelpText);
        return true;
    }
    return false;
}

/// [ESC] closes what lies over the list and goes to the list.
void Escape()
{
    const bool picture = frmMain.picZXaxes.Visible || frmMain.picXYaxes.Visible;
    if (IsHelpUp() || picture) cmdReturn_Click();
    SetFocus(frmMain.lvCncProgram);
}

/// The character that a key gives to KeyPress, 0 for none.
char CharacterOf(const KeyStroke& key)
{
    switch (key.Name) {
    case KeyName::Enter: return 13;
    case KeyName::Backspace: return 8;
    case KeyName::Character: break;
    default: return 0;
    }
    if (key.Ctrl) return static_cast<char>(key.Typed & 0x1F);
    return key.Alt ? '\0' : key.Typed;
}

void TypeInto(Control& control, KeyStroke key)
{
    if (control.On.KeyDown != nullptr && control.On.KeyDown(control, key)) return;
    const char typed = CharacterOf(key);
    if (typed != 0 && control.On.KeyPress != nullptr) {
        const char passed = control.On.KeyPress(control, typed);
        if (passed == 0) return;
        if (key.Name == KeyName::Character && !key.Ctrl) key.Typed = passed;
    }
    if (EditText(control, key, &control == &frmMain.txtFileNotes) && control.On.Change != nullptr)
        control.On.Change();
}

/// Lists and combos move through their items, buttons and boxes are pressed by [ENTER] and blank.
void UseControl(Control& control, const KeyStroke& key)
{
    const bool blank = key.Name == KeyName::Character && key.Typed == ' ' && !key.Ctrl;
    switch (control.Is) {
    case Kind::Button:
        if (blank || key.Name == KeyName::Enter) ClickControl(control);
        break;
    case Kind::CheckBox:
    case Kind::Option:
        if (blank) ClickControl(control);
        break;
    case Kind::List:
    case Kind::Combo:
    case Kind::Tabs: {
        const int step = key.Name == KeyName::Down ? 1 : key.Name == KeyName::Up ? -1 : 0;
        if (step != 0) PickListItem(control, control.Index + step);
        if (step == 0 && control.Is == Kind::Combo) TypeInto(control, key);
        break;
    }
    default:
        if (control.On.KeyDown != nullptr) control.On.KeyDown(control, key);
    }
}

} // namespace

void PressKey(const KeyStroke& key)
{
    if (IsFindInFront()) {
        if (key.Name == KeyName::Escape) {
            HideFind();
        } else {
            TypeInto(frmFind.txtFind, key);
        }
        return;
    }
    if (RunShortcut(key)) return;
    if (key.Name == KeyName::Escape) {
        Escape();
    } else if (key.Name == KeyName::Tab) {
        key.Shift ? FocusPreviousStop() : FocusNextStop();
    } else if (Control* const control = Focused(); control != nullptr) {
        control->Is == Kind::TextBox ? TypeInto(*control, key) : UseControl(*control, key);
    }
}

void ClickControl(Control& control)
{
    BringMainToFront();
    if (!IsUsable(control) || !TakeFocusByClick(control)) return;
    if (control.Is == Kind::CheckBox) {
        SetCheck(control, control.Value == 0);
    } else if (control.Is == Kind::Option) {
        if (!RefuseWhileBusy()) Choose(control);
    } else {
        RunClick(control);
    }
}

void ChooseMenu(Control& entry)
{
    tmr1sec_Timer();
    for (const Control* at = &entry; at != nullptr; at = at->In) {
        if (!at->Enabled) return;
    }
    RunClick(entry);
}

void PickListItem(Control& list, int index)
{
    if (index < 0 || index >= static_cast<int>(list.Items.size())) return;
    BringMainToFront();
    if (!IsUsable(list) || !TakeFocusByClick(list)) return;
    list.Index = index;
    if (list.Is == Kind::Combo) list.Text = list.Items[static_cast<size_t>(index)];
    RunClick(list);
}

void ClickRow(int row)
{
    if (row < 1 || row > lvCncProgram.RowCount()) return;
    BringMainToFront();
    SetFocus(frmMain.lvCncProgram);
    SelectRow(row);
    lvCncProgram_Click();
}
