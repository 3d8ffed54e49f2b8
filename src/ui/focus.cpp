#include "ui/focus.h"

#include "core/draw_window.h"
#include "core/main_window.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace {

/// The focus in one window.
struct Holding {
    Control* Holder = nullptr;
    /// The holder's GotFocus has run, so its LostFocus is due when it goes.
    bool Entered = false;
    /// The last one that lost the focus by being hidden or disabled, and the last one whose LostFocus is
    /// still owed for that; null once they have the focus again.
    Control* Dropped = nullptr;
    Control* Owes = nullptr;
};

struct FocusState {
    Control* Window = &frmMain.Window;
    std::map<const Control*, Holding> Windows;
    /// Counts the moves, so that one that a handler made is noticed.
    int Moves = 0;
    bool MovingOn = false;
};
FocusState Focus;

Holding& FocusIn(const Control& window)
{
    return Focus.Windows[&window];
}

/// The usable stops in their order, the holder among them whether it is usable or not.
std::vector<Control*> Stops()
{
    std::vector<Control*> stops;
    const Control* const holder = Focused();
    const auto add = [&](Control& control) {
        if (control.TabStop > 0 && (IsUsable(control) || &control == holder)) stops.push_back(&control);
    };
    if (Focus.Window == &frmDraw.Window) {
        frmDraw.ForEach(add);
    } else if (Focus.Window == &frmProgramWindow.Window) {
        frmProgramWindow.ForEach(add);
    } else {
        frmMain.ForEach(add);
    }
    std::sort(stops.begin(), stops.end(),
              [](const Control* a, const Control* b) { return a->TabStop < b->TabStop; });
    return stops;
}

void FocusStop(int step)
{
    const std::vector<Control*> stops = Stops();
    if (stops.empty()) return;
    const int count = static_cast<int>(stops.size());
    const auto at = std::find(stops.begin(), stops.end(), Focused());
    const int from = at != stops.end() ? static_cast<int>(at - stops.begin()) : (step > 0 ? -1 : count);
    SetFocus(*stops[static_cast<size_t>((from + step + count) % count)]);
}

} // namespace

Control& WindowOf(Control& control)
{
    Control* at = &control;
    while (at->In != nullptr) at = at->In;
    return *at;
}

Control& ActiveWindow()
{
    return *Focus.Window;
}

void SetActiveWindow(Control& window)
{
    Focus.Window = &window;
}

Control* Focused()
{
    return FocusIn(*Focus.Window).Holder;
}

bool HasFocus(Control& control)
{
    return FocusIn(WindowOf(control)).Holder == &control;
}

bool IsUsable(const Control& control)
{
    for (const Control* at = &control; at != nullptr; at = at->In) {
        if (!at->Visible || !at->Enabled) return false;
    }
    return true;
}

void SetFocus(Control& control)
{
    Holding& focus = FocusIn(WindowOf(control));
    if (focus.Holder == &control || !IsUsable(control)) return;
    Control* const from = focus.Holder;
    const bool due = focus.Entered && from != nullptr && IsUsable(*from);
    focus.Holder = &control;
    focus.Entered = false;
    for (Control** const left : {&focus.Dropped, &focus.Owes}) {
        if (*left == &control) *left = nullptr;
    }
    const int move = ++Focus.Moves;
    if (due && from->On.LostFocus != nullptr) from->On.LostFocus(*from);
    if (Focus.Moves != move) return;
    focus.Entered = true;
    if (control.On.GotFocus != nullptr) control.On.GotFocus(control);
}

void FocusNextStop()
{
    const bool outer = Focus.MovingOn;
    Focus.MovingOn = true;
    FocusStop(1);
    Focus.MovingOn = outer;
}

void FocusPreviousStop()
{
    FocusStop(-1);
}

bool IsMovingOn()
{
    return Focus.MovingOn;
}

void MendFocus()
{
    for (auto& [window, focus] : Focus.Windows) {
        if (focus.Holder != nullptr && !IsUsable(*focus.Holder)) DropFocus(*focus.Holder);
    }
}

void DropFocus(Control& of)
{
    const Control& window = WindowOf(of);
    Holding& focus = FocusIn(window);
    if (focus.Entered) {
        focus.Dropped = focus.Holder;
        if (focus.Holder->On.LostFocus != nullptr) focus.Owes = focus.Holder;
    }
    focus.Holder = nullptr;
    focus.Entered = false;
    if (&window == &frmMain.Window) SetFocus(frmMain.lvCncProgram);
}

Control* DroppedFocus()
{
    return FocusIn(frmMain.Window).Dropped;
}

Control* TakeOwedFocus()
{
    return std::exchange(FocusIn(frmMain.Window).Owes, nullptr);
}

void ResetFocus()
{
    Focus = {};
}
