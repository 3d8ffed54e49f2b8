#include "qt/painter_canvas.h"

#include "core/vector.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double TwipsToPixel = 15;

/// Beyond this many pixels (a million twips) nothing is handed to the painter: lines are clipped to the
/// surroundings of the sheet, arcs go there as lines.
constexpr double Far = 1'000'000 / TwipsToPixel;

bool IsFar(double at)
{
    return !(std::abs(at) <= Far);
}

/// Cuts a line to a rectangle; false when nothing of it lies inside.
bool ClipLine(const QRectF& to, double& x1, double& y1, double& x2, double& y2)
{
    const double dx = x2 - x1, dy = y2 - y1;
    double from = 0, until = 1;
    const double edges[][2] = {
        {-dx, x1 - to.left()}, {dx, to.right() - x1}, {-dy, y1 - to.top()}, {dy, to.bottom() - y1}};
    for (const auto& [slope, room] : edges) {
        if (slope == 0) {
            if (room < 0) return false;
        } else if (slope < 0) {
            from = std::max(from, room / slope);
        } else {
            until = std::min(until, room / slope);
        }
    }
    if (!(from <= until)) return false;
    x2 = x1 + until * dx;
    y2 = y1 + until * dy;
    x1 += from * dx;
    y1 += from * dy;
    return true;
}

} // namespace

QColor QtColor(Color color)
{
    return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

PainterCanvas::PainterCanvas(QPainter& painter, int width, int height, Device device, double ratio)
    : To(painter), Sheet(0, 0, width / TwipsToPixel, height / TwipsToPixel), On(device), Ratio(ratio),
      Ground(Settings().Back)
{
}

void PainterCanvas::FillSheet()
{
    Ground = Settings().Back;
    To.fillRect(Sheet.toAlignedRect(), QtColor(Ground));
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
    if (!Stale) return;
    Stale = false;
    const CanvasSettings& settings = Settings();
    const bool inverts = settings.Mode == PenMode::Invert && On == Device::Raster;
    // Only whole pixels can be reversed, and put back by a second figure.
    To.setRenderHint(QPainter::Antialiasing, !inverts);
    To.setCompositionMode(inverts ? QPainter::CompositionMode_Difference
                                  : QPainter::CompositionMode_SourceOver);
    QPen pen(inverts ? QColor(Qt::white) : QtColor(settings.Fore));
    pen.setWidthF(settings.Width);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    if (settings.Style == PenStyle::Dotted) pen.setDashPattern({1, 3});
    To.setPen(pen);
    To.setBrush(settings.Fill == FillStyle::Solid ? QBrush(QtColor(settings.FillColor)) : QBrush());
}

/// A coordinate moved to where a line of this width is sharp.
double PainterCanvas::OnPixel(double at) const
{
    const double wide = Settings().Width * Ratio;
    const bool odd = static_cast<int>(std::lround(wide)) % 2 == 1;
    return (std::floor(at * Ratio) + (odd ? 0.5 : 0.0)) / Ratio;
}

/// A level or upright line of one pixel of the device as a row of them: as sharp, and a hundred times faster
/// than smoothed. False for a line of another form.
bool PainterCanvas::PaintThinLine(double x1, double y1, double x2, double y2)
{
    const CanvasSettings& settings = Settings();
    if (settings.Width * Ratio != 1 || settings.Style != PenStyle::Solid) return false;
    const auto pixel = [](double at) { return static_cast<int>(std::floor(at)); };
    const QRect line(QPoint(pixel(std::min(x1, x2)), pixel(std::min(y1, y2))),
                     QPoint(pixel(std::max(x1, x2)), pixel(std::max(y1, y2))));
    To.fillRect(line, To.pen().color());
    return true;
}

void PainterCanvas::PaintLine(double x1, double y1, double x2, double y2)
{
    if (IsFar(x1) || IsFar(y1) || IsFar(x2) || IsFar(y2)) {
        const double margin = Settings().Width + 100.0;
        if (!ClipLine(Sheet.adjusted(-margin, -margin, margin, margin), x1, y1, x2, y2)) return;
    }
    if (On == Device::Raster && (x1 == x2 || y1 == y2)) {
        if (PaintThinLine(x1, y1, x2, y2)) return;
        if (x1 == x2) x1 = x2 = OnPixel(x1);
        if (y1 == y2) y1 = y2 = OnPixel(y1);
    }
    To.drawLine(QLineF(x1, y1, x2, y2));
}

void PainterCanvas::Line(float x1, float y1, float x2, float y2)
{
    Apply();
    PaintLine(x1 / TwipsToPixel, y1 / TwipsToPixel, x2 / TwipsToPixel, y2 / TwipsToPixel);
}

void PainterCanvas::Hatch(const QRectF& box)
{
    constexpr double Step = 8;
    To.save();
    To.setPen(QPen(QtColor(Settings().FillColor), 1));
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
    const auto place = [&](double twips) {
        const double at = std::clamp(twips / TwipsToPixel, -Far, Far);
        return On == Device::Raster ? OnPixel(at) : at;
    };
    const QRectF box =
        QRectF(QPointF(place(fromX), place(fromY)), QPointF(place(PenX()), place(PenY()))).normalized();
    if (Settings().Fill == FillStyle::Diagonal) Hatch(box);
    To.drawRect(box);
}

void PainterCanvas::Point()
{
    Apply();
    double x = PenX() / TwipsToPixel, y = PenY() / TwipsToPixel;
    if (IsFar(x) || IsFar(y)) return;
    if (On == Device::Raster) {
        x = OnPixel(x);
        y = OnPixel(y);
    }
    QPen pen = To.pen();
    pen.setStyle(Qt::SolidLine);
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
    const double x = PenX() / TwipsToPixel, y = PenY() / TwipsToPixel, r = std::abs(radius) / TwipsToPixel;
    double sweep = double{end} - start;
    if (sweep < 0) sweep += 2 * Pi;
    if (IsFar(std::abs(x) + r) || IsFar(std::abs(y) + r)) {
        PaintFarArc(std::abs(double{radius}), start, sweep);
        return;
    }
    constexpr double ToDegrees = 180 / Pi;
    const QRectF around(x - r, y - r, 2 * r, 2 * r);
    QPainterPath path;
    path.arcMoveTo(around, start * ToDegrees);
    path.arcTo(around, start * ToDegrees, sweep * ToDegrees);
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
        return QPointF((PenX() + radius * std::cos(angle)) / TwipsToPixel,
                       (PenY() - radius * std::sin(angle)) / TwipsToPixel);
    };
    // The stretch lies within this distance of its middle.
    const double reach = radius * sweep / 2 / TwipsToPixel + Settings().Width;
    const QPointF middle = place(start + sweep / 2);
    if (!Sheet.adjusted(-reach, -reach, reach, reach).contains(middle)) return;
    const double bulge = radius * sweep * sweep / 8 / TwipsToPixel;
    if (bulge > 0.1 || sweep > 1) {
        PaintFarArc(radius, start, sweep / 2);
        PaintFarArc(radius, start + sweep / 2, sweep / 2);
        return;
    }
    const QPointF from = place(start), to = place(start + sweep);
    PaintLine(from.x(), from.y(), to.x(), to.y());
}
