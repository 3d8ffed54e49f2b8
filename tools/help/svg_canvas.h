// svg_canvas.h: a canvas that writes its figures as SVG, for the small pictures of the help pages.
//
// It needs no toolkit. Positions are pixels with one decimal, so that the pages come out alike everywhere.

#pragma once

#include "drawing/canvas.h"

#include <string>

class SvgCanvas : public DrawCanvas
{
public:
    /// The picture, of a size in twips.
    std::string Svg(int width, int height) const;

protected:
    void Clear() override { Figures.clear(); }
    void Line(float x1, float y1, float x2, float y2) override;
    void Box(float fromX, float fromY) override;
    void Point() override;
    void Circle(float radius) override;
    void Arc(float radius, float start, float end) override;

private:
    /// The attributes of a line in the settings in force.
    std::string Stroke() const;

    std::string Figures;
};
