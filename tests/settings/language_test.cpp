// Language modules: how they are read, and whether the shipped ones are complete.

#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "settings/language.h"
#include "settings/setting_rows.h"
#include "support/program.h"

#include <gtest/gtest.h>

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
         "[menu Help]\nAbout=Info\n[menu File]\nNew=Neu\n[nothing]\n[menu File]\nNew=Anew\n",
         "Anew|&Open..."},
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

TEST(Language, TheShippedModulesAreComplete)
{
    std::map<std::string, std::set<std::string>> alike;
    for (const std::string& line : LinesOf(BytesOf(std::string(LANGUAGES_DIR) + "/alike.txt"))) {
        if (const size_t colon = line.find(": "); colon != std::string::npos)
            alike[line.substr(0, colon)].insert(line.substr(colon + 2));
    }
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
                EXPECT_TRUE(!same || alike[language].contains(lines[i].Value)) << where;
            }
        }
    }
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
