#include "commands/help.h"

#include "commands/windows.h"
#include "core/app_data.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/profile.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "editor/code_box.h"
#include "settings/help_pages.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/text_box.h"

#include <algorithm>

namespace {

using W = MainWindow;

constexpr Control W::*HelpPanes[] = {&W::rtfHelp, &W::rtfGcodeHelpMK2, &W::rtfGcodeHelpMK4, &W::rtfAbout,
                                     &W::lstAbout};

/// Shows a page in its pane, in the place of any other, at a place that its links know.
void ShowPage(Control& pane, const std::string& page, const std::string& place)
{
    if (!Busy()) ControlsEnable(false); // what is busy has locked the window, and keeps its own way out
    frmMain.mnuHelp.Enabled = true;
    HideHelpPages();
    HideAxesPictures();
    FillHelpPage(pane, page);
    pane.Tag = place;
    ++Shared.HelpJumps;
    frmMain.cmdReturn.Visible = frmMain.txtHelpFind.Visible = true;
    pane.Visible = true;
}

Control& CodesPane()
{
    return Shared.Machine == MachineKind::MK2 ? frmMain.rtfGcodeHelpMK2 : frmMain.rtfGcodeHelpMK4;
}

std::string CodesPage()
{
    return "-" + std::string(ActiveProfile().Name);
}

/// Where the manual tells about a control, or about what it stands in.
struct Place {
    Control W::*Of;
    const char* Anchor;
};
constexpr Place Places[] = {
    {&W::lvCncProgram, "list"},    {&W::txtGMcode, "code"},    {&W::frEntry, "values"},
    {&W::frSetReplace, "feeds"},   {&W::frFileNotes, "notes"}, {&W::frView, "view"},
    {&W::tabSettings, "settings"}, {&W::cmdRun, "run"},        {&W::cmdStep, "run"},
    {&W::txtComment, "comment"},
};

constexpr Control W::*CodeLists[] = {&W::lstMK2Gcodes, &W::lstMK4Gcodes, &W::lstMK4Mcodes, &W::lstF1Gcodes,
                                     &W::lstF1Mcodes};

std::string PlaceOfFocus()
{
    if (Focused() == &frmMain.txtGMcode && frmMain.txtGMcode.Text.empty()) return ""; // a first look
    for (const Control* at = Focused(); at != nullptr; at = at->In) {
        for (const Place& place : Places) {
            if (at == &(frmMain.*place.Of)) return place.Anchor;
        }
    }
    return "";
}

bool IsListed(const Control& list, const std::string& code)
{
    return std::any_of(list.Items.begin(), list.Items.end(), [&](const std::string& item) {
        return EqualsNoCase(Trimmed(FirstCharacters(item, 4)), code);
    });
}

/// The code that is selected in a list, "" for none.
std::string CodeOfList(const Control& list)
{
    const bool selected = list.Index >= 0 && list.Index < static_cast<int>(list.Items.size());
    return selected ? std::string(Trimmed(FirstCharacters(list.Items[static_cast<size_t>(list.Index)], 4)))
                    : "";
}

/// The code of the entry when the machine has it, else "".
std::string CodeOfEntry()
{
    const std::string code = frmMain.lblGMcode.Text + UpperCase(Trimmed(frmMain.txtGMcode.Text));
    return IsListed(CodeListOf(frmMain.lblGMcode.Text == "M"), code) ? code : "";
}

/// The code whose field has the cursor, or that is selected in the list that has it; "" elsewhere.
std::string CodeOfFocus()
{
    const Control* const focused = Focused();
    for (const auto list : CodeLists) {
        if (focused == &(frmMain.*list)) return CodeOfList(*focused);
    }
    for (const Control* field :
         {&frmMain.txtXI, &frmMain.txtYJ, &frmMain.txtZK, &frmMain.txtFKTL, &frmMain.txtH}) {
        if (focused == field) return CodeOfEntry();
    }
    return "";
}

bool HelpIsOffered()
{
    return frmMain.mnuHelp.Enabled && frmMain.mnuHelpText.Enabled;
}

} // namespace

void HideHelpPages()
{
    for (const auto pane : HelpPanes) (frmMain.*pane).Visible = false;
    frmMain.txtHelpFind.Visible = false;
}

void mnuHelpText_Click()
{
    if (frmMain.rtfHelp.Visible) return cmdReturn_Click();
    ShowPage(frmMain.rtfHelp, "", PlaceOfFocus());
}

void mnuGhelp_Click()
{
    if (CodesPane().Visible) return cmdReturn_Click();
    ShowPage(CodesPane(), CodesPage(), "");
}

void mnuAbout_Click()
{
    if (frmMain.rtfAbout.Visible) return cmdReturn_Click();
    ShowPage(frmMain.rtfAbout, "-about", "");
    frmMain.txtHelpFind.Visible = false; // until the history can be seen
    Control& list = frmMain.lstAbout;
    list.Visible = true;
    list.Items = {TextOf(Messages::ProgramVersion) + ":", std::string(ProductVersion) + "(2012/02/05)",
                  TextOf(Messages::LanguageModule) + ":",
                  std::string(TextOr(Tr("None"), Shared.LanguageName))};
    const std::string translator = TextOf(Messages::Translator);
    if (translator.empty()) return;
    list.Items.push_back(translator + ":");
    list.Items.push_back(Shared.TranslatorName);
}

void lstAbout_Click()
{
    frmMain.lstAbout.Visible = false;
    frmMain.txtHelpFind.Visible = true;
}

bool ShowHelpOfField()
{
    if (IsHelpUp() || !HelpIsOffered()) return false;
    const std::string code = CodeOfFocus();
    if (code.empty()) return false;
    ShowPage(CodesPane(), CodesPage(), code);
    return true;
}

bool ShowHelpOfReception()
{
    if (!frmMain.frRXcode.Visible || IsHelpUp()) return false;
    ShowPage(frmMain.rtfHelp, "", "receive");
    return true;
}

void ShowHelpOfDrawing()
{
    if (!HelpIsOffered()) return;
    BringToFront(frmMain.Window); // closes a page that is up
    ShowPage(frmMain.rtfHelp, "", "drawing");
}

void FollowHelpLink(const std::string& link)
{
    if (!IsHelpUp()) return;
    const size_t hash = link.find('#');
    const std::string place = hash == std::string::npos ? "" : link.substr(hash + 1);
    if (hash == 0) { // on the same page
        for (const auto pane : HelpPanes) {
            if ((frmMain.*pane).Visible) (frmMain.*pane).Tag = place;
        }
        ++Shared.HelpJumps;
        return;
    }
    const std::string page = HelpPageOfFile(link.substr(0, hash));
    Control& pane = page.empty()       ? frmMain.rtfHelp
                    : page == "-about" ? frmMain.rtfAbout
                    : page == "-MK2"   ? frmMain.rtfGcodeHelpMK2
                                       : frmMain.rtfGcodeHelpMK4;
    ShowPage(pane, page, place);
}

void FocusHelpSearch()
{
    SetFocus(frmMain.txtHelpFind);
    txtHelpFind_GotFocus(frmMain.txtHelpFind); // also when the cursor was there
}

void txtHelpFind_GotFocus(Control& box)
{
    SelectAll(box);
}

char txtHelpFind_KeyPress(Control&, char typed)
{
    if (typed != 13) return typed;
    ++Shared.HelpSearches;
    return 0;
}
