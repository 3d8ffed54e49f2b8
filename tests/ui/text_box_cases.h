// text_box_cases.h: what a text box does with keys. One table for the twin of the console and for real
// widgets.
//
// Keys are written as in key scripts. The box is the comment, or the notes where it has several lines.

#pragma once

struct TextBoxCase {
    const char* Name;
    bool Notes;
    const char* Text;
    int SelStart, SelLength;
    const char* Keys;
    const char* Expected;
    int ExpectedStart;
};

constexpr TextBoxCase TextBoxCases[] = {
    {"typing replaces what is selected, also in a full box", false,
     "12345678901234567890123456789012345678901234", 0, 44, "ab", "ab", 2},
    {"typing in the middle", false, "ace", 1, 0, "b", "abce", 2},
    {"[BACKSPACE] takes the character before the caret", false, "abc", 2, 0, "{BACKSPACE}", "ac", 1},
    {"[BACKSPACE] takes the selection", false, "abcd", 1, 2, "{BACKSPACE}", "ad", 1},
    {"[BACKSPACE] at the start", false, "abc", 0, 0, "{BACKSPACE}", "abc", 0},
    {"[DELETE] takes the character behind the caret", false, "abc", 1, 0, "{DELETE}", "ac", 1},
    {"[DELETE] at the end", false, "abc", 3, 0, "{DELETE}", "abc", 3},
    {"[LEFT] leaves a selection at its start", false, "abcd", 1, 2, "{LEFT}", "abcd", 1},
    {"[RIGHT] leaves a selection at its end", false, "abcd", 1, 2, "{RIGHT}", "abcd", 3},
    {"[HOME] and [END]", false, "abc", 1, 0, "{HOME}x{END}y", "xabcy", 5},
    {"cut and paste", false, "abcd", 1, 2, "{CTRL-X}{END}{CTRL-V}", "adbc", 4},
    {"copying an empty selection keeps what was copied", false, "abc", 0, 2, "{CTRL-C}{END}{CTRL-C}{CTRL-V}",
     "abcab", 5},
    {"a text that fills the box takes no more", false, "12345678901234567890123456789012345678901234", 44, 0,
     "x", "12345678901234567890123456789012345678901234", 44},
    {"a pasted text is cut to what the box takes", false, "1234567890123456789012345678901234567890abcd", 40,
     4, "{CTRL-C}{LEFT}{CTRL-V}", "1234567890123456789012345678901234567890abcd", 40},
    {"a letter beyond ASCII is one character", false, "\xC3\xA4\xC3\xB6\xC3\xBC", 2, 0, "{BACKSPACE}",
     "\xC3\xA4\xC3\xBC", 1},
    {"so is one of two units", false,
     "a\xF0\x9F\x94\xA7"
     "b",
     3, 0, "{LEFT}{BACKSPACE}", "ab", 1},
    {"[ENTER] in the notes", true, "ab", 1, 0, "{ENTER}", "a\r\nb", 3},
    {"a line end is taken as one", true, "a\r\nb", 3, 0, "{BACKSPACE}", "ab", 1},
    {"also from before", true, "a\r\nb", 1, 0, "{DELETE}", "ab", 1},
    {"a percent sign isn't typed", true, "ab", 2, 0, "%c", "abc", 3},
};
