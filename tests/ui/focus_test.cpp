// The way of the focus: which events run, and who has it in the end.

#include "core/main_window.h"
#include "support/program.h"
#include "ui/focus.h"

#include <gtest/gtest.h>

namespace {

std::string Events;
Control* SentTo = nullptr; // where a LostFocus sends the cursor, once

void Entered(Control& control)
{
    Events += "+" + control.Text + " ";
}
void Left(Control& control)
{
    Events += "-" + control.Text + " ";
    if (Control* const to = std::exchange(SentTo, nullptr)) SetFocus(*to);
}

TEST(Focus, AHandlerThatMovesItWins)
{
    Start("MK4 mm");
    Control* const fields[] = {&frmMain.txtGMcode, &frmMain.txtXI, &frmMain.txtComment};
    for (int i = 0; i < 3; ++i) {
        fields[i]->Text = std::string(1, static_cast<char>('a' + i));
        fields[i]->Visible = true;
        fields[i]->On = {.GotFocus = Entered, .LostFocus = Left};
    }
    SetFocus(*fields[0]);
    Events.clear();
    SentTo = fields[2];
    SetFocus(*fields[1]); // never gets there: no GotFocus, so no LostFocus either
    EXPECT_EQ(Events, "-a +c ");
    EXPECT_TRUE(HasFocus(*fields[2]));

    // One that is hidden loses it without its LostFocus; the list takes it.
    fields[2]->Visible = false;
    MendFocus();
    EXPECT_EQ(Events, "-a +c ");
    EXPECT_TRUE(HasFocus(frmMain.lvCncProgram));
}

} // namespace
