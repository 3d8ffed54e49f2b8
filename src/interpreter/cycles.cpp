#include "interpreter/cycles.h"

#include "core/failure.h"
#include "core/main_window.h"
#include "core/numbers.h"
#include "core/shared_state.h"
#include "core/text.h"

#include <algorithm>
#include <cmath>

namespace {

/// Highest spindle speed for pitches up to a value, in 1/100 mm or 1/1000 inch.
struct ThreadSpeed {
    int UpToMetric, UpToInch, MaxRpm;
};
constexpr ThreadSpeed ThreadSpeeds[] = {
    {50, 20, 950},   {100, 40, 500},  {150, 60, 320},  {200, 80, 250},
    {300, 120, 170}, {400, 160, 120}, {499, 199, 100},
};

/// Drilling cycles: a cut goes a step deep after a first, longer one. Metric and inch units.
struct DrillSteps {
    Code Cycle;
    int FirstMetric, StepMetric, FirstInch, StepInch;
};
constexpr DrillSteps Drills[] = {{G(73), 21, 180, 11, 90}, {G(83), 51, 550, 26, 275}};

bool IsAutomatic(std::string_view comment)
{
    return comment.starts_with(AutomaticComment);
}

bool MayBeOverwritten(std::string_view comment)
{
    return IsAutomatic(comment) || (IsBlank(comment) && frmMain.txtComment.Text.empty());
}

/// The length that the cycle cuts, along X for longitudinal cycles and threads, else along Z. The tool
/// stands at the cycle's start.
double CutLength(const Pass& pass, bool alongX)
{
    const double x = pass.Words.X, z = pass.Words.Z;
    if (!Shared.AbsoluteMode) return std::abs(alongX ? x : z);
    if (!alongX) return std::abs(z - static_cast<double>(pass.Tool.Z));
    const double start = std::abs(static_cast<double>(pass.Tool.X));
    return start - (Shared.RadiusMode ? std::abs(x) : std::abs(x) / 2);
}

struct Cuts {
    float Length = 0, Repeats = 0;
};

Cuts CutsOf(const Pass& pass)
{
    Cuts cuts;
    for (const DrillSteps& drill : Drills) {
        if (pass.LineCode != drill.Cycle) continue;
        Attempt(PassName, [&] { cuts.Length = ToSingle(CutLength(pass, false)); });
        const int first = Shared.Metric ? drill.FirstMetric : drill.FirstInch;
        const int step = Shared.Metric ? drill.StepMetric : drill.StepInch;
        cuts.Repeats = static_cast<float>(std::floor((static_cast<double>(cuts.Length) - first) / step) + 1);
    }
    const bool alongX = pass.LineCode == G(78) || pass.LineCode == G(84);
    if (alongX || pass.LineCode == G(86) || pass.LineCode == G(88)) {
        cuts.Repeats = 1;
        if (pass.Words.H != 0) {
            // Cuts of at most H; a rest makes one more.
            Attempt(PassName, [&] { cuts.Length = ToSingle(CutLength(pass, alongX)); });
            cuts.Repeats = static_cast<float>(std::floor(static_cast<double>(cuts.Length) / pass.Words.H));
            Attempt(PassName, [&] {
                if (ToInt32(cuts.Length) % pass.Words.H > 0) ++cuts.Repeats;
            });
        }
    }
    return cuts;
}

/// The first item of the list whose code has the two digits, as its text from the fifth character on.
std::string CycleName(std::string_view digits)
{
    const auto begin = [&](std::string_view text) {
        return text.size() > 1 && text[0] == digits[0] && text[1] == digits[1];
    };
    for (const std::string& item : frmMain.lstMK4Gcodes.Items) {
        if (begin(FromCharacter(item, 1)) || begin(item)) return ItemDescription(item);
    }
    return "";
}

/// The pocket must be wider than the tool in both directions of its plane.
bool IsPocketTooSmall(const Pass& pass)
{
    const double radius = pass.ToolRadius;
    const auto tooSmall = [&](float delta) {
        return 2 * radius > std::abs(static_cast<double>(delta)) + radius;
    };
    const bool x = tooSmall(pass.Delta.X), y = tooSmall(pass.Delta.Y), z = tooSmall(pass.Delta.Z);
    if (Shared.ArcPlane == "XY") return x || y;
    if (Shared.ArcPlane == "XZ") return x || z;
    return Shared.ArcPlane == "YZ" && (y || z);
}

} // namespace

void WriteThreadRemark(ProgramLine& row, int pitch)
{
    if (!MayBeOverwritten(row[CellComment])) return;
    const ThreadSpeed* const speed =
        std::find_if(std::begin(ThreadSpeeds), std::end(ThreadSpeeds), [&](const ThreadSpeed& s) {
            return pitch <= (Shared.Metric ? s.UpToMetric : s.UpToInch);
        });
    // Item 10 of that list is G33: code, blank, tab, description.
    constexpr size_t ThreadingItem = 10;
    std::string& comment = row[CellComment];
    comment.assign(AutomaticComment).append(FromCharacter(frmMain.lstMK2Gcodes.Items[ThreadingItem], 5));
    comment += " (" + TextOf(Messages::MaxRpm) + " = " + std::to_string(speed->MaxRpm) + ")";
}

Walk CountCycleRepeats(Pass& pass, ProgramLine& row)
{
    const Cuts cuts = CutsOf(pass);
    pass.CycleRepeats = cuts.Repeats;
    if (!(cuts.Repeats > 0)) return Walk::GoOn;
    std::string& comment = row[CellComment];
    if (static_cast<float>(pass.Words.H) > cuts.Length) {
        if (comment.starts_with('@')) comment.clear();
        return ReportAndEnd(pass, row, Messages::DivisionOfCut);
    }
    if (!MayBeOverwritten(comment)) return Walk::GoOn;

    // The first sweep has left the thread's speed at the end of its remark: "500)".
    int16_t maxRpm = 0;
    if (IsAutomatic(comment) && pass.LineCode == G(78)) {
        Attempt(PassName, [&] { maxRpm = ToInt16(Val(LastCharacters(comment, 4))); });
    }
    comment.assign(AutomaticComment).append("(").append(PlainNumber(cuts.Repeats)).append("x)");
    comment += CycleName(std::string_view(row[CellCode]).substr(1, 2));
    if (maxRpm > 0) comment += " (" + TextOf(Messages::MaxRpm) + "=" + std::to_string(maxRpm) + ")";
    return Walk::GoOn;
}

Walk CheckTool(Pass& pass, ProgramLine& row)
{
    switch (pass.LineCode) {
    case M(6):
        Attempt(PassName, [&] { pass.ToolRadius = ToSingle(Val(LastCharacters(row[CellX], 4))); });
        break;
    case G(45):
    case G(46):
    case G(47):
    case G(48):
    case G(72):
        if (!pass.ToolChanged) Report(pass, row, TextOf(Messages::ToolMustPrecede));
        if (pass.LineCode == G(72) && IsPocketTooSmall(pass)) {
            return ReportAndEnd(pass, row, Messages::PocketTooSmall);
        }
        break;
    default: break;
    }
    return Walk::GoOn;
}
