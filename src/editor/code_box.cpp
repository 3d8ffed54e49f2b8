#include "editor/code_box.h"

#include "core/codes.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "editor/fields.h"
#include "editor/value_entry.h"
#include "editor/whole_program.h"
#include "platform/platform.h"
#include "ui/focus.h"
#include "ui/text_box.h"

namespace {

/// The user wants a letter. MK2 has G codes alone.
void ToggleLetter(char typed)
{
    Shared.CodeToggled = true;
    if (Shared.Machine == MachineKind::MK2) return;
    std::string& letter = frmMain.lblGMcode.Text;
    const char wanted = typed == '-' ? (letter == "G" ? 'M' : 'G') : typed;
    letter = std::string(1, wanted);
}

/// "5" becomes "05", "123" becomes "23", anything that ends in R "99R".
std::string CompletedCode(const std::string& text)
{
    if (UpperCase(text.back()) == 'R') return "99R";
    return std::string(LastCharacters("0" + text, 2));
}

bool IsKnown(const std::string& code)
{
    for (const std::string& item : CodeListOf(!EqualsNoCase(frmMain.lblGMcode.Text, "G")).Items) {
        if (EqualsNoCase(FirstCharacters(FromCharacter(item, 1), 2), FirstCharacters(code, 2))) return true;
    }
    return false;
}

void RefuseCode(Control& box)
{
    SetFocus(box);
    SelectAll(box);
    ShowMessage(frmMain.lblGMcode.Text + box.Text + " " + TextOf(Messages::UnknownCode));
    box.Text.clear();
}

/// Whether the code differs from that of the selected row, so that its fields have to be set up.
bool IsNewCode(const std::string& code)
{
    if (LineCount() == 0 || lvCncProgram.Selected == 0 || Shared.CodeToggled) return true;
    const std::string& cell = lvCncProgram.Row(lvCncProgram.Selected)[CellCode];
    return !EqualsNoCase(Trimmed(FirstCharacters(FromCharacter(cell, 1), 2)), code);
}

bool MayDescribe()
{
    const std::string& comment = frmMain.txtComment.Text;
    return frmMain.chkViewGcode.Value == 1 && (IsBlank(comment) || comment.starts_with(AutomaticComment));
}

/// What a picked item sets; `sister` is the machine's other list.
void TakeItem(const Control& list, Control* sister, const char* letter)
{
    if (list.Index < 0) return;
    const std::string& item = list.Items[static_cast<size_t>(list.Index)];
    frmMain.lblGMcode.Text = letter;
    frmMain.frEntry.Text = ItemDescription(item);
    frmMain.txtGMcode.Text = Trimmed(FirstCharacters(FromCharacter(item, 1), 3));
    if (sister != nullptr) sister->Index = -1;
    InputFields(frmMain.txtGMcode.Text);
    FirstFieldFocus();
    std::string& comment = frmMain.txtComment.Text;
    if (frmMain.chkViewGcode.Value == 0) {
        comment.clear();
    } else if (MayDescribe()) {
        comment = std::string(AutomaticComment) + ItemDescription(item);
    }
}

} // namespace

void ShowLetterTip()
{
    const std::string tip = Tr(EqualsNoCase(frmMain.lblGMcode.Text, "M") ? "[-] = G-code" : "[-] = M-code");
    for (Control* control : {&frmMain.lblGMcode, &frmMain.lblCode, &frmMain.txtGMcode})
        control->ToolTip = tip;
}

Control& CodeListOf(bool letterM)
{
    switch (Shared.Machine) {
    case MachineKind::MK2: return frmMain.lstMK2Gcodes;
    case MachineKind::MK4: return letterM ? frmMain.lstMK4Mcodes : frmMain.lstMK4Gcodes;
    case MachineKind::F1: break;
    }
    return letterM ? frmMain.lstF1Mcodes : frmMain.lstF1Gcodes;
}

char txtGMcode_KeyPress(Control&, char typed)
{
    const char c = UpperCase(typed);
    char passes = 0;
    if (IsEditingCharacter(c) || (c >= '0' && c <= '9') || c == 'R') {
        passes = c;
    } else if (c == EnterCharacter || c == ' ' || c == ',' || c == '.' || c == '\'') {
        FocusNextStop();
    } else if (c == '-' || c == 'G' || c == 'M') {
        ToggleLetter(c);
    }
    return passes;
}

bool txtGMcode_KeyDown(Control&, const KeyStroke& key)
{
    if (EntryKeyDown(key)) return true;
    if (key.Name != KeyName::Right) return false;
    FocusNextStop();
    return true;
}

void txtGMcode_GotFocus(Control& box)
{
    SelectAll(box);
}

void txtGMcode_LostFocus(Control& box)
{
    if (box.Text.empty()) return;
    box.Text = CompletedCode(box.Text);
    if (!IsKnown(box.Text)) {
        RefuseCode(box);
        return;
    }
    if (IsNewCode(box.Text)) {
        Shared.CodeToggled = false;
        // The cursor goes to the first field only when it was sent on, not where the user sent it.
        if (IsMovingOn()) {
            InputFields(box.Text);
        } else {
            SetUpFields(box.Text);
        }
        if (MayDescribe()) CodeDescription();
    }
    if (frmMain.chkViewGcode.Value == 1 && IsBlank(frmMain.txtComment.Text)) CodeDescription();
}

bool SettleCode()
{
    Control& box = frmMain.txtGMcode;
    const bool isNew = IsNewCode(CompletedCode(box.Text));
    txtGMcode_LostFocus(box);
    if (HasFocus(box)) return false;
    if (isNew) FirstFieldFocus();
    return !isNew;
}

void lstMK2Gcodes_Click()
{
    TakeItem(frmMain.lstMK2Gcodes, nullptr, "G");
}

void lstMK4Gcodes_Click()
{
    TakeItem(frmMain.lstMK4Gcodes, &frmMain.lstMK4Mcodes, "G");
}

void lstMK4Mcodes_Click()
{
    TakeItem(frmMain.lstMK4Mcodes, &frmMain.lstMK4Gcodes, "M");
}

void lstF1Gcodes_Click()
{
    TakeItem(frmMain.lstF1Gcodes, &frmMain.lstF1Mcodes, "G");
}

void lstF1Mcodes_Click()
{
    TakeItem(frmMain.lstF1Mcodes, &frmMain.lstF1Gcodes, "M");
}

void PickCode(const std::string& code)
{
    for (Control* list : {&frmMain.lstMK2Gcodes, &frmMain.lstMK4Gcodes, &frmMain.lstMK4Mcodes,
                          &frmMain.lstF1Gcodes, &frmMain.lstF1Mcodes}) {
        list->Index = -1;
    }
    Control& list = CodeListOf(StartsNoCase(code, "M"));
    for (size_t i = 0; i < list.Items.size(); ++i) {
        if (!EqualsNoCase(FirstCharacters(list.Items[i], 4), FirstCharacters(code, 4))) continue;
        list.Index = static_cast<int>(i);
        if (list.On.Click != nullptr) list.On.Click();
        return;
    }
}
