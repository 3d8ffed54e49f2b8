// The helpers on texts, in characters and not in bytes; the 8-bit text; translated messages.

#include "core/text.h"

#include "commands/session.h"
#include "core/code_page.h"
#include "core/codes.h"
#include "core/messages.h"
#include "core/numbers.h"

#include <gtest/gtest.h>

namespace {

using Parts = std::vector<std::string_view>;

TEST(Text, RightPadKeepsTheEndAndCountsCharacters)
{
    EXPECT_EQ(RightPad("7", 3), "  7");
    EXPECT_EQ(RightPad("12345", 4), "2345");
    EXPECT_EQ(RightPad("1234", 4), "1234");
    EXPECT_EQ(RightPad("\u00E9", 3), "  \u00E9");
    EXPECT_EQ(RightPad("a\u20AC\u00E9", 2), "\u20AC\u00E9");
    EXPECT_EQ(LastCharacters("x\u00E9y", 2), "\u00E9y");
    EXPECT_EQ(FirstCharacters("\u20ACxy", 2), "\u20ACx");
    EXPECT_EQ(FromCharacter("\u20AC", 5), "");
}

TEST(Text, TrimmingRemovesBlanksAlone)
{
    EXPECT_EQ(Trimmed("  \ta b\t  "), "\ta b\t");
    EXPECT_EQ(Trimmed("   "), "");
    EXPECT_FALSE(IsBlank(" \t"));
}

TEST(Text, SplitEndsAtAnEmptyToken)
{
    const struct {
        const char* Name;
        std::string_view Text;
        int Count;
        Parts Expected;
    } cases[] = {
        {"an empty line ends it", "a\r\n\r\nb\r\nc", -1, {"a", "b\r\nc"}},
        {"an empty first token is kept", "\r\na\r\nb", -1, {"", "a", "b"}},
        {"no delimiter", "abc", -1, {"", "abc"}},
        {"nothing", "", -1, {"", ""}},
        {"a delimiter at the end", "a\r\nb\r\n", -1, {"a", "b", ""}},
        {"counted", "a\r\nb\r\nc\r\nd", 2, {"a", "b", "c\r\nd"}},
    };
    for (const auto& c : cases) EXPECT_EQ(SplitText(c.Text, "\r\n", c.Count), c.Expected) << c.Name;
    EXPECT_EQ(SplitText("2TO499", "TO"), (Parts{"2", "499"}));
}

TEST(Text, KeysAndFileNames)
{
    const KeyValue pair = SplitKeyValue("[ Port ] = 2 = two ");
    EXPECT_EQ(pair.Key, "Port");
    EXPECT_EQ(pair.Value, "2 = two");
    EXPECT_EQ(SplitKeyValue(" [Messages] ").Key, "Messages");
    EXPECT_EQ(SplitKeyValue("[Messages]").Value, "");
    EXPECT_EQ(FileNameOf("/home/x/a.cnc"), "a.cnc");
    EXPECT_EQ(FileNameOf("C:\\work/b\\a.cnc"), "a.cnc");
    EXPECT_EQ(FileNameOf("a.cnc"), "a.cnc");
    EXPECT_EQ(FileNameOf("folder/"), "");
    EXPECT_EQ(ReplaceEach("a. b. ", ". ", ".. "), "a.. b.. ");
}

TEST(Text, CodesOfCellsInAnyCaseButOfFourCharacters)
{
    EXPECT_EQ(CodeOfCell(" 02 "), G(2));
    EXPECT_EQ(CodeOfCell("m06 "), M(6));
    EXPECT_EQ(CodeOfCell("M99r"), M99R);
    EXPECT_EQ(CodeOfCell("M99 "), M(99));
    for (const char* no : {"", " 02", " 2  ", "X02 ", " 99R", " 021", "M\u00E906", " "})
        EXPECT_EQ(CodeOfCell(no), NoCode) << no;
}

TEST(CodePage, EveryByteSurvivesARoundTrip)
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    const std::string text = FromCodePage(bytes);
    EXPECT_EQ(CharacterCount(text), 256U);
    EXPECT_EQ(ToCodePage(text), bytes);
}

TEST(CodePage, CharactersOfTheWindowsPage)
{
    EXPECT_EQ(FromCodePage("\x80 \xE9 \x9F"), "\u20AC \u00E9 \u0178");
    EXPECT_EQ(ToCodePage("\u20AC\u00E9"), "\x80\xE9");
    EXPECT_EQ(ToCodePage("\u4E2D\u0080"), "??");      // not in the page
    EXPECT_EQ(ToCodePage("a\xC3"), "a?");             // cut off in the middle of a character
    EXPECT_EQ(ToCodePage("\xF0\x9F\x98\x80z"), "?z"); // one character, one question mark
}

// A module of the 8-bit page isn't taken for UTF-8 because some of its letters look like it.
TEST(CodePage, WhatIsValidUtf8)
{
    EXPECT_TRUE(IsUtf8("a\u00E9\u20AC\uFFFD\U0001F527"));
    for (const char* no :
         {"\xE9t\xE9", "\xC3", "\x80", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF\x80\x80\x80"})
        EXPECT_FALSE(IsUtf8(no)) << no;
}

TEST(Messages, ATranslationOfBlanksIsNone)
{
    ResetState();
    EXPECT_EQ(TextOr("default", ""), "default");
    EXPECT_EQ(TextOr("default", "   "), "default");
    EXPECT_EQ(TextOr("default", " texte "), " texte ");
    Translated.ErrorMessageTable[4] = "Trop de lignes";
    EXPECT_EQ(TextOf(Messages::MaxLinesReached), "Trop de lignes");
    EXPECT_EQ(TextOf(Messages::G24First), "!G24 must precede G90/G92"); // 4 of another table
}

} // namespace
