#include "qt/canvas_view.h"

#include "commands/windows.h"
#include "core/draw_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "drawing/drawing_state.h"
#include "drawing/line_figures.h"
#include "drawing/measure.h"
#include "drawing/view.h"

#include <QMouseEvent>

#include <utility>

CanvasView::CanvasView(Desktop& desktop, QWidget* parent) : QWidget(parent), Events(desktop)
{
    setObjectName("canvas");
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CanvasView::Begin()
{
    Canvas.reset();
    if (Painter.isActive()) Painter.end();
    const double ratio = Ratio = devicePixelRatioF();
    Image = QImage((QSizeF(size()) * ratio).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
    Painter.begin(&Image);
    // A pixel of the drawing is one of the screen's logical inch, whatever its own pixels are.
    const double scale = ratio * logicalDpiX() / 96.0;
    Painter.scale(scale, scale);
    const double toTwips = TwipsPerPixel * 96.0 / logicalDpiX();
    Canvas = std::make_unique<PainterCanvas>(Painter, static_cast<int>(width() * toTwips) + 15,
                                             static_cast<int>(height() * toTwips) + 15,
                                             PainterCanvas::Device::Raster, scale);
    Generation = -1;
}

void CanvasView::Render()
{
    if (const QString name = QString::fromStdString(Tr("Tool path")); accessibleName() != name)
        setAccessibleName(name);
    const auto& operations = Picture.Operations();
    if (Canvas == nullptr || Ratio != devicePixelRatioF()) Begin();
    // A recording begins with a clearing and all settings, so it can be painted over what was there.
    if (Generation != Picture.Generation() || Painted > operations.size()) {
        Generation = Picture.Generation();
        Painted = 0;
        MarkedLine = -1;
    }
    const bool newLine = MarkedLine != lvCncProgram.Selected;
    if (Painted < operations.size() || newLine) {
        Replay({operations.data() + Painted, operations.size() - Painted}, *Canvas);
        Canvas->PaintGround();
        Painted = operations.size();
        // The figures of a long drawing are looked through once, at its end.
        MarkedLine = Drawing.Yielding ? -1 : lvCncProgram.Selected;
        Mark = Drawing.Yielding ? std::vector<Operation>() : FiguresOfLine(MarkedLine);
        update(QRegion(rect()) - childrenRegion()); // the frame over the picture is as it was
    }
    // Another drawing may have another scale and zero point, another language other words.
    if (Pointer && (ReadoutOf != Generation || ReadoutIn != Translated.Version)) {
        ReadoutOf = Generation;
        ReadoutIn = Translated.Version;
        Events.RunLater([this] {
            if (Pointer) ReadOut(*Pointer);
        });
    }
    const Qt::CursorShape pointer = Drawing.IsPicking() ? Qt::CrossCursor : Qt::ArrowCursor;
    if (cursor().shape() != pointer) setCursor(pointer);
}

void CanvasView::PaintMark(QPainter& painter) const
{
    if (Mark.empty()) return;
    painter.save();
    const double scale = logicalDpiX() / 96.0;
    painter.scale(scale, scale);
    painter.setOpacity(0.55);
    PainterCanvas canvas(painter, frmDraw.Window.Width, frmDraw.Window.Height, PainterCanvas::Device::Vector);
    constexpr Color Orange = 0x20A0FF;
    canvas.SetForeColor(Orange);
    canvas.SetPenWidth(5);
    Replay(Mark, canvas);
    painter.restore();
}

void CanvasView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    // Rectangle by rectangle the toolkit copies rows of pixels; a region it would go through span by span.
    for (const QRect& part : event->region()) {
        painter.setClipRect(part);
        painter.drawImage(part, Image, QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio));
    }
    painter.setClipping(false);
    PaintMark(painter);
}

void CanvasView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Canvas.reset();
    Render();
}

void CanvasView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    Pointer.reset();
    Held.reset();
}

QPointF CanvasView::InTwips(const QPointF& at) const
{
    return at * (TwipsPerPixel * 96.0 / logicalDpiX());
}

void CanvasView::ReadOut(const QPointF& at)
{
    Pointer = at;
    ReadoutOf = Picture.Generation();
    ReadoutIn = Translated.Version;
    frmDraw_MouseMove(at.x(), at.y());
}

void CanvasView::mousePressEvent(QMouseEvent* event)
{
    const QPointF at = InTwips(event->position());
    if (event->button() == Qt::MiddleButton) {
        Held = at;
        return;
    }
    PickedZeroPoint = Drawing.PickingZeroPoint;
    // A finger or a pen may not have moved here before, and won't move before the user looks.
    Events.Run([&] {
        BringToFront(frmDraw.Window);
        ReadOut(at);
        frmDraw_MouseDown(at.x(), at.y());
        ReadOut(at);
    });
}

void CanvasView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF at = InTwips(event->position());
    Events.Run([&] {
        if (Held) {
            MoveZeroPoint(at.x() - Held->x(), at.y() - Held->y());
            Held = at;
        }
        ReadOut(at);
    });
}

void CanvasView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton) Held.reset();
}

void CanvasView::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The first of both clicks has done all that the user wanted.
    if (std::exchange(PickedZeroPoint, false)) return;
    const QPointF at = InTwips(event->position());
    bool onFigure = false;
    if (event->button() == Qt::LeftButton) {
        Events.Run([&] {
            onFigure = frmDraw_DblClick(at.x(), at.y());
            if (onFigure) ReadOut(at);
        });
    }
    if (!onFigure) mousePressEvent(event);
}

void CanvasView::wheelEvent(QWheelEvent* event)
{
    const QPointF at = InTwips(event->position());
    event->accept();
    // A touchpad turns the wheel by small parts of a step.
    Turned += event->angleDelta().y();
    const int steps = Turned / QWheelEvent::DefaultDeltasPerStep;
    if (steps == 0) return;
    Turned %= QWheelEvent::DefaultDeltasPerStep;
    Events.Run([&] {
        StepScale(steps, at.x(), at.y());
        ReadOut(at);
    });
}
