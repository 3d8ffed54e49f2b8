#include "settings/own_captions.h"

#include "core/draw_window.h"
#include "core/messages.h"

namespace {

using W = MainWindow;

constexpr Control W::*Captions[] = {&W::mnuFind,          &W::mnuRecent,      &W::lblSettingsLanguage,
                                    &W::cmdReceiveImport, &W::cmdReceiveSave, &W::cmdReceiveNew,
                                    &W::cmdReceiveExit,   &W::cmdReceiveLast, &W::cmdReturn};

/// The groups of the COM tab: port, baud rate, parity, data bits, stop bits, handshake.
constexpr size_t FirstGroup = 1, LastGroup = 6;
constexpr Control (W::*Groups[])[8] = {&W::frTX, &W::frRX};

void Show(Control& control, const Control& builtIn)
{
    control.Text = Tr(builtIn.Text);
}

} // namespace

const MainWindow& BuiltInWindow()
{
    static const MainWindow window;
    return window;
}

void ShowOwnCaptions()
{
    const MainWindow& first = BuiltInWindow();
    for (const auto caption : Captions) Show(frmMain.*caption, first.*caption);
    for (const auto group : Groups) {
        for (size_t i = FirstGroup; i <= LastGroup; ++i) Show((frmMain.*group)[i], (first.*group)[i]);
    }
    static const ProgramWindow firstLines;
    Show(frmProgramWindow.Window, firstLines.Window);
    ShowOwnDrawCaptions();
}

void ShowOwnDrawCaptions()
{
    static const DrawWindow first;
    Show(frmDraw.cmdSavePicture, first.cmdSavePicture);
    if (frmDraw.Window.Text == first.Window.Text) Show(frmDraw.Window, first.Window);
}
