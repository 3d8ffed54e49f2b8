// script_words.h: the words of a key script's items.

#pragma once

#include "core/control.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// What is wrong with an item, or nothing.
using Fault = std::optional<std::string>;
constexpr std::nullopt_t Fine = std::nullopt;

/// An item by its name in braces, and what runs it on the words behind that.
struct Item {
    std::string_view Name;
    Fault (*Run)(std::string_view rest);
};

/// Takes the next word from what is left of an item; "" behind the last.
std::string NextWord(std::string_view& rest);

/// A whole number, or nothing when the word is none.
std::optional<int> NumberOf(const std::string& word);

/// The control of a name: "cmdTopButtons(4)" for an element, "frmDraw.cmdStep" with its window. Without one a
/// name means the control of the active window, else that of the main window. Null when there is none.
Control* FindControl(std::string name);

/// The window of a name, null when there is none.
Control* WindowOfName(std::string_view name);

/// The fault of a name that nothing has.
Fault NoSuch(const std::string& what);

/// Runs an action on the number that the next word is.
template <class Action> Fault WithNumber(std::string_view rest, Action action)
{
    const auto number = NumberOf(NextWord(rest));
    if (!number) return "a number is missing";
    action(*number);
    return Fine;
}

/// Runs an action on the two numbers that the next words are.
template <class Action> Fault WithNumbers(std::string_view rest, Action action)
{
    const auto first = NumberOf(NextWord(rest)), second = NumberOf(NextWord(rest));
    if (!first || !second) return "a number is missing";
    action(*first, *second);
    return Fine;
}
