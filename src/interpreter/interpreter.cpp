// interpreter.cpp: the two sweeps (CheckLine; WalkOn with WalkLine) and the codes that act on flow and modes.
// What arcs, cycles, tools and times need stands in the files beside it.

#include "interpreter/interpreter.h"

#include "core/failure.h"
#include "core/main_window.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "core/text.h"
#include "interpreter/arcs.h"
#include "interpreter/control_words.h"
#include "interpreter/cycles.h"
#include "interpreter/limits.h"
#include "interpreter/machine_time.h"
#include "interpreter/pass.h"
#include "ui/columns.h"
#include "ui/panes.h"

#include <limits>
#include <optional>

namespace {

/// Nested calls reach numbers of lines that nobody would wait for.
constexpr int MaxLinesWalked = 1000000;
constexpr const char* NoTime = "xx:xx:xx";

/// Codes that end where they began, so that the tool goes back.
bool IsReturningCycle(Code code)
{
    static constexpr std::string_view Cycles = "G72 G73 G78 G81 G82 G83 G84 G85 G86 G88 G89";
    static const auto returning = [] {
        std::array<bool, CodeCount> table{};
        ForEachCode(Cycles, [&](Code cycle) { table[cycle] = true; });
        return table;
    }();
    return returning[code];
}

/// Reads a cell as a whole number, and as a plain one where wanted. A number that doesn't fit leaves what
/// was there, the line before's.
void ReadCell(const std::string& cell, int16_t& word, float* plain = nullptr, float scale = 1)
{
    char letter = '\0';
    if (ShortWord(cell, letter, word)) {
        if (plain != nullptr) *plain = letter == '\0' ? static_cast<float>(word) * scale : 0;
        return;
    }
    Word read{};
    if (!Attempt(PassName, [&] { read = WordVal(cell); })) return;
    if (plain != nullptr) *plain = read.Letter == '\0' ? read.Value * scale : 0;
    Attempt(PassName, [&] { word = ToInt16(read.Value); });
}

void ReadWords(const ProgramLine& row, Pass& pass, bool withValues)
{
    pass.LineCode = CodeOfCell(row[CellCode]);
    const auto plain = [&](float& value) { return withValues ? &value : nullptr; };
    ReadCell(row[CellX], pass.Words.X, plain(pass.Values.X), pass.XScale);
    ReadCell(row[CellY], pass.Words.Y, plain(pass.Values.Y));
    ReadCell(row[CellZ], pass.Words.Z, plain(pass.Values.Z));
    ReadCell(row[CellF], pass.Words.F);
    ReadCell(row[CellH], pass.Words.H);
}

void BlankResults(ProgramLine& row)
{
    Overwrite(row[CellError], "               ");
    for (const size_t cell : {CellToolX, CellToolY, CellToolZ}) Overwrite(row[cell], "     ?");
    for (const size_t cell : {CellCenterX, CellCenterY, CellCenterZ, CellRadius}) {
        Overwrite(row[cell], "      ");
    }
    Overwrite(row[CellAngle], "   ");
    Overwrite(row[CellTime], "        ");
}

/// The first sweep over one line: everything that the line alone tells.
void CheckLine(Pass& pass, ProgramLine& row)
{
    BlankResults(row);
    ReadWords(row, pass, false);
    if (IsUnknownControlCommand(row[CellComment])) Report(pass, row, TextOf(Messages::UnknownControlCommand));
    if (pass.LineCode == G(22) || pass.LineCode == M(30)) Shared.EndCodeSeen = true;

    const bool thread = pass.LineCode == G(33) || pass.LineCode == G(78);
    if (thread && Shared.Machine != MachineKind::F1 && PitchHolds(pass.Words.F)) {
        WriteThreadRemark(row, pass.Words.F);
    }
    const std::string message = LimitMessage(pass.LineCode, pass.Words);
    if (!message.empty()) Report(pass, row, message);
}

/// Stores a sum; one that is too large for a 32-bit float leaves what was there.
void Store(float& to, float a, float b)
{
    Attempt(PassName, [&] { to = ToSingle(static_cast<double>(a) + static_cast<double>(b)); });
}

void FindDelta(Pass& pass)
{
    if (Shared.AbsoluteMode) {
        Store(pass.Delta.X, pass.Values.X, -pass.Tool.X);
        Store(pass.Delta.Y, pass.Values.Y, -pass.Tool.Y);
        Store(pass.Delta.Z, pass.Values.Z, -pass.Tool.Z);
    } else {
        pass.Delta = {static_cast<float>(pass.Words.X), static_cast<float>(pass.Words.Y),
                      static_cast<float>(pass.Words.Z)};
    }
}

void FindPlane(const Pass& pass)
{
    if (Shared.Machine != MachineKind::F1) {
        Shared.ArcPlane = "XZ";
        return;
    }
    if (pass.LineCode > G(3) && pass.LineCode != G(72)) return;
    if (pass.Delta.Z == 0) {
        Shared.ArcPlane = "XY";
    } else if (pass.Delta.Y == 0) {
        Shared.ArcPlane = "XZ";
    } else if (pass.Delta.X == 0) {
        Shared.ArcPlane = "YZ";
    }
}

/// G92: the values become the tool's position. They still carry the scale of the line before.
void SetRegister(Pass& pass)
{
    Shared.AbsoluteMode = true;
    pass.XScale = 0.5F; // 1 again behind this line in radius mode, which the mill never leaves
    pass.Tool = pass.Values;
    if (!Shared.RadiusMode) pass.Tool.X /= 2;
}

/// G25: the walk goes on at the target and comes back behind the call.
Walk CallSub(Pass& pass, ProgramLine& row)
{
    const int target = pass.Words.F;
    if (target < 0) return ReportAndEnd(pass, row, Messages::NoSuchLine);
    if (target <= pass.LineIndex) return ReportAndEnd(pass, row, Messages::InvalidSub);
    if (pass.SubDepth == MaxSubDepth) return ReportAndEnd(pass, row, Messages::TooManySubs);
    if (target > pass.Lines - 1) return ReportAndEnd(pass, row, Messages::NoSuchLine);
    pass.SubStack[static_cast<size_t>(++pass.SubDepth)] = pass.LineIndex + 1;
    pass.LineIndex = target;
    return Walk::GoOn;
}

Walk ReturnFromSub(Pass& pass, ProgramLine& row)
{
    if (pass.SubDepth == 0) return ReportAndEnd(pass, row, Messages::ReturnWithoutSub);
    pass.LineIndex = pass.SubStack[static_cast<size_t>(pass.SubDepth--)] - 1;
    return Walk::GoOn;
}

/// The jump leads back to a line that was walked: all lines of the loop are marked.
Walk EndInLoop(Pass& pass, ProgramLine& row, int target)
{
    const std::string message = TextOf(Messages::EndlessLoop);
    for (int index = target + 1; index <= pass.LineIndex; ++index) {
        ProgramLine& looped = lvCncProgram.Row(index);
        for (const size_t cell : {CellToolX, CellToolY, CellToolZ}) looped[cell] = " xxxxx";
        looped[CellAngle] = " xx";
        looped[CellError] = message;
    }
    frmMain.lblPPMachineTime.Text = NoTime;
    Report(pass, row, message);
    return Walk::End;
}

/// G27: a line that was walked shows its tool's position, so its cell doesn't end in "?".
Walk Jump(Pass& pass, ProgramLine& row)
{
    const int target = pass.Words.F;
    if (target < 0 || target > pass.Lines - 1) return ReportAndEnd(pass, row, Messages::NoSuchLine);
    if (!lvCncProgram.Row(target + 1)[CellToolX].ends_with('?')) return EndInLoop(pass, row, target);
    pass.LineIndex = target;
    return Walk::GoOn;
}

/// G22 and M30: the walk ends behind this line.
void EndProgram(Pass& pass)
{
    if (Shared.RunMode) {
        frmMain.cmdStep.Enabled = false;
        pass.SelectedIndex = pass.LineIndex;
    }
    pass.LineIndex = pass.Lines;
}

/// What the code of the line does.
Walk Act(Pass& pass, ProgramLine& row)
{
    if (pass.LineCode == G(0) || IsReturningCycle(pass.LineCode)) MoveTool(pass);
    switch (pass.LineCode) {
    case G(1):
        MoveTool(pass);
        WriteLineAngle(pass, row);
        break;
    case G(2):
    case G(3): return WalkArc(pass, row);
    case G(24):
        if (Shared.AbsoluteMode) return ReportAndEnd(pass, row, Messages::G24First);
        Shared.RadiusMode = true;
        break;
    case G(25): return CallSub(pass, row);
    case G(27): return Jump(pass, row);
    case G(33):
        Store(pass.Tool.X, pass.Tool.X, pass.Values.X);
        Store(pass.Tool.Z, Shared.AbsoluteMode ? 0 : pass.Tool.Z, pass.Values.Z);
        break;
    case G(90):
        Shared.AbsoluteMode = true;
        pass.XScale = 0.5F;
        break;
    case G(91):
        Shared.AbsoluteMode = false;
        pass.XScale = 1;
        break;
    case G(92): SetRegister(pass); break;
    case M(17): return ReturnFromSub(pass, row);
    case G(22):
    case M(30): EndProgram(pass); break;
    case M(99):
    case M99R: return WalkArcCenter(pass, row);
    default: break;
    }
    return Walk::GoOn;
}

/// Reads the line, finds its move and plane, and lets its code act.
Walk WalkMove(Pass& pass, ProgramLine& row)
{
    pass.PrevTool = pass.Tool;
    FindDelta(pass);
    // A third axis would need an interpolation that these controls don't have.
    const bool moves3d = pass.Delta.X != 0 && pass.Delta.Y != 0 && pass.Delta.Z != 0;
    if (pass.LineCode <= G(3) && moves3d) Report(pass, row, TextOf(Messages::No3d));
    FindPlane(pass);
    if (Act(pass, row) == Walk::End) return Walk::End;
    if (pass.Arc.OverQuadrant) return ReportAndEnd(pass, row, Messages::OneQuadrantMax);
    if (pass.Arc.Invalid) return ReportAndEnd(pass, row, Messages::InvalidArc);
    return Walk::GoOn;
}

void WriteToolPosition(const Pass& pass, ProgramLine& row)
{
    PutNumber(row[CellToolX], pass.Tool.X, 6);
    PutNumber(row[CellToolY], pass.Tool.Y, 6);
    PutNumber(row[CellToolZ], pass.Tool.Z, 6);
}

void ReturnToStart(Pass& pass)
{
    if (Shared.AbsoluteMode) {
        pass.Tool = pass.PrevTool;
        return;
    }
    Store(pass.Tool.X, pass.Tool.X, -pass.Values.X);
    Store(pass.Tool.Y, pass.Tool.Y, -pass.Values.Y);
    Store(pass.Tool.Z, pass.Tool.Z, -pass.Values.Z);
}

/// A walk that has gone on for too long ends at the line just walked.
Walk EndOfPatience(Pass& pass, ProgramLine& row, int index)
{
    frmMain.lblPPMachineTime.Text = NoTime;
    pass.LineIndex = index;
    return ReportAndEnd(pass, row, Messages::EndlessLoop);
}

/// Beyond its range the count is a failure at every line: a million of them, so it is noted, not thrown.
void CountLine(Pass& pass)
{
    ++pass.LinesWalked;
    if (pass.LinesExecuted == std::numeric_limits<int16_t>::max()) {
        NoteFailure(Failures::Overflow, PassName);
    } else {
        ++pass.LinesExecuted;
    }
}

/// Walks the line of LineIndex. From Act on LineIndex may point elsewhere already.
Walk WalkLine(Pass& pass)
{
    const int index = pass.LineIndex;
    ProgramLine& row = lvCncProgram.Row(index);
    Log.Line = index;
    ReadWords(row, pass, true);
    const bool skipped = IsSkipped(row[CellComment]);
    if (!skipped && WalkMove(pass, row) == Walk::End) return Walk::End;

    // The line has acted. The axes see the far end of a cycle before the tool goes back.
    if (Shared.RadiusMode) pass.XScale = 1;
    row.Color = Shared.AbsoluteMode ? LineColor::Absolute : LineColor::Incremental;
    UpdateAxes(pass);
    if (!skipped && IsReturningCycle(pass.LineCode)) ReturnToStart(pass);
    WriteToolPosition(pass, row);

    // What rests on cycles, arcs and tools.
    if (Shared.Machine != MachineKind::MK2 && CountCycleRepeats(pass, row) == Walk::End) return Walk::End;
    if (pass.LineCode == G(2) || pass.LineCode == G(3)) Shared.ArcsPresent = true;
    if (pass.LineCode == M(6)) pass.ToolChanged = true;
    CountLine(pass);
    if (CheckTool(pass, row) == Walk::End) return Walk::End;

    AddLineTime(pass, row);
    frmMain.lblPPLinesExe.Text = std::to_string(pass.LinesExecuted);
    if (pass.LineIndex == pass.Lines && pass.Lines > MaxLines()) {
        Report(pass, lvCncProgram.Row(pass.Lines), TextOf(Messages::MaxLinesReached));
    }
    if (pass.LinesWalked >= MaxLinesWalked && pass.LineIndex < pass.Lines) {
        return EndOfPatience(pass, row, index);
    }
    return Walk::GoOn;
}

/// The state that the pass leaves to others begins anew.
void BeginPass()
{
    Shared.AbsoluteMode = Shared.EndCodeSeen = Shared.ErrorsPresent = Shared.ArcsPresent = false;
    Shared.RadiusMode = Shared.Machine == MachineKind::F1;
    frmMain.lblPPLinesExe.Text = "xxx";
}

void ShowEmptyProgram()
{
    HideErrorColumn();
    Shared.Changed = false;
    ClearAxesProperties();
    MakeLinePropertiesColumns();
    frmMain.lblPPMachineTime.Text = NoTime;
    frmMain.lblPPLines.Text = "0";
}

/// The walk has come to the end of the program.
void FinishPass(const Pass& pass)
{
    SelectRow(pass.SelectedIndex);
    if (Shared.RunMode) {
        Shared.RunMode = false;
        frmMain.cmdStep.Enabled = false;
        frmMain.cmdStop.Enabled = true;
    }
    if (Shared.LastErrorIndex == 0) HideErrorColumn();
    frmMain.lblPPMachineTime.Text = MakeTimeString(pass.TotalTime);
    ShowLineCount();
    MakeLinePropertiesColumns();
    AutoWidth();
}

/// The pass that waits in front of a line for a step.
std::optional<Pass> WaitingPass;

/// Walks on to the end, or in Run mode to the next line that has to wait.
void WalkOn(Pass& pass)
{
    ++lvCncProgram.Version;
    Walk walk = Walk::GoOn;
    while (walk == Walk::GoOn && pass.LineIndex < pass.Lines) {
        if (Shared.RunMode) {
            SelectRow(pass.LineIndex + 1);
            if (!Shared.StepRequested) {
                EndLoggedPass(); // what fails while it waits is no fault of its line
                WaitingPass = pass;
                return;
            }
            Shared.StepRequested = false;
        }
        ++pass.LineIndex;
        walk = WalkLine(pass);
    }
    EndLoggedPass();
    if (walk == Walk::GoOn) FinishPass(pass);
}

} // namespace

void Report(const Pass& pass, ProgramLine& row, const std::string& text)
{
    row[CellError] = text;
    Shared.LastErrorIndex = pass.LineIndex;
    ShowErrorColumn(pass.LineIndex - 1);
}

Walk ReportAndEnd(const Pass& pass, ProgramLine& row, const Message& message)
{
    Report(pass, row, TextOf(message));
    return Walk::End;
}

void MoveTool(Pass& pass)
{
    if (Shared.AbsoluteMode) {
        pass.Tool = pass.Values;
        return;
    }
    Store(pass.Tool.X, pass.Tool.X, pass.Values.X);
    Store(pass.Tool.Y, pass.Tool.Y, pass.Values.Y);
    Store(pass.Tool.Z, pass.Tool.Z, pass.Values.Z);
}

void Interpreter()
{
    WaitingPass.reset();
    ++lvCncProgram.Version;
    BeginPass();
    Pass pass;
    pass.Lines = LineCount();
    if (pass.Lines < 1) {
        ShowEmptyProgram();
        return;
    }
    pass.SelectedIndex = lvCncProgram.Selected;
    Shared.LastErrorIndex = 0;
    BeginLoggedPass();

    for (pass.LineIndex = 1; pass.LineIndex <= pass.Lines; ++pass.LineIndex) {
        Log.Line = pass.LineIndex;
        CheckLine(pass, lvCncProgram.Row(pass.LineIndex));
    }

    pass.LineIndex = 0;
    Shared.ArcPlane.clear();
    WalkOn(pass);
}

void ResumeInterpreter()
{
    if (!WaitingPass || !Shared.StepRequested) return;
    Pass pass = *WaitingPass;
    WaitingPass.reset();
    WalkOn(pass);
}

void ResetInterpreter()
{
    WaitingPass.reset();
}
