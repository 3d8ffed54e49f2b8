// run.h: stepping through the program in the editor.
//
// A run is the pass itself: it stops in front of each line until the Step button is pressed. The window is
// locked from Run to Stop.

#pragma once

void cmdRun_Click();
void cmdStep_Click();
/// Ends a run, at any point: a complete pass takes the place of the waiting one.
void cmdStop_Click();
