// cycles.h: the remarks that the pass writes into comments, and the checks of cycles and tools.
//
// A comment that begins with "@" and two blanks was generated and is written anew by every pass; a comment of
// the user is never replaced. A division of cut that fails empties any comment that begins with "@".

#pragma once

#include "interpreter/pass.h"

/// The remark of a thread with the highest spindle speed for its pitch (in program units), "@  Threading (max
/// RPM = 500)". The pitch must be one that PitchHolds.
void WriteThreadRemark(ProgramLine& row, int pitch);

/// Works out how often a cycle repeats its cut and puts that in front of the code's description. Ends
/// the walk when a cut is deeper than the whole length.
[[nodiscard]] Walk CountCycleRepeats(Pass& pass, ProgramLine& row);

/// Takes over the tool of an M06, and checks codes of the mill that need one.
[[nodiscard]] Walk CheckTool(Pass& pass, ProgramLine& row);
