// The help pages, in both languages: that nothing which the program has is missing in them, that no link of
// them leads nowhere, and that they open at what the cursor is on.

#include "cli/key_script.h"
#include "cli/open_program.h"
#include "commands/keyboard.h"
#include "core/codes.h"
#include "core/main_window.h"
#include "core/profile.h"
#include "core/text.h"
#include "interpreter/control_words.h"
#include "settings/language.h"
#include "support/program.h"

#include <gtest/gtest.h>
#include <regex>

namespace {

const std::string Folder = HELP_DIR "/";
const char* const Languages[] = {"English", "German"};

/// A program on MK4 with the texts of a language.
void Speak(const std::string& language)
{
    Start("MK4 mm");
    ASSERT_TRUE(ReadLanguageModule(BytesOf(LANGUAGES_DIR "/" + language + ".txt")));
}

/// What a page tells behind an anchor, up to the next one, without its marks; "" when there is none.
std::string TextAt(const std::string& page, const std::string& anchor)
{
    const std::string mark = "<a name=\"" + anchor + "\"></a>";
    const size_t from = page.find(mark);
    if (from == std::string::npos) return "";
    const std::string text =
        page.substr(from + mark.size(), page.find("<a name=", from + 1) - from - mark.size());
    return std::regex_replace(text, std::regex("<[^>]*>"), "");
}

/// A caption and a whole sentence behind it.
void ExpectTold(const std::string& text, const std::string& caption)
{
    EXPECT_NE(text.find(caption), std::string::npos) << "without \"" << caption << "\": " << text;
    EXPECT_GT(text.size(), caption.size() + 20) << text;
}

bool IsOffered(const Control* entry)
{
    for (; entry != &frmMain.Window; entry = entry->In) {
        if (!entry->Visible && entry != &frmMain.mnuRightClick && entry != &frmMain.mnuRecent) return false;
    }
    return true;
}

} // namespace

TEST(Help, TellsEveryCommandKeyAndControlWord)
{
    for (const std::string language : Languages) {
        SCOPED_TRACE(language);
        Speak(language);
        const std::string manual = BytesOf(Folder + language + ".html");
        frmMain.ForEach([&](Control& entry) {
            if (entry.Is != Kind::Menu || entry.In == &frmMain.Window || !IsOffered(&entry)) return;
            ExpectTold(TextAt(manual, entry.Name), ReplaceEach(entry.Text, "&", ""));
            if (const char letter = ShortcutOf(entry))
                EXPECT_NE(TextAt(manual, "keys").find(std::string("[CTRL-") + letter), std::string::npos)
                    << entry.Name;
        });
        for (const char* key :
             {"DELETE", "INSERT", "ENTER",  "F1",     "F2",     "UP",          "DOWN",  "LEFT",
              "RIGHT",  "ESC",    "TAB",    "BLANK",  "-",      "ALT-D",       "ALT-I", "ALT-R",
              "ALT-S",  "CTRL-C", "CTRL-V", "CTRL-X", "CTRL-E", "SHIFT-CTRL-E"})
            EXPECT_NE(TextAt(manual, "keys").find("[" + std::string(key) + "]"), std::string::npos) << key;
        for (const std::string_view word : AllControlWords()) {
            const std::string written = "cmd" + std::string(word.substr(3));
            ExpectTold(TextAt(manual, written), written);
        }
    }
}

TEST(Help, TellsEveryCodeWithItsLimitsAndALine)
{
    for (const std::string language : Languages) {
        Speak(language);
        const MainWindow& main = frmMain;
        for (const auto& [machine, lists] :
             std::initializer_list<std::pair<std::string, std::vector<const Control*>>>{
                 {"MK2", {&main.lstMK2Gcodes}},
                 {"MK4", {&main.lstMK4Gcodes, &main.lstMK4Mcodes}},
                 {"F1", {&main.lstF1Gcodes, &main.lstF1Mcodes}}}) {
            const std::string page = BytesOf(Folder + language + "-" + machine + ".html");
            for (const Control* list : lists) {
                for (const std::string& item : list->Items) {
                    const std::string code(Trimmed(item.substr(0, 4)));
                    SCOPED_TRACE(language + " " + machine + " " + code);
                    const std::string text = TextAt(page, code);
                    ExpectTold(text, code + " " + ItemDescription(item));
                    EXPECT_NE(text.find(code[0] == 'G' && machine == "MK2" ? code.substr(1) + " [ENTER]"
                                                                           : code + " [ENTER]"),
                              std::string::npos);
                }
            }
        }
    }
    // Limits of both units, and of both spindles, as the fields have them.
    EXPECT_NE(TextAt(BytesOf(Folder + "English-MK4.html"), "G84").find("-5999 to 5999-1999 to 1999"),
              std::string::npos);
    EXPECT_NE(TextAt(BytesOf(Folder + "German-F1.html"), "G00")
                  .find("-19999 bis 19999-7999 bis 7999-9999 bis 9999"),
              std::string::npos);
}

TEST(Help, NoLinkLeadsNowhere)
{
    const std::regex links("(href|src)=\"([^\"#]*)#?([^\"]*)\"");
    int checked = 0;
    for (const std::string language : Languages) {
        for (const std::string name : {"", "-MK2", "-MK4", "-F1", "-about"}) {
            const std::string own = language + name + ".html", page = BytesOf(Folder + own);
            for (auto link = std::sregex_iterator(page.begin(), page.end(), links);
                 link != std::sregex_iterator(); ++link, ++checked) {
                const std::string file = (*link)[2].length() > 0 ? (*link)[2].str() : own, place = (*link)[3];
                const std::string target = BytesOf(Folder + file);
                EXPECT_FALSE(target.empty()) << own << " to " << file;
                EXPECT_TRUE(place.empty() || !TextAt(target, place).empty())
                    << own << " to " << file << "#" << place;
            }
        }
    }
    EXPECT_GT(checked, 300);
}

TEST(Help, OpensAtWhatTheCursorIsOn)
{
    struct Case {
        const char *Profile, *Keys;
        Control MainWindow::*Pane;
        const char* Place;
    };
    using W = MainWindow;
    for (const Case& c :
         std::initializer_list<Case>{{"MK4 mm", "{F1}", &W::rtfHelp, ""},
                                     {"MK4 mm", "84{ENTER}{F1}", &W::rtfGcodeHelpMK4, "G84"},
                                     {"MK4 mm", "M99R{ENTER}{F1}", &W::rtfGcodeHelpMK4, "M99R"},
                                     {"MK2 mm", "84{ENTER}5{ENTER}{F1}", &W::rtfGcodeHelpMK2, "G84"},
                                     {"F1 mm", "M06{ENTER}{F1}", &W::rtfGcodeHelpMK4, "M06"},
                                     {"MK4 mm", "{ESC}{F1}", &W::rtfHelp, "list"},
                                     {"MK4 mm", "{CLICK txtFileNotes}{F1}", &W::rtfHelp, "notes"},
                                     {"MK4 mm", "84{ENTER}{F1}{F1}", &W::rtfHelp, ""},
                                     {"MK4 mm", "{CTRL-G}", &W::rtfGcodeHelpMK4, ""}}) {
        SCOPED_TRACE(c.Keys);
        Start(c.Profile);
        ASSERT_EQ(RunKeyScript(c.Keys), std::nullopt);
        const Control& pane = frmMain.*c.Pane;
        EXPECT_TRUE(pane.Visible);
        EXPECT_EQ(pane.Tag, c.Place);
        EXPECT_TRUE(pane.Tag.empty() || !TextAt(pane.Text, pane.Tag).empty());
    }
}
