#include "drawing/drawing_state.h"

#include "core/draw_window.h"
#include "core/shared_state.h"

RecordingCanvas Picture;
DrawingState Drawing;
TaskSlot DrawSlot;

TaskSlot::Wait Delay(int milliseconds)
{
    const bool passes = milliseconds == 0 || !Drawing.PausesTakeTime;
    if (milliseconds != 0) Drawing.TimerPeriod = milliseconds;
    return DrawSlot.Until([passes, noted = Drawing.TimerTicks] {
        return passes || Drawing.AbortDraw || Drawing.TimerTicks != noted;
    });
}

bool IsMill()
{
    return Shared.Machine == MachineKind::F1;
}

int CanvasWidth()
{
    return frmDraw.Window.Width;
}

int CanvasHeight()
{
    return frmDraw.Window.Height;
}

int InnerWidth()
{
    return CanvasWidth() - Drawing.FrameWidth;
}

int InnerHeight()
{
    return CanvasHeight() - Drawing.FrameHeight;
}
