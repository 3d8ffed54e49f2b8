// pass_bench.cpp: what a check of a whole program costs, and what loading and saving add.
//
// All times stand beside each other in one run, so that they can be compared on any machine:
//
//   Pass   the check of a program                    wanted: within 3 times its Floor
//   Floor  the cells 2 to 7 of each row read as numbers, the cells 8 to 17 assigned, nothing else
//
// items_per_second counts lines. At 20,000 lines a line should take no more than 1.3 times as long as at
// 209, in each of the routines. Saving waits for the disk, which takes the same for any length.

#include "sample_program.h"

#include "commands/load.h"
#include "commands/session.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "files/reader.h"
#include "files/writer.h"
#include "interpreter/interpreter.h"
#include "platform/files.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdlib.h>

namespace {

constexpr MachineKind Machines[] = {MachineKind::MK2, MachineKind::MK4, MachineKind::F1};
constexpr int Lengths[] = {FullProgram, 20000};

/// A folder for the program that is loaded and saved, gone when the process ends.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "brixley-bench-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            std::fprintf(stderr, "No temporary folder can be made\n");
            std::exit(1);
        }
        Path = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(Path, ignored);
    }
    std::string File() const { return Path + "/sample.cnc"; }

private:
    std::string Path;
};
const TemporaryFolder Folder;

void CountLines(benchmark::State& state, int lines)
{
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * lines);
}

void Pass(benchmark::State& state, MachineKind machine, int lines)
{
    LoadSample(machine, lines);
    for (auto _ : state) Interpreter();
    CountLines(state, lines);
}

/// The texts that a pass leaves in most rows.
constexpr const char* Assigned[] = {"               ", " 12.5 ", "   200", "  -100", "      ",
                                    "      ",          "      ", "      ", "   ",    "00:00:12"};

void Floor(benchmark::State& state, MachineKind machine, int lines)
{
    LoadSample(machine, lines);
    for (auto _ : state) {
        for (ProgramLine& row : lvCncProgram.Rows) {
            for (size_t cell = CellCode; cell <= CellH; ++cell) benchmark::DoNotOptimize(Val(row[cell]));
            for (size_t cell = CellError; cell <= CellTime; ++cell) row[cell] = Assigned[cell - CellError];
        }
        benchmark::ClobberMemory();
    }
    CountLines(state, lines);
}

void Read(benchmark::State& state, MachineKind machine, int lines)
{
    const std::string bytes = SampleFile(machine, lines);
    for (auto _ : state) benchmark::DoNotOptimize(ReadProgram(bytes).Rows.data());
    CountLines(state, lines);
}

/// The open command: the file from disk, its rows, the check.
void Load(benchmark::State& state, MachineKind machine, int lines)
{
    ResetState();
    ReplaceFile(Folder.File(), SampleFile(machine, lines));
    for (auto _ : state) LoadFile(Folder.File());
    if (LineCount() != lines) state.SkipWithError("the sample was not loaded");
    CountLines(state, lines);
}

void Write(benchmark::State& state, MachineKind machine, int lines)
{
    LoadSample(machine, lines);
    for (auto _ : state) benchmark::DoNotOptimize(ToCodePage(GenerateAll()).data());
    CountLines(state, lines);
}

void Save(benchmark::State& state, MachineKind machine, int lines)
{
    LoadSample(machine, lines);
    for (auto _ : state) {
        if (ReplaceFile(Folder.File(), ToCodePage(GenerateAll()))) state.SkipWithError("not saved");
    }
    CountLines(state, lines);
}

/// Load, check and save as one command after another.
void Round(benchmark::State& state, MachineKind machine, int lines)
{
    ResetState();
    ReplaceFile(Folder.File(), SampleFile(machine, lines));
    for (auto _ : state) {
        LoadFile(Folder.File());
        if (ReplaceFile(Folder.File(), ToCodePage(GenerateAll()))) state.SkipWithError("not saved");
    }
    if (LineCount() != lines) state.SkipWithError("the sample was not loaded");
    CountLines(state, lines);
}

struct Measured {
    const char* Name;
    void (*Run)(benchmark::State&, MachineKind, int);
};
constexpr Measured All[] = {
    {"Pass", Pass},   {"Floor", Floor}, {"Read", Read},   {"Load", Load},
    {"Write", Write}, {"Save", Save},   {"Round", Round},
};

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    for (const Measured& measured : All) {
        for (const MachineKind machine : Machines) {
            for (const int lines : Lengths) {
                const std::string name = std::string(measured.Name) + "/" +
                                         std::string(ProfileOf(machine).Name) + "/" + std::to_string(lines);
                benchmark::RegisterBenchmark(name.c_str(), measured.Run, machine, lines)
                    ->Unit(benchmark::kMicrosecond)
                    ->UseRealTime();
            }
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
