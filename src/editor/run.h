// run.h: stepping through the program in the editor.
//
// A run is the pass itself: it stops in front of each line until the Step button is pressed. The window is
// locked from Run to Stop.

#pragma once

/// Locks the window and begins a run. Nothing while Busy; a program without lines is refused with a message.
void cmdRun_Click();
/// Lets the waiting pass walk one line. Outside a run the request is kept for the next one.
void cmdStep_Click();
/// Ends a run, at any point: a complete pass takes the place of the waiting one. During a transmission asks
/// that to stop.
void cmdStop_Click();
