// recording.h: a canvas that keeps what it was asked to draw.
//
// The recording is the picture: the windows, the files and the paper are painted from it, at any
// resolution, and the console prints it.

#pragma once

#include "drawing/canvas.h"

#include <array>
#include <span>
#include <vector>

/// One thing that a canvas was asked to do.
struct Operation {
    enum class Kind : unsigned char {
        ClearCanvas,
        SetBackColor,
        SetForeColor,
        SetPenWidth,
        SetPenStyle,
        SetPenMode,
        SetFillStyle,
        SetFillColor,
        Pen,
        DrawLine,
        LineTo,
        DrawBox,
        SetPoint,
        DrawCircle,
        DrawArc
    };
    Kind Is;
    /// The value of a setting: a colour, pixels, or the enumerator of a style or mode.
    int Value = 0;
    /// The arguments of a figure in the order of the canvas's routine, in twips and radians.
    std::array<float, 5> At{};
};

class RecordingCanvas : public DrawCanvas
{
public:
    /// Grows each time the canvas is cleared.
    int Generation() const { return Clearings; }
    /// What was drawn since the canvas was cleared last, the clearing itself included, and the settings
    /// that were in force then.
    const std::vector<Operation>& Operations() const { return Recorded; }

protected:
    void SettingChanged() override;
    void PenMoved() override;
    void Clear() override;
    void Line(float x1, float y1, float x2, float y2) override;
    void LineFromPen(float fromX, float fromY) override;
    void Box(float fromX, float fromY) override;
    void Point() override;
    void Circle(float radius) override;
    void Arc(float radius, float start, float end) override;

private:
    /// Those that have changed, or all.
    void RecordSettings(bool all);

    std::vector<Operation> Recorded;
    /// The settings as the recording has them.
    CanvasSettings Known;
    int Clearings = 0;
};

/// Asks a canvas for what another one was asked.
void Replay(std::span<const Operation> operations, DrawCanvas& canvas);
