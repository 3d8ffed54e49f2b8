// Language modules: how they are read, and whether the shipped ones are complete.

#include "cli/key_script.h"
#include "commands/session.h"
#include "core/control_names.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "settings/language.h"
#include "settings/setting_rows.h"
#include "support/program.h"
#include "ui/profile_controls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

namespace {

TEST(Language, SectionsAreReadByTheirOrder)
{
    struct Case {
        const char* Name;
        const char* Module;
        std::string Expected;
    };
    const Case cases[] = {
        {"keys in any case, comments inside", "[menu File]\n;x\nnEW=Neu\n", "Neu|&Open..."},
        {"a head that stands further up is dropped with its lines",
         "[menu Help]\nAbout=Info\n[menu File]\nNew=Neu\n[nothing]\n[menu File]\nOpen=Auf\n", "&New|Auf"},
        {"a head directly behind the dropped one is looked for in the whole list",
         "[menu Help]\nAbout=Info\n[unknown]\nNew=Not\n[menu File]\nNew=Neu\nOpen=Auf\n", "Neu|Auf"},
        {"outside of a section nothing counts", "New=Neu\n[menu Settings]\nNew=Neu\n", "&New|&Open..."},
        {"a placeholder", "[menu File]\n;dummy\nNew=Neu\n", "&New|&Open..."},
    };
    for (const Case& test : cases) {
        Start("MK4 mm");
        ReadLanguageModule(test.Module);
        EXPECT_EQ(frmMain.mnuNew.Text + "|" + frmMain.mnuOpen.Text, test.Expected) << test.Name;
    }
}

TEST(Language, PositionsAndComposedTexts)
{
    Start("MK4 mm");
    ReadLanguageModule("[G-code MK4]\nG00=Eilgang\n;no place\nnone\nG01=Gerade\n[Column Headers]\na=1\nb=2\n"
                       "[Settings]\nHorizontal=Liegend\nmm=Millimeter\n[Messages]\na=eins\nb=zwei\n"
                       "[Brixley]\n{-} ~ G-code={-} ~ Code G\n%1 to %2=von %1 bis %2\n");
    EXPECT_EQ(frmMain.lstMK4Gcodes.Items[0], "G00 \tEilgang");
    EXPECT_EQ(frmMain.lstMK4Gcodes.Items[1], "G01 \tGerade");
    EXPECT_EQ(lvCncProgram.Headers[CellN] + lvCncProgram.Headers[CellCode], "12");
    EXPECT_EQ(frmMain.optSettingsHmm.Text, "Liegend Millimeter");
    EXPECT_EQ(Translated.MessageTable[2], "zwei");
    EXPECT_EQ(Tr("[-] = G-code"), "[-] = Code G");
    EXPECT_EQ(Tr("%1 to %2", {"a", "b"}), "von a bis b");
}

/// Section by section, the keys and values in their order.
std::vector<std::pair<std::string, std::vector<KeyValue>>> Read(const std::string& language)
{
    std::vector<std::pair<std::string, std::vector<KeyValue>>> sections;
    for (const std::string& line : LinesOf(BytesOf(std::string(LANGUAGES_DIR) + "/" + language + ".txt"))) {
        if (line.empty() || line.starts_with(';')) continue;
        if (line.starts_with('[')) sections.push_back({line, {}});
        if (!line.starts_with('[') && line.find('=') != std::string::npos)
            sections.back().second.push_back(SplitKeyValue(line));
    }
    return sections;
}

/// The places for values, and the sign in front of a message of the list.
std::string Marks(const std::string& text)
{
    std::string marks = text.starts_with('!') ? "!" : "";
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == '%' && text[i + 1] >= '1' && text[i + 1] <= '9') marks += text[i + 1];
    }
    std::sort(marks.begin(), marks.end());
    return marks;
}

/// As the section of the program's own texts has them: braces and a tilde for brackets and an equals sign.
std::string Unescaped(std::string text)
{
    for (char& c : text) c = c == '{' ? '[' : c == '}' ? ']' : c == '~' ? '=' : c;
    return text;
}

/// By language, the texts that may be the same as in English.
std::map<std::string, std::set<std::string>> AlikeWords()
{
    std::map<std::string, std::set<std::string>> alike;
    for (const std::string& line : LinesOf(BytesOf(std::string(LANGUAGES_DIR) + "/alike.txt"))) {
        if (const size_t colon = line.find(": "); colon != std::string::npos)
            alike[line.substr(0, colon)].insert(Unescaped(line.substr(colon + 2)));
    }
    return alike;
}

TEST(Language, TheShippedModulesAreComplete)
{
    auto alike = AlikeWords();
    const auto english = Read("English");
    ASSERT_EQ(english.size(), 36U);
    for (const char* language : {"German", "French", "Spanish", "Dutch"}) {
        const auto module = Read(language);
        ASSERT_EQ(module.size(), english.size()) << language;
        for (size_t s = 0; s < english.size(); ++s) {
            const auto& [head, wanted] = english[s];
            const auto& [found, lines] = module[s];
            ASSERT_EQ(found, head) << language;
            ASSERT_EQ(lines.size(), wanted.size()) << language << " " << head;
            for (size_t i = 0; i < lines.size(); ++i) {
                const std::string where = std::string(language) + " " + head + " " + wanted[i].Key;
                EXPECT_EQ(lines[i].Key, wanted[i].Key) << where;
                EXPECT_EQ(Marks(lines[i].Value), Marks(wanted[i].Value)) << where;
                const bool same =
                    lines[i].Value == wanted[i].Value && wanted[i].Key.find("unused") == std::string::npos;
                EXPECT_TRUE(!same || alike[language].contains(Unescaped(lines[i].Value))) << where;
            }
        }
    }
}

/// Names that no language translates, and what no user ever sees.
bool IsName(const Control& control)
{
    static const std::set<std::string> names{"Xon/Xoff", "DTR/DSR",  "RTS/CTS", "Emco",
                                             "xxx",      "xx:xx:xx", "XZ1-XZ2"};
    for (const Control* in = &control; in != nullptr; in = in->In) {
        for (const Control* hidden : {&frmMain.mnuMachine, &frmMain.mnuUnits, &frmMain.mnuFont,
                                      &frmMain.mnuComm, &frmMain.mnuPaths, &frmMain.mnuRightClick}) {
            if (in == hidden) return true;
        }
    }
    return names.contains(control.Text) || control.Text.starts_with("Com") || control.Is == Kind::TextBox ||
           control.Is == Kind::Combo;
}

/// Everything that can be read in the windows, by the control's name: captions, items, tips.
std::map<std::string, std::string> Readable()
{
    std::map<std::string, std::string> texts;
    const auto take = [&](const std::string& window, Control& control) {
        const std::string name = window + FullName(control);
        const auto word = std::count_if(control.Text.begin(), control.Text.end(),
                                        [](unsigned char c) { return std::isalpha(c) != 0; });
        if (word > 2 && !IsName(control)) texts[name] = control.Text;
        for (const std::string& item : control.Items) {
            if (control.In != &frmMain.tabSettings && item.size() > 3)
                texts[name + " " + item.substr(0, 4)] = item;
        }
    };
    const auto visitor = [&](const char* window) {
        return [&take, window](Control& control) { take(window, control); };
    };
    frmMain.ForEach(visitor(""));
    frmDraw.ForEach(visitor("draw "));
    take("", frmDraw.Window);
    take("", frmProgramWindow.Window);
    frmMain.ForEach([&](Control& control) {
        if (!IsName(control)) texts[FullName(control) + " tip"] = TipOf(control);
    });
    return texts;
}

TEST(Language, NoTextOfTheWindowsStaysEnglish)
{
    const auto alike = AlikeWords();
    for (const char* language : {"German", "French", "Spanish", "Dutch"}) {
        Start("MK4 mm");
        const auto english = Readable();
        ASSERT_GT(english.size(), 250U);
        ReadLanguageModule(BytesOf(std::string(LANGUAGES_DIR) + "/" + language + ".txt"));
        ShowUnits();
        AfterEvent();
        auto now = Readable();
        for (const auto& [name, text] : english) {
            EXPECT_TRUE(now[name] != text || alike.at(language).contains(text))
                << language << " " << name << ": " << text;
        }
    }
}

TEST(Language, TheEnglishModuleGivesTheBuiltInTextsBack)
{
    Start("MK4 mm");
    AfterEvent();
    auto first = Readable();
    for (const char* language : {"German", "English"}) {
        ReadLanguageModule(BytesOf(std::string(LANGUAGES_DIR) + "/" + language + ".txt"));
        ShowUnits();
        AfterEvent();
    }
    // Marked letters and blanks aside; the entry has no caption at first, the help page none of its own.
    const auto plain = [](std::string text) {
        std::erase_if(text, [](char c) { return c == '&' || c == ' '; });
        return text;
    };
    for (const auto& [name, text] : Readable()) {
        if (name == "frEntry" || name == "rtfHelp") continue;
        EXPECT_EQ(plain(text), plain(first[name])) << name;
    }
}

TEST(Language, WhatIsShownFollowsTheNewLanguage)
{
    Start("MK4 mm");
    RunKeyScript("25{ENTER}{FOCUS txtGMcode}-");
    ReadLanguageModule(BytesOf(std::string(LANGUAGES_DIR) + "/German.txt"));
    AfterEvent();
    EXPECT_EQ(frmMain.lblFKTL.Text, "Satz");
    EXPECT_EQ(frmMain.txtFKTL.ToolTip, "0 = Min, Max = 221");
    EXPECT_EQ(frmMain.txtFeedA.ToolTip, "2 = Min, Max = 499");
    EXPECT_EQ(frmMain.txtGMcode.ToolTip, "[-] = G-Code");
    // A line of the other letter is activated: the tip isn't one key late.
    RunKeyScript("-");
    EXPECT_EQ(frmMain.lblCode.ToolTip, "[-] = M-Code");
    EXPECT_EQ(frmDraw.Window.Text, "Zeichnung");
    ReadLanguageModule(BytesOf(std::string(LANGUAGES_DIR) + "/French.txt"));
    EXPECT_EQ(frmDraw.Window.Text, "Dessin");
    EXPECT_EQ(frmMain.lblFKTL.Text, "Bloc");
}

/// What is typed and saved is the machine's language, whatever the captions say.
TEST(Language, LinesAreTheSameInEveryLanguage)
{
    for (const char* language : {"English", "German", "French", "Spanish", "Dutch"}) {
        for (const auto& [profile, script, cells] :
             {std::tuple{"MK4 mm", "25{ENTER}5{ENTER}{ENTER}", "L05 "},
              std::tuple{"MK4 mm", "33{ENTER}-50{ENTER}20{ENTER}{ENTER}", "K20 "},
              std::tuple{"F1 mm", "m06{ENTER}500{ENTER}9{ENTER}0{ENTER}1{ENTER}{ENTER}", "T01 "}}) {
            Start(profile);
            ReadLanguageModule(BytesOf(std::string(LANGUAGES_DIR) + "/" + language + ".txt"));
            RunKeyScript(script);
            std::string word = lvCncProgram.Row(1)[CellF];
            std::erase(word, ' ');
            EXPECT_EQ(word + " ", cells) << language;
        }
    }
}

/// The toolbar's words are those of English alone, whatever the case of its name; a scale box stays empty
/// until the drawing comes to the front.
TEST(Language, ToolBarAndScaleBox)
{
    Start("MK4 mm");
    ReadLanguageModule(
        "[System Variables]\nLanguage Name=ENGLISH\nTranslated by=Me\n[Toolbar]\nOpen File=Open it\n"
        "[DRAW Combo Run]\n;no place\na=Go\n[DRAW Combo Scale]\na=Eighth\n");
    EXPECT_EQ(frmMain.cmdTopButtons[0].Text + "|" + frmMain.cmdTopButtons[0].ToolTip, "Open|Open it");
    EXPECT_EQ(frmDraw.cboRun.Text + "|" + frmDraw.cboRun.Items[1], "Go|Step");
    EXPECT_EQ(frmDraw.cboScale.Text + "|" + frmDraw.cboScale.Items[0], "|Eighth");
    ShowDrawCaptions();
    EXPECT_EQ(frmDraw.cboScale.Text, frmDraw.cboScale.Items[ScaleOneIndex]);
    ReadLanguageModule("[System Variables]\nLanguage Name=Else\n[Toolbar]\n");
    EXPECT_EQ(frmMain.cmdTopButtons[0].Text + Shared.TranslatorName, "");
    EXPECT_EQ(LanguageNameOf("[Brixley, Language Resource]\n[System Variables]\nLanguage Name = Deutsch\n"),
              "Deutsch");
}

TEST(Language, TheProgramsOwnTextsAreInEveryModule)
{
    for (const char* language : {"English", "German", "French", "Spanish", "Dutch"}) {
        Start("MK4 mm");
        ReadLanguageModule(BytesOf(std::string(LANGUAGES_DIR) + "/" + language + ".txt"));
        for (const std::string& text : LinesOf(BytesOf(std::string(LANGUAGES_DIR) + "/texts.txt"))) {
            EXPECT_TRUE(text.empty() || Translated.Own.contains(text)) << language << ": " << text;
        }
    }
}

} // namespace
