#include "editor/feeds.h"

#include "core/main_window.h"
#include "core/numbers.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "editor/value_entry.h"
#include "interpreter/interpreter.h"
#include "interpreter/limits.h"
#include "ui/focus.h"
#include "ui/text_box.h"

namespace {

/// The preset that was last taken over from a box: its trimmed text and a blank.
std::string& PresetOf(const Control& box)
{
    return &box == &frmMain.txtFeedA ? Shared.FeedA : Shared.FeedB;
}

void Take(const Control& box)
{
    PresetOf(box) = std::string(Trimmed(box.Text)) + " ";
}

/// Every plain value of the program that equals the old preset becomes the new one.
void ReplaceFeed(const Control& box)
{
    const double old = Val(PresetOf(box));
    if (old < SmallestFeed) return; // a word with a letter reads 0 and would match
    for (int i = 1; i <= LineCount(); ++i) {
        std::string& cell = lvCncProgram.Row(i)[CellF];
        if (Val(cell) != old) continue;
        cell = PresetCell(box);
        Shared.Changed = true;
    }
}

void UsePreset(const Control& box)
{
    frmMain.txtFKTL.Text = PresetCell(box);
    SetFocus(frmMain.txtComment);
}

} // namespace

char Feed_KeyPress(Control& box, char typed)
{
    if ((typed >= '0' && typed <= '9') || typed == 8) return typed;
    if (typed != EnterCharacter) return 0;
    ClampFeeds();
    ReplaceFeed(box);
    Take(box);
    Interpreter();
    SetFocus(frmMain.txtComment);
    return 0;
}

void Feed_GotFocus(Control& box)
{
    SelectAll(box);
}

void Feed_LostFocus(Control& box)
{
    Take(box);
}

void TakeFeeds()
{
    Take(frmMain.txtFeedA);
    Take(frmMain.txtFeedB);
}

void cmdFeedA_Click()
{
    UsePreset(frmMain.txtFeedA);
}

void cmdFeedB_Click()
{
    UsePreset(frmMain.txtFeedB);
}
