// walk.h: the tool path simulator.
//
// It walks the program in execution order and draws what each line would make the tool do. It is no second
// interpreter: it reads the cells as the last pass left them, tool positions included, and trusts them. It
// keeps a small machine state of its own and executes the drawing side of the control words. Nothing is
// written back into the program.

#pragma once

/// Draws the program from its first line on: on the lathes and with one tool view of the mill in one walk,
/// with both views the tool's width first and its centre line on top. The one way to draw. A walk that
/// waits is ended before. Does nothing while the window is hidden.
void Redraw();

/// Goes on with a walk that waits, when what it waits for has come.
void ResumeDrawing();

/// Goes on with a long walk that has let events through (Drawing.Yielding); a front end calls it when it has
/// no more of them.
void ContinueDrawing();

/// Ends a walk that waits, as Abort does.
void EndDrawing();

/// The line at which a walk waits, as its N number; -1 when none waits.
int WaitingLine();

void frmDraw_cmdStep_Click();
void cmdAbort_Click();
void Timer1_Timer();
