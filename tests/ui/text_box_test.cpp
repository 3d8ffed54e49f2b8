#include "ui/text_box_cases.h"

#include "cli/key_script.h"
#include "core/main_window.h"
#include "support/program.h"
#include "ui/focus.h"

#include <gtest/gtest.h>

// The twin of the console does what the widgets do (tests/qt has them on the same table).
TEST(TextBox, TheTwinEditsAsAWidget)
{
    for (const TextBoxCase& c : TextBoxCases) {
        SCOPED_TRACE(c.Name);
        Start("MK4 mm");
        Control& box = c.Notes ? frmMain.txtFileNotes : frmMain.txtComment;
        SetFocus(box);
        box.Text = c.Text;
        box.SelStart = c.SelStart;
        box.SelLength = c.SelLength;
        EXPECT_FALSE(RunKeyScript(c.Keys));
        EXPECT_EQ(box.Text, c.Expected);
        EXPECT_EQ(box.SelStart, c.ExpectedStart);
    }
}
