#include "settings/window_place.h"

#include "core/shared_state.h"

#include <algorithm>

Geometry PlaceOf(const Control& window)
{
    return {window.Height, window.Left, window.Top, window.Width};
}

void PlaceWindow(Control& window, const Geometry& at)
{
    window.Height = at.Height;
    window.Left = at.Left;
    window.Top = at.Top;
    window.Width = at.Width;
}

namespace {

/// A file can ask for a size that no screen has, and that no memory holds.
void FitSize(Geometry& window, int leastHeight, int leastWidth)
{
    window.Height = std::max(std::min(window.Height, Shared.Screen.Height), leastHeight);
    window.Width = std::max(std::min(window.Width, Shared.Screen.Width), leastWidth);
}

} // namespace

Geometry OnScreen(Geometry window, int leastHeight, int leastWidth)
{
    const auto& screen = Shared.Screen;
    FitSize(window, leastHeight, leastWidth);
    window.Left = std::max(0, std::min(std::max(window.Left, 0), screen.Width - window.Width));
    window.Top = std::max(0, std::min(std::max(window.Top, 0), screen.Height - window.Height));
    return window;
}

Geometry DrawWindowPlace(const Geometry& saved)
{
    constexpr int Height = 6200, Width = 7000, Centered = 9999;
    const bool centered = saved.Height == Centered && saved.Left == Centered && saved.Top == Centered &&
                          saved.Width == Centered;
    if (!centered) return OnScreen(saved, Height, Width);
    return {Height, (Shared.Screen.Width - Width) / 2, (Shared.Screen.Height - Height) / 2, Width};
}

Geometry ProgramWindowPlace(Geometry saved)
{
    constexpr int Height = 1500, Width = 3000;
    FitSize(saved, Height, Width);
    const auto back = [](int at, int size) {
        if (at < 0) return 0;
        return at * 10LL > size * 9LL ? static_cast<int>(size * 7LL / 10) : at;
    };
    saved.Left = back(saved.Left, Shared.Screen.Width);
    saved.Top = back(saved.Top, Shared.Screen.Height);
    return saved;
}
