// canvas.h: the surface that everything is drawn on, and all that a drawing asks of it.
//
// Positions are twips (1440 to the inch) from the upper left corner, x to the right, y downward, held as
// 32-bit floats. What was drawn stays until it is cleared.
// A canvas of a kind implements the figures; the settings and the pen stand here, for all kinds.

#pragma once

#include "core/numbers.h"

/// At the standard setting of a screen, 96 pixels to the inch.
constexpr double TwipsPerPixel = 15;

/// 24 bits in blue-green-red order.
using Color = int;

namespace Colors {
constexpr Color Black = 0x000000, White = 0xFFFFFF;
constexpr Color Red = 0x0000FF, Green = 0x00FF00, Blue = 0xFF0000;
constexpr Color Yellow = 0x00FFFF, Magenta = 0xFF00FF, Cyan = 0xFFFF00;
constexpr Color Grey = 0xC0C0C0, DarkGrey = 0x404040;
} // namespace Colors

enum class PenStyle { Solid, Dotted };
/// An inverting figure reverses each pixel that it touches; drawn twice it restores the picture.
enum class PenMode { Copy, Invert };
/// How closed figures are painted inside; the hatch runs downward.
enum class FillStyle { Transparent, Solid, Diagonal };

/// What is in force for the next figure.
struct CanvasSettings {
    Color Back = Colors::White;
    Color Fore = Colors::Black;
    /// In device pixels, from 1.
    int Width = 1;
    PenStyle Style = PenStyle::Solid;
    PenMode Mode = PenMode::Copy;
    FillStyle Fill = FillStyle::Transparent;
    Color FillColor = Colors::Black;

    bool operator==(const CanvasSettings&) const = default;
};

class DrawCanvas
{
public:
    virtual ~DrawCanvas() = default;

    const CanvasSettings& Settings() const { return InForce; }
    float PenX() const { return X; }
    float PenY() const { return Y; }
    /// Figures and pen moves since the canvas was cleared.
    int FigureCount() const { return Figures; }

    /// Erases everything to the background colour. The pen goes to (0, 0).
    void ClearCanvas()
    {
        Clear();
        X = Y = 0;
        Figures = 0;
    }

    /// Clears the canvas, with all settings as at first.
    void Reset()
    {
        InForce = {};
        ClearCanvas();
    }

    // Settings. Setting what is in force already leaves the picture untouched.
    void SetBackColor(Color color) { Set(&CanvasSettings::Back, color); }
    void SetForeColor(Color color) { Set(&CanvasSettings::Fore, color); }
    void SetPenWidth(int pixels) { Set(&CanvasSettings::Width, pixels < 1 ? 1 : pixels); }
    void SetPenStyle(PenStyle style) { Set(&CanvasSettings::Style, style); }
    void SetPenMode(PenMode mode) { Set(&CanvasSettings::Mode, mode); }
    void SetFillStyle(FillStyle style) { Set(&CanvasSettings::Fill, style); }
    void SetFillColor(Color color) { Set(&CanvasSettings::FillColor, color); }

    // Figures. Each throws RunTimeFailure Overflow, and draws nothing, when a position is beyond a 32-bit
    // float.

    /// Moves the pen without a line.
    void SetPen(double x, double y)
    {
        MoveTo(x, y);
        PenMoved();
    }
    /// The pen ends at (x2, y2).
    void DrawLine(double x1, double y1, double x2, double y2)
    {
        const float fromX = ToSingle(x1), fromY = ToSingle(y1);
        MoveTo(x2, y2);
        Line(fromX, fromY, X, Y);
    }
    /// A line from the pen, which ends at (x, y).
    void LineTo(double x, double y)
    {
        const float fromX = X, fromY = Y;
        MoveTo(x, y);
        LineFromPen(fromX, fromY);
    }
    /// A rectangle between the pen and (x, y), where the pen ends.
    void DrawBox(double x, double y)
    {
        const float fromX = X, fromY = Y;
        MoveTo(x, y);
        Box(fromX, fromY);
    }
    /// A dot of the pen's width. The pen ends there.
    void SetPoint(double x, double y)
    {
        MoveTo(x, y);
        Point();
    }
    /// A full circle. The pen ends at its centre.
    void DrawCircle(double x, double y, double radius)
    {
        const float r = ToSingle(radius);
        MoveTo(x, y);
        Circle(r);
    }
    /// The part of a circle that runs counter-clockwise on the screen from one angle to another, in radians
    /// from 0 to 2π; the point of angle a is (x + radius cos a, y - radius sin a). The pen ends at the
    /// centre.
    void DrawArc(double x, double y, double radius, double start, double end)
    {
        const float r = ToSingle(radius), from = ToSingle(start), to = ToSingle(end);
        MoveTo(x, y);
        Arc(r, from, to);
    }

protected:
    /// A setting has changed.
    virtual void SettingChanged() {}
    /// The pen was moved to where PenX and PenY now say.
    virtual void PenMoved() {}

    // The figures. PenX and PenY already are where the pen ends.
    virtual void Clear() = 0;
    virtual void Line(float x1, float y1, float x2, float y2) = 0;
    virtual void LineFromPen(float fromX, float fromY) { Line(fromX, fromY, X, Y); }
    virtual void Box(float fromX, float fromY) = 0;
    virtual void Point() = 0;
    virtual void Circle(float radius) = 0;
    virtual void Arc(float radius, float start, float end) = 0;

private:
    template <class Value> void Set(Value CanvasSettings::*setting, Value value)
    {
        if (InForce.*setting == value) return;
        InForce.*setting = value;
        SettingChanged();
    }
    void MoveTo(double x, double y)
    {
        const float newX = ToSingle(x), newY = ToSingle(y);
        X = newX;
        Y = newY;
        ++Figures;
    }

    CanvasSettings InForce;
    float X = 0, Y = 0;
    int Figures = 0;
};
