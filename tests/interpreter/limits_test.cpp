// What each code may hold: at each limit and one beyond, where one could get it wrong.

#include "interpreter/limits.h"

#include "core/main_window.h"
#include "core/messages.h"
#include "support/program.h"

#include <gtest/gtest.h>

namespace {

struct LimitCase {
    const char *Name, *Profile, *Line, *Message;
};

// A stored line is judged by the units in force, not by those it was typed in.
const LimitCase LimitCases[] = {
    {"the last X that fits", "MK4 mm", "G00 X5999 Z0", ""},
    {"one more", "MK4 mm", "G00 X6000 Z0", "!X= 5999 maximum"},
    {"one less", "MK2 mm", "G00 X-6000 Z0", "!X= -5999 minimum"},
    {"one more than X holds in inch", "MK4 inch", "G92 X2000 Z0", "!X= 1999 maximum"},
    {"one Z more", "MK4 mm", "M06 X0 Z32761 T1", "!Z= 32760 maximum"},
    {"one Z less", "MK4 mm", "G78 X0 Z-32761 K100", "!Z= -32760 minimum"},
    {"Z in inch", "MK4 inch", "G84 X0 Z-12901 F100", "!Z= -12900 minimum"},
    {"Z of a drilling cycle", "MK4 inch", "G81 Z12901 F100", "!Z= 12900 maximum"},
    {"X of a drilling cycle isn't checked", "MK4 mm", "G81 X9999 Z0 F100", ""},
    {"X of a thread isn't checked", "MK4 mm", "G33 X9999 Z0 K100", ""},
    {"a later fault replaces an earlier one", "MK4 mm", "G01 X-6000 Z0 F500", "!F= 499 maximum"},
    {"Z stands behind X", "MK4 mm", "G00 X-6000 Z32761", "!Z= 32760 maximum"},
    {"H stands behind all", "MK4 mm", "G86 X6000 Z0 F1 H9", "!H= 10 minimum"},
    {"a control word stands before all", "MK4 mm", "G00 X6000 Z0 ;CMDNONE", "!X= 5999 maximum"},
    {"least feed", "MK4 mm", "G01 X0 Z0 F2", ""},
    {"less", "MK4 mm", "G01 X0 Z0 F1", "!F= 2 minimum"},
    {"no feed", "MK4 mm", "G01 X0 Z0", "!F= 2 minimum"},
    {"one more inch feed", "MK4 inch", "G01 X0 Z0 F200", "!F= 199 maximum"},
    {"a pitch is called K", "MK4 mm", "G33 Z0 K500", "!K= 499 maximum"},
    {"a dwell isn't negative on the lathe", "MK4 mm", "G04 X-1", "!X= 0 minimum"},
    {"longest dwell in inch", "MK4 inch", "G04 X2000", "!X= 1999 maximum"},
    {"a dwell is an axis on the mill", "F1 mm", "G04 X-1", ""},
    {"and its spindle counts", "F1 mm H", "G04 X10000", "!X= 9999 maximum"},
    {"a switch's time as a line", "MK2 mm", "G23 X0 Z0 T300", "!L= 221 maximum"},
    {"then as a time", "MK2 mm", "G23 X0 Z0 T600", "!F= 499 maximum"},
    {"in inch too", "MK2 inch", "G23 X0 Z0 T499", "!L= 221 maximum"},
    {"play's line", "MK4 mm", "M98 X0 Z0 L222", "!L= 221 maximum"},
    {"a jump's line", "MK4 mm", "G27 L222", "!L= 221 maximum"},
    {"a call's line", "F1 inch", "G25 L-1", "!L= 0 minimum"},
    {"centre beyond", "MK4 inch", "M99 I2000 K0", "!I= 1999 maximum"},
    {"centre's Z", "MK4 inch", "M99 I2000 K12901", "!K= 12900 maximum"},
    {"tool", "MK4 mm", "M06 X0 Z0 T500", "!T= 499 maximum"},
    {"a division of 0", "MK4 mm", "G84 X0 Z0 F50 H0", ""},
    {"a code without limits", "MK2 mm", "G26 X9999 Z0 T999", ""},

    {"X of the standing spindle", "F1 mm", "G00 X19999 Y9999 Z0", ""},
    {"one more", "F1 mm", "G00 X20000 Y0 Z0", "!X= 19999 maximum"},
    {"X of the lying spindle", "F1 mm H", "G00 X-10000 Y0 Z0", "!X= -9999 minimum"},
    {"Y of the lying spindle", "F1 inch H", "G01 X3999 Y7999 Z0 F50", ""},
    {"one more", "F1 inch H", "G92 X0 Y-8000 Z0", "!Y= -7999 minimum"},
    {"Z is the same both ways", "F1 mm H", "G00 Z20000", "!Z= 19999 maximum"},
    {"Z in inch", "F1 inch H", "G83 Z-8000 F50", "!Z= -7999 minimum"},
    {"D is judged as X", "F1 inch H", "M06 D4000 S0 Z0 T1", "!X= 3999 maximum"},
    {"play doesn't ask for the spindle", "F1 mm H", "M98 X19999 Y0 Z0", ""},
    {"play's Y", "F1 inch H", "M98 X0 Y4000 Z0", "!Y= 3999 maximum"},
    {"play has no line on the mill", "F1 mm", "M98 X0 Y0 Z0 L222", ""},
    {"a turning cycle on the mill", "F1 mm", "G84 X20000 Z20000 F500", "!F= 499 maximum"},
    {"no thread on the mill", "F1 mm", "G33 Z0 K500", ""},
    {"metric centres lose their signs", "F1 mm", "M99 I-1 J-1 K-1", ""},
    {"metric centre beyond", "F1 mm H", "M99 I10000 J0 K0", "!I= 9999 maximum"},
    {"inch centres keep them", "F1 inch", "M99 I-1 J0 K0", "!I= 0 minimum"},
    {"minima come behind maxima", "F1 inch", "M99 I0 J4000 K0 ;", "!J= 3999 maximum"},
    {"and win", "F1 inch H", "M99 I-1 J8000 K0", "!I= 0 minimum"},
    {"K comes last", "F1 inch", "M99 I-1 J-1 K8000", "!K= 7999 maximum"},
};

TEST(Limits, OfEachCode)
{
    for (const LimitCase& c : LimitCases) {
        Start(c.Profile);
        Enter("M30 / " + std::string(c.Line)); // the second line is judged, but not walked
        const std::string expected = *c.Message == '\0' ? "" : std::string("N01 ") + c.Message;
        EXPECT_EQ(MessageList(), expected) << c.Name << ": " << c.Line;
    }
}

TEST(Limits, CentresBeyondTheirCells)
{
    Start("F1 mm H");
    EXPECT_EQ(LimitMessage(M(99), {-10000, 0, 0, 0, 0}), "!I= 9999 maximum");
    EXPECT_EQ(LimitMessage(M(99), {-9999, -19999, -19999, 0, 0}), "");
    EXPECT_EQ(LimitMessage(M(99), {0, -20000, 0, 0, 0}), "!J= 19999 maximum");
    EXPECT_EQ(LimitMessage(M(26), {0, 0, 0, 1000, 0}), "!F= 999 maximum");
}

TEST(Limits, SpeakTheUsersLanguage)
{
    Start("MK4 mm");
    Translated.MessageTable[11] = "au moins";
    Translated.MessageTable[12] = "au plus";
    Enter("G00 X-6000 Z0 / G00 X6000 Z0");
    EXPECT_EQ(MessageList(), "N00 !X= -5999 au moins; N01 !X= 5999 au plus");
}

TEST(Limits, FeedPresetsAreForcedIntoThoseOfTheUnits)
{
    const struct {
        const char *Profile, *FeedA, *FeedB, *ClampedA, *ClampedB, *Tip;
    } cases[] = {
        {"MK4 mm", "350", "1", "350", "2", "2 = Low, Hi = 499"},
        {"F1 mm", "500", "499", "499", "499", "2 = Low, Hi = 499"},
        {"MK4 inch", "350", "", "199", "2", "2 = Low, Hi = 199"},
    };
    for (const auto& c : cases) {
        Start(c.Profile);
        frmMain.txtFeedA.Text = c.FeedA;
        frmMain.txtFeedB.Text = c.FeedB;
        ClampFeeds();
        EXPECT_EQ(frmMain.txtFeedA.Text, c.ClampedA) << c.Profile;
        EXPECT_EQ(frmMain.txtFeedB.Text, c.ClampedB) << c.Profile;
        EXPECT_EQ(frmMain.txtFeedA.ToolTip, c.Tip) << c.Profile;
        EXPECT_EQ(frmMain.txtFeedB.ToolTip, c.Tip) << c.Profile;
    }
}

} // namespace
