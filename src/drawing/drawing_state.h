// drawing_state.h: the state of the drawing window beside its controls, and where its walk waits.

#pragma once

#include "core/task.h"
#include "drawing/recording.h"

#include <cstdint>

/// What the window shows; a front end paints it from here.
extern RecordingCanvas Picture;

/// From this operation of the picture on a line (list index from 1, 0 for none) draws.
struct LineStart {
    size_t Operation;
    int Line;
};

struct DrawingState {
    /// Where everything is drawn; never null.
    DrawCanvas* Canvas = &Picture;
    /// The state of the window; normal when neither is set.
    bool Minimized = false, Maximized = false;
    /// What the frame around the canvas takes of the window's width and height, in twips.
    int FrameWidth = 0, FrameHeight = 0;

    /// Canvas position of the program's zero point.
    double ZeroPointX = 0, ZeroPointY = 0;
    /// The user has moved the picture, so that the zero point may lie left of the canvas.
    bool PictureMoved = false;
    /// The walk waits at each line for cmdStep. Keeps its last value when the walk has ended.
    bool Stepping = false;
    /// The walk ends behind the current line.
    bool AbortDraw = false;
    /// cmdStep or cmdAbort was pressed.
    bool StepReleased = false;
    /// cmdAbort was pressed: no second walk follows either.
    bool AbortAll = false;
    /// A "cmdWAIT" is held until a click in the canvas or [ENTER].
    bool WaitForUser = false;
    /// G90 or G92 is in force.
    bool DrawAbsolute = false;
    /// X values are radii (G24); always on the F1.
    bool DrawRadiusMode = false;
    /// Pen width in pixels for the tool width view, from 1.
    float ToolWidth = 1;
    /// A walk is running.
    bool DrawingNow = false;
    /// The N number of the line that the walk is at.
    int Line = -1;
    /// Which line has drawn what of the picture.
    std::vector<LineStart> LineStarts;
    /// The version of the program's rows when the walk began.
    unsigned RowsAtStart = 0;
    /// After so many milliseconds without a wait the walk lets events through; 0 where none could come.
    int YieldAfter = 0;
    /// The walk has let events through and wants to go on as soon as they are handled.
    bool Yielding = false;
    /// Corners of the last pocket: where it starts, and the opposite one.
    float PocketX1 = 0, PocketX2 = 0, PocketY1 = 0, PocketY2 = 0;

    /// The timer that paces pauses: whether it runs, its period in milliseconds, and its ticks.
    bool TimerRuns = false;
    int TimerPeriod = 0;
    int16_t TimerTicks = 0;
    /// False where nobody watches: pauses then take no time, while steps are still waited for.
    bool PausesTakeTime = true;

    /// The Program Lines window exists, shown or hidden.
    bool ProgramWindowLoaded = false;
    /// cboRun or cboScale is being filled or set by a routine; their handlers then draw nothing.
    bool ListsBusy = false;
    /// The next click in the canvas sets the zero point.
    bool PickingZeroPoint = false;
    /// Program units between grid lines: 10, 100 or 1000.
    int GridDivision = 100;
    /// Where in frControls its drag began.
    float DragOffsetX = 0, DragOffsetY = 0;

    /// The first, the second point of a measurement is set.
    bool MeasureStarted = false, MeasureDone = false;
    /// The picture's generation that has the marks of the points.
    int MarksOn[2] = {-1, -1};
    /// Program coordinates of the last point set: across and down, unrounded.
    float MeasureX = 0, MeasureY = 0;
    /// x and y of the first point, x and y of the second, in twips.
    float MeasurePoints[4] = {};

    /// Points of the picture are being picked: the pointer is a crosshair, and the picture stays where it is.
    bool IsPicking() const { return MeasureStarted || PickingZeroPoint; }
};
extern DrawingState Drawing;

/// Where the walk runs, and waits.
extern TaskSlot DrawSlot;

/// To be awaited in it: a pause, until the next tick of the timer or until Abort; none for 0.
TaskSlot::Wait Delay(int milliseconds);

/// The program is one of the mill, whose X lies along the canvas and whose Y points upward.
bool IsMill();

/// Size of the drawing window in twips, with and without its frame.
int CanvasWidth();
int CanvasHeight();
int InnerWidth();
int InnerHeight();
