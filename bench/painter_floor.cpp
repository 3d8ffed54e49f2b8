#include "painter_floor.h"

#include "core/vector.h"
#include "qt/painter_canvas.h"
#include "qt/theme.h"

#include <QLineF>
#include <QPainter>

#include <cmath>

namespace {

/// Where a level or upright line of this width is sharp; the canvas puts it there too.
double OnPixel(double at, int width)
{
    return std::floor(at) + (width % 2 == 1 ? 0.5 : 0);
}

} // namespace

std::vector<Stroke> StrokesOf(const std::vector<Operation>& operations)
{
    using Op = Operation::Kind;
    std::vector<Stroke> strokes;
    NoCanvas canvas;
    for (const Operation& op : operations) {
        const QPointF from(canvas.PenX() / double{TwipsPerPixel}, canvas.PenY() / double{TwipsPerPixel});
        Replay({&op, 1}, canvas);
        if (op.Is == Op::ClearCanvas || (op.Is >= Op::SetBackColor && op.Is <= Op::Pen)) continue;
        const QPointF to(canvas.PenX() / double{TwipsPerPixel}, canvas.PenY() / double{TwipsPerPixel});
        const int width = canvas.Settings().Width;
        QPen pen(Theme::FromBgr(canvas.Settings().Fore), width);
        pen.setCapStyle(Qt::RoundCap);
        QLineF line(op.Is == Op::DrawLine ? QPointF(op.At[0], op.At[1]) / TwipsPerPixel : from, to);
        const bool straight = op.Is == Op::DrawLine || op.Is == Op::LineTo;
        const bool smooth = !straight || (line.x1() != line.x2() && line.y1() != line.y2());
        if (line.x1() == line.x2()) {
            const double x = OnPixel(line.x1(), width);
            line = QLineF(x, line.y1(), x, line.y2());
        } else if (line.y1() == line.y2()) {
            const double y = OnPixel(line.y1(), width);
            line = QLineF(line.x1(), y, line.x2(), y);
        }
        double sweep = double{op.At[4]} - op.At[3];
        if (sweep < 0) sweep += 2 * Pi;
        strokes.push_back({pen, op.Is, line, op.At[2] / double{TwipsPerPixel}, op.At[3] * 180 / Pi,
                           sweep * 180 / Pi, smooth});
    }
    return strokes;
}

void PaintStrokes(QImage& image, const std::vector<Stroke>& strokes)
{
    using Op = Operation::Kind;
    QPainter painter(&image);
    painter.fillRect(image.rect(), Qt::black);
    for (const Stroke& stroke : strokes) {
        if (painter.pen() != stroke.Pen) painter.setPen(stroke.Pen);
        if (painter.testRenderHint(QPainter::Antialiasing) != stroke.Smooth)
            painter.setRenderHint(QPainter::Antialiasing, stroke.Smooth);
        const QPointF at = stroke.Line.p2();
        const QRectF around(at.x() - stroke.Radius, at.y() - stroke.Radius, 2 * stroke.Radius,
                            2 * stroke.Radius);
        switch (stroke.Is) {
        case Op::DrawBox: painter.drawRect(QRectF(stroke.Line.p1(), at)); break;
        case Op::SetPoint: painter.drawPoint(at); break;
        case Op::DrawCircle: painter.drawEllipse(around); break;
        case Op::DrawArc:
            painter.drawArc(around, static_cast<int>(stroke.Start * 16), static_cast<int>(stroke.Sweep * 16));
            break;
        default: painter.drawLine(stroke.Line);
        }
    }
}
