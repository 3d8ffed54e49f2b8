// walk_line.h: one line of the drawing's walk: its control word, its words, what its code draws.

#pragma once

#include "core/codes.h"
#include "drawing/pocket.h"

#include <array>
#include <cstdint>

/// The state of one walk. Lengths are twips.
struct WalkState {
    /// Cuts are drawn as the tool's centre line, not at its width.
    bool CenterLine = true;
    int Pass = 1;
    /// List index of the line, from 1. A jump stores the number of its target, one less than its index.
    int LineIndex = 1;
    /// Pause after each drawing line in milliseconds; none up to 1.
    int16_t Interval = 0;
    int SubLevel = 0;
    std::array<int, 6> ReturnLines{};
    ::Code Code = NoCode;

    /// The line's move on the vertical and the horizontal axis.
    float DeltaV = 0, DeltaH = 0;
    /// The tool after and before the line, from the zero point.
    double NewV = 0, NewH = 0, LastV = 0, LastH = 0;
    /// The F cell.
    float FValue = 0;
    /// The last M06 value, in program units.
    float ToolValue = 1;

    /// The line is the first of the two lines of a partial arc, or the next line is its M99.
    bool PendingArc = false;
    ::Code ArcCode = NoCode;
    float ArcI = 0, ArcK = 0, ArcRadius = 0;
    /// "cmdNORADIUS", "cmdRADIUS" stands on the line.
    bool NoRadiusLine = false, ForceRadiusLine = false;
};

/// What the walk itself has to do about a control word.
enum class DrawWord { None, Skip, Stop, Wait };
/// Obeys the control word in the line's comment, in any case; none is no fault.
DrawWord ObeyControlWord(WalkState& walk);

/// Reads the line's words; the second line of a partial arc keeps the move of the first. A value beyond a
/// 32-bit float is logged and leaves what was there.
void ReadLine(WalkState& walk);

struct LineEffect {
    /// The line has drawn something that a pause follows.
    bool Pauses = false;
    /// The line is a pocket, which is drawn by a routine that can pause itself.
    bool IsPocket = false;
};
/// Draws the line and follows its flow. A code that draws nothing leaves all as it was.
LineEffect DrawLineOf(WalkState& walk);

PocketWords PocketOf(const WalkState& walk);
/// At the tool's width the contour of its centre is drawn onto the pocket.
void FinishPocket(const WalkState& walk);
