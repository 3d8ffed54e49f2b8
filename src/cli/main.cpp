// main.cpp: the console program: options in, one outcome out.

#include "cli/commands.h"
#include "cli/print_command.h"
#include "cli/transfer_commands.h"
#include "core/app_data.h"
#include "platform/files.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <unistd.h>

namespace {

/// Everything that the options of all commands fill.
struct Arguments {
    LoadOptions Load;
    std::vector<std::string> Files, Columns;
    std::string File, Target, Units, Keys;
    std::optional<std::string> Script;
    bool Json = false;
    int Ports = 1;
    LineOptions Line;
    bool NoFilter = false;
    double Idle = 5;
    DrawOptions Draw;
    PrintOptions Print;
    std::string Canvas, Zero;
    double Scale = 0;
    bool Ops = false;
};

/// The start makes a folder that isn't there yet; anything else of that name is in its way.
std::string IsOrWillBeFolder(const std::string& path)
{
    if (path.empty()) return "a folder must be named";
    std::error_code ignored;
    const bool inTheWay = PathExists(path) && !std::filesystem::is_directory(path, ignored);
    return inTheWay ? "this is not a folder: " + path : "";
}

void AddLoadOptions(CLI::App& command, LoadOptions& options)
{
    command.add_option("--machine", options.Machine, "machine, unless the file says otherwise")
        ->check(CLI::IsMember({"MK2", "MK4", "F1"}))
        ->default_str("MK4");
    command.add_option("--units", options.Units, "units, unless the file says otherwise")
        ->check(CLI::IsMember({"mm", "inch"}))
        ->default_str("mm");
    command
        .add_option("--orientation", options.Orientation, "spindle of the F1, unless the file says otherwise")
        ->check(CLI::IsMember({"vertical", "horizontal"}))
        ->default_str("vertical");
    command
        .add_option("--settings", options.Settings,
                    "start with the settings of this folder (default: with none)")
        ->check(IsOrWillBeFolder)
        ->type_name("DIR");
    command.add_option("--language", options.Language, "language module to load first")->type_name("FILE");
    command
        .add_option("--view", options.View,
                    "boxes of the View frame to switch on: gcode,toolpos,properties,time")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::IsMember(ViewNames));
}

void AddFile(CLI::App& command, Arguments& arguments)
{
    command.add_option("FILE", arguments.File, "program file")->required();
    AddLoadOptions(command, arguments.Load);
}

void AddFiles(CLI::App& command, Arguments& arguments)
{
    command.add_option("FILE", arguments.Files, "program files")->required();
    AddLoadOptions(command, arguments.Load);
}

void AddFileAndTarget(CLI::App& command, Arguments& arguments)
{
    AddFile(command, arguments);
    command.add_option("-o", arguments.Target, "file to write")->required()->type_name("OUT");
}

void AddShowOptions(CLI::App& command, Arguments& arguments)
{
    AddFile(command, arguments);
    command.add_flag("--json", arguments.Json, "print the whole state as JSON");
}

void AddColumns(CLI::App& command, Arguments& arguments)
{
    command.add_option("--columns", arguments.Columns, "columns to print: gcode,toolpos,properties,time")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::IsMember(ViewNames));
}

void AddListingOptions(CLI::App& command, Arguments& arguments)
{
    AddFile(command, arguments);
    AddColumns(command, arguments);
}

void AddConvertOptions(CLI::App& command, Arguments& arguments)
{
    AddFileAndTarget(command, arguments);
    command.add_option("--to", arguments.Units, "units to convert to")
        ->required()
        ->check(CLI::IsMember({"mm", "inch"}));
}

/// A box of the drawing's View frame.
struct ViewOption {
    const char* Name;
    int DrawBoxValues::*Box;
    const char* Does;
};
constexpr ViewOption ViewOptions[] = {
    {"--radii", &DrawBoxValues::Radii, "draw the radii of arcs"},
    {"--tool-width", &DrawBoxValues::ToolWidth, "draw cuts at the tool's width (F1)"},
    {"--tool-center", &DrawBoxValues::ToolCenter,
     "draw the path of the tool's centre (F1; the default there)"},
    {"--fill", &DrawBoxValues::FillCycles, "fill the boxes of cycles (lathes)"},
    {"--grid", &DrawBoxValues::Grid, "draw a grid"},
    {"--white", &DrawBoxValues::Background, "draw on a white background"},
};

void AddPictureOptions(CLI::App& command, Arguments& arguments)
{
    command
        .add_option("--canvas", arguments.Canvas,
                    "size of the drawing in twips (1/1440 inch), 15 to a pixel of a PNG")
        ->type_name("WxH")
        ->default_str("12000x9000");
    command.add_option("--scale", arguments.Scale, "twips for 1/100 mm or 1/1000 inch (default: fitted)")
        ->check(CLI::Range(0.001, 1000.0));
    command.add_option("--zero", arguments.Zero, "zero point in twips (default: fitted)")->type_name("X,Y");
    for (const ViewOption& option : ViewOptions) {
        int& box = arguments.Draw.Boxes.*option.Box;
        command.add_flag_callback(
            option.Name, [&box] { box = 1; }, option.Does);
    }
    command.add_flag("--force", arguments.Draw.Force, "draw a program with messages too");
}

/// The options of a picture as they were given; a text that is none of its kind fails, and `options` is
/// then of no use.
Outcome TakeDrawOptions(const Arguments& arguments, DrawOptions& options)
{
    options = arguments.Draw;
    if (!arguments.Canvas.empty() && !ReadCanvasSize(arguments.Canvas, options))
        return Failed("--canvas: not a size such as 12000x9000: " + arguments.Canvas);
    if (!arguments.Zero.empty() && !ReadZeroPoint(arguments.Zero, options))
        return Failed("--zero: not a point such as 6000,4500: " + arguments.Zero);
    if (arguments.Scale > 0) options.Scale = arguments.Scale;
    return {};
}

Outcome DrawWith(const Arguments& arguments)
{
    DrawOptions options;
    if (const Outcome taken = TakeDrawOptions(arguments, options); taken.Status != StatusDone) return taken;
    if (!arguments.Ops && arguments.Target.empty()) return Failed("-o OUT or --ops is required");
    return DrawFile(arguments.Load, options, arguments.File, arguments.Ops ? "" : arguments.Target);
}

/// The columns of a listing take the names of the view.
LoadOptions WithColumns(const Arguments& arguments)
{
    LoadOptions options = arguments.Load;
    options.View.insert(options.View.end(), arguments.Columns.begin(), arguments.Columns.end());
    return options;
}

Outcome PrintWith(const Arguments& arguments)
{
    PrintOptions options = arguments.Print;
    if (const Outcome taken = TakeDrawOptions(arguments, options.Draw); taken.Status != StatusDone)
        return taken;
    return PrintFile(WithColumns(arguments), options, arguments.File, arguments.Target);
}

void AddDrawOptions(CLI::App& command, Arguments& arguments)
{
    AddFile(command, arguments);
    CLI::Option* const target =
        command.add_option("-o", arguments.Target, "picture to write: .svg, .png or .pdf")->type_name("OUT");
    command.add_flag("--ops", arguments.Ops, "print the drawing operations as JSON instead")
        ->excludes(target);
    AddPictureOptions(command, arguments);
}

void AddPrintOptions(CLI::App& command, Arguments& arguments)
{
    AddFileAndTarget(command, arguments);
    AddColumns(command, arguments);
    command
        .add_option("--font", arguments.Print.FontName, "font of the listing, and of the texts of a drawing")
        ->type_name("NAME")
        ->capture_default_str();
    command
        .add_option("--size", arguments.Print.FontSize,
                    "size of the font in points; long lines are made smaller to fit")
        ->check(CLI::Range(1.0, 200.0))
        ->capture_default_str();
    command.add_option("--copies", arguments.Print.Copies, "number of copies: OUT.pdf, OUT-2.pdf, ...")
        ->check(CLI::Range(1, 99))
        ->capture_default_str();
    command.add_flag("--drawing", arguments.Print.Drawing, "print the drawing instead of the listing");
    AddPictureOptions(command, arguments);
}

void AddLineOptions(CLI::App& command, Arguments& arguments)
{
    command.add_option("--port", arguments.Line.Device, "device of the serial port, such as /dev/ttyUSB0")
        ->required()
        ->type_name("DEVICE");
    command
        .add_option("--line", arguments.Line.Parameters,
                    "baud rate, parity (N, E or O), data bits, stop bits")
        ->capture_default_str();
}

void AddSendOptions(CLI::App& command, Arguments& arguments)
{
    AddFile(command, arguments);
    AddLineOptions(command, arguments);
    command.add_flag("--no-filter", arguments.NoFilter, "send the notes and the comments too");
}

void AddReceiveOptions(CLI::App& command, Arguments& arguments)
{
    AddLineOptions(command, arguments);
    command.add_option("-o", arguments.Target, "file to write")->required()->type_name("OUT");
    command.add_option("--idle", arguments.Idle, "seconds of silence after which the text is complete")
        ->check(CLI::Range(0.001, 86400.0))
        ->capture_default_str();
}

void AddKeysOptions(CLI::App& command, Arguments& arguments)
{
    command.add_option("FILE", arguments.File, "program file to load first");
    AddLoadOptions(command, arguments.Load);
    CLI::Option* const script =
        command.add_option("--script", arguments.Script, "file with the script; - is standard input");
    command.add_option("--keys", arguments.Keys, "the script itself")->excludes(script)->expected(0, 1);
    command.add_option("--ports", arguments.Ports, "number of serial ports that the script finds")
        ->check(CLI::Range(0, MaxPorts))
        ->capture_default_str();
    command.add_flag("--json", arguments.Json, "print the whole state as JSON");
}

/// The script of a key command: a file, "-" for standard input, or the text of --keys. No value when it
/// can't be read.
std::optional<std::string> ReadScript(const Arguments& arguments)
{
    if (!arguments.Script) return arguments.Keys;
    std::string script;
    if (arguments.Script != "-") {
        if (ReadWholeFile(*arguments.Script, script)) return std::nullopt;
        return script;
    }
    char buffer[4096];
    for (size_t got = 0; (got = std::fread(buffer, 1, sizeof buffer, stdin)) > 0;) script.append(buffer, got);
    return script;
}

bool WantsColor()
{
    const char* const noColor = std::getenv("NO_COLOR");
    return isatty(STDOUT_FILENO) != 0 && (noColor == nullptr || *noColor == '\0');
}

/// A reason on one line, also where a file is named so that it has more.
std::string OneLine(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

/// Prints the outcome and returns the exit status.
int Finish(const Outcome& outcome)
{
    if (!outcome.Why.empty()) std::fprintf(stderr, "brixley-cli: %s\n", OneLine(outcome.Why).c_str());
    if (outcome.Status == StatusFailed) return StatusFailed;
    const bool written =
        std::fwrite(outcome.Output.data(), 1, outcome.Output.size(), stdout) == outcome.Output.size();
    if (!written || std::fflush(stdout) != 0) {
        std::fprintf(stderr, "brixley-cli: the output could not be written\n");
        return StatusFailed;
    }
    return outcome.Status;
}

struct Command {
    const char* Name;
    const char* Does;
    void (*AddOptions)(CLI::App& command, Arguments& arguments);
    Outcome (*Run)(const Arguments& arguments);
};

constexpr Command Commands[] = {
    {"check", "print every message, and a summary line for each file", AddFiles,
     [](const Arguments& a) { return CheckFiles(a.Load, a.Files); }},
    {"show", "print the program as a table with all calculated columns", AddShowOptions,
     [](const Arguments& a) { return ShowFile(a.Load, a.File, a.Json, WantsColor()); }},
    {"draw", "draw the tool path into a picture", AddDrawOptions, DrawWith},
    {"listing", "print the text of the listing", AddListingOptions,
     [](const Arguments& a) { return ListFile(WithColumns(a), a.File); }},
    {"print", "print the listing or the drawing into a PDF file", AddPrintOptions, PrintWith},
    {"save", "write the program again, with an end code if it has none", AddFileAndTarget,
     [](const Arguments& a) { return SaveFile(a.Load, a.File, a.Target); }},
    {"convert", "convert the units of the program and write it", AddConvertOptions,
     [](const Arguments& a) { return ConvertFile(a.Load, a.File, a.Units, a.Target); }},
    {"send", "transmit the program to the machine over a serial port", AddSendOptions,
     [](const Arguments& a) { return SendFile(a.Load, a.Line, a.File, !a.NoFilter); }},
    {"receive", "save what comes in at a serial port", AddReceiveOptions,
     [](const Arguments& a) { return ReceiveFile(a.Line, a.Target, a.Idle); }},
    {"keys", "type a key script into the program, then print the program", AddKeysOptions,
     [](const Arguments& a) {
         const auto script = ReadScript(a);
         if (!script) return Failed(*a.Script + ": the script can't be read");
         return TypeKeys(a.Load, a.File, *script, a.Ports, a.Json, WantsColor());
     }},
    {"fingerprint", "print one number that stands for how the files are treated", AddFiles,
     [](const Arguments& a) { return FingerprintFiles(a.Load, a.Files); }},
};

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGXFSZ, SIG_IGN); // a limit on file sizes is then a failed write with a message
    CLI::App app("Checks, shows, draws, prints, converts and transfers part programs for small Emco training "
                 "machines.",
                 "brixley-cli");
    app.set_version_flag("--version", std::string("brixley-cli ") + ProductVersion);
    app.require_subcommand(1);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");

    // The parser would say it in words of its own, and only that a command is missing.
    if (argc < 2) return Finish(Failed("a command is missing; see --help"));
    const auto names = [&](const Command& command) {
        return argc > 1 && std::string_view(argv[1]) == command.Name;
    };
    if (argc > 1 && argv[1][0] != '-' && std::none_of(std::begin(Commands), std::end(Commands), names))
        return Finish(Failed("there is no command \"" + std::string(argv[1]) + "\"; see --help"));

    Arguments arguments;
    const Command* chosen = nullptr;
    for (const Command& command : Commands) {
        CLI::App* const added = app.add_subcommand(command.Name, command.Does)->group("Commands");
        added->callback([&chosen, &command] { chosen = &command; });
        command.AddOptions(*added, arguments);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& asked) {
        return app.exit(asked); // help or version
    } catch (const CLI::Error& fault) {
        return Finish(Failed(fault.what()));
    }
    return Finish(chosen->Run(arguments));
}
