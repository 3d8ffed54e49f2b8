#include "drawing/recording.h"

using Op = Operation::Kind;

void RecordingCanvas::RecordSettings(bool all)
{
    const CanvasSettings& now = Settings();
    const auto note = [&](Op op, auto CanvasSettings::*setting) {
        if (!all && now.*setting == Known.*setting) return;
        Recorded.push_back({op, static_cast<int>(now.*setting)});
    };
    note(Op::SetBackColor, &CanvasSettings::Back);
    note(Op::SetForeColor, &CanvasSettings::Fore);
    note(Op::SetPenWidth, &CanvasSettings::Width);
    note(Op::SetPenStyle, &CanvasSettings::Style);
    note(Op::SetPenMode, &CanvasSettings::Mode);
    note(Op::SetFillStyle, &CanvasSettings::Fill);
    note(Op::SetFillColor, &CanvasSettings::FillColor);
    Known = now;
}

void RecordingCanvas::SettingChanged()
{
    RecordSettings(false);
}

void RecordingCanvas::PenMoved()
{
    Recorded.push_back({Op::Pen, 0, {PenX(), PenY()}});
}

void RecordingCanvas::Clear()
{
    Recorded.clear();
    ++Clearings;
    Recorded.push_back({Op::ClearCanvas});
    RecordSettings(true);
}

void RecordingCanvas::Line(float x1, float y1, float x2, float y2)
{
    Recorded.push_back({Op::DrawLine, 0, {x1, y1, x2, y2}});
}

void RecordingCanvas::LineFromPen(float, float)
{
    Recorded.push_back({Op::LineTo, 0, {PenX(), PenY()}});
}

void RecordingCanvas::Box(float, float)
{
    Recorded.push_back({Op::DrawBox, 0, {PenX(), PenY()}});
}

void RecordingCanvas::Point()
{
    Recorded.push_back({Op::SetPoint, 0, {PenX(), PenY()}});
}

void RecordingCanvas::Circle(float radius)
{
    Recorded.push_back({Op::DrawCircle, 0, {PenX(), PenY(), radius}});
}

void RecordingCanvas::Arc(float radius, float start, float end)
{
    Recorded.push_back({Op::DrawArc, 0, {PenX(), PenY(), radius, start, end}});
}

void Replay(std::span<const Operation> operations, DrawCanvas& canvas)
{
    for (const Operation& op : operations) {
        const auto& at = op.At;
        switch (op.Is) {
        case Op::ClearCanvas: canvas.ClearCanvas(); break;
        case Op::SetBackColor: canvas.SetBackColor(op.Value); break;
        case Op::SetForeColor: canvas.SetForeColor(op.Value); break;
        case Op::SetPenWidth: canvas.SetPenWidth(op.Value); break;
        case Op::SetPenStyle: canvas.SetPenStyle(static_cast<PenStyle>(op.Value)); break;
        case Op::SetPenMode: canvas.SetPenMode(static_cast<PenMode>(op.Value)); break;
        case Op::SetFillStyle: canvas.SetFillStyle(static_cast<FillStyle>(op.Value)); break;
        case Op::SetFillColor: canvas.SetFillColor(op.Value); break;
        case Op::Pen: canvas.SetPen(at[0], at[1]); break;
        case Op::DrawLine: canvas.DrawLine(at[0], at[1], at[2], at[3]); break;
        case Op::LineTo: canvas.LineTo(at[0], at[1]); break;
        case Op::DrawBox: canvas.DrawBox(at[0], at[1]); break;
        case Op::SetPoint: canvas.SetPoint(at[0], at[1]); break;
        case Op::DrawCircle: canvas.DrawCircle(at[0], at[1], at[2]); break;
        case Op::DrawArc: canvas.DrawArc(at[0], at[1], at[2], at[3], at[4]); break;
        }
    }
}
