#include "editor/whole_program.h"

#include "core/codes.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/text.h"
#include "editor/code_box.h"
#include "editor/fields.h"
#include "editor/math_string.h"
#include "editor/value_entry.h"
#include "interpreter/interpreter.h"
#include "ui/columns.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/profile_controls.h"
#include "ui/text_box.h"

#include <algorithm>

namespace {

/// One unit of a program in inch (1/1000 inch) in units of a metric one (1/100 mm).
constexpr double MetricPerInch = 2.54;

/// Scales the last `digits` characters of a cell; what stands in front of them, sign or letter, stays.
void ConvertCell(std::string& cell, size_t digits, double factor)
{
    Attempt("Convert", [&] {
        const int16_t value = ToInt16(Val(LastCharacters(cell, digits)) * factor);
        cell = std::string(FirstCharacters(cell, 1)) + RightPad(FormatWhole(value, 2), digits);
    });
}

/// Feeds and pitches: a pitch has the letter K, a feed no letter and a value above 1.
bool IsFeedOrPitch(const std::string& cell)
{
    bool is = false;
    Attempt("Convert", [&] {
        const Word word = WordVal(cell);
        is = UpperCase(word.Letter) == 'K' || (word.Letter == '\0' && word.Value > 1);
    });
    return is;
}

void ConvertRow(ProgramLine& row, double factor)
{
    if (!IsBlank(row[CellX])) ConvertCell(row[CellX], ActiveProfile().XDigits, factor);
    const std::string& y = row[CellY];
    if (!IsBlank(y) && !StartsNoCase(y, "S")) ConvertCell(row[CellY], 4, factor);
    if (!IsBlank(row[CellZ])) ConvertCell(row[CellZ], 5, factor);
    // A line from an MK2 file has no place for a letter there yet.
    if (CharacterCount(row[CellF]) == 3) row[CellF].insert(0, " ");
    if (IsFeedOrPitch(row[CellF])) ConvertCell(row[CellF], 3, factor);
}

/// What stands in the fields of the entry, shown or kept to be proposed for the next line, means the same
/// length and the same feed as before, and the limits are those of the new units.
void ConvertEntry(double factor)
{
    const auto scale = [&](Control& field) {
        const std::string value = IsBlank(field.Text) ? "" : MathString(field.Text);
        if (!IsNumeric(value)) return;
        Attempt("Convert", [&] { field.Text = FormatWhole(ToInt16(Val(value) * factor), 2); });
    };
    scale(frmMain.txtXI);
    if (frmMain.lblYJ.Tag != "S") scale(frmMain.txtYJ);
    scale(frmMain.txtZK);
    if (frmMain.lblFKTL.Tag == "F" || frmMain.lblFKTL.Tag == "K") scale(frmMain.txtFKTL);
    if (!frmMain.txtGMcode.Text.empty()) SetUpFields(frmMain.txtGMcode.Text);
}

/// The description of the first item whose first `length` characters, trimmed, are the code; "" for none.
std::string DescriptionOf(const Control& list, std::string_view code, size_t length)
{
    for (const std::string& item : list.Items) {
        if (EqualsNoCase(Trimmed(FirstCharacters(item, length)), code)) {
            return std::string(AutomaticComment) + ItemDescription(item);
        }
    }
    return "";
}

void DescribeRow(ProgramLine& row)
{
    if (!IsBlank(row[CellComment])) return;
    std::string code(Trimmed(row[CellCode]));
    const bool letterM = StartsNoCase(code, "M");
    if (!letterM) code.insert(0, "G");
    const std::string description = DescriptionOf(CodeListOf(letterM), code, 3);
    if (!description.empty()) row[CellComment] = description;
}

} // namespace

void Convert(double factor)
{
    if (RefuseWhileBusy() || LineCount() < 1) return;
    Shared.Changed = true;
    for (int i = 1; i <= LineCount(); ++i) ConvertRow(lvCncProgram.Row(i), factor);
    SetUnits(factor == MetricPerInch);
    ConvertEntry(factor);
}

void mnuMMtoINCH_click()
{
    Convert(1 / MetricPerInch);
}

void mnuINCHtoMM_click()
{
    Convert(MetricPerInch);
}

void CodeDescription()
{
    if (frmMain.txtGMcode.Text.empty()) return;
    const std::string& letter = frmMain.lblGMcode.Text;
    const Control& list = CodeListOf(EqualsNoCase(letter, "M"));
    const std::string description = DescriptionOf(list, letter + frmMain.txtGMcode.Text, 4);
    if (description.empty()) return;
    frmMain.txtComment.Text = description;
    if (HasFocus(frmMain.txtComment)) SelectAll(frmMain.txtComment); // as when the cursor came there
}

void chkViewGcode_Click()
{
    if (LineCount() < 1) return;
    Shared.Changed = true;
    for (int i = 1; i <= LineCount(); ++i) {
        ProgramLine& row = lvCncProgram.Row(i);
        if (frmMain.chkViewGcode.Value == 1) {
            DescribeRow(row);
        } else if (row[CellComment].starts_with(AutomaticComment)) {
            row[CellComment].clear();
        }
    }
    Interpreter();
    AutoWidth();
    FirstFieldFocus();
}

void mnuDelComments_Click()
{
    if (RefuseWhileBusy()) return;
    for (ProgramLine& row : lvCncProgram.Rows) row[CellComment].clear();
    Interpreter();
    Shared.Changed = true;
}

void txtFileNotes_GotFocus(Control& notes)
{
    notes.SelStart = static_cast<int>(CharacterCount(notes.Text));
    notes.SelLength = 0;
}

void txtFileNotes_Change()
{
    Shared.Changed = true;
    Control& notes = frmMain.txtFileNotes;
    const std::string_view front = FirstCharacters(notes.Text, static_cast<size_t>(notes.SelStart));
    notes.SelStart -= static_cast<int>(std::count(front.begin(), front.end(), '%'));
    if (std::erase(notes.Text, '%') > 0) notes.ToolTip = TextOf(Messages::NoPercent);
}

char txtFileNotes_Keypress(Control& notes, char typed)
{
    Shared.Changed = true;
    if (typed == '%') {
        notes.ToolTip = TextOf(Messages::NoPercent);
        return 0;
    }
    if (typed == EnterCharacter || IsEditingCharacter(typed)) return typed;
    return typed >= 32 && static_cast<unsigned char>(typed) <= 127 ? typed : '\0';
}
