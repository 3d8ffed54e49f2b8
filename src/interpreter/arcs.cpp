#include "interpreter/arcs.h"

#include "core/failure.h"
#include "core/numbers.h"
#include "core/shared_state.h"
#include "core/vector.h"

#include <cmath>
#include <string>

namespace {

/// How far an M99's arc may be off: 0.80 mm or 0.080 inch.
constexpr double Tolerance = 80;

/// One coordinate of the arc's plane: where it stands in positions and words, and its centre's cell.
struct Axis {
    float Position::*Of;
    int16_t LineWords::*Word;
    size_t CenterCell;
};
constexpr Axis AxisX{&Position::X, &LineWords::X, CellCenterX};
constexpr Axis AxisY{&Position::Y, &LineWords::Y, CellCenterY};
constexpr Axis AxisZ{&Position::Z, &LineWords::Z, CellCenterZ};

struct Plane {
    std::string_view Name;
    Axis A, B, Third;
};
constexpr Plane Planes[] = {
    {"XY", AxisX, AxisY, AxisZ},
    {"XZ", AxisX, AxisZ, AxisY},
    {"YZ", AxisY, AxisZ, AxisX},
};

/// The plane of the last move, or null when no move has decided it yet.
const Plane* ArcPlane()
{
    for (const Plane& plane : Planes) {
        if (plane.Name == Shared.ArcPlane) return &plane;
    }
    return nullptr;
}

/// The Z of an MK2 arc: a quadrant ends as far along as it goes across, always toward the chuck.
void ComputeMK2Z(Pass& pass, ProgramLine& row)
{
    const double x = Val(row[CellX]);
    double length = std::abs(x);
    if (Shared.AbsoluteMode) { // so a line stands in front of this one
        const ProgramLine& before = lvCncProgram.Row(pass.LineIndex - 1);
        const double toolX = Val(before[CellToolX]), toolZ = Val(before[CellToolZ]);
        const double radial = Shared.RadiusMode ? x : x / 2;
        length = std::abs(toolZ - std::max(radial - toolX, toolX - radial));
    }
    Attempt(PassName, [&] { row[CellZ] = "-" + RightPad(FormatWhole(ToInt32(length), 2), 5); });
    Attempt(PassName, [&] { pass.Values.Z = ToSingle(Val(row[CellZ])); });
    if (Shared.AbsoluteMode) {
        const double delta = static_cast<double>(pass.Values.Z) - static_cast<double>(pass.Tool.Z);
        Attempt(PassName, [&] { pass.Delta.Z = ToSingle(delta); });
    }
}

/// Notes whether the row behind the arc is an M99 or M99R, and reads an M99's distances. Behind the last
/// line the flags keep their values.
void LookAhead(Pass& pass)
{
    if (pass.LineIndex >= pass.Lines) return;
    const ProgramLine& next = lvCncProgram.Row(pass.LineIndex + 1);
    const Code code = CodeOfCell(next[CellCode]);
    pass.Arc.M99Follows = code == M(99);
    pass.Arc.M99RFollows = code == M99R;
    if (!pass.Arc.M99Follows) return;
    LineWords& center = pass.Arc.CenterWords;
    Attempt(PassName, [&] { center.X = ToInt16(WordVal(next[CellX]).Value); });
    Attempt(PassName, [&] { center.Y = ToInt16(WordVal(next[CellY]).Value); });
    Attempt(PassName, [&] { center.Z = ToInt16(WordVal(next[CellZ]).Value); });
}

double MoveIn(const Pass& pass, const Axis& axis)
{
    return std::abs(static_cast<double>(pass.Tool.*axis.Of) - static_cast<double>(pass.PrevTool.*axis.Of));
}

/// Whether the two moves of the plane, told by the axis that doesn't move, are alike.
bool IsFullQuadrant(const Pass& pass)
{
    if (pass.Delta.X == 0) return MoveIn(pass, AxisY) == MoveIn(pass, AxisZ);
    if (pass.Delta.Y == 0) return MoveIn(pass, AxisX) == MoveIn(pass, AxisZ);
    if (pass.Delta.Z == 0) return MoveIn(pass, AxisX) == MoveIn(pass, AxisY);
    return true;
}

/// The whole central angle from the chord; blank where the chord is no chord of the circle.
void WriteArcAngle(const Pass& pass, ProgramLine& row, const Plane& plane, float radius)
{
    const double a = MoveIn(pass, plane.A), b = MoveIn(pass, plane.B);
    const double chord = std::sqrt(a * a + b * b);
    Attempt(PassName, [&] {
        const double sine = Divide(chord / 2, radius);
        if (!(sine > 0)) return;
        row[CellAngle] = "   ";
        const double tangent = Divide(sine, SquareRoot(1 - sine * sine));
        row[CellAngle] = FormatOneDecimal(std::atan(tangent) * 360 / Pi);
    });
}

/// Writes the centre of the arc and the tool's place in the third axis.
void WriteCenter(const Pass& pass, ProgramLine& row, const Plane& plane)
{
    row[plane.A.CenterCell] = FormatWhole(pass.Arc.CenterA, 1);
    row[plane.B.CenterCell] = FormatWhole(pass.Arc.CenterB, 1);
    row[plane.Third.CenterCell] = FormatWhole(pass.Tool.*plane.Third.Of, 1);
}

/// Whether the arc leaves its quadrant: start and end on opposite sides of the centre.
bool IsOverQuadrant(const ArcState& arc)
{
    // The end may lie only 1 unit below the centre in A, but the tolerance in all other directions.
    constexpr double EndBelowA = 1;
    return !((arc.StartA - arc.CenterA <= Tolerance || arc.CenterA - arc.EndA <= EndBelowA) &&
             (arc.CenterA - arc.StartA <= Tolerance || arc.EndA - arc.CenterA <= Tolerance) &&
             (arc.StartB - arc.CenterB <= Tolerance || arc.CenterB - arc.EndB <= Tolerance) &&
             (arc.CenterB - arc.StartB <= Tolerance || arc.EndB - arc.CenterB <= Tolerance));
}

double Distance(float a, float b)
{
    return std::abs(static_cast<double>(a) - static_cast<double>(b));
}

std::string CenterCell(char letter, double distance, size_t digits)
{
    return letter + RightPad(FormatWhole(distance, 2), digits);
}

/// Turns an M99R row into the M99 that gives the same centre.
void TurnIntoM99(Pass& pass, ProgramLine& row)
{
    row[CellCode] = "M99 ";
    int a = 0, b = 0;
    Attempt(PassName, [&] { a = ToInt32(Distance(pass.Arc.StartA, pass.Arc.CenterA)); });
    Attempt(PassName, [&] { b = ToInt32(Distance(pass.Arc.StartB, pass.Arc.CenterB)); });
    if (!IsMill()) {
        row[CellX] = CenterCell('I', a, 4);
        row[CellZ] = CenterCell('K', b, 5);
        return;
    }
    const bool xy = Shared.ArcPlane == "XY", yz = Shared.ArcPlane == "YZ";
    LineWords& center = pass.Arc.CenterWords;
    Attempt(PassName, [&] { center.X = ToInt16(yz ? 0 : a); });
    Attempt(PassName, [&] { center.Y = ToInt16(xy ? b : yz ? a : 0); });
    Attempt(PassName, [&] { center.Z = ToInt16(xy ? 0 : b); });
    row[CellX] = CenterCell('I', center.X, 5);
    row[CellY] = CenterCell('J', center.Y, 4);
    row[CellZ] = CenterCell('K', center.Z, 5);
}

} // namespace

Walk WalkArc(Pass& pass, ProgramLine& row)
{
    const bool mk2 = Shared.Machine == MachineKind::MK2;
    ArcState& arc = pass.Arc;
    if (mk2) ComputeMK2Z(pass, row);

    // The tool moves to the end of the arc. Before any move has decided a plane both ends are 0, 0.
    const Plane* const plane = ArcPlane();
    const Position start = pass.Tool;
    MoveTool(pass);
    if (plane == nullptr) return ReportAndEnd(pass, row, Messages::StartIsEnd);
    arc.StartA = std::trunc(start.*plane->A.Of);
    arc.StartB = std::trunc(start.*plane->B.Of);
    arc.EndA = std::trunc(pass.Tool.*plane->A.Of);
    arc.EndB = std::trunc(pass.Tool.*plane->B.Of);
    if (arc.StartA == arc.EndA && arc.StartB == arc.EndB)
        return ReportAndEnd(pass, row, Messages::StartIsEnd);

    // Its radius: from the M99 line behind it, from the last M99R that was typed, or of a quadrant.
    LookAhead(pass);
    float radius = 0;
    if (arc.M99Follows) {
        const double a = arc.CenterWords.*plane->A.Word, b = arc.CenterWords.*plane->B.Word;
        radius = static_cast<float>(std::sqrt(a * a + b * b));
        if (radius == 0) return Walk::End;
    } else if (arc.M99RFollows) {
        radius = Shared.M99RRadius;
    } else {
        if (!mk2 && !IsFullQuadrant(pass)) return ReportAndEnd(pass, row, Messages::NotFullQuadrant);
        const double reach = static_cast<double>(arc.StartA) - static_cast<double>(arc.EndA);
        Attempt(PassName, [&] { radius = ToSingle(std::abs(reach)); });
    }
    row[CellRadius] = RightPad(PlainNumber(std::floor(radius)), 6);

    // The mill looks at its plane from the other side.
    const bool clockwise = (pass.LineCode == G(2)) != IsMill();
    if (std::abs(pass.Delta.X) > radius || std::abs(pass.Delta.Z) > radius) {
        return ReportAndEnd(pass, row, Messages::RadiusTooSmall);
    }
    FindCenter(arc.StartA, arc.StartB, arc.EndA, arc.EndB, radius, clockwise, arc.CenterA, arc.CenterB);
    WriteCenter(pass, row, *plane);
    WriteArcAngle(pass, row, *plane, radius);
    return Walk::GoOn;
}

Walk WalkArcCenter(Pass& pass, ProgramLine& row)
{
    if (pass.LineIndex == 1) return Walk::GoOn;
    const Code before = CodeOfCell(lvCncProgram.Row(pass.LineIndex - 1)[CellCode]);
    if (before != G(2) && before != G(3)) return ReportAndEnd(pass, row, Messages::ArcMustPrecede);

    ArcState& arc = pass.Arc;
    arc.OverQuadrant = IsOverQuadrant(arc);
    if (pass.LineCode == M99R) {
        TurnIntoM99(pass, row);
    } else {
        const double toEnd = PointDistance(arc.CenterA, arc.CenterB, arc.EndA, arc.EndB);
        const double toStart = PointDistance(arc.CenterA, arc.CenterB, arc.StartA, arc.StartB);
        arc.Invalid = std::abs(toEnd - toStart) > Tolerance;
    }
    return Walk::GoOn;
}

void WriteLineAngle(const Pass& pass, ProgramLine& row)
{
    const Position& delta = pass.Delta;
    if (delta.X == 0 || delta.Z == 0) return;
    const double slope = static_cast<double>(delta.Z) / static_cast<double>(delta.X);
    const Message& side = (delta.X < 0) != (delta.Z < 0) ? Messages::RightAngle : Messages::LeftAngle;
    row[CellAngle] = TextOf(side) + FormatOneDecimal(90 - std::abs(std::atan(slope)) * 180 / Pi);
}

void FindCenter(float startA, float startB, float endA, float endB, float radius, bool clockwise,
                float& centerA, float& centerB)
{
    centerA = centerB = 0;
    if (radius == 0) return;
    const double a1 = startA, b1 = startB, a2 = endA, b2 = endB, r = radius;
    const double chord = std::sqrt((a2 - a1) * (a2 - a1) + (b2 - b1) * (b2 - b1));
    double height = 0, offsetA = 0;
    float offsetB = 0;
    Attempt("FindCenter", [&] { height = SquareRoot(r * r - (chord / 2) * (chord / 2)); });
    Attempt("FindCenter", [&] { offsetA = Divide(height * (b1 - b2), chord); });
    Attempt("FindCenter", [&] { offsetB = ToSingle(Divide(height * (a2 - a1), chord)); });

    // Two circles of the radius go through both points. The direction tells which centre is meant: by
    // whether the arc ends above its start, the one with the larger or the smaller A.
    float firstA = 0, firstB = 0, secondA = 0, secondB = 0;
    const auto store = [](float& to, double value) { Attempt("FindCenter", [&] { to = ToSingle(value); }); };
    store(firstA, (a1 + a2) / 2 + offsetA);
    store(firstB, (b1 + b2) / 2 + static_cast<double>(offsetB));
    store(secondA, (a1 + a2) / 2 - offsetA);
    store(secondB, (b1 + b2) / 2 - static_cast<double>(offsetB));
    const bool larger = (b2 > b1) != clockwise;
    const bool first = firstA == secondA ? larger : (firstA > secondA) == larger;
    centerA = std::trunc(first ? firstA : secondA);
    centerB = std::trunc(first ? firstB : secondB);
}

double PointDistance(float aA, float aB, float bA, float bB)
{
    const double a = static_cast<double>(aA) - static_cast<double>(bA);
    const double b = static_cast<double>(aB) - static_cast<double>(bB);
    return std::floor(std::sqrt(a * a + b * b));
}
