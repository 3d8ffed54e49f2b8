// control.h: the record of one control of a window.
//
// All that a window shows is in these plain records, one kind for all controls. Routines write them
// directly and nobody observes that; a front end draws its widgets from them when an event is over.
// Choices (check boxes, options, list indices) are set through ui/choice.h, which runs the handlers.

#pragma once

#include <limits>
#include <string>
#include <vector>

enum class Kind {
    Form,
    Menu,
    Label,
    TextBox,
    CheckBox,
    Option,
    Button,
    Frame,
    Combo,
    List,
    ProgramList,
    Tabs,
    Picture,
    RichText
};

struct Control;

/// A key that the user pressed: a key by name, or the character that it types.
enum class KeyName {
    Character,
    Enter,
    Tab,
    Escape,
    Up,
    Down,
    Left,
    Right,
    Home,
    End,
    PageUp,
    PageDown,
    Insert,
    Delete,
    Backspace,
    F1,
    F2
};
struct KeyStroke {
    KeyName Name = KeyName::Character;
    /// For KeyName::Character: the character in ASCII; with Ctrl or Alt the capital letter.
    char Typed = 0;
    bool Shift = false, Ctrl = false, Alt = false;
};

/// The routines that answer a control's events; the table in commands/session.cpp sets them.
struct Slots {
    void (*Click)() = nullptr;
    /// The click on an element of an array, with its index.
    void (*ClickElement)(int index) = nullptr;
    void (*GotFocus)(Control&) = nullptr;
    void (*LostFocus)(Control&) = nullptr;
    /// True when the key was taken; it then reaches nobody else.
    bool (*KeyDown)(Control&, const KeyStroke&) = nullptr;
    /// Returns the character to be typed, 0 when it was swallowed. Enter is 13, backspace 8, cut, copy and
    /// paste 24, 3 and 22.
    char (*KeyPress)(Control&, char) = nullptr;
    /// The user changed the text.
    void (*Change)() = nullptr;
};

/// A place or size that no routine has set.
constexpr int Unset = std::numeric_limits<int>::min();

struct Control {
    Kind Is = Kind::Label;
    const char* Name = "";
    /// Index in an array of controls, -1 for a control of its own.
    int Element = -1;
    /// The container, null for a window.
    Control* In = nullptr;
    /// Caption of labels, buttons, frames, boxes and menu entries; the content of text boxes.
    std::string Text = {};
    /// Place of the control among the stops of the [TAB] key, 0 for none.
    int TabStop = 0;
    /// In a tabbed container: the index of the tab that shows the control, -1 elsewhere.
    int Page = -1;
    bool Visible = true;
    bool Enabled = true;
    /// Limit string of an entry field, such as "-5999TO5999"; "" when the field isn't checked. In a help page
    /// the name of the place that it shows, "" for its beginning.
    std::string Tag = {};
    std::string ToolTip = {};
    /// Text boxes: the selection in characters; a length of 0 is the caret alone. A text that a routine
    /// writes may be shorter than they say: ui/text_box.h cuts them to it.
    int SelStart = 0, SelLength = 0;
    /// Text boxes: most characters that can be typed, 0 for no limit.
    int MaxLength = 0;
    /// Text boxes: several lines, ended by CR LF; a text that the user can only read and copy.
    bool MultiLine = false, ReadOnly = false;
    /// Check boxes and options: 0 or 1.
    int Value = 0;
    /// Lists, combos, tabs: the items, and the index of the chosen one from 0, -1 for none.
    std::vector<std::string> Items = {};
    int Index = -1;
    /// Place and size in twips (15 to a pixel at the standard setting), where a routine sets them.
    int Left = Unset, Top = Unset, Width = Unset, Height = Unset;
    /// Colours in blue-green-red order, -1 where no routine sets one.
    int Back = -1, Fore = -1;
    Slots On = {};
};
