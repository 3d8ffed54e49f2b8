// painter_canvas.h: drawings on Qt's painter: the window's picture, image and vector files, paper.

#pragma once

#include "drawing/recording.h"

#include <QPainter>

class PainterCanvas : public DrawCanvas
{
public:
    /// What the painter paints on: pixels, whose edges lines are put on, or a vector format.
    enum class Device { Raster, Vector };

    /// Paints on a painter whose unit is a pixel of TwipsPerPixel, on a sheet of this size in twips. The
    /// device has `ratio` pixels of its own for one such pixel.
    PainterCanvas(QPainter& painter, int width, int height, Device device, double ratio = 1);
    /// The painter is still as it was given: the ground of a sheet without figures is painted now.
    ~PainterCanvas() override { PaintGround(); }
    PainterCanvas(const PainterCanvas&) = delete;
    PainterCanvas& operator=(const PainterCanvas&) = delete;

    /// Paints the ground when it is due. Erasing the sheet leaves it to the next figure, so that several
    /// erasures in a row paint it once.
    void PaintGround();

protected:
    void SettingChanged() override;
    void Clear() override;
    void Line(float x1, float y1, float x2, float y2) override;
    void Box(float fromX, float fromY) override;
    void Point() override;
    void Circle(float radius) override;
    void Arc(float radius, float start, float end) override;

private:
    /// Puts changed settings into the painter.
    void Apply();
    void FillSheet();
    void PaintLine(double x1, double y1, double x2, double y2);
    void PaintThinLine(double x1, double y1, double x2, double y2);
    void PaintFarArc(double radius, double start, double sweep);
    void Hatch(const QRectF& box);
    double OnPixel(double at) const;
    int DeviceWidth() const;
    bool IsThin() const;
    bool IsInverting() const;
    void SetSmooth(bool smooth);

    QPainter& To;
    QRectF Sheet;
    Device On;
    double Ratio;
    bool Stale = true, GroundIsDue = false;
    Color Ground;
};
