// load_program.cpp: any bytes at all, opened as a program file.
//
// The bytes take the whole way of a file: open command, check, tool path, text of file and listing,
// conversion of units, and their own text opened again. The disk is replaced by memory, so nothing is
// written. Besides crashes, hangs and undefined behaviour, which the sanitizers see, the target asks what
// must hold for every file, and for programs in their machine's own form that writing and opening loses
// nothing.

#include "commands/drawing.h"
#include "commands/load.h"
#include "commands/session.h"
#include "core/code_page.h"
#include "core/codes.h"
#include "core/draw_window.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/numbers.h"
#include "core/program_list.h"
#include "core/text.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "editor/whole_program.h"
#include "files/print_job.h"
#include "files/reader.h"
#include "files/writer.h"
#include "interpreter/interpreter.h"
#include "platform/files.h"
#include "platform/scripted.h"
#include "ui/choice.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace {

void Require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

// ---- The disk: one file, which can be read ----

constexpr const char* Path = "/program.cnc";
constexpr int OpenFile = 1000;
std::string_view FileBytes;

int NoSuchFile()
{
    errno = ENOENT;
    return -1;
}

int Inform(struct stat* info)
{
    *info = {};
    info->st_mode = S_IFREG | 0644;
    info->st_size = static_cast<off_t>(FileBytes.size());
    return 0;
}

ssize_t ReadFromMemory(int, void* to, size_t count, off_t at)
{
    const std::string_view rest = FileBytes.substr(std::min(static_cast<size_t>(at), FileBytes.size()));
    return static_cast<ssize_t>(rest.copy(static_cast<char*>(to), count));
}

void UseMemoryAsDisk()
{
    Calls.Open = [](const char* path, int, mode_t) {
        return std::strcmp(path, Path) == 0 ? OpenFile : NoSuchFile();
    };
    Calls.Close = [](int) { return 0; };
    Calls.ReadAt = ReadFromMemory;
    Calls.Stat = [](const char* path, struct stat* info) {
        return std::strcmp(path, Path) == 0 ? Inform(info) : NoSuchFile();
    };
    Calls.FileStat = [](int, struct stat* info) { return Inform(info); };
    Calls.Write = [](int, const void*, size_t) -> ssize_t { std::abort(); };
    Calls.Rename = [](const char*, const char*) -> int { std::abort(); };
    Calls.Unlink = [](const char*) -> int { std::abort(); };
}

ScriptedPlatform World;

void Open(std::string_view bytes)
{
    FileBytes = bytes;
    World.Answers = {Answer::No}; // a converted program isn't saved first
    LoadFile(Path);
    AfterEvent();
}

/// What is in force before the load, told by the file's last byte. It stands behind the trailer.
void StartAs(unsigned choice)
{
    World = {};
    ThePlatform = &World;
    ResetState();
    constexpr MachineKind machines[] = {MachineKind::MK2, MachineKind::MK4, MachineKind::F1};
    StartNew(machines[choice % 3], (choice & 4) == 0, (choice & 8) != 0);
    SetCheck(frmMain.chkViewGcode, (choice & 16) != 0);
    for (Control* box :
         {&frmMain.chkViewToolPos, &frmMain.chkViewLineProperties, &frmMain.chkViewMachineTime}) {
        SetCheck(*box, (choice & 32) != 0);
    }
}

// ---- What holds for every file ----

/// The faults that a calculation can have. Anything else would be one of the program.
void RequireCalculationFaultsOnly()
{
    for (const LogRecord& record : Log.Records) {
        const int number = record.Number;
        Require(number == Failures::InvalidCall || number == Failures::Overflow ||
                    number == Failures::SubscriptOutOfRange || number == Failures::DivisionByZero,
                "the log holds faults of calculations only");
    }
}

/// Widths of the cells 1 to 7, by machine. Any other width moves the later fields of the line.
constexpr size_t Widths[][7] = {{4, 4, 5, 0, 6, 3, 0}, {3, 4, 5, 0, 6, 4, 3}, {3, 4, 6, 5, 6, 4, 0}};
/// Conversion gives an MK2 row the place for a letter in front of its feed.
constexpr size_t ConvertedMK2Feed = 4;

void RequireSoundRow(const ProgramLine& row)
{
    for (size_t cell = CellN; cell <= CellH; ++cell) {
        const size_t width = CharacterCount(row[cell]);
        const bool feed = cell == CellF && Shared.Machine == MachineKind::MK2;
        Require(width == Widths[static_cast<size_t>(Shared.Machine)][cell - CellN] ||
                    (feed && width == ConvertedMK2Feed),
                "the cells keep their widths");
    }
    for (size_t cell = CellToolX; cell <= CellToolZ; ++cell) {
        Require(row[cell].size() == 6, "a tool position has 6 characters");
    }
    for (const std::string& cell : row.Cells) {
        Require(FromCodePage(ToCodePage(cell)) == cell, "every cell can be written");
        char letter = '\0';
        int16_t value = 0;
        if (!ShortWord(cell, letter, value)) continue;
        const Word word = WordVal(cell);
        Require(word.Letter == letter && word.Value == static_cast<float>(value),
                "a short word is read as any other");
    }
}

/// Lines that the load has checked. An N within its number makes the last row a blank one until the real
/// blank row stands behind it.
int CheckedLines(size_t loadedRows)
{
    const bool lastIsBlank =
        loadedRows > 0 && lvCncProgram.Rows[loadedRows - 1][CellN].find('N') != std::string::npos;
    return static_cast<int>(loadedRows) - (lastIsBlank ? 1 : 0);
}

void RequireSoundProgram(size_t loadedRows)
{
    const auto& rows = lvCncProgram.Rows;
    Require(!rows.empty() && StartsNoCase(rows.back()[CellN], "N"), "the last row is the blank row");
    const bool loadedBlank = rows.size() == loadedRows;
    Require(loadedBlank || (rows.size() == loadedRows + 1 && rows.back()[CellN] == "NN"),
            "there is one blank row, and only where no loaded row is taken for it");
    Require(lvCncProgram.Selected == 1, "the first row is selected");

    const int lines = CheckedLines(loadedRows);
    bool faults = false;
    for (int i = 1; i <= lines; ++i) {
        const ProgramLine& row = lvCncProgram.Row(i);
        RequireSoundRow(row);
        faults = faults || !IsBlank(row[CellError]);
    }
    Require(faults == Shared.ErrorsPresent, "a program has errors when a line shows one");
    Require(faults == (Shared.LastErrorIndex > 0) || lines == 0, "the last error has a line");
    RequireCalculationFaultsOnly();
}

// ---- What holds for a program in its machine's own form ----

/// All that is written of a row.
std::string Joined(const ProgramLine& row)
{
    std::string text;
    for (size_t cell = CellN; cell <= CellH; ++cell) text += row[cell];
    return text + row[CellComment];
}

bool IsTrailer(std::string_view text)
{
    const std::string_view mark = Trimmed(text);
    return EqualsNoCase(mark, "M") || mark == "\"";
}

/// Whether the row keeps all that it is when it is written. Of rows that were typed, only arcs of MK2 and
/// comments longer than a file holds don't; a damaged file may bring any others.
bool IsInOwnForm(const ProgramLine& row)
{
    // Behind an empty line all the rest of a file is one line.
    const std::string text = Joined(row);
    if (text.find(LineEnd) != std::string::npos) return false;
    // Loading fills an empty comment where the box says so; a division of cut that fails empties it.
    if (frmMain.chkViewGcode.Value == 1 && IsBlank(row[CellComment])) return false;
    if (Shared.Machine == MachineKind::MK2) {
        // The pass works out the Z of an arc, and the next one checks it.
        const Code code = CodeOfCell(row[CellCode]);
        return code != G(2) && code != G(3);
    }
    // A code with fewer than two digits moves the fields behind it. An N marks the blank row.
    if (LastCharacters(row[CellCode], 2).starts_with(' ')) return false;
    if (FindNoCase(row[CellN], "N") != std::string::npos) return false;
    // A converted value that is too long loses its first digits. Reading drops the zeros in front then.
    for (const size_t cell : {CellX, CellY, CellZ, CellF}) {
        if (FromCharacter(row[cell], 1).starts_with('0')) return false;
    }
    // MK4 writes the comment one column further right than it is read, and knows its trailer by the
    // whole line.
    constexpr size_t MK4Comment = 49;
    return Shared.Machine == MachineKind::F1 ||
           (CharacterCount(row[CellComment]) <= MK4Comment && !IsTrailer(text));
}

/// The whole program is, and the text is known for what it is: nothing in the notes and the lines is
/// taken for a program's beginning.
bool IsInOwnForm(std::string_view text)
{
    // The mark of CAD/CAM programs, which load without comments, those of a former check too.
    if (text.find("%!*") != std::string_view::npos) return false;
    const ProgramFile again = ReadProgram(text);
    if (again.Machine != Shared.Machine || again.Notes != frmMain.txtFileNotes.Text) return false;
    for (int i = 1; i <= LineCount(); ++i) {
        if (!IsInOwnForm(lvCncProgram.Row(i))) return false;
    }
    return true;
}

void RequireSame(const std::string& text, const std::string& again)
{
    if (text == again) return;
    const auto at = std::mismatch(text.begin(), text.end(), again.begin(), again.end()).first;
    const size_t line = std::string_view(text.begin(), at).rfind('\n') + 1;
    std::cerr << "Written: " << text.substr(line, 90) << "\nAgain: " << again.substr(line, 90) << "\n";
    Require(false, "what was written loads to the same text");
}

void RequireStableTexts()
{
    const std::string text = ToCodePage(GenerateAll());
    Require(text.empty() == (LineCount() == 0), "a program with lines has a text");
    Require(ListingText().empty() == text.empty(), "a program with lines has a listing");
    if (text.empty()) return;
    const bool ownForm = IsInOwnForm(text);
    Open(text);
    RequireCalculationFaultsOnly();
    if (ownForm) RequireSame(text, ToCodePage(GenerateAll()));
}

void RequireSoundConversion()
{
    const size_t rows = lvCncProgram.Rows.size();
    const bool metric = Shared.Metric;
    (metric ? mnuMMtoINCH_click : mnuINCHtoMM_click)();
    Require(lvCncProgram.Rows.size() == rows, "a conversion keeps the rows");
    Require(Shared.Metric != metric || LineCount() == 0, "a conversion changes the units");
    Interpreter();
    for (int i = 1; i <= LineCount(); ++i) RequireSoundRow(lvCncProgram.Row(i));
    RequireCalculationFaultsOnly();
}

/// A walk that went on to the limit takes a thousand times as long as others; one of them is enough.
bool WalkWasLong()
{
    return frmMain.lblPPLinesExe.Text == "32767";
}

// ---- What holds for a drawing ----

/// A program with faults can be drawn too, but its jumps may take a walk to its limit, which takes too long
/// here.
bool DrawsInShortTime()
{
    if (!Shared.ErrorsPresent) return true;
    for (const ProgramLine& row : lvCncProgram.Rows) {
        if (CodeOfCell(row[CellCode]) == G(27)) return false;
    }
    return true;
}

/// The drawing with all that its boxes choose, told by a number.
void RequireSoundDrawing(unsigned choice)
{
    const auto box = [choice](unsigned bit) { return (choice & bit) != 0 ? 1 : 0; };
    Shared.DrawBoxes = {box(1), box(2), box(4), box(8), 0, box(16), box(32)};
    DrawSlot.WithoutWaits = true;
    UnloadDrawing();
    frmDraw_Load();
    frmDraw.Window.Visible = true;
    cmdAutoFit_Click();
    DrawSlot.WithoutWaits = false;
    Require(!DrawSlot.IsWaiting() && !Drawing.DrawingNow, "a walk without waits comes to its end");
    for (const Operation& operation : Picture.Operations()) {
        for (const float at : operation.At) Require(std::isfinite(at), "every figure has a place");
    }
    const CanvasSettings& settings = Picture.Settings();
    Require(settings.Style == PenStyle::Solid && settings.Mode == PenMode::Copy && settings.Width >= 1,
            "a walk leaves a pen that draws");
    RequireCalculationFaultsOnly();
    UnloadDrawing();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    UseMemoryAsDisk();
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    StartAs(size == 0 ? 0 : data[size - 1]);
    const ProgramFile file = ReadProgram(bytes);
    const FileKind kind = KindOfFile(bytes);
    Require(kind == FileKind::Program || file.Rows.empty(), "only programs have rows");

    Open(bytes);
    if (kind != FileKind::Program || file.TooLong) {
        Require(lvCncProgram.Rows.size() == 1 && frmMain.lblPath.Text.empty(),
                "a file that isn't loaded changes nothing");
        Require(World.Boxes.empty() == (kind == FileKind::Language), "a refusal is told");
        return 0;
    }
    Require(frmMain.lblPath.Text == Path && Shared.Machine == file.Machine && !Shared.Changed,
            "a program is loaded");
    RequireSoundProgram(file.Rows.size());
    if (WalkWasLong()) return 0;

    if (DrawsInShortTime()) RequireSoundDrawing(data[size / 2]);
    RequireStableTexts();
    RequireSoundConversion();
    RequireStableTexts();
    return 0;
}
