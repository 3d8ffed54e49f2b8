#include "editor/value_entry.h"

#include "core/codes.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "editor/lines.h"
#include "editor/math_string.h"
#include "platform/platform.h"
#include "ui/focus.h"
#include "ui/text_box.h"

namespace {

/// The way of [LEFT] and [RIGHT].
constexpr Control MainWindow::*EntryOrder[] = {
    &MainWindow::txtGMcode, &MainWindow::txtXI, &MainWindow::txtYJ,     &MainWindow::txtZK,
    &MainWindow::txtFKTL,   &MainWindow::txtH,  &MainWindow::txtComment};

void FocusNeighbour(const Control& field, int step)
{
    const int count = static_cast<int>(std::size(EntryOrder));
    int at = 0;
    while (&(frmMain.*EntryOrder[at]) != &field) ++at;
    for (at += step; at >= 0 && at < count; at += step) {
        Control& neighbour = frmMain.*EntryOrder[at];
        if (!IsUsable(neighbour)) continue;
        SetFocus(neighbour);
        return;
    }
}

/// The preset that a code's feed begins with; null for codes without one.
const Control* DefaultFeed()
{
    constexpr std::string_view CodesOfA = "01 02 03 72 84", CodesOfB = "73 81 82 83 85 86 88 89";
    const std::string_view code = Trimmed(frmMain.txtGMcode.Text);
    if (code.size() != 2) return nullptr;
    if (CodesOfA.find(code) != std::string_view::npos) return &frmMain.txtFeedA;
    return CodesOfB.find(code) != std::string_view::npos ? &frmMain.txtFeedB : nullptr;
}

/// On the mill Z begins where the tool stands, or with the boring depth in force at the row. A row that the
/// walk hasn't reached knows no place of the tool and keeps its Z.
void ProposeMillDepth(Control& field)
{
    if (Shared.Machine != MachineKind::F1 || LineCount() <= 1 || lvCncProgram.Selected == 0) return;
    if (frmMain.lblGMcode.Text != "G") return;
    const Code code = CodeOfCell(" " + std::string(Trimmed(frmMain.txtGMcode.Text)) + " ");
    if (code <= G(3)) {
        const std::string& toolZ = lvCncProgram.Row(lvCncProgram.Selected)[CellToolZ];
        if (Shared.AbsoluteMode && (IsBlank(toolZ) || IsNumeric(toolZ))) field.Text = toolZ;
    } else if (ListHolds("G73 G81 G82 G83 G85 G89", code)) {
        for (int i = 1; i <= lvCncProgram.Selected; ++i) {
            const ProgramLine& row = lvCncProgram.Row(i);
            if (ListHolds("G81 G82 G83 G85 G89", CodeOfCell(row[CellCode]))) field.Text = row[CellZ];
        }
    }
}

/// The field is emptied, and the cursor comes back to it.
void RefuseValue(Control& field, const std::string& text, const std::string& title, Icon icon)
{
    ShowMessage(text, title, icon);
    field.Text.clear();
    if (field.Visible) SetFocus(field);
}

} // namespace

bool IsEditingCharacter(char typed)
{
    return typed == 3 || typed == 8 || typed == 22 || typed == 24;
}

std::string PresetCell(const Control& box)
{
    return std::string(LastCharacters("   " + std::string(Trimmed(box.Text)), 4));
}

bool EntryKeyDown(const KeyStroke& key)
{
    switch (key.Name) {
    case KeyName::Insert:
        if (key.Shift || key.Ctrl) return false; // paste and copy of some desktops
        cmdInsert_Click();
        return true;
    case KeyName::Up:
    case KeyName::Down: SetFocus(frmMain.lvCncProgram); return true;
    default: return false;
    }
}

char Field_KeyPress(Control& field, char typed)
{
    const char c = UpperCase(typed);
    if (IsEditingCharacter(c)) return c;
    if (std::string_view("0123456789*+-/P").find(c) != std::string_view::npos) return c;
    const bool preset = &field == &frmMain.txtFKTL && (c == 'A' || c == 'B');
    if (preset) field.Text = PresetCell(c == 'A' ? frmMain.txtFeedA : frmMain.txtFeedB);
    if (preset || c == EnterCharacter || c == ' ' || c == ',' || c == '.') FocusNextStop();
    return 0;
}

bool Field_KeyDown(Control& field, const KeyStroke& key)
{
    if (EntryKeyDown(key)) return true;
    if (key.Name == KeyName::Left && IsCaretAtStart(field)) {
        FocusNeighbour(field, -1);
        return true;
    }
    if (key.Name == KeyName::Right && IsAllSelected(field)) {
        FocusNeighbour(field, 1);
        return true;
    }
    return false;
}

void Field_GotFocus(Control& field)
{
    if (&field == &frmMain.txtZK) ProposeMillDepth(field);
    if (IsBlank(field.Text)) {
        const Control* const feed = &field == &frmMain.txtFKTL ? DefaultFeed() : nullptr;
        if (feed != nullptr) {
            field.Text = PresetCell(*feed);
        } else if (&field != &frmMain.txtFKTL) {
            field.Text = "00";
        }
    }
    SelectAll(field);
}

void Field_LostFocus(Control& field)
{
    const bool mayBeEmpty = &field == &frmMain.txtFKTL || &field == &frmMain.txtH;
    if (!mayBeEmpty || !field.Text.empty()) {
        if (HasTooManyTerms(field.Text)) ShowMessage(Tr("Only the first ten terms count"));
        field.Text = MathString(field.Text);
    }
    if (!Shared.Activating) EvalText(field);
}

bool WorkOutFields()
{
    for (Control* field : {&frmMain.txtXI, &frmMain.txtYJ, &frmMain.txtZK, &frmMain.txtFKTL, &frmMain.txtH}) {
        if (!field->Visible || IsBlank(field->Text) || IsNumeric(field->Text)) continue;
        field->Text = MathString(field->Text);
        EvalText(*field);
        if (field->Text.empty()) return false;
    }
    return true;
}

void EvalText(Control& field)
{
    if (field.Text.empty()) return;
    int value = 0;
    const bool fits = IsNumeric(field.Text) && Attempt("EvalText", [&] { value = ToInt32(Val(field.Text)); });
    if (!fits) {
        RefuseValue(field, TextOf(Messages::MustBeNumeric), "", Icon::None);
        return;
    }
    const auto limits = SplitText(field.Tag, "TO");
    if (field.Tag.empty() || limits.size() != 2) return;
    const int low = ToInt32(Val(limits[0])), high = ToInt32(Val(limits[1]));
    if (value < low) {
        RefuseValue(field, TextOf(Messages::LowestValue) + " " + std::to_string(low), Tr("Value Check"),
                    Icon::Information);
    } else if (value > high) {
        RefuseValue(field, TextOf(Messages::HighestValue) + " " + std::to_string(high), Tr("Value Check"),
                    Icon::None);
    }
}

char txtComment_KeyPress(Control&, char typed)
{
    if (typed == EnterCharacter) {
        LineEdit();
        return 0;
    }
    return IsEditingCharacter(typed) || (typed >= 32 && typed <= 126) ? typed : '\0';
}

bool txtComment_KeyDown(Control& box, const KeyStroke& key)
{
    if (EntryKeyDown(key)) return true;
    if (key.Name != KeyName::Left || !IsCaretAtStart(box)) return false;
    FocusNeighbour(box, -1);
    return true;
}

void txtComment_GotFocus(Control& box)
{
    if (!box.Text.empty()) SelectAll(box);
}
