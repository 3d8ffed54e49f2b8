// painter_floor.h: what a picture costs the toolkit's painter alone, to measure drawings against.

#pragma once

#include "drawing/recording.h"

#include <QImage>
#include <QLineF>
#include <QPen>

#include <vector>

/// Draws nothing.
class NoCanvas : public DrawCanvas
{
protected:
    void Clear() override {}
    void Line(float, float, float, float) override {}
    void Box(float, float) override {}
    void Point() override {}
    void Circle(float) override {}
    void Arc(float, float, float) override {}
};

/// A figure of the recording in pixels, with all that the painter needs.
struct Stroke {
    QPen Pen;
    Operation::Kind Is;
    QLineF Line;
    double Radius, Start, Sweep;
    /// Level and upright lines are sharp without smoothing.
    bool Smooth;
};

std::vector<Stroke> StrokesOf(const std::vector<Operation>& operations);

/// Hands the figures to the painter directly, on a black ground, and does nothing else.
void PaintStrokes(QImage& image, const std::vector<Stroke>& strokes);
