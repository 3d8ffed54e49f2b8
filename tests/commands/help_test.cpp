// The help pages: nothing of the program is missing, no link leads nowhere, they open where the cursor is.

// Under the sanitizers the compiler takes parts of the library's regular expressions for uninitialised.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"

#include "cli/key_script.h"
#include "commands/keyboard.h"
#include "core/codes.h"
#include "core/control_names.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/text.h"
#include "interpreter/control_words.h"
#include "settings/language.h"
#include "support/program.h"
#include "ui/focus.h"

#include <gtest/gtest.h>
#include <regex>

namespace {

using W = MainWindow;

/// What a page tells behind an anchor, up to the next one, without its marks; "" when there is none.
std::string TextAt(const std::string& page, const std::string& anchor)
{
    const size_t from = page.find("<a name=\"" + anchor + "\">");
    if (from == std::string::npos) return "";
    const std::string text = page.substr(from, page.find("<a name=", from + 1) - from);
    return std::regex_replace(text, std::regex("<[^>]*>"), "");
}

/// A caption and more than it alone.
void ExpectTold(const std::string& text, const std::string& caption)
{
    EXPECT_TRUE(text.find(caption) != text.npos && text.size() > caption.size() + 15)
        << caption << ": " << text;
}

/// Runs a check with the texts of each language, on the page of that name.
void InEachLanguage(const std::string& page, const std::function<void(const std::string& text)>& check)
{
    for (const std::string language : {"English", "German"}) {
        SCOPED_TRACE(language + page);
        Start("MK4 mm");
        ASSERT_TRUE(ReadLanguageModule(BytesOf(LANGUAGES_DIR "/" + language + ".txt")));
        check(BytesOf(HELP_DIR "/" + language + page + ".html"));
    }
}

} // namespace

TEST(Help, TellsEveryCommandKeyAndControlWord)
{
    InEachLanguage("", [](const std::string& manual) {
        const std::string keys = TextAt(manual, "keys");
        const auto told = [&](const std::string& key) { return keys.find("[" + key) != std::string::npos; };
        frmMain.ForEach([&](Control& entry) {
            const bool offered = entry.In == &frmMain.mnuRightClick || (entry.Visible && entry.In->Visible);
            if (entry.Is != Kind::Menu || entry.In == &frmMain.Window || !offered) return;
            ExpectTold(TextAt(manual, entry.Name), ReplaceEach(entry.Text, "&", ""));
            const std::string key = std::string("CTRL-") + ShortcutOf(entry);
            EXPECT_TRUE(ShortcutOf(entry) == 0 || told(key + "]")) << key;
        });
        std::istringstream all("DELETE INSERT ENTER F1 F2 UP DOWN LEFT RIGHT ESC TAB SHIFT-TAB BLANK - ALT-D "
                               "ALT-I ALT-R ALT-S CTRL-C CTRL-V CTRL-X CTRL-E SHIFT-CTRL-E");
        for (std::string key; all >> key;) EXPECT_TRUE(told(key + "]")) << key;
        for (const std::string_view word : AllControlWords()) {
            const std::string text = "cmd" + std::string(word.substr(3));
            ExpectTold(TextAt(manual, text), text);
        }
    });
}

TEST(Help, TellsEveryButtonAndBoxOfDrawingAndSettings)
{
    const auto expectIn = [](const std::string& section, const Control& control) {
        const bool button = control.Is == Kind::Button || control.Is == Kind::CheckBox;
        const bool group = control.Is == Kind::Frame && (control.In == &frmMain.tabSettings);
        if ((!button && !group) || control.Text.empty()) return;
        std::string caption = ReplaceEach(control.Text, "&", "");
        EXPECT_NE(section.find(caption), section.npos) << FullName(control) << ": " << caption;
    };
    InEachLanguage("", [&](const std::string& manual) {
        const std::string drawing = TextAt(manual, "drawing"), settings = TextAt(manual, "settings");
        frmDraw.ForEach([&](Control& control) { expectIn(drawing, control); });
        for (const std::string& item : frmDraw.cboRun.Items)
            EXPECT_NE(drawing.find(item), drawing.npos) << item;
        frmMain.ForEach([&](Control& control) {
            for (const Control* at = control.In; at != nullptr; at = at->In) {
                if (at == &frmMain.tabSettings) expectIn(settings, control);
            }
        });
        EXPECT_NE(TextAt(manual, "console").find("fingerprint FILE"), std::string::npos);
    });
}

TEST(Help, TheLimitsAreWhatEntryAndCheckBothAllow)
{
    const struct {
        const char *Page, *Code, *Limits;
    } cases[] = {{"-MK2", "G23", "0 to 2210 to 221"},
                 {"-MK4", "M26", "0 to 9990 to 999"},
                 {"-F1", "M26", "0 to 9990 to 9990 to 9990 to 999"},
                 {"-F1", "G04", "0 to 199990 to 79990 to 99990 to 3999"},
                 {"-F1", "M99", "0 to 199990 to 79990 to 99990 to 3999"}};
    for (const auto& [page, code, limits] : cases) {
        const std::string own =
            ReplaceEach(TextAt(BytesOf(HELP_DIR "/English" + std::string(page) + ".html"), code), "\n", "");
        EXPECT_NE(own.find(limits), own.npos) << page << " " << own;
    }
}

TEST(Help, TellsEveryCodeWithALineAndLimitsInBothUnits)
{
    const std::tuple<const char*, std::vector<Control W::*>, const char*, const char*> machines[] = {
        {"-MK2", {&W::lstMK2Gcodes}, "G84", "-5999[^0-9]+5999-1999[^0-9]+1999"},
        {"-MK4", {&W::lstMK4Gcodes, &W::lstMK4Mcodes}, "G86", "10[^0-9]+99910[^0-9]+999"},
        {"-F1", {&W::lstF1Gcodes, &W::lstF1Mcodes}, "M06", "-19999[^0-9]+19999-7999[^0-9]+7999-9999"}};
    for (const auto& [page, lists, code, limits] : machines) {
        InEachLanguage(page, [&lists = lists, code = code, limits = limits](const std::string& text) {
            for (const auto list : lists) {
                for (const std::string& item : (frmMain.*list).Items) {
                    const std::string own = TextAt(text, std::string(Trimmed(item.substr(0, 4))));
                    ExpectTold(own, ItemDescription(item));
                    EXPECT_NE(own.find(std::string(Trimmed(item.substr(1, 3))) + " [ENTER]"), own.npos);
                }
            }
            EXPECT_TRUE(std::regex_search(TextAt(text, code), std::regex(limits))) << TextAt(text, code);
        });
    }
}

TEST(Help, NoLinkLeadsNowhere)
{
    for (const std::string page : {"", "-MK2", "-MK4", "-F1", "-about"}) {
        InEachLanguage(page, [](const std::string& text) {
            const std::regex links("(href|src)=\"([^\"#]*)#?([^\"]*)\"");
            for (std::sregex_iterator link(text.begin(), text.end(), links), end; link != end; ++link) {
                const std::string file = (*link)[2], place = (*link)[3];
                const std::string target = file.empty() ? text : BytesOf(HELP_DIR "/" + file);
                EXPECT_FALSE((place.empty() ? target : TextAt(target, place)).empty()) << link->str();
            }
        });
    }
}

TEST(Help, OverReceivedCodeLeavesTheWindowAsItWas)
{
    Start("MK4 mm");
    ASSERT_EQ(RunKeyScript("{CLICK cmdTopButtons(4)}{PICK tabSettings 6}{CHECK chkEnableCom}{CTRL-R}{F1}"),
              std::nullopt);
    EXPECT_EQ(frmMain.rtfHelp.Visible ? frmMain.rtfHelp.Tag : "hidden", "receive");
    EXPECT_FALSE(TextAt(frmMain.rtfHelp.Text, "receive").empty());
    for (const char* leave : {"{F1}", "{F1}{ESC}"}) {
        ASSERT_EQ(RunKeyScript(leave), std::nullopt);
        EXPECT_FALSE(frmMain.rtfHelp.Visible);
        EXPECT_TRUE(frmMain.frRXcode.Visible);
        EXPECT_TRUE(HasFocus(frmMain.txtRX));
        EXPECT_FALSE(frmMain.mnuHelp.Enabled || IsUsable(frmMain.txtGMcode));
    }
    ASSERT_EQ(RunKeyScript("{CLICK cmdReceiveExit}"), std::nullopt);
    EXPECT_TRUE(frmMain.mnuHelp.Enabled && IsUsable(frmMain.txtGMcode));
}

TEST(Help, OpensAtWhatTheCursorIsOn)
{
    const std::tuple<const char*, const char*, Control W::*, const char*> cases[] = {
        {"MK4 mm", "{F1}", &W::rtfHelp, ""},
        {"MK4 mm", "84{ENTER}{F1}", &W::rtfGcodeHelpMK4, "G84"},
        {"MK4 mm", "M99R{ENTER}{F1}", &W::rtfGcodeHelpMK4, "M99R"},
        {"MK2 mm", "84{ENTER}5{ENTER}{F1}", &W::rtfGcodeHelpMK2, "G84"},
        {"MK4 mm", "{ESC}{F1}", &W::rtfHelp, "list"},
        {"MK4 mm", "{CLICK txtFileNotes}{F1}", &W::rtfHelp, "notes"},
        {"MK4 mm", "{CLICK txtComment}{F1}", &W::rtfHelp, "comment"},
        {"F1 mm V", "{PICK lstF1Mcodes 2}{FOCUS lstF1Mcodes}{F1}", &W::rtfGcodeHelpMK4, "M03"},
        {"MK4 mm", "00{ENTER}1{ENTER}1{ENTER}{ENTER}{CTRL-D}{F1}", &W::rtfHelp, "drawing"},
        {"MK4 mm", "84{ENTER}{F1}{F1}", &W::rtfHelp, "list"}};
    for (const auto& [profile, keys, pane, place] : cases) {
        Start(profile);
        ASSERT_EQ(RunKeyScript(keys), std::nullopt);
        EXPECT_EQ((frmMain.*pane).Visible ? (frmMain.*pane).Tag : "hidden", place) << keys;
        EXPECT_TRUE(*place == 0 || !TextAt((frmMain.*pane).Text, place).empty());
    }
}
