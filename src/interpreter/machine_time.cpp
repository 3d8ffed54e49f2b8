#include "interpreter/machine_time.h"

#include "core/failure.h"
#include "core/main_window.h"
#include "core/numbers.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "core/vector.h"

#include <algorithm>
#include <cmath>

namespace {

// The machine's own speeds: seconds for 1000 units of rapid traverse along one axis, along both, and
// what a positioning takes to begin and end; seconds for one unit at a feed of 100; what a slanted
// line takes longer.
constexpr double RapidSeconds = 1.1, SlantedRapidSeconds = 1.3, RapidOverhead = 0.45;
constexpr double FeedSeconds = 0.006, SlantedFactor = 1.1;
/// Units of arc that one second takes at a feed of 50.
constexpr double ArcUnits = 78.55;

void FindMoves(Pass& pass)
{
    const std::string& plane = Shared.ArcPlane; // the letters of its two axes
    if (plane.empty()) return;
    const auto move = [&](float& to, float Position::*axis) {
        const double by = static_cast<double>(pass.Tool.*axis) - static_cast<double>(pass.PrevTool.*axis);
        Attempt(PassName, [&] { to = ToSingle(std::abs(by)); });
    };
    move(pass.MoveA, plane[0] == 'X' ? &Position::X : &Position::Y);
    move(pass.MoveB, plane[1] == 'Y' ? &Position::Y : &Position::Z);
}

/// The length of the arc by the texts that its row shows; the last length when it has no angle.
void FindArcLength(Pass& pass, const ProgramLine& row)
{
    const double angle = Val(row[CellAngle]);
    if (angle == 0) return;
    Attempt(PassName, [&] { pass.ArcLength = ToSingle(Val(row[CellRadius]) * 2 * Pi / (360 / angle)); });
}

double TimeOf(Pass& pass, const ProgramLine& row)
{
    const double unitFactor = Shared.Metric ? 1.0F : 2.54F;
    const double a = pass.MoveA, b = pass.MoveB;
    const bool slanted = a != 0 && b != 0;
    const double length = slanted ? std::sqrt(a * a + b * b) : b == 0 ? a : b;
    const double feed = pass.Words.F;

    switch (pass.LineCode) {
    case G(0):
        return length / 1000 * (slanted ? SlantedRapidSeconds : RapidSeconds) * unitFactor + RapidOverhead;
    case G(1): {
        const double seconds = length * FeedSeconds * Divide(100, feed);
        return (slanted ? seconds * SlantedFactor : seconds) * unitFactor;
    }
    case G(2):
    case G(3):
        FindArcLength(pass, row);
        return feed == 0 ? 0 : static_cast<double>(pass.ArcLength) / ArcUnits * (50 / feed);
    case G(4): return pass.Words.X / 100.0;
    case G(73): return feed == 0 ? 0 : static_cast<double>(pass.CycleRepeats) * (1 / feed * 100 + 0.5);
    default: return 0;
    }
}

/// One axis: its range and the labels that show it.
struct AxisLabels {
    float Position::*Axis;
    Control MainWindow::*Min;
    Control MainWindow::*Max;
    Control MainWindow::*Travel;
};
constexpr AxisLabels Axes[] = {
    {&Position::X, &MainWindow::lblXAxisMin, &MainWindow::lblXAxisMax, &MainWindow::lblXAxisTravel},
    {&Position::Y, &MainWindow::lblYAxisMin, &MainWindow::lblYAxisMax, &MainWindow::lblYAxisTravel},
    {&Position::Z, &MainWindow::lblZAxisMin, &MainWindow::lblZAxisMax, &MainWindow::lblZAxisTravel},
};

} // namespace

void AddLineTime(Pass& pass, ProgramLine& row)
{
    FindMoves(pass);
    pass.LineTime = 0;
    Attempt(PassName, [&] { pass.LineTime = ToSingle(TimeOf(pass, row)); });
    if (pass.LineTime > 0) {
        row[CellTime] = MakeTimeString(pass.LineTime);
    } else {
        Overwrite(row[CellTime], "        ");
    }
    const double total = static_cast<double>(pass.TotalTime) + static_cast<double>(pass.LineTime);
    Attempt(PassName, [&] { pass.TotalTime = ToSingle(total); });
}

void UpdateAxes(Pass& pass)
{
    for (const AxisLabels& labels : Axes) {
        const float tool = pass.Tool.*labels.Axis;
        float& min = pass.Min.*labels.Axis;
        float& max = pass.Max.*labels.Axis;
        if (tool >= min && tool <= max && pass.LinesWalked > 0) continue;
        min = std::min(min, tool);
        max = std::max(max, tool);
        (frmMain.*labels.Min).Text = PlainNumber(min);
        (frmMain.*labels.Max).Text = PlainNumber(max);
        (frmMain.*labels.Travel).Text = PlainNumber(static_cast<double>(max) - static_cast<double>(min));
    }
}

std::string MakeTimeString(float seconds)
{
    double t = std::trunc(static_cast<double>(seconds) + (seconds < 0 ? -0.5 : 0.5));
    const double hours = std::floor(t / 3600);
    t -= hours * 3600;
    const double minutes = std::floor(t / 60);
    std::string text;
    AppendWhole(text, hours, 2);
    AppendWhole(text += ':', minutes, 2);
    AppendWhole(text += ':', t - minutes * 60, 2);
    return text;
}
