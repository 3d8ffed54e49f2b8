// A box whose text is shown in pieces: what comes out is what went in.

#include "qt/long_text.h"

#include "core/text.h"

#include <gtest/gtest.h>
#include <random>

TEST(LongText, GivesBackWhatItShows)
{
    const std::string line(1300, 'x'), umlauts = "ä€😀";
    for (const std::string& text :
         {std::string(), std::string("a\r\nb\rc\nd\r"), line, line + "\r\n" + line + "\r" + umlauts,
          "\r\n\r\r\n" + umlauts, std::string(500, 'a') + "\r\n" + std::string(501, 'b') + "\r\n"}) {
        LongText whole, grown;
        whole.Show(text);
        // It comes in pieces; the two halves of a line end may be apart.
        std::mt19937 lot(1);
        for (size_t size = 0; size < text.size();) {
            size = std::min(text.size(), size + 1 + lot() % (text.size() < 100 ? 2 : 400));
            while (size < text.size() && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) ++size;
            grown.Show(text.substr(0, size));
        }
        EXPECT_EQ(whole.Text(), text);
        EXPECT_EQ(grown.Text(), text);
        EXPECT_EQ(grown.toPlainText(), whole.toPlainText());

        const int count = static_cast<int>(CharacterCount(text));
        for (int i = 0; i <= count; ++i) {
            const bool inside =
                FromCharacter(text, static_cast<size_t>(std::max(i - 1, 0))).starts_with("\r\n");
            EXPECT_EQ(whole.CharactersAt(whole.PositionAt(i)), inside && i > 0 ? i + 1 : i) << i;
        }
        EXPECT_EQ(whole.PositionAt(count + 5), whole.document()->characterCount() - 1);
    }
}

TEST(LongText, TakesWhatTheUserTypes)
{
    const std::string line(1300, 'x');
    LongText box;
    box.Show(line + "\r" + line);
    for (const int at : {0, 499, 500, 501, 1000, 1300, 1900}) {
        const std::string before = box.Text();
        QTextCursor cursor = box.textCursor();
        cursor.setPosition(box.PositionAt(at));
        box.setTextCursor(cursor);
        box.insertPlainText("!\n");
        // Once it is changed all its lines end alike.
        std::string expected(FirstCharacters(before, static_cast<size_t>(at)));
        expected += "!\r\n" + std::string(FromCharacter(before, static_cast<size_t>(at)));
        if (at == 0) expected.replace(expected.rfind('\r'), 1, "\r\n");
        EXPECT_EQ(box.Text(), expected) << at;
    }
    // What comes behind that isn't broken by it.
    box.Show(box.Text() + "end");
    EXPECT_TRUE(box.toPlainText().endsWith("xend"));
    box.undo();
    EXPECT_TRUE(box.toPlainText().endsWith("xend"));
}
