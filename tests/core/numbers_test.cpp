// Texts read as numbers, numbers written as texts, and what a conversion does that can't be done.

#include "core/numbers.h"

#include "core/failure.h"
#include "core/vector.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

TEST(Numbers, ValReadsUpToTheFirstStranger)
{
    const struct {
        const char* Text;
        double Value;
    } cases[] = {{"  12 3", 123},
                 {"1\t2", 12},
                 {"12X3", 12},
                 {"X12", 0},
                 {"", 0},
                 {"-", 0},
                 {"-  10", -10},
                 {"--7", 0},
                 {"+7", 7},
                 {".5", 0.5},
                 {"1.5.5", 1.5},
                 {"1E2", 100},
                 {"1d-1", 0.1},
                 {"1E + 2", 100},
                 {"1E", 1},
                 {"E5", 0},
                 {"0E999", 0},
                 {"1E-999", 0},
                 {"500)", 500},
                 // More digits than a float holds exactly, with zeros in front that don't count.
                 {"0.10000000000000000555", 0.1},
                 {"000000000000000000012", 12},
                 {"123456789012345678", 123456789012345678.0},
                 {"5E-324", 5e-324}};
    for (const auto& c : cases) EXPECT_EQ(Val(c.Text), c.Value) << c.Text;
    EXPECT_TRUE(std::isinf(Val(std::string(400, '9') + ".5")));
}

TEST(Numbers, WordValSplitsTheLetterOff)
{
    const struct {
        const char* Cell;
        char Letter;
        float Value;
    } cases[] = {{"K 200", 'K', 200}, {"   50", '\0', 50}, {"-  10", '\0', -10}, {"R 100", '\0', 0},
                 {"t 01", 't', 1},    {"I-  5", 'I', -5},  {"D 1E2", 'D', 100},  {"", '\0', 0},
                 {"L", 'L', 0},       {"X 12", '\0', 0}};
    for (const auto& c : cases) {
        const Word word = WordVal(c.Cell);
        EXPECT_EQ(word.Letter, c.Letter) << c.Cell;
        EXPECT_EQ(word.Value, c.Value) << c.Cell;
    }
}

TEST(Numbers, RoundingSendsAHalfToTheEvenNeighbour)
{
    EXPECT_EQ(ToInt16(2.5), 2);
    EXPECT_EQ(ToInt16(3.5), 4);
    EXPECT_EQ(ToInt16(-2.5), -2);
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_EQ(ToInt32(2147483646.5), 2147483646);
}

TEST(Numbers, WhatDoesNotFitFailsWithItsNumber)
{
    const struct {
        const char* Name;
        std::function<void()> Statement;
        int Failure;
    } cases[] = {{"a text beyond every range", [] { ToSingle(Val("1E400")); }, 6},
                 {"one of many digits", [] { ToInt32(Val(std::string(400, '9'))); }, 6},
                 {"WordVal", [] { WordVal("K1E39"); }, 6},
                 {"16 bits", [] { ToInt16(32767.5); }, 6},
                 {"16 bits below", [] { ToInt16(-32769); }, 6},
                 {"no number", [] { ToInt32(std::numeric_limits<double>::quiet_NaN()); }, 6},
                 {"32-bit float", [] { ToSingle(3.5e38); }, 6},
                 {"division", [] { Divide(1, 0); }, 11},
                 {"root", [] { SquareRoot(-1); }, 5}};
    for (const auto& c : cases) {
        Log = {};
        EXPECT_FALSE(Attempt("Routine", c.Statement)) << c.Name;
        ASSERT_EQ(Log.Records.size(), 1U) << c.Name;
        EXPECT_EQ(Log.Records[0].Number, c.Failure) << c.Name;
        EXPECT_EQ(Log.Records[0].Procedure, "Routine") << c.Name;
    }
    EXPECT_TRUE(Attempt("Routine", [] { ToSingle(3.4e38); }));
}

TEST(Numbers, FormatsSendAHalfAwayFromZero)
{
    EXPECT_EQ(FormatWhole(2.5, 1), "3");
    EXPECT_EQ(FormatWhole(3.5, 1), "4");
    EXPECT_EQ(FormatWhole(-2.5, 1), "-3");
    EXPECT_EQ(FormatWhole(7, 2), "07");
    EXPECT_EQ(FormatWhole(-7, 2), "-07");
    EXPECT_EQ(FormatWhole(1234, 2), "1234");
    EXPECT_EQ(FormatWhole(-0.4, 1), "0");
    EXPECT_EQ(FormatOneDecimal(90), "90.0");
    EXPECT_EQ(FormatOneDecimal(0.25), "0.3");
    EXPECT_EQ(FormatOneDecimal(-9.96), "-10.0");
    EXPECT_EQ(FormatOneDecimal(-0.04), "0.0");
}

TEST(Numbers, PlainFormHasSevenDigitsAndNoExponent)
{
    const struct {
        double Value;
        const char* Text;
    } cases[] = {{12.5, "12.5"},
                 {0.5, "0.5"},
                 {-0.25, "-0.25"},
                 {-3, "-3"},
                 {0, "0"},
                 {1000, "1000"},
                 {1234567.8, "1234568"},
                 {99999, "99999"},
                 {0.00001, "0.00001"},
                 {100.5, "100.5"},
                 {12345678, "12345680"},
                 {9999999.5, "10000000"}};
    for (const auto& c : cases) EXPECT_EQ(PlainNumber(c.Value), c.Text);
}

TEST(Numbers, AnglesGoCounterClockwiseFromTheXAxis)
{
    const struct {
        double X, Y, Angle;
    } cases[] = {{1, 0, 0},           {1, 1, Pi / 4},      {0, 1, Pi / 2},
                 {-1, 1, 3 * Pi / 4}, {-1, 0, Pi},         {-1, -1, 5 * Pi / 4},
                 {0, -1, 3 * Pi / 2}, {1, -1, 7 * Pi / 4}, {0, 0, Pi}};
    for (const auto& c : cases) EXPECT_NEAR(VectorAngle(c.X, c.Y), c.Angle, 1e-12) << c.X << " " << c.Y;
}

} // namespace
