#include "ui/focus.h"

#include "core/main_window.h"

#include <algorithm>
#include <vector>

namespace {

struct FocusState {
    Control* Holder = nullptr;
    /// The holder's GotFocus has run, so its LostFocus is due when it goes.
    bool Entered = false;
    /// Counts the moves, so that one that a handler made is noticed.
    int Moves = 0;
    bool MovingOn = false;
};
FocusState Focus;

/// The usable stops in their order, the holder among them whether it is usable or not.
std::vector<Control*> Stops()
{
    std::vector<Control*> stops;
    frmMain.ForEach([&](Control& control) {
        if (control.TabStop > 0 && (IsUsable(control) || &control == Focus.Holder)) stops.push_back(&control);
    });
    std::sort(stops.begin(), stops.end(),
              [](const Control* a, const Control* b) { return a->TabStop < b->TabStop; });
    return stops;
}

void FocusStop(int step)
{
    const std::vector<Control*> stops = Stops();
    if (stops.empty()) return;
    const int count = static_cast<int>(stops.size());
    const auto at = std::find(stops.begin(), stops.end(), Focus.Holder);
    const int from = at != stops.end() ? static_cast<int>(at - stops.begin()) : (step > 0 ? -1 : count);
    SetFocus(*stops[static_cast<size_t>((from + step + count) % count)]);
}

} // namespace

Control* Focused()
{
    return Focus.Holder;
}

bool HasFocus(const Control& control)
{
    return Focus.Holder == &control;
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
    if (Focus.Holder == &control || !IsUsable(control)) return;
    Control* const from = Focus.Holder;
    const bool due = Focus.Entered && from != nullptr && IsUsable(*from);
    Focus.Holder = &control;
    Focus.Entered = false;
    const int move = ++Focus.Moves;
    if (due && from->On.LostFocus != nullptr) from->On.LostFocus(*from);
    if (Focus.Moves != move) return;
    Focus.Entered = true;
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
    if (Focus.Holder == nullptr || IsUsable(*Focus.Holder)) return;
    Focus.Holder = nullptr;
    Focus.Entered = false;
    SetFocus(frmMain.lvCncProgram);
}

void ResetFocus()
{
    Focus = {};
}
