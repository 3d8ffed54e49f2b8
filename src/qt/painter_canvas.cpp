#include "qt/painter_canvas.h"

#include "core/vector.h"
#include "qt/theme.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

/// Beyond this many pixels (a million twips) nothing is handed to the painter: lines are clipped to the
/// surroundings of the sheet, arcs go there as lines.
constexpr double Far = 1'000'000 / TwipsPerPixel;

bool IsFar(double at)
{
    return !(std::abs(at) <= Far);
}

/// Cuts a line to one side of an edge across the axis of `a`; false when nothing of it lies there. The cut
/// end is put on the edge exactly, so that a level or upright line stays one however long it is.
bool CutAt(double edge, bool keepsAbove, double& a1, double& b1, double& a2, double& b2)
{
    const auto isOut = [&](double a) { return keepsAbove ? a < edge : a > edge; };
    if (isOut(a1) && isOut(a2)) return false;
    if (!isOut(a1) && !isOut(a2)) return true;
    const double b = b1 + (b2 - b1) * ((edge - a1) / (a2 - a1));
    (isOut(a1) ? b1 : b2) = b;
    (isOut(a1) ? a1 : a2) = edge;
    return true;
}

/// Cuts a line to a rectangle; false when nothing of it lies inside.
bool ClipLine(const QRectF& to, double& x1, double& y1, double& x2, double& y2)
{
    return CutAt(to.left(), true, x1, y1, x2, y2) && CutAt(to.right(), false, x1, y1, x2, y2) &&
           CutAt(to.top(), true, y1, x1, y2, x2) && CutAt(to.bottom(), false, y1, x1, y2, x2);
}

/// The arc from an angle on as a path, in radians counter-clockwise. Pieces of 15 degrees keep it to a
/// hundred-millionth of its radius; the toolkit's own arcs are off by a pixel at 3000.
QPainterPath ArcPath(const QPointF& center, double radius, double start, double sweep)
{
    const int pieces = std::max(1, static_cast<int>(std::ceil(sweep / (Pi / 12))));
    const double step = sweep / pieces, reach = 4.0 / 3.0 * std::tan(step / 4) * radius;
    const auto place = [&](double angle) {
        return center + QPointF(radius * std::cos(angle), -radius * std::sin(angle));
    };
    const auto ahead = [&](double angle) {
        return QPointF(-reach * std::sin(angle), -reach * std::cos(angle));
    };
    QPainterPath path(place(start));
    for (int i = 0; i < pieces; ++i) {
        const double from = start + i * step, to = from + step;
        path.cubicTo(place(from) + ahead(from), place(to) - ahead(to), place(to));
    }
    return path;
}

} // namespace

PainterCanvas::PainterCanvas(QPainter& painter, int width, int height, Device device, double ratio)
    : To(painter), Sheet(0, 0, width / TwipsPerPixel, height / TwipsPerPixel), On(device), Ratio(ratio),
      Ground(Settings().Back)
{
}

void PainterCanvas::FillSheet()
{
    Ground = Settings().Back;
    GroundIsDue = true;
}

void PainterCanvas::PaintGround()
{
    if (!GroundIsDue) return;
    // The figure before may have been an inverting one.
    To.setCompositionMode(QPainter::CompositionMode_SourceOver);
    To.fillRect(Sheet.toAlignedRect(), Theme::FromBgr(Ground));
    Stale = true;
    GroundIsDue = false;
}

void PainterCanvas::SettingChanged()
{
    Stale = true;
    if (Ground != Settings().Back) FillSheet();
}

void PainterCanvas::Clear()
{
    FillSheet();
}

void PainterCanvas::Apply()
{
    PaintGround();
    if (!Stale) return;
    Stale = false;
    const CanvasSettings& settings = Settings();
    const bool inverts = IsInverting();
    To.setCompositionMode(inverts ? QPainter::CompositionMode_Difference
                                  : QPainter::CompositionMode_SourceOver);
    QPen pen(inverts ? QColor(Qt::white) : Theme::FromBgr(settings.Fore));
    pen.setWidthF(On == Device::Raster ? DeviceWidth() / Ratio : settings.Width);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    if (settings.Style == PenStyle::Dotted) pen.setDashPattern({1, 3});
    To.setPen(pen);
    To.setBrush(settings.Fill == FillStyle::Solid ? QBrush(Theme::FromBgr(settings.FillColor)) : QBrush());
}

bool PainterCanvas::IsInverting() const
{
    return Settings().Mode == PenMode::Invert && On == Device::Raster;
}

void PainterCanvas::SetSmooth(bool smooth)
{
    // Only whole pixels can be reversed, and put back by a second figure.
    if (IsInverting()) smooth = false;
    if (To.testRenderHint(QPainter::Antialiasing) != smooth) To.setRenderHint(QPainter::Antialiasing, smooth);
}

/// The pen's width in whole pixels of the device.
int PainterCanvas::DeviceWidth() const
{
    return std::max(1, static_cast<int>(std::lround(Settings().Width * Ratio)));
}

/// A coordinate moved to where a line of this width is sharp.
double PainterCanvas::OnPixel(double at) const
{
    return (std::floor(at * Ratio) + (DeviceWidth() % 2 == 1 ? 0.5 : 0.0)) / Ratio;
}

/// A level or upright line of a thin pen as a row of pixels: as sharp, and a hundred times faster than
/// smoothed.
void PainterCanvas::PaintThinLine(double x1, double y1, double x2, double y2)
{
    const int wide = DeviceWidth();
    const auto pixel = [&](double at) { return std::floor(at * Ratio) - wide / 2; };
    const QPointF from(pixel(std::min(x1, x2)), pixel(std::min(y1, y2)));
    const QPointF to(pixel(std::max(x1, x2)) + wide, pixel(std::max(y1, y2)) + wide);
    SetSmooth(false);
    To.fillRect(QRectF(from / Ratio, to / Ratio), To.pen().color());
}

/// Whether level and upright lines are rows of pixels.
bool PainterCanvas::IsThin() const
{
    return On == Device::Raster && Settings().Width == 1 && Settings().Style == PenStyle::Solid;
}

void PainterCanvas::PaintLine(double x1, double y1, double x2, double y2)
{
    if (IsFar(x1) || IsFar(y1) || IsFar(x2) || IsFar(y2)) {
        const double margin = Settings().Width + 100.0;
        if (!ClipLine(Sheet.adjusted(-margin, -margin, margin, margin), x1, y1, x2, y2)) return;
    }
    if (On == Device::Raster && (x1 == x2 || y1 == y2)) {
        if (IsThin()) {
            PaintThinLine(x1, y1, x2, y2);
            return;
        }
        if (x1 == x2) x1 = x2 = OnPixel(x1);
        if (y1 == y2) y1 = y2 = OnPixel(y1);
    }
    SetSmooth(true);
    To.drawLine(QLineF(x1, y1, x2, y2));
}

void PainterCanvas::Line(float x1, float y1, float x2, float y2)
{
    Apply();
    PaintLine(x1 / TwipsPerPixel, y1 / TwipsPerPixel, x2 / TwipsPerPixel, y2 / TwipsPerPixel);
}

void PainterCanvas::Hatch(const QRectF& box)
{
    constexpr double Step = 8;
    To.save();
    To.setRenderHint(QPainter::Antialiasing);
    To.setPen(QPen(Theme::FromBgr(Settings().FillColor), 1));
    const QRectF seen = box.intersected(Sheet);
    // Lines y = x + c, on the same places of the sheet in every box.
    const double first = std::floor((seen.top() - seen.right()) / Step) * Step;
    for (double c = first; c < seen.bottom() - seen.left(); c += Step) {
        double x1 = seen.left(), y1 = x1 + c, x2 = seen.right(), y2 = x2 + c;
        if (ClipLine(seen, x1, y1, x2, y2)) To.drawLine(QLineF(x1, y1, x2, y2));
    }
    To.restore();
}

void PainterCanvas::Box(float fromX, float fromY)
{
    Apply();
    const auto place = [](double twips) { return std::clamp(twips / TwipsPerPixel, -Far, Far); };
    const double x1 = place(fromX), y1 = place(fromY), x2 = place(PenX()), y2 = place(PenY());
    const QRectF box = QRectF(QPointF(x1, y1), QPointF(x2, y2)).normalized();
    if (Settings().Fill == FillStyle::Diagonal) Hatch(box);
    if (!IsThin()) {
        const auto snap = [&](double at) { return On == Device::Raster ? OnPixel(at) : at; };
        SetSmooth(true);
        To.drawRect(QRectF(QPointF(snap(x1), snap(y1)), QPointF(snap(x2), snap(y2))).normalized());
        return;
    }
    if (Settings().Fill == FillStyle::Solid) {
        SetSmooth(false);
        To.fillRect(box, To.brush());
    }
    PaintThinLine(x1, y1, x2, y1);
    PaintThinLine(x1, y2, x2, y2);
    PaintThinLine(x1, y1, x1, y2);
    PaintThinLine(x2, y1, x2, y2);
}

void PainterCanvas::Point()
{
    Apply();
    double x = PenX() / TwipsPerPixel, y = PenY() / TwipsPerPixel;
    if (IsFar(x) || IsFar(y)) return;
    if (IsThin()) {
        PaintThinLine(x, y, x, y); // a pixel
        return;
    }
    if (On == Device::Raster) {
        x = OnPixel(x);
        y = OnPixel(y);
    }
    QPen pen = To.pen();
    pen.setStyle(Qt::SolidLine);
    SetSmooth(true);
    To.setPen(pen);
    To.drawPoint(QPointF(x, y));
    Stale = true;
}

void PainterCanvas::Circle(float radius)
{
    Arc(radius, 0, static_cast<float>(2 * Pi));
}

void PainterCanvas::Arc(float radius, float start, float end)
{
    Apply();
    const double x = PenX() / TwipsPerPixel, y = PenY() / TwipsPerPixel, r = std::abs(radius) / TwipsPerPixel;
    double sweep = double{end} - start;
    if (sweep < 0) sweep += 2 * Pi;
    if (IsFar(std::abs(x) + r) || IsFar(std::abs(y) + r)) {
        PaintFarArc(std::abs(double{radius}), start, sweep);
        return;
    }
    const QRectF around(x - r, y - r, 2 * r, 2 * r);
    SetSmooth(true);
    const QPainterPath path = ArcPath({x, y}, r, start, sweep);
    const bool closed = sweep > 2 * Pi - 1e-4; // rounded to a 32-bit float on its way
    if (!closed) {
        To.strokePath(path, To.pen());
        return;
    }
    if (Settings().Fill == FillStyle::Diagonal) {
        To.save();
        To.setClipPath(path);
        Hatch(around);
        To.restore();
    }
    To.drawPath(path);
}

/// An arc that reaches far beyond the sheet, as lines short enough to keep its form to a tenth of a pixel;
/// what lies beside the sheet is passed over in whole stretches. One so large that the places on it can't be
/// told apart is none.
void PainterCanvas::PaintFarArc(double radius, double start, double sweep)
{
    constexpr double MostRadius = 1e12;
    if (radius > MostRadius) return;
    const auto place = [&](double angle) {
        return QPointF((PenX() + radius * std::cos(angle)) / TwipsPerPixel,
                       (PenY() - radius * std::sin(angle)) / TwipsPerPixel);
    };
    // The stretch lies within this distance of its middle.
    const double reach = radius * sweep / 2 / TwipsPerPixel + Settings().Width;
    const QPointF middle = place(start + sweep / 2);
    if (!Sheet.adjusted(-reach, -reach, reach, reach).contains(middle)) return;
    const double bulge = radius * sweep * sweep / 8 / TwipsPerPixel;
    if (bulge > 0.1 || sweep > 1) {
        PaintFarArc(radius, start, sweep / 2);
        PaintFarArc(radius, start + sweep / 2, sweep / 2);
        return;
    }
    const QPointF from = place(start), to = place(start + sweep);
    PaintLine(from.x(), from.y(), to.x(), to.y());
}
