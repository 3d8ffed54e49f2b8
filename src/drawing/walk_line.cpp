#include "drawing/walk_line.h"

#include "core/draw_window.h"
#include "core/failure.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "drawing/drawing_state.h"
#include "drawing/figures.h"
#include "drawing/view.h"
#include "platform/platform.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr const char* Procedure = "DrawProgram";

// Control words.

struct ControlWord {
    std::string_view Word;
    DrawWord (*Obey)(WalkState& walk);
};

/// The pauses of the words are longer than those of the run modes.
template <int16_t milliseconds> DrawWord SetInterval(WalkState& walk)
{
    walk.Interval = milliseconds;
    return DrawWord::None;
}

constexpr ControlWord ControlWords[] = {
    {"CMDINTERVAL1", SetInterval<100>},
    {"CMDINTERVAL2", SetInterval<500>},
    {"CMDINTERVAL3", SetInterval<1000>},
    {"CMDNORADIUS",
     [](WalkState& walk) {
         walk.NoRadiusLine = true;
         return DrawWord::None;
     }},
    {"CMDRADIUS",
     [](WalkState& walk) {
         walk.ForceRadiusLine = true;
         return DrawWord::None;
     }},
    {"CMDRUN",
     [](WalkState& walk) {
         Drawing.Stepping = false;
         return SetInterval<1>(walk);
     }},
    {"CMDSKIP", [](WalkState&) { return DrawWord::Skip; }},
    {"CMDSTEP",
     [](WalkState&) {
         Drawing.Stepping = true;
         return DrawWord::None;
     }},
    {"CMDSTOP", [](WalkState&) { return DrawWord::Stop; }},
    {"CMDWAIT", [](WalkState&) { return DrawWord::Wait; }},
};

// Reading a line.

/// The code of a cell as the walk knows codes: two digits, or "M" and two digits. The mill's vertical axis
/// points upward, so that what is clockwise there is counter-clockwise on a lathe.
Code DrawCode(std::string_view cell)
{
    std::string_view text = Trimmed(cell);
    const bool letterM = text.starts_with('M');
    if (letterM) text.remove_prefix(1);
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (text.size() != 2 || !isDigit(text[0]) || !isDigit(text[1])) return NoCode;
    const int number = (text[0] - '0') * 10 + (text[1] - '0');
    if (letterM) return M(number);
    if (IsMill() && (number == 2 || number == 3)) return G(5 - number);
    return G(number);
}

void ReadMove(WalkState& walk, const ProgramLine& row)
{
    const bool mill = IsMill();
    const double scale = Shared.DrawScale;
    const double v = (mill ? -Val(row[CellY]) : Val(row[CellX])) * scale;
    const double h = Val(row[mill ? CellX : CellZ]) * scale;
    Attempt(Procedure, [&] { walk.DeltaV = ToSingle(v); });
    // An absolute X is a diameter, and the tool cells are radii.
    if (Drawing.DrawAbsolute && !Drawing.DrawRadiusMode) walk.DeltaV /= 2;
    Attempt(Procedure, [&] { walk.DeltaH = ToSingle(h); });
    if (walk.Code == G(92)) {
        walk.NewV = walk.DeltaV;
        walk.NewH = walk.DeltaH;
    } else {
        walk.NewV = (mill ? -Val(row[CellToolY]) : Val(row[CellToolX])) * scale;
        walk.NewH = Val(row[mill ? CellToolX : CellToolZ]) * scale;
    }
    if (!Drawing.DrawAbsolute) return;
    Attempt(Procedure, [&] { walk.DeltaV = ToSingle(walk.DeltaV - walk.LastV); });
    Attempt(Procedure, [&] { walk.DeltaH = ToSingle(walk.DeltaH - walk.LastH); });
}

/// The distance to the centre that an M99 line gives along one axis, unsigned.
double CenterOffset(std::string_view cell)
{
    std::string text(cell);
    std::erase_if(text, [](char c) { return c == 'I' || c == 'J' || c == 'K'; });
    return std::abs(Val(text)) * Shared.DrawScale;
}

void ReadCenter(WalkState& walk, const ProgramLine& row)
{
    const bool mill = IsMill();
    Attempt(Procedure, [&] { walk.ArcI = ToSingle(CenterOffset(row[mill ? CellY : CellX])); });
    Attempt(Procedure, [&] { walk.ArcK = ToSingle(CenterOffset(row[mill ? CellX : CellZ])); });
    Attempt(Procedure, [&] { walk.ArcRadius = ToSingle(std::hypot(double{walk.ArcI}, double{walk.ArcK})); });
}

/// What the F cell stands for; a letter in front of the number is cut off.
double FCellValue(std::string_view cell)
{
    cell = Trimmed(cell);
    if (!cell.empty() && UpperCase(cell[0]) >= 'A' && UpperCase(cell[0]) <= 'Z') cell.remove_prefix(1);
    return Val(cell);
}

/// The target of a jump: a line number.
int TargetOf(const WalkState& walk)
{
    int target = walk.LineIndex;
    const std::string& cell = lvCncProgram.Row(walk.LineIndex)[CellF];
    Attempt(Procedure, [&] { target = ToInt16(Val(LastCharacters(cell, 3))); });
    return target;
}

// What the codes draw.

void TakeOverPosition(WalkState& walk)
{
    walk.LastV = walk.NewV;
    walk.LastH = walk.NewH;
}

void StraightMove(WalkState& walk)
{
    DrawCanvas& canvas = *Drawing.Canvas;
    const double x = canvas.PenX(), y = canvas.PenY();
    Attempt(Procedure, [&] { canvas.DrawLine(x, y, x + walk.DeltaH, y + walk.DeltaV); });
    TakeOverPosition(walk);
}

bool ShowsRadii(const WalkState& walk)
{
    const bool wanted = frmDraw.chkShowRadii.Value == 1 && !walk.NoRadiusLine;
    return walk.Pass == 1 && (wanted || walk.ForceRadiusLine);
}

void QuadrantArc(WalkState& walk)
{
    ArcWords arc{walk.Code == G(3), walk.DeltaV};
    arc.QuadV = walk.DeltaV;
    arc.QuadH = walk.DeltaH;
    MakeArc(arc, ShowsRadii(walk));
    TakeOverPosition(walk);
}

void PartialArc(WalkState& walk)
{
    walk.PendingArc = false;
    ArcWords arc{walk.ArcCode == G(3), walk.ArcRadius};
    arc.EndV = walk.DeltaV;
    arc.EndH = walk.DeltaH;
    arc.OffsetV = walk.ArcI;
    arc.OffsetH = walk.ArcK;
    MakeArc(arc, ShowsRadii(walk));
    TakeOverPosition(walk);
}

void Thread(WalkState& walk)
{
    DrawThread(walk.DeltaH, walk.FValue, true);
    walk.LastH += walk.DeltaH;
}

void ThreadCycle(WalkState& walk)
{
    DrawCycleBox(walk.DeltaV, walk.DeltaH);
    DrawThread(walk.DeltaH, walk.FValue, false);
}

void CycleBox(WalkState& walk)
{
    DrawCycleBox(walk.DeltaV, walk.DeltaH);
}

void Hole(WalkState& walk)
{
    DrawHole(walk.DeltaH);
}

void EndOfProgram(WalkState&)
{
    Drawing.AbortDraw = true;
}

void RadiusMode(WalkState&)
{
    Drawing.DrawRadiusMode = true;
}

void Call(WalkState& walk)
{
    constexpr int MostCalls = 5;
    walk.ReturnLines[static_cast<size_t>(walk.SubLevel)] = walk.LineIndex;
    walk.LineIndex = TargetOf(walk);
    if (++walk.SubLevel <= MostCalls) return;
    Drawing.AbortDraw = true;
    ShowMessage(Tr("Too many subprog-Calls"), Tr("max 5 subcalls"));
}

void Return(WalkState& walk)
{
    if (walk.SubLevel == 0) return;
    walk.LineIndex = walk.ReturnLines[static_cast<size_t>(--walk.SubLevel)];
}

void Jump(WalkState& walk)
{
    walk.LineIndex = TargetOf(walk);
}

void Absolute(WalkState& walk)
{
    Drawing.DrawAbsolute = true;
    TakeOverPosition(walk);
}

void Incremental(WalkState&)
{
    Drawing.DrawAbsolute = false;
}

/// A new zero point of the coordinates: the pen moves there without a line.
void SetPosition(WalkState& walk)
{
    const double divisor = Drawing.DrawRadiusMode ? 1 : 2;
    const double x = walk.DeltaH + Drawing.ZeroPointX, y = walk.DeltaV / divisor + Drawing.ZeroPointY;
    Attempt(Procedure, [&] { Drawing.Canvas->SetPen(x, y); });
    walk.LastV = walk.NewV / divisor;
    walk.LastH = walk.NewH;
    Drawing.DrawAbsolute = true;
}

/// The word of M06 is the tool's radius; the pen is as wide as its diameter.
void ToolData(WalkState& walk)
{
    constexpr double TwipsToRadius = TwipsPerPixel / 2.0;
    const std::string& cell = lvCncProgram.Row(walk.LineIndex)[CellX];
    Attempt(Procedure, [&] { walk.ToolValue = ToSingle(Val(LastCharacters(cell, 4))); });
    Attempt(Procedure,
            [&] { Drawing.ToolWidth = ToSingle(walk.ToolValue * (Shared.DrawScale / TwipsToRadius)); });
    Drawing.ToolWidth = std::max(Drawing.ToolWidth, 1.0F);
}

// The dispatch.

/// Pen width of a code: as it was last set, or that of a cut (1 on the centre line, else the tool's width).
enum class Width { Keep, One, Cut };

/// Colour of a code; that of a cut is white in the second walk.
struct Ink {
    enum class Of { None, Always, Cut, Thread, Arc } Is = Of::None;
    Color Value = Colors::Black;
};
constexpr Ink NoInk{};
constexpr Ink Always(Color color)
{
    return {Ink::Of::Always, color};
}
constexpr Ink Cut(Color color)
{
    return {Ink::Of::Cut, color};
}

struct Rule {
    std::string_view Codes;
    ::Width Width;
    ::Ink Ink;
    void (*Draw)(WalkState& walk);
    bool Pauses;
};

constexpr Rule Rules[] = {
    {"G00", Width::One, Always(Colors::Green), StraightMove, true},
    {"G01", Width::Cut, Cut(Colors::Blue), StraightMove, true},
    {"G02", Width::Cut, Cut(Colors::Magenta), QuadrantArc, true},
    {"G03", Width::Cut, Cut(Colors::Cyan), QuadrantArc, true},
    {"M99", Width::Cut, {Ink::Of::Arc}, PartialArc, true},
    {"G22 M30", Width::Keep, NoInk, EndOfProgram, false},
    {"G24", Width::Keep, NoInk, RadiusMode, false},
    {"G25", Width::Keep, NoInk, Call, false},
    {"M17", Width::Keep, NoInk, Return, false},
    {"G27", Width::Keep, NoInk, Jump, false},
    {"G33", Width::Keep, {Ink::Of::Thread}, Thread, true},
    {"G78", Width::Keep, {Ink::Of::Thread}, ThreadCycle, true},
    {"G73 G81 G82 G83 G85 G89", Width::Keep, Always(Colors::Blue), Hole, true},
    {"G84 G86 G88", Width::Keep, Always(Colors::Red), CycleBox, true},
    {"G90", Width::Keep, NoInk, Absolute, false},
    {"G91", Width::Keep, NoInk, Incremental, false},
    {"G92", Width::Keep, NoInk, SetPosition, false},
    {"M06", Width::Keep, NoInk, ToolData, false},
};

/// The rule of each code, null for one that draws nothing.
const std::array<const Rule*, CodeCount>& RulesByCode()
{
    static const auto table = [] {
        std::array<const Rule*, CodeCount> rules{};
        for (const Rule& rule : Rules) {
            ForEachCode(rule.Codes, [&](Code code) { rules[code] = &rule; });
        }
        return rules;
    }();
    return table;
}

int CutWidth(const WalkState& walk)
{
    int width = 1;
    if (!walk.CenterLine) Attempt(Procedure, [&] { width = ToInt32(Drawing.ToolWidth); });
    return width;
}

Color ColorOf(const Ink& ink, const WalkState& walk)
{
    const bool second = walk.Pass == 2;
    switch (ink.Is) {
    case Ink::Of::Cut: return second ? Colors::White : ink.Value;
    case Ink::Of::Arc:
        if (second) return Colors::White;
        return walk.ArcCode == G(3) ? Colors::Cyan : Colors::Magenta;
    case Ink::Of::Thread: return frmDraw.chkPrintableBackground.Value == 1 ? Colors::Blue : Colors::Yellow;
    default: return ink.Value;
    }
}

/// The first line of a partial arc: nothing is drawn until its M99.
bool BeginsPartialArc(WalkState& walk)
{
    if (walk.Code != G(2) && walk.Code != G(3)) return false;
    if (walk.LineIndex >= lvCncProgram.RowCount()) return false;
    if (DrawCode(lvCncProgram.Row(walk.LineIndex + 1)[CellCode]) != M(99)) return false;
    walk.PendingArc = true;
    walk.ArcCode = walk.Code;
    return true;
}

} // namespace

DrawWord ObeyControlWord(WalkState& walk)
{
    walk.NoRadiusLine = walk.ForceRadiusLine = false;
    const std::string_view comment = lvCncProgram.Row(walk.LineIndex)[CellComment];
    if (!StartsNoCase(comment, "CMD")) return DrawWord::None;
    const std::string_view word = comment.substr(0, comment.find(' '));
    DrawWord effect = DrawWord::None;
    for (const ControlWord& known : ControlWords) {
        if (EqualsNoCase(word, known.Word)) effect = known.Obey(walk);
    }
    Drawing.TimerRuns = walk.Interval > 1;
    return effect;
}

void ReadLine(WalkState& walk)
{
    const ProgramLine& row = lvCncProgram.Row(walk.LineIndex);
    walk.Code = DrawCode(row[CellCode]);
    walk.PendingArc ? ReadCenter(walk, row) : ReadMove(walk, row);
    Attempt(Procedure, [&] { walk.FValue = ToSingle(FCellValue(row[CellF]) * Shared.DrawScale); });
}

LineEffect DrawLineOf(WalkState& walk)
{
    DrawCanvas& canvas = *Drawing.Canvas;
    canvas.SetForeColor(ContrastColor());
    if (walk.Code == G(72)) return {false, true};
    const Rule* const rule = RulesByCode()[walk.Code];
    if (rule == nullptr) return {};
    if (rule->Width != Width::Keep) canvas.SetPenWidth(rule->Width == Width::Cut ? CutWidth(walk) : 1);
    if (BeginsPartialArc(walk)) return {};
    if (rule->Ink.Is != Ink::Of::None) canvas.SetForeColor(ColorOf(rule->Ink, walk));
    rule->Draw(walk);
    return {rule->Pauses, false};
}

PocketWords PocketOf(const WalkState& walk)
{
    const ProgramLine& row = lvCncProgram.Row(walk.LineIndex);
    PocketWords words{walk.DeltaV, walk.DeltaH, 0, 0, Colors::Red, 1, walk.ToolValue, walk.Interval};
    Attempt(Procedure, [&] { words.XWord = ToSingle(Val(row[CellX])); });
    Attempt(Procedure, [&] { words.YWord = ToSingle(Val(row[CellY])); });
    if (!walk.CenterLine) {
        words.Ink = Colors::Grey;
        words.Width = CutWidth(walk);
    }
    return words;
}

void FinishPocket(const WalkState& walk)
{
    if (walk.CenterLine) return;
    DrawCanvas& canvas = *Drawing.Canvas;
    const PocketContour contour = ContourOfPocket();
    canvas.SetForeColor(Colors::Red);
    Attempt(Procedure, [&] { canvas.SetPoint(contour.back().X, contour.back().Y); });
    for (const PocketCorner& at : contour) Attempt(Procedure, [&] { canvas.LineTo(at.X, at.Y); });
    Attempt(Procedure, [&] { canvas.SetPen(Drawing.PocketX1, Drawing.PocketY1); });
    canvas.SetPenWidth(1);
}
