#include "cli/open_program.h"

#include "commands/load.h"
#include "commands/session.h"
#include "commands/settings.h"
#include "core/main_window.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "drawing/drawing_state.h"
#include "files/reader.h"
#include "platform/files.h"
#include "ui/choice.h"
#include "ui/profile_controls.h"

#include <algorithm>
#include <filesystem>

const std::vector<std::string> ViewNames{"gcode", "toolpos", "properties", "time"};

ScriptedPlatform Console;

namespace {

void CheckViews(const std::vector<std::string>& names)
{
    Control* const boxes[] = {&frmMain.chkViewGcode, &frmMain.chkViewToolPos, &frmMain.chkViewLineProperties,
                              &frmMain.chkViewMachineTime};
    for (size_t i = 0; i < ViewNames.size(); ++i) {
        if (std::find(names.begin(), names.end(), ViewNames[i]) != names.end()) SetCheck(*boxes[i], true);
    }
}

/// Loads a language module. Returns why the file is none.
std::optional<std::string> LoadLanguage(const std::string& file)
{
    const std::string path = AbsolutePath(file);
    std::string bytes;
    if (const auto failure = ReadWholeFile(path, bytes)) return file + ": " + failure->Reason;
    if (KindOfFile(bytes) != FileKind::Language) return file + ": this is not a language module";
    LoadLanguageModule(path);
    AfterEvent();
    return std::nullopt;
}

} // namespace

std::string AbsolutePath(const std::string& file)
{
    std::error_code failed;
    const std::filesystem::path path = std::filesystem::absolute(file, failed);
    const std::filesystem::path folder = std::filesystem::canonical(path.parent_path(), failed);
    return failed ? path.string() : (folder / path.filename()).string();
}

std::optional<std::string> BeginProgram(const LoadOptions& options, const std::string& dataFolder, int ports)
{
    Console = {};
    Console.DataFolder = dataFolder;
    // Paths in it are kept from run to run, whatever the current folder then is.
    if (!options.Settings.empty())
        Console.OtherFolder =
            std::filesystem::path(AbsolutePath(options.Settings + "/")).parent_path().string();
    Console.Port.Count = ports;
    ThePlatform = &Console;
    ThePort = &Console.Port;
    ThePrinter = &Console.Printer;
    Console.Printer.OnDialog = [](int copies) {
        Console.Dialogs.push_back(
            {"printer", "", "", copies > 0 ? std::optional(std::to_string(copies)) : std::nullopt});
    };
    ResetState();
    Drawing.PausesTakeTime = false;
    Drawing.YieldAfter = 0;
    MachineKind machine = MachineKind::MK4;
    const bool named = MachineOfName(options.Machine, machine);
    if (options.Settings.empty()) {
        StartNew(machine, options.Units != "inch", options.Orientation == "horizontal");
    } else {
        StartProgram(std::nullopt);
        if (named && machine != Shared.Machine) Choose(OptionOfMachine(machine));
        if (!options.Orientation.empty()) Shared.Horizontal = options.Orientation == "horizontal";
        if (!options.Units.empty() || !options.Orientation.empty())
            SetUnits(options.Units.empty() ? Shared.Metric : options.Units == "mm");
    }
    CheckViews(options.View);
    // The load that follows would save a changed program first: the file that was open last, which is the
    // user's.
    Shared.Changed = false;
    return options.Language.empty() ? std::nullopt : LoadLanguage(options.Language);
}

std::optional<std::string> LoadInto(const std::string& file)
{
    if (file.empty()) return "no file is named"; // the program's own command would ask for one
    const std::string path = AbsolutePath(file);
    const size_t boxesOfStart = Console.Boxes.size();
    LoadFile(path);
    AfterEvent();
    if (frmMain.lblPath.Text == path) return std::nullopt;

    // The program's own command says nothing of a missing file, and takes a language module as one.
    if (const std::string refusal = LastRefusal(boxesOfStart); !refusal.empty()) return file + ": " + refusal;
    std::string bytes;
    if (const auto failure = ReadWholeFile(file, bytes)) return file + ": " + failure->Reason;
    return file + ": this is a language module, not a program";
}

std::optional<std::string> OpenProgram(const LoadOptions& options, const std::string& file)
{
    if (const auto why = BeginProgram(options)) return why;
    return LoadInto(file);
}

std::optional<std::string> OpenLines(const LoadOptions& options, const std::string& file)
{
    if (const auto why = OpenProgram(options, file)) return why;
    if (LineCount() == 0) return file + ": the program has no lines";
    return std::nullopt;
}

std::string LastRefusal(size_t earlier)
{
    for (size_t i = Console.Boxes.size(); i > earlier; --i) {
        if (const MessageBox& box = Console.Boxes[i - 1].Box; box.Icon == Icon::Exclamation) return box.Text;
    }
    return "";
}
