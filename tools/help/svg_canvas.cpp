#include "svg_canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace {

/// Twips as pixels.
std::string Px(double twips)
{
    char text[32];
    const double pixels = std::round(twips / 15 * 10) / 10;
    std::snprintf(text, sizeof text, "%.1f", pixels == 0 ? 0 : pixels);
    return text;
}

std::string Hex(Color bgr)
{
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", bgr & 0xFF, bgr >> 8 & 0xFF, bgr >> 16 & 0xFF);
    return text;
}

} // namespace

std::string SvgCanvas::Svg(int width, int height) const
{
    const std::string size = "width=\"" + Px(width) + "\" height=\"" + Px(height) + "\"";
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" " + size + " viewBox=\"0 0 " + Px(width) + " " +
           Px(height) + "\">\n<rect " + size + " fill=\"" + Hex(Settings().Back) + "\"/>\n" + Figures +
           "</svg>\n";
}

std::string SvgCanvas::Stroke() const
{
    const CanvasSettings& now = Settings();
    std::string stroke =
        " fill=\"none\" stroke=\"" + Hex(now.Fore) + "\" stroke-width=\"" + std::to_string(now.Width) + "\"";
    if (now.Style == PenStyle::Dotted) stroke += " stroke-dasharray=\"2 2\"";
    return stroke + "/>\n";
}

void SvgCanvas::Line(float x1, float y1, float x2, float y2)
{
    Figures += "<line x1=\"" + Px(x1) + "\" y1=\"" + Px(y1) + "\" x2=\"" + Px(x2) + "\" y2=\"" + Px(y2) +
               "\" stroke-linecap=\"round\"" + Stroke();
}

void SvgCanvas::Box(float fromX, float fromY)
{
    Figures += "<rect x=\"" + Px(std::min(fromX, PenX())) + "\" y=\"" + Px(std::min(fromY, PenY())) +
               "\" width=\"" + Px(std::abs(PenX() - fromX)) + "\" height=\"" + Px(std::abs(PenY() - fromY)) +
               "\"" + Stroke();
}

void SvgCanvas::Point()
{
    const double radius = std::max(Settings().Width, 3) * 7.5;
    Figures += "<circle cx=\"" + Px(PenX()) + "\" cy=\"" + Px(PenY()) + "\" r=\"" + Px(radius) +
               "\" fill=\"" + Hex(Settings().Fore) + "\"/>\n";
}

void SvgCanvas::Circle(float radius)
{
    Figures +=
        "<circle cx=\"" + Px(PenX()) + "\" cy=\"" + Px(PenY()) + "\" r=\"" + Px(radius) + "\"" + Stroke();
}

void SvgCanvas::Arc(float radius, float start, float end)
{
    constexpr double Turn = 2 * std::numbers::pi;
    const double r = std::abs(radius);
    const auto at = [&](double angle) {
        return Px(PenX() + r * std::cos(angle)) + " " + Px(PenY() - r * std::sin(angle));
    };
    const double sweep = std::fmod(end - start + 2 * Turn, Turn);
    Figures += "<path d=\"M " + at(start) + " A " + Px(r) + " " + Px(r) + " 0 " +
               (sweep > std::numbers::pi ? "1" : "0") + " 0 " + at(end) + "\"" + Stroke();
}
