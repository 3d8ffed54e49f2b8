#include "interpreter/limits.h"

#include "core/main_window.h"
#include "core/numbers.h"
#include "core/shared_state.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <vector>

namespace {

struct Range {
    int Low, High;
};

/// Feeds, pitches and feed presets.
constexpr Range FeedMetric{SmallestFeed, 499}, FeedInch{SmallestFeed, 199};

/// One limit of a lathe's word. Rows of one code replace each other's message from top to bottom.
struct LatheLimit {
    std::string_view Codes;
    int16_t LineWords::*Word;
    const char* Name;
    Range Metric, Inch;
};

// The slides of a lathe: 59.99 mm across, 327.60 mm along, as far as the control counts.
constexpr std::string_view LatheMoves = "G00 G01 G02 G03 G78 G84 G86 G88 G92 M06";
constexpr LatheLimit LatheLimits[] = {
    {LatheMoves, &LineWords::X, "X", {-5999, 5999}, {-1999, 1999}},
    {LatheMoves, &LineWords::Z, "Z", {-32760, 32760}, {-12900, 12900}},
    {"G04", &LineWords::X, "X", {0, 5999}, {0, 1999}},
    {"G33 G73 G81 G82 G83 G85 G89", &LineWords::Z, "Z", {-32760, 32760}, {-12900, 12900}},
    {"M98 G23", &LineWords::X, "X", {0, 999}, {0, 999}},
    {"M98 G23", &LineWords::Z, "Z", {0, 999}, {0, 999}},
    {"M98 G23", &LineWords::F, "L", {0, 221}, {0, 221}},
    {"M99", &LineWords::X, "I", {0, 5999}, {0, 1999}},
    {"M99", &LineWords::Z, "K", {0, 32760}, {0, 12900}},
    {"G25 G27", &LineWords::F, "L", {0, 221}, {0, 221}},

    {"G01 G02 G03 G73 G81 G82 G83 G84 G85 G86 G87 G88 G89", &LineWords::F, "F", FeedMetric, FeedInch},
    {"G23", &LineWords::F, "F", {0, 499}, {0, 499}},
    {"G33 G78", &LineWords::F, "K", FeedMetric, FeedInch},
    {"M06", &LineWords::F, "T", {0, 499}, {0, 199}},

    {"G78 G84 G88 M26", &LineWords::H, "H", {0, 999}, {0, 999}},
    {"G86", &LineWords::H, "H", {10, 999}, {10, 999}},
};

/// Which part of a range a row checks.
enum class Checks { Both, Minimum, Maximum, MaximumOfMagnitude };

/// One limit of the mill's word; the table's longer and shorter slide change places with the spindle.
struct MillLimit {
    std::string_view Codes;
    int16_t LineWords::*Word;
    const char* Name;
    Range MetricHorizontal, MetricVertical, InchHorizontal, InchVertical;
    Checks Metric = Checks::Both, Inch = Checks::Both;
};

constexpr Range LongMetric{-19999, 19999}, ShortMetric{-9999, 9999}, LongInch{-7999, 7999},
    ShortInch{-3999, 3999};
constexpr Range None{0, -1};
constexpr std::string_view MillMoves = "G00 G01 G02 G03 G04 G72 G92 M06";
constexpr std::string_view MillHoles = "G73 G81 G82 G83 G85 G89";
constexpr MillLimit MillLimits[] = {
    {MillMoves, &LineWords::X, "X", ShortMetric, LongMetric, ShortInch, LongInch},
    {MillMoves, &LineWords::Y, "Y", LongMetric, ShortMetric, LongInch, ShortInch},
    {MillMoves, &LineWords::Z, "Z", LongMetric, LongMetric, LongInch, LongInch},
    {MillHoles, &LineWords::Z, "Z", LongMetric, LongMetric, LongInch, LongInch},
    {"M98", &LineWords::X, "X", {0, 19999}, {0, 19999}, {0, 7999}, {0, 7999}},
    {"M98", &LineWords::Y, "Y", {0, 9999}, {0, 9999}, {0, 3999}, {0, 3999}},
    {"M98", &LineWords::Z, "Z", {0, 19999}, {0, 19999}, {0, 7999}, {0, 7999}},
    {"G25 G27", &LineWords::F, "L", {0, 221}, {0, 221}, {0, 221}, {0, 221}},

    // The centre of an arc: metric lines are judged without their signs, lines in inch with them.
    {"M99", &LineWords::X, "I", ShortMetric, LongMetric, ShortInch, LongInch, Checks::MaximumOfMagnitude,
     Checks::Maximum},
    {"M99", &LineWords::Y, "J", LongMetric, ShortMetric, LongInch, ShortInch, Checks::MaximumOfMagnitude,
     Checks::Maximum},
    {"M99", &LineWords::Z, "K", LongMetric, LongMetric, None, None, Checks::MaximumOfMagnitude},
    {"M99", &LineWords::X, "I", None, None, {0, 0}, {0, 0}, Checks::Both, Checks::Minimum},
    {"M99", &LineWords::Y, "J", None, None, {0, 0}, {0, 0}, Checks::Both, Checks::Minimum},
    {"M99", &LineWords::Z, "K", None, None, {0, 7999}, {0, 7999}},

    {"G01 G02 G03 G72 G73 G81 G82 G83 G84 G85 G86 G87 G88 G89", &LineWords::F, "F", FeedMetric, FeedMetric,
     FeedInch, FeedInch},
    {"M06", &LineWords::F, "T", {0, 499}, {0, 499}, {0, 199}, {0, 199}},
    {"M26", &LineWords::F, "F", {0, 999}, {0, 999}, {0, 999}, {0, 999}},
};

/// A row of the tables for one profile.
struct Check {
    int16_t LineWords::*Word;
    const char* Name;
    Range Within;
    Checks Part;
};

/// The checks of every code in one profile, so that a line meets only its own.
using ChecksByCode = std::array<std::vector<Check>, CodeCount>;

void AddCheck(ChecksByCode& checks, std::string_view codes, const Check& check)
{
    if (check.Within.Low > check.Within.High) return;
    ForEachCode(codes, [&](Code code) { checks[code].push_back(check); });
}

ChecksByCode LatheChecks(bool metric)
{
    ChecksByCode checks;
    for (const LatheLimit& limit : LatheLimits) {
        AddCheck(checks, limit.Codes,
                 {limit.Word, limit.Name, metric ? limit.Metric : limit.Inch, Checks::Both});
    }
    return checks;
}

ChecksByCode MillChecks(bool metric, bool horizontal)
{
    ChecksByCode checks;
    for (const MillLimit& limit : MillLimits) {
        const Range range = metric ? (horizontal ? limit.MetricHorizontal : limit.MetricVertical)
                                   : (horizontal ? limit.InchHorizontal : limit.InchVertical);
        AddCheck(checks, limit.Codes, {limit.Word, limit.Name, range, metric ? limit.Metric : limit.Inch});
    }
    return checks;
}

/// The checks of the profile in force; each profile's are made when it is first met.
const ChecksByCode& ActiveChecks()
{
    static std::optional<ChecksByCode> lathe[2], mill[2][2];
    const bool isMill = Shared.Machine == MachineKind::F1;
    auto& checks = isMill ? mill[Shared.Metric][Shared.Horizontal] : lathe[Shared.Metric];
    if (!checks) checks = isMill ? MillChecks(Shared.Metric, Shared.Horizontal) : LatheChecks(Shared.Metric);
    return *checks;
}

/// "!X= 5999 maximum"
std::string Refusal(const char* name, int limit, const Message& word)
{
    return "!" + std::string(name) + "= " + std::to_string(limit) + " " + TextOf(word);
}

} // namespace

std::string LimitMessage(Code code, const LineWords& words)
{
    std::string message;
    for (const Check& check : ActiveChecks()[code]) {
        int value = words.*check.Word;
        if (check.Part == Checks::MaximumOfMagnitude) value = std::abs(value);
        if (value < check.Within.Low && check.Part != Checks::Maximum) {
            message = Refusal(check.Name, check.Within.Low, Messages::Minimum);
        }
        if (value > check.Within.High && check.Part != Checks::Minimum) {
            message = Refusal(check.Name, check.Within.High, Messages::Maximum);
        }
    }
    return message;
}

std::optional<WordLimits> CheckedLimits(Code code, int16_t LineWords::*word)
{
    using Word = std::numeric_limits<int16_t>;
    std::optional<WordLimits> limits;
    for (const Check& check : ActiveChecks()[code]) {
        if (check.Word != word) continue;
        if (!limits) limits = {Word::min(), Word::max()};
        const int least = check.Part == Checks::MaximumOfMagnitude ? -check.Within.High : check.Within.Low;
        if (check.Part != Checks::Maximum) limits->Low = std::max(limits->Low, least);
        if (check.Part != Checks::Minimum) limits->High = std::min(limits->High, check.Within.High);
    }
    return limits;
}

bool PitchHolds(int pitch)
{
    const Range range = Shared.Metric ? FeedMetric : FeedInch;
    return pitch >= range.Low && pitch <= range.High;
}

void ClampFeeds()
{
    const Range range = Shared.Metric ? FeedMetric : FeedInch;
    for (Control* box : {&frmMain.txtFeedA, &frmMain.txtFeedB}) {
        box->Text = FormatWhole(std::clamp<double>(Val(box->Text), range.Low, range.High), 1);
        box->Tag = std::to_string(range.Low) + "TO" + std::to_string(range.High);
        box->ToolTip = LimitTip(box->Tag);
    }
}
