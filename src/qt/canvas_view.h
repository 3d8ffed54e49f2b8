// canvas_view.h: the picture of the drawing window.
//
// It paints what the recording has got since it was painted last, into an image of the screen's own pixels; a
// cleared canvas and a new size are painted anew. Over it lies the mark of the line that is selected in the
// editor, which is the window's own and no figure of the drawing.

#pragma once

#include "qt/desktop.h"
#include "qt/painter_canvas.h"

#include <QImage>
#include <QWidget>

#include <memory>

class CanvasView : public QWidget
{
public:
    CanvasView(Desktop& desktop, QWidget* parent);

    /// Takes in what was drawn, the pointer and the selected line.
    void Render();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Begin();
    void PaintMark(QPainter& painter) const;
    QPointF InTwips(const QPointF& at) const;
    /// The pointer is here: its coordinates go into the title.
    void ReadOut(const QPointF& at);

    Desktop& Events;
    QImage Image;
    QPainter Painter;
    std::unique_ptr<PainterCanvas> Canvas;
    /// The screen's own pixels for one of Qt's.
    double Ratio = 1;
    int Generation = -1;
    size_t Painted = 0;
    /// The selected line, and what it has drawn.
    int MarkedLine = 0;
    std::vector<Operation> Mark;
    /// Where the middle button took hold of the picture, in twips.
    std::optional<QPointF> Held;
    /// The press before was the choice of a zero point.
    bool PickedZeroPoint = false;
    /// Where the pointer was last, in twips, the drawing whose coordinates it was told in, and the language.
    std::optional<QPointF> Pointer;
    int ReadoutOf = -1;
    unsigned ReadoutIn = 0;
    /// What the wheel has turned since its last step, in eighths of a degree.
    int Turned = 0;
};
