#include "drawing/measure.h"

#include "core/draw_window.h"
#include "core/failure.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/line_figures.h"
#include "drawing/program_window.h"
#include "drawing/view.h"
#include "drawing/walk.h"
#include "ui/focus.h"
#include "ui/text_box.h"

#include <cmath>
#include <iterator>

namespace {

using D = DrawWindow;
constexpr const char* Gap = "      ";

/// Rounded down to the next whole number, towards minus infinity.
std::string Whole(double value)
{
    return PlainNumber(std::floor(value) + 0.0); // no negative zero
}

/// A length of the program in mm or inch: "10.00 mm".
std::string Length(double units)
{
    if (Shared.Metric) return Tr("%1 mm", {FormatDecimals(units / 100, 2)});
    return Tr("%1 inch", {FormatDecimals(units / 1000, 3)});
}

/// The labels of a result: in program units, and in mm or inch.
struct ResultLabels {
    Control D::*InProgram;
    Control D::*InUnits;
};
constexpr ResultLabels DeltaX{&D::lblMeasureDeltaX, &D::lblMeasureDeltaXUnits};
constexpr ResultLabels DeltaZ{&D::lblMeasureDeltaZ, &D::lblMeasureDeltaZUnits};
constexpr ResultLabels Distance{&D::lblMeasureDistance, &D::lblMeasureDistanceUnits};

void ShowResult(const ResultLabels& labels, double value)
{
    (frmDraw.*labels.InProgram).Text = PlainNumber(value);
    (frmDraw.*labels.InUnits).Text = Length(value);
}

void ShowResults(double first, double second, double distance)
{
    ShowResult(DeltaX, first);
    ShowResult(DeltaZ, second);
    ShowResult(Distance, distance);
}

/// What a box or a label holds. Longer numbers than the boxes show come by pasting alone, up to infinity;
/// they count as none.
double NumberIn(std::string_view text)
{
    constexpr double Most = 999'999'999;
    const double value = Val(text);
    return std::abs(value) <= Most ? value : 0;
}

/// The point under the pointer in program units, across and down.
struct Place {
    double H, V;
};
Place PlaceOf(double x, double y)
{
    const double scale = Shared.DrawScale;
    return {(x - Drawing.ZeroPointX) / scale, (y - Drawing.ZeroPointY) / scale};
}

/// The moving second point, in the boxes of the measurement. Returns the distance.
double ShowMovingPoint(const Place& at)
{
    const double dh = std::abs(at.H - Drawing.MeasureX), dv = std::abs(at.V - Drawing.MeasureY);
    const double distance = std::floor(std::hypot(dh, dv));
    if (IsMill()) {
        frmDraw.txtMeasureX1.Text = Whole(Drawing.MeasureX);
        frmDraw.txtMeasureZ1.Text = Whole(-double{Drawing.MeasureY});
        frmDraw.txtMeasureX2.Text = Whole(at.H);
        frmDraw.txtMeasureZ2.Text = Whole(-at.V);
        ShowResults(std::floor(dh), std::floor(dv), distance);
    } else {
        frmDraw.txtMeasureX1.Text = Whole(Drawing.MeasureY);
        frmDraw.txtMeasureZ1.Text = Whole(Drawing.MeasureX);
        frmDraw.txtMeasureX2.Text = Whole(at.V);
        frmDraw.txtMeasureZ2.Text = Whole(at.H);
        ShowResults(std::floor(dv), std::floor(dh), distance);
    }
    frmDraw.lblZ.Text = IsMill() ? "Y" : "Z";
    frmDraw.lblXZ1XZ2.Text = IsMill() ? "XY1-XY2" : "XZ1-XZ2";
    return distance;
}

std::string FirstCoordinate(const Place& at)
{
    if (IsMill()) return "X= " + Whole(at.H);
    if (frmDraw.chkDiameter.Value == 1)
        return TextOf(Messages::XDiameter) + "= Ø  " + PlainNumber(std::floor(at.V) * 2 + 0.0);
    return TextOf(Messages::XRadius) + "= " + Whole(at.V);
}

std::string SecondCoordinate(const Place& at)
{
    return IsMill() ? "Y= " + Whole(-at.V) : "Z= " + Whole(at.H);
}

std::string GridText()
{
    if (frmDraw.chkGrid.Value != 1) return "";
    return Gap + TextOf(Shared.Metric ? Messages::DivisionMetric : Messages::DivisionInch) + "= " +
           std::to_string(Drawing.GridDivision) + " " +
           TextOf(Shared.Metric ? Messages::UnitMetric : Messages::UnitInch);
}

/// The frame of the measurement in the place of the boxes, or the other way round.
void ShowMeasureFrame(bool shown)
{
    frmDraw.frMeasure.Visible = frmDraw.frMeasure.Enabled = shown;
    frmDraw.frView.Visible = frmDraw.chkAutoRedraw.Visible = !shown;
}

void SetMeasurePoint(size_t point, double x, double y)
{
    Attempt("frmDraw_MouseDown", [&] {
        Drawing.MeasurePoints[point * 2] = ToSingle(x);
        Drawing.MeasurePoints[point * 2 + 1] = ToSingle(y);
    });
    MeasureCross(x, y);
    Drawing.MarksOn[point] = Picture.Generation();
    Drawing.MeasureStarted = true;
    Drawing.MeasureDone = point == 1;
    SetDrawControls(false);
}

/// Erases the mark of a point that the picture still has: a drawing in between has erased it already.
void EraseMark(size_t point)
{
    if (Drawing.MarksOn[point] != Picture.Generation()) return;
    MeasureCross(Drawing.MeasurePoints[point * 2], Drawing.MeasurePoints[point * 2 + 1]);
}

void EraseMarks()
{
    EraseMark(0);
    if (Drawing.MeasureDone) EraseMark(1);
}

/// The next readout measures from here.
void MeasureFrom(double x, double y)
{
    constexpr const char* Procedure = "MeasureCross";
    const Place at = PlaceOf(x, y);
    Attempt(Procedure, [&] { Drawing.MeasureX = ToSingle(at.H); });
    Attempt(Procedure, [&] { Drawing.MeasureY = ToSingle(at.V); });
}

/// Ends a measurement without a trace.
void GiveMeasureUp()
{
    EraseMarks();
    EndMeasure();
}

/// Takes back the point that the first click of a double click has set.
void TakeBackPoint()
{
    if (!Drawing.MeasureStarted) return;
    if (!Drawing.MeasureDone) {
        GiveMeasureUp();
        return;
    }
    EraseMark(1);
    Drawing.MeasureDone = false;
    MeasureFrom(Drawing.MeasurePoints[0], Drawing.MeasurePoints[1]);
}

void PickZeroPoint(double x, double y)
{
    Drawing.PickingZeroPoint = false;
    Drawing.Canvas->ClearCanvas();
    Attempt("frmDraw_MouseDown", [&] { Drawing.Canvas->SetPen(x, y); });
    Drawing.ZeroPointX = x;
    Drawing.ZeroPointY = y;
    Drawing.PictureMoved = false;
    MakeZeroPoint();
    Redraw();
}

} // namespace

void frmDraw_MouseMove(double x, double y)
{
    const Place at = PlaceOf(x, y);
    ShowMeasureFrame(Drawing.MeasureStarted);
    std::string distance;
    if (Drawing.MeasureStarted && !Drawing.MeasureDone) {
        distance = Gap + TextOf(Messages::Distance) + "= " + PlainNumber(ShowMovingPoint(at));
    }
    frmDraw.Window.Text = FirstCoordinate(at) + Gap + SecondCoordinate(at) + GridText() + distance;
}

void frmDraw_MouseDown(double x, double y)
{
    Drawing.WaitForUser = false;
    if (Shared.ErrorsPresent && !Drawing.DrawingNow) return;
    if (!frmDraw.frControls.Visible) {
        // Also in a walk that waits: it is left or stepped by the buttons of the frame.
        ShowControlsAt(x, y);
        return;
    }
    if (Drawing.DrawingNow) return;
    if (Drawing.PickingZeroPoint) {
        PickZeroPoint(x, y);
    } else if (!Drawing.MeasureStarted) {
        SetMeasurePoint(0, x, y);
    } else if (!Drawing.MeasureDone) {
        SetMeasurePoint(1, x, y);
    } else {
        GiveMeasureUp();
    }
}

bool frmDraw_DblClick(double x, double y)
{
    constexpr double Near = 6 * TwipsPerPixel;
    const int line = LineAt(x, y, Near);
    if (line == 0 || line > lvCncProgram.RowCount()) return false;
    TakeBackPoint();
    SelectRow(line);
    ShowSelectedProgramLine();
    return true;
}

void frmDraw_Escape()
{
    if (Drawing.DrawingNow) {
        cmdAbort_Click();
    } else if (Drawing.PickingZeroPoint) {
        Drawing.PickingZeroPoint = false;
        Redraw();
    } else if (Drawing.MeasureStarted) {
        GiveMeasureUp();
    }
}

void MeasureCross(double x, double y)
{
    constexpr const char* Procedure = "MeasureCross";
    constexpr double Arm = 100;
    DrawCanvas& canvas = *Drawing.Canvas;
    canvas.SetForeColor(ContrastColor());
    canvas.SetPenWidth(1);
    canvas.SetPenMode(PenMode::Invert);
    Attempt(Procedure, [&] { canvas.DrawLine(x - Arm, y, x + Arm, y); });
    Attempt(Procedure, [&] { canvas.DrawLine(x, y - Arm, x, y + Arm); });
    MeasureFrom(x, y);
    canvas.SetPenMode(PenMode::Copy);
}

void EndMeasure()
{
    Drawing.MeasureStarted = Drawing.MeasureDone = false;
    ShowMeasureFrame(false);
    SetDrawControls(true);
}

void UpdateMeasure()
{
    const double first = std::abs(NumberIn(frmDraw.txtMeasureX1.Text) - NumberIn(frmDraw.txtMeasureX2.Text));
    const double second = std::abs(NumberIn(frmDraw.txtMeasureZ1.Text) - NumberIn(frmDraw.txtMeasureZ2.Text));
    ShowResults(first, second, std::floor(std::hypot(first, second)));
}

void FollowMeasureLanguage()
{
    if (!Drawing.MeasureStarted) return;
    for (const ResultLabels& labels : {DeltaX, DeltaZ, Distance}) {
        Control& inUnits = frmDraw.*labels.InUnits;
        if (!inUnits.Text.empty()) inUnits.Text = Length(Val((frmDraw.*labels.InProgram).Text));
    }
}

std::string CleanMeasureText(std::string_view text)
{
    std::string digits(text);
    std::erase(digits, '-');
    const double value = NumberIn(digits);
    return PlainNumber(text.starts_with('-') ? -value + 0.0 : value);
}

// The four boxes.

namespace {

/// Where the keys of a box lead.
struct BoxKeys {
    Control D::*Box;
    Control D::*Down;
    Control D::*Up;
    Control D::*Left;
    Control D::*On;
};
constexpr BoxKeys KeysOfBoxes[] = {
    {&D::txtMeasureX1, &D::txtMeasureX2, &D::txtMeasureZ2, &D::txtMeasureZ2, &D::txtMeasureZ1},
    {&D::txtMeasureZ1, &D::txtMeasureZ2, &D::txtMeasureX2, &D::txtMeasureX1, &D::txtMeasureX2},
    {&D::txtMeasureX2, &D::txtMeasureZ1, &D::txtMeasureX1, &D::txtMeasureZ1, &D::txtMeasureZ2},
    {&D::txtMeasureZ2, &D::txtMeasureX1, &D::txtMeasureZ1, &D::txtMeasureX2, &D::txtMeasureX1},
};

const BoxKeys& KeysOf(const Control& box)
{
    for (const BoxKeys& keys : KeysOfBoxes) {
        if (&(frmDraw.*keys.Box) == &box) return keys;
    }
    return KeysOfBoxes[0];
}

} // namespace

void Measure_GotFocus(Control& box)
{
    SelectAll(box);
    UpdateMeasure();
}

void Measure_LostFocus(Control& box)
{
    if (!Drawing.MeasureStarted || !Drawing.MeasureDone) return;
    box.Text = CleanMeasureText(box.Text);
    UpdateMeasure();
}

bool Measure_KeyDown(Control& box, const KeyStroke& key)
{
    const BoxKeys& keys = KeysOf(box);
    const bool atEnd = box.SelStart + box.SelLength >= static_cast<int>(CharacterCount(box.Text));
    Control D::*to = nullptr;
    switch (key.Name) {
    case KeyName::Down: to = keys.Down; break;
    case KeyName::Up: to = keys.Up; break;
    case KeyName::Left: to = box.SelStart == 0 ? keys.Left : nullptr; break;
    case KeyName::Right: to = atEnd ? keys.On : nullptr; break;
    default: break;
    }
    if (to == nullptr) return false;
    SetFocus(frmDraw.*to);
    return true;
}

char Measure_KeyPress(Control& box, char typed)
{
    constexpr char Enter = 13, Copy = 3, Backspace = 8, Paste = 22, CutKey = 24;
    if (typed == Enter || typed == ',' || typed == '.') {
        SetFocus(frmDraw.*KeysOf(box).On);
        return 0;
    }
    const bool passes = typed == Copy || typed == Backspace || typed == Paste || typed == CutKey ||
                        typed == '-' || (typed >= '0' && typed <= '9');
    return passes ? typed : '\0';
}
