#include "editor/find.h"

#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "editor/value_entry.h"
#include "ui/focus.h"
#include "ui/text_box.h"

namespace {

/// The text occurs, in any case, in a cell that can be seen.
bool IsFoundIn(const ProgramLine& row, std::string_view text)
{
    for (size_t cell = CellN; cell < CellCount; ++cell) {
        if (lvCncProgram.Widths[cell] > 0 && FindNoCase(row[cell], text) != std::string::npos) return true;
    }
    return false;
}

/// Selects the first row that holds the text, from the first line or from behind the selected row on.
void FindInProgram()
{
    HideFind();
    for (int i = Shared.FindNext ? lvCncProgram.Selected + 1 : 1; i <= LineCount(); ++i) {
        if (!IsFoundIn(lvCncProgram.Row(i), frmFind.txtFind.Text)) continue;
        SelectRow(i);
        SetFocus(frmMain.lvCncProgram);
        return;
    }
}

} // namespace

bool IsFindInFront()
{
    return frmFind.Window.Visible && Shared.FindInFront;
}

void BringFindToFront()
{
    Shared.FindInFront = true;
}

void BringMainToFront()
{
    Shared.FindInFront = false;
}

void mnuFind_click()
{
    frmFind.Window.Visible = true;
    BringFindToFront();
    txtFind_GotFocus(frmFind.txtFind);
}

void HideFind()
{
    frmFind.Window.Visible = false;
}

char txtFind_KeyPress(Control&, char typed)
{
    if (typed != EnterCharacter) return typed;
    FindInProgram();
    return 0;
}

void txtFind_Change()
{
    Shared.FindNext = false;
}

void txtFind_GotFocus(Control& box)
{
    SelectAll(box);
    Shared.FindNext = true;
}
