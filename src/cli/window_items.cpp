#include "cli/window_items.h"

#include "commands/window.h"
#include "commands/windows.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/shared_state.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/measure.h"
#include "drawing/program_window.h"
#include "drawing/walk.h"
#include "ui/tick.h"

#include <map>

namespace {

/// What a window's frame does with a window: its state, and the routine of its size.
struct FrameRow {
    Control& Window;
    bool *Maximized, *Minimized;
    void (*Resized)();
};

bool NeverMaximized = false, NeverMinimized = false;

FrameRow FrameOf(Control& window)
{
    if (&window == &frmMain.Window) return {window, &Shared.Maximized, &Shared.Minimized, Form_Resize};
    if (&window == &frmDraw.Window) return {window, &Drawing.Maximized, &Drawing.Minimized, frmDraw_Resize};
    return {window, &NeverMaximized, &NeverMinimized, frmProgramWindow_Resize};
}

/// Runs an action on the window that the next word names; one that isn't open takes none.
template <class Action> Fault WithWindow(std::string_view rest, Action action)
{
    const std::string name = NextWord(rest);
    Control* const window = WindowOfName(name);
    if (window == nullptr) return NoSuch(name);
    return window->Visible ? action(*window, rest) : Fine;
}

/// The same for one whose frame has a size and buttons.
template <class Action> Fault WithFrame(std::string_view rest, Action action)
{
    return WithWindow(rest, [&](Control& window, std::string_view words) -> Fault {
        return &window == &frmFind.Window ? Fine : action(FrameOf(window), words);
    });
}

void GiveSize(const FrameRow& frame, int left, int top, int width, int height)
{
    frame.Window.Left = left;
    frame.Window.Top = top;
    frame.Window.Width = width;
    frame.Window.Height = height;
    frame.Resized();
}

Fault Tick(std::string_view rest)
{
    const std::string timer = NextWord(rest);
    if (timer == "Timer1") {
        if (Drawing.TimerRuns) Timer1_Timer();
        return Fine;
    }
    if (!timer.empty() && timer != "tmr1sec") return NoSuch(timer);
    tmr1sec_Timer();
    return Fine;
}

Fault Activate(std::string_view rest)
{
    return WithWindow(rest, [](Control& window, std::string_view) -> Fault {
        BringToFront(window);
        return Fine;
    });
}

Fault Resize(std::string_view rest)
{
    return WithFrame(rest, [](const FrameRow& frame, std::string_view size) {
        return WithNumbers(size, [&](int width, int height) {
            *frame.Maximized = *frame.Minimized = false;
            GiveSize(frame, frame.Window.Left, frame.Window.Top, width, height);
        });
    });
}

/// The places that windows go back to.
struct Rectangle {
    int Left, Top, Width, Height;
};
std::map<const Control*, Rectangle> Normal;

void KeepPlace(const FrameRow& frame)
{
    if (*frame.Maximized || *frame.Minimized) return;
    const Control& window = frame.Window;
    Normal[&window] = {window.Left, window.Top, window.Width, window.Height};
}

Fault Maximize(std::string_view rest)
{
    return WithFrame(rest, [](const FrameRow& frame, std::string_view) -> Fault {
        if (*frame.Maximized && !*frame.Minimized) return Fine;
        KeepPlace(frame);
        *frame.Minimized = false;
        *frame.Maximized = true;
        GiveSize(frame, 0, 0, Shared.Screen.Width, Shared.Screen.WorkHeight);
        return Fine;
    });
}

Fault Minimize(std::string_view rest)
{
    return WithFrame(rest, [](const FrameRow& frame, std::string_view) -> Fault {
        KeepPlace(frame);
        *frame.Minimized = true;
        return Fine;
    });
}

Fault Restore(std::string_view rest)
{
    return WithFrame(rest, [](const FrameRow& frame, std::string_view) -> Fault {
        if (*frame.Minimized && *frame.Maximized) {
            *frame.Minimized = false; // back to where it was
            return Fine;
        }
        if (!*frame.Maximized && !*frame.Minimized) return Fine;
        *frame.Maximized = *frame.Minimized = false;
        const Rectangle& place = Normal[&frame.Window];
        GiveSize(frame, place.Left, place.Top, place.Width, place.Height);
        return Fine;
    });
}

Fault Close(std::string_view rest)
{
    return WithWindow(rest, [](Control& window, std::string_view) -> Fault {
        CloseWindow(window);
        return Fine;
    });
}

/// The pointer is over the drawing only while that is shown.
Fault ClickCanvas(std::string_view rest)
{
    return WithNumbers(rest, [](int x, int y) {
        if (!frmDraw.Window.Visible) return;
        BringToFront(frmDraw.Window);
        frmDraw_MouseDown(x, y);
    });
}

Fault Move(std::string_view rest)
{
    return WithNumbers(rest, [](int x, int y) {
        if (frmDraw.Window.Visible) frmDraw_MouseMove(x, y);
    });
}

Fault Drag(std::string_view rest)
{
    const std::string name = NextWord(rest);
    if (name != "frControls" && name != "frmDraw.frControls") return NoSuch(name);
    return WithNumbers(rest, [](int x, int y) {
        if (!frmDraw.Window.Visible || !frmDraw.frControls.Visible) return;
        BringToFront(frmDraw.Window);
        if (!frControls_MouseDown(0, 0)) return;
        frControls_DragOver();
        frmDraw_DragDrop(static_cast<float>(x), static_cast<float>(y));
    });
}

Fault Pauses(std::string_view rest)
{
    const std::string state = NextWord(rest);
    if (state != "ON" && state != "OFF") return NoSuch(state);
    Drawing.PausesTakeTime = state == "ON";
    return Fine;
}

constexpr Item Items[] = {
    {"TICK", Tick},         {"ACTIVATE", Activate}, {"RESIZE", Resize}, {"MAXIMIZE", Maximize},
    {"MINIMIZE", Minimize}, {"RESTORE", Restore},   {"CLOSE", Close},   {"CANVAS", ClickCanvas},
    {"MOVE", Move},         {"DRAG", Drag},         {"PAUSES", Pauses},
};

} // namespace

const std::span<const Item> WindowItems(Items);
