#include "drawing/walk.h"

#include "core/draw_window.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/figures.h"
#include "drawing/measure.h"
#include "drawing/pocket.h"
#include "drawing/program_window.h"
#include "drawing/view.h"
#include "drawing/walk_line.h"
#include "platform/platform.h"
#include "ui/focus.h"

#include <chrono>

namespace {

constexpr const char* Procedure = "DrawProgram";

/// Ends of a walk that would go on for ever: a line that jumps to itself, and pictures beyond all use.
constexpr int MostLines = 1'000'000;
constexpr int MostFigures = 5'000'000;

/// The pause of a line in milliseconds by the run mode.
int16_t IntervalOf(int runChoice)
{
    constexpr int16_t Intervals[] = {0, 0, 50, 200, 500};
    return runChoice < 0 ? int16_t{0} : Intervals[runChoice];
}

void Prepare(WalkState& walk)
{
    DrawCanvas& canvas = *Drawing.Canvas;
    const bool first = walk.Pass == 1;
    if (first) {
        canvas.ClearCanvas();
        Drawing.LineStarts.clear();
    }
    Drawing.DrawingNow = true;
    Drawing.RowsAtStart = lvCncProgram.Version;
    Drawing.ToolWidth = 1;
    if (first) ArrangeControls();
    frmDraw.frControls.Text = FileNameOf(frmMain.lblPath.Text);
    canvas.SetBackColor(frmDraw.chkPrintableBackground.Value == 1 ? Colors::White : Colors::Black);

    // The zero point lies in the middle until one is chosen or fitted.
    const bool chosen = Drawing.ZeroPointX > 0 || Drawing.PictureMoved;
    const double startX = chosen ? Drawing.ZeroPointX : InnerWidth() / 2.0;
    const double startY = chosen ? Drawing.ZeroPointY : InnerHeight() / 2.0;
    if (frmDraw.chkGrid.Value == 1 && first) MakeGrid(startX, startY);
    Attempt(Procedure, [&] { canvas.SetPen(startX, startY); });

    Drawing.DrawAbsolute = Drawing.StepReleased = false;
    Drawing.DrawRadiusMode = IsMill();
    if (first) MakeZeroPoint();
    EnablePictureControls(false);
    frmDraw.cmdEditor.Enabled = true;
    frmDraw.cmdAbort.Visible = true;

    const int choice = frmDraw.cboRun.Index;
    Drawing.Stepping = choice == static_cast<int>(RunChoice::Step);
    walk.Interval = IntervalOf(choice);
    Drawing.TimerRuns = walk.Interval > 1;
    if (frmDraw.chkProgramWindow.Value == 1) {
        FillProgramWindow();
    } else {
        frmProgramWindow.Window.Visible = false;
    }
}

void EndWalk()
{
    Drawing.LineStarts.push_back({Picture.Operations().size(), 0});
    EnablePictureControls(true);
    frmDraw.cboRun.Enabled = true;
    frmDraw.cmdAbort.Visible = frmDraw.cmdStep.Visible = false;
    frmDraw.cmdEditor.Visible = true;
    Drawing.AbortDraw = Drawing.DrawingNow = Drawing.WaitForUser = false;
    if (Drawing.MeasureStarted) SetDrawControls(false); // a measurement goes on behind the walk
    EndLoggedPass();
}

/// The Program Lines window follows the walk; a line at fault is told at its end, and ends the walk.
void ShowInProgramWindow(int line)
{
    if (frmDraw.chkProgramWindow.Value != 1) return;
    Control& list = frmProgramWindow.lstCncLines;
    list.Index = line - 1;
    const std::string& error = lvCncProgram.Row(line)[CellError];
    if (!error.starts_with('!')) return;
    list.Items.push_back(Tr("\"%1\" in line %2", {error, std::to_string(line - 1)}));
    list.Index = static_cast<int>(list.Items.size()) - 1;
    cmdAbort_Click();
}

bool GoesOn(const WalkState& walk, int rows, int walked)
{
    return walk.LineIndex >= 1 && walk.LineIndex <= rows && walked < MostLines &&
           Drawing.Canvas->FigureCount() < MostFigures;
}

/// Whether the walk has held the program long enough to let events through.
class Patience
{
public:
    bool IsOver()
    {
        constexpr int LinesBetweenLooks = 64;
        if (Drawing.YieldAfter == 0 || ++Lines % LinesBetweenLooks != 0) return false;
        const auto now = std::chrono::steady_clock::now();
        if (now - Since < std::chrono::milliseconds(Drawing.YieldAfter)) return false;
        Since = now;
        return true;
    }

private:
    int Lines = 0;
    std::chrono::steady_clock::time_point Since = std::chrono::steady_clock::now();
};

/// One walk: pass 1 on a cleared canvas, pass 2 over the picture of the first. The tool's centre line is
/// drawn with a pen of width 1, else cuts are as wide as the tool.
Task DrawProgram(bool centerLine, int pass)
{
    if (!frmDraw.Window.Visible) co_return;
    WalkState walk;
    walk.CenterLine = centerLine;
    walk.Pass = pass;
    Prepare(walk);
    BeginLoggedPass();

    const int rows = lvCncProgram.RowCount();
    Patience patience;
    for (int walked = 0; GoesOn(walk, rows, walked); ++walked, ++walk.LineIndex) {
        Drawing.Line = walk.LineIndex - 1;
        ShowInProgramWindow(walk.LineIndex);

        // Control words act before the code of their line is looked at.
        const DrawWord word = ObeyControlWord(walk);
        if (word == DrawWord::Stop) break;
        if (word == DrawWord::Wait) {
            Drawing.WaitForUser = true;
            co_await DrawSlot.Until([] { return !Drawing.WaitForUser || Drawing.AbortDraw; });
            if (Drawing.AbortAll) break;
        }

        // From here on the line is read, and its cells aren't looked at again.
        if (word != DrawWord::Skip) {
            Log.Line = walk.LineIndex;
            Drawing.LineStarts.push_back({Picture.Operations().size(), walk.LineIndex});
            ReadLine(walk);
            const LineEffect effect = DrawLineOf(walk);
            if (effect.IsPocket) {
                co_await DrawPocket(PocketOf(walk));
                if (Drawing.AbortDraw) break;
                FinishPocket(walk);
            }
            Log.Line = 0;
            if (effect.Pauses && walk.Pass == 1 && walk.Interval > 1) co_await Delay(walk.Interval);
        }

        if (Drawing.Stepping && !DrawSlot.WithoutWaits) {
            frmDraw.cmdStep.Visible = frmDraw.cmdStep.Enabled = true;
            if (frmDraw.frControls.Visible) SetFocus(frmDraw.cmdStep);
            co_await DrawSlot.Until([] { return Drawing.StepReleased; });
            Drawing.StepReleased = false;
        }
        if (Drawing.AbortDraw) break;
        if (!DrawSlot.WithoutWaits && patience.IsOver()) {
            Drawing.Yielding = true;
            co_await DrawSlot.Until([] { return !Drawing.Yielding; });
            if (Drawing.AbortDraw) break;
        }
    }
    EndWalk();
}

Task DrawAll()
{
    const bool width = IsMill() && frmDraw.chkToolWidth.Value == 1;
    const bool center = !width || frmDraw.chkToolCenter.Value == 1;
    if (!width) {
        co_await DrawProgram(true, 1);
        co_return;
    }
    co_await DrawProgram(false, 1);
    if (center && !Drawing.AbortAll) co_await DrawProgram(true, 2);
}

} // namespace

void Redraw()
{
    EndDrawing();
    Drawing.AbortAll = false;
    DrawSlot.Start(DrawAll());
}

void ResumeDrawing()
{
    // Rows that have changed or gone can't be walked on.
    if (DrawSlot.IsWaiting() && lvCncProgram.Version != Drawing.RowsAtStart) EndDrawing();
    DrawSlot.Resume();
}

void ContinueDrawing()
{
    Drawing.Yielding = false;
    ResumeDrawing();
}

void EndDrawing()
{
    if (!DrawSlot.IsWaiting()) return;
    DrawSlot.End();
    Drawing.Yielding = false;
    EndWalk();
}

int WaitingLine()
{
    return DrawSlot.IsWaiting() ? Drawing.Line : -1;
}

void frmDraw_cmdStep_Click()
{
    Drawing.StepReleased = true;
    frmDraw.cmdStep.Enabled = false;
}

void cmdAbort_Click()
{
    if (!Drawing.DrawingNow) return;
    Drawing.Yielding = false;
    Drawing.StepReleased = Drawing.AbortDraw = Drawing.AbortAll = true;
}

void Timer1_Timer()
{
    constexpr int16_t MostTicks = 1000;
    if (++Drawing.TimerTicks > MostTicks) Drawing.TimerTicks = 1;
}
