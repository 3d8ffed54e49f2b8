// control.h: the record of one control of a window.
//
// All that a window shows is in these plain records, one kind for all controls. Routines write them
// directly and nobody observes that; a front end draws its widgets from them when an event is over.
// Choices (check boxes, options, list indices) are set through ui/choice.h, which runs the handlers.

#pragma once

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
    Tabs,
    Picture,
    RichText
};

/// The routines that answer a control's events; see commands/events.cpp for who sets them.
struct Slots {
    void (*Click)() = nullptr;
};

struct Control {
    Kind Is = Kind::Label;
    const char* Name = "";
    /// The container, null for a window.
    Control* In = nullptr;
    /// Caption of labels, buttons, frames, boxes and menu entries; the content of text boxes.
    std::string Text = {};
    /// Place of the control among the stops of the [TAB] key, 0 for none.
    int TabStop = 0;
    bool Visible = true;
    bool Enabled = true;
    /// Limit string of an entry field, such as "-5999TO5999"; "" when the field isn't checked.
    std::string Tag = {};
    std::string ToolTip = {};
    /// Check boxes and options: 0 or 1.
    int Value = 0;
    /// Lists, combos, tabs: the items, and the index of the chosen one from 0, -1 for none.
    std::vector<std::string> Items = {};
    int Index = -1;
    /// Place and size in twips (15 to a pixel at the standard setting), where a routine sets them.
    int Left = 0, Top = 0, Width = 0, Height = 0;
    Slots On = {};
};
