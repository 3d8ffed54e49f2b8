#include "commands/keyboard.h"

#include "commands/help.h"
#include "commands/windows.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/text.h"
#include "drawing/drawing_state.h"
#include "drawing/measure.h"
#include "editor/activation.h"
#include "editor/find.h"
#include "ui/choice.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/text_box.h"
#include "ui/tick.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace {

using W = MainWindow;

/// [CTRL] with a letter chooses a menu entry.
struct MenuShortcut {
    char Letter;
    Control W::*Entry;
};
constexpr MenuShortcut MenuShortcuts[] = {
    {'A', &W::mnuSaveAs},     {'D', &W::mnuDraw}, {'F', &W::mnuFind}, {'G', &W::mnuGhelp},
    {'M', &W::mnuCalculator}, {'N', &W::mnuNew},  {'O', &W::mnuOpen}, {'P', &W::mnuPrint},
    {'R', &W::mnuRX},         {'S', &W::mnuSave}, {'T', &W::mnuTX},
};

/// [CTRL] with this letter goes to the next line with a message, with [SHIFT] to the previous one.
constexpr char MessageLetter = 'E';

/// [ALT] with a letter presses a button: the marked one of its caption in the language in force, or this one,
/// which the English caption marks. Stop has none and takes P, so that a run can be left without the mouse.
struct ButtonShortcut {
    char Letter;
    Control W::*Button;
};
constexpr ButtonShortcut ButtonShortcuts[] = {
    {'D', &W::cmdDelete}, {'I', &W::cmdInsert}, {'R', &W::cmdRun}, {'S', &W::cmdStep}, {'P', &W::cmdStop}};

/// The button that [ALT] with a letter presses; null when it is none's.
Control* ButtonOf(char letter)
{
    const std::string mark{'&', letter};
    for (const ButtonShortcut& row : ButtonShortcuts) {
        Control& button = frmMain.*row.Button;
        if (IsUsable(button) && FindNoCase(button.Text, mark) != std::string::npos) return &button;
    }
    const auto* const row = std::find_if(std::begin(ButtonShortcuts), std::end(ButtonShortcuts),
                                         [&](const auto& shortcut) { return shortcut.Letter == letter; });
    return row == std::end(ButtonShortcuts) ? nullptr : &(frmMain.*row->Button);
}

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
    return HasFocus(control) && IsUsable(control); // the field that was left may have disabled it
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
        if (key.Typed == MessageLetter) {
            SelectNextMessage(key.Shift ? -1 : 1);
            return true;
        }
        if (key.Typed == 'F' && IsHelpUp()) {
            FocusHelpSearch();
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
        if (Control* const button = ButtonOf(key.Typed)) ClickControl(*button);
        return true;
    }
    if (key.Name == KeyName::F1) {
        if (!ShowHelpOfReception() && !ShowHelpOfField()) ChooseMenu(frmMain.mnuHelpText);
        return true;
    }
    return false;
}

/// [ESC] closes what lies over the list and goes to the list. From a help page it goes back to the field that
/// the page has taken the cursor from, so that a line is typed on.
void Escape()
{
    const bool help = IsHelpUp(), picture = frmMain.picZXaxes.Visible || frmMain.picXYaxes.Visible;
    Control* back = help ? DroppedFocus() : nullptr;
    if (help && frmMain.frRXcode.Visible) back = &frmMain.txtRX;
    if (help || picture) cmdReturn_Click();
    SetFocus(back != nullptr && IsUsable(*back) ? *back : frmMain.lvCncProgram);
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

/// A text that is only read takes copies and moves of the caret.
bool IsReading(const KeyStroke& key)
{
    switch (key.Name) {
    case KeyName::Character: return key.Ctrl && key.Typed == 'C';
    case KeyName::Enter:
    case KeyName::Backspace:
    case KeyName::Delete:
    case KeyName::Insert: return false;
    default: return true;
    }
}

std::optional<KeyStroke> OfferTo(Control& box, KeyStroke key)
{
    if (box.On.KeyDown != nullptr && box.On.KeyDown(box, key)) return std::nullopt;
    if (box.ReadOnly && !IsReading(key)) return std::nullopt;
    const char typed = CharacterOf(key);
    if (typed != 0 && box.On.KeyPress != nullptr) {
        const char passed = box.On.KeyPress(box, typed);
        if (passed == 0) return std::nullopt;
        if (key.Name == KeyName::Character && !key.Ctrl) key.Typed = passed;
    }
    return key;
}

/// Lists and combos move through their items, buttons and boxes are pressed by [ENTER] and blank. Returns
/// what is left to type.
std::optional<KeyStroke> UseControl(Control& control, const KeyStroke& key)
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
        int step = key.Name == KeyName::Down ? 1 : key.Name == KeyName::Up ? -1 : 0;
        if (control.Is == Kind::Tabs && key.Name == KeyName::Right) step = 1;
        if (control.Is == Kind::Tabs && key.Name == KeyName::Left) step = -1;
        if (step != 0) PickListItem(control, control.Index + step);
        if (step == 0 && control.Is == Kind::Combo) return OfferTo(control, key);
        break;
    }
    default:
        if (control.On.KeyDown != nullptr) control.On.KeyDown(control, key);
    }
    return std::nullopt;
}

/// Settings and receive pane: [TAB] walks their own controls.
const Control* PaneOf(const Control& control)
{
    for (const Control* at = &control; at != nullptr; at = at->In) {
        if (at == &frmMain.tabSettings) return at;
        if (at == &frmMain.frRXcode || at == &frmMain.frCmdRX) return &frmMain.frRXcode;
    }
    return nullptr;
}

/// On the tab that is shown, also as part of a frame.
bool IsOnShownTab(const Control& control)
{
    for (const Control* at = &control; at != nullptr; at = at->In) {
        if (at->Page >= 0 && at->In->Index != at->Page) return false;
    }
    return true;
}

/// Walks the stops of the pane that has the focus, in the order of the table; false outside of a pane.
bool WalkPane(int step)
{
    const Control* const from = Focused();
    const Control* const pane = from == nullptr ? nullptr : PaneOf(*from);
    if (pane == nullptr) return false;
    std::vector<Control*> stops;
    frmMain.ForEach([&](Control& control) {
        const bool stop = TakesFocus(control) && IsUsable(control) && IsOnShownTab(control);
        if (stop && PaneOf(control) == pane) stops.push_back(&control);
    });
    const auto at = std::find(stops.begin(), stops.end(), from);
    if (at == stops.end()) return false;
    const int count = static_cast<int>(stops.size()), index = static_cast<int>(at - stops.begin());
    SetFocus(*stops[static_cast<size_t>((index + step + count) % count)]);
    return true;
}

/// The keys of the drawing and of its list of lines. [ESC] leaves what goes on, [ENTER] releases a held walk
/// before it presses what has the focus.
std::optional<KeyStroke> OfferToDrawing(const KeyStroke& key)
{
    if (key.Name == KeyName::F1) {
        ShowHelpOfDrawing();
    } else if (key.Name == KeyName::Escape) {
        frmDraw_Escape();
    } else if (key.Name == KeyName::Tab) {
        key.Shift ? FocusPreviousStop() : FocusNextStop();
    } else if (key.Alt) {
        if (key.Typed == 'S') ClickControl(frmDraw.cmdStep);
    } else {
        if (key.Name == KeyName::Enter) Drawing.WaitForUser = false;
        Control* const control = Focused();
        if (control == nullptr) return std::nullopt;
        return control->Is == Kind::TextBox ? OfferTo(*control, key) : UseControl(*control, key);
    }
    return std::nullopt;
}

} // namespace

Control* TypingBox()
{
    if (IsFindInFront()) return &frmFind.txtFind;
    Control* const focused = Focused();
    const bool types = focused != nullptr && (focused->Is == Kind::TextBox || focused->Is == Kind::Combo);
    return types && (!IsHelpUp() || focused == &frmMain.txtHelpFind) ? focused : nullptr;
}

std::optional<KeyStroke> OfferKey(const KeyStroke& key)
{
    if (IsFindInFront()) {
        if (key.Name != KeyName::Escape) return OfferTo(frmFind.txtFind, key);
        HideFind();
        return std::nullopt;
    }
    if (&ActiveWindow() != &frmMain.Window) return OfferToDrawing(key);
    if (RunShortcut(key)) return std::nullopt;
    if (key.Name == KeyName::Escape) {
        Escape();
        return std::nullopt;
    }
    // What lies under a help page is out of reach; the page's own widget scrolls it.
    Control* const control = Focused();
    if (IsHelpUp() && control != &frmMain.cmdReturn && control != &frmMain.txtHelpFind) return key;
    if (key.Name == KeyName::Tab) {
        if (!WalkPane(key.Shift ? -1 : 1)) key.Shift ? FocusPreviousStop() : FocusNextStop();
        return std::nullopt;
    }
    if (control == nullptr) return std::nullopt;
    return control->Is == Kind::TextBox ? OfferTo(*control, key) : UseControl(*control, key);
}

void PressKey(const KeyStroke& key)
{
    const auto left = OfferKey(key);
    Control* const box = TypingBox();
    if (!left || box == nullptr) return;
    if (EditText(*box, *left, box->MultiLine) && box->On.Change != nullptr) box->On.Change();
}

bool IsShortcut(const KeyStroke& key)
{
    if (key.Name == KeyName::F1) return true;
    if (key.Name != KeyName::Character) return false;
    if (key.Ctrl) {
        return key.Typed == MessageLetter ||
               std::any_of(std::begin(MenuShortcuts), std::end(MenuShortcuts),
                           [&](const auto& row) { return row.Letter == key.Typed; });
    }
    return key.Alt && ButtonOf(key.Typed) != nullptr;
}

char ShortcutOf(const Control& entry)
{
    for (const MenuShortcut& shortcut : MenuShortcuts) {
        if (&(frmMain.*shortcut.Entry) == &entry) return shortcut.Letter;
    }
    return 0;
}

void ClickControl(Control& control)
{
    BringToFront(WindowOf(control));
    if (!IsUsable(control) || !TakeFocusByClick(control)) return;
    if (control.Is == Kind::CheckBox) {
        SetCheck(control, control.Value == 0);
    } else if (control.Is == Kind::Option) {
        // Machine and units are the program's; the rows of options of the port are not.
        const bool ofPort = control.Element >= 0;
        if (ofPort || !RefuseWhileBusy()) Choose(control);
    } else {
        RunClick(control);
    }
}

void ChooseMenu(Control& entry)
{
    BringToFront(frmMain.Window);
    tmr1sec_Timer();
    for (const Control* at = &entry; at != nullptr; at = at->In) {
        if (!at->Enabled) return;
    }
    RunClick(entry);
}

void PickListItem(Control& list, int index)
{
    if (index < 0 || index >= static_cast<int>(list.Items.size())) return;
    BringToFront(WindowOf(list));
    if (!IsUsable(list) || !TakeFocusByClick(list)) return;
    list.Index = index;
    if (list.Is == Kind::Combo) list.Text = list.Items[static_cast<size_t>(index)];
    RunClick(list);
}

void ClickRow(int row)
{
    if (row < 1 || row > lvCncProgram.RowCount()) return;
    BringToFront(frmMain.Window);
    SetFocus(frmMain.lvCncProgram);
    SelectRow(row);
    lvCncProgram_Click();
}

void ClickHeader(int header)
{
    BringToFront(frmMain.Window);
    SetFocus(frmMain.lvCncProgram);
    lvCncProgram_ColumnClick(header);
}

void RightClickRow(int row)
{
    ClickRow(row);
    tmr1sec_Timer();
}
