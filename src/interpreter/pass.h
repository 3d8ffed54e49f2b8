// pass.h: the state of one pass, shared by the files of this folder.
//
// A pass has two sweeps. The first goes over all lines in the order of the list and knows one line at
// a time; the second, the walk, follows the program's flow and carries the machine's state. The arc,
// cycle, tool and time routines act on this state and on the row of the line.

#pragma once

#include "core/codes.h"
#include "core/messages.h"
#include "core/program_list.h"

#include <array>
#include <cstdint>

/// Whether a line's fault ends the walk.
enum class Walk { GoOn, End };

/// The words of a line as whole numbers: X, Y, Z in 1/100 mm or 1/1000 inch, F and H as the code means
/// them (feed, pitch, tool, line, pulses).
struct LineWords {
    int16_t X = 0, Y = 0, Z = 0, F = 0, H = 0;
};

/// A point or a move, in program units; X is always a radial distance.
struct Position {
    float X = 0, Y = 0, Z = 0;
};

/// The last arc, in the two coordinates of its plane and in program units, truncated toward zero.
struct ArcState {
    float StartA = 0, StartB = 0, EndA = 0, EndB = 0, CenterA = 0, CenterB = 0;
    /// What the row behind the arc is, and the distances I, J, K of an M99.
    bool M99Follows = false, M99RFollows = false;
    LineWords CenterWords;
    /// Set by the checks of M99: more than a quadrant, ends at different distances from the centre.
    bool OverQuadrant = false, Invalid = false;
};

/// Calls that may be open at a time.
constexpr int MaxSubDepth = 5;

struct Pass {
    /// Number of program lines; a pass adds none.
    int Lines = 0;
    /// The list index of the line (from 1); a jump sets it ahead while its own line is finished.
    int LineIndex = 0;
    Code LineCode = NoCode;
    LineWords Words;
    /// Program units: the plain values of the X, Y and Z cells, X multiplied by XScale.
    Position Values;
    Position Delta;
    Position Tool, PrevTool;
    /// 0.5 while X is a diameter, else 1.
    float XScale = 1;

    int SubDepth = 0;
    std::array<int, MaxSubDepth + 1> SubStack{};

    ArcState Arc;
    bool ToolChanged = false;
    /// The D value of the last M06, in program units.
    float ToolRadius = 0;
    /// Cuts of the line's cycle, 0 for other lines.
    float CycleRepeats = 0;

    /// Seconds.
    float LineTime = 0, TotalTime = 0;
    /// Program units: the last arc's length, and the moves of the line in its plane.
    float ArcLength = 0;
    float MoveA = 0, MoveB = 0;
    /// The axes' ranges in program units; they include the zero point.
    Position Min, Max;
    /// Lines walked, as the label shows it (it stops at 32767), and in full.
    int16_t LinesExecuted = 0;
    int LinesWalked = 0;

    /// Row that is selected again at the end.
    int SelectedIndex = 0;
};

/// The procedure name under which the pass logs its faults.
constexpr std::string_view PassName = "Interpreter";

/// Reports a message at the line of LineIndex.
void Report(const Pass& pass, ProgramLine& row, const std::string& text);
/// The same for a message that ends the walk.
[[nodiscard]] Walk ReportAndEnd(const Pass& pass, ProgramLine& row, const Message& message);

/// Moves the tool to the line's values, or by them in incremental mode.
void MoveTool(Pass& pass);
