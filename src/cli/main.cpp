// main.cpp: the console program: options in, one outcome out.

#include "cli/commands.h"
#include "core/app_data.h"
#include "platform/files.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <unistd.h>

namespace {

/// Everything that the options of all commands fill.
struct Arguments {
    LoadOptions Load;
    std::vector<std::string> Files, Columns;
    std::string File, Target, Units, Script, Keys;
    bool Json = false;
};

void AddLoadOptions(CLI::App& command, LoadOptions& options)
{
    command.add_option("--machine", options.Machine, "machine in force before the load")
        ->check(CLI::IsMember({"MK2", "MK4", "F1"}))
        ->capture_default_str();
    command.add_option("--units", options.Units, "units in force before the load")
        ->check(CLI::IsMember({"mm", "inch"}))
        ->capture_default_str();
    command.add_option("--orientation", options.Orientation, "spindle of the F1 before the load")
        ->check(CLI::IsMember({"vertical", "horizontal"}))
        ->capture_default_str();
    command.add_option("--view", options.View, "boxes of the View frame: gcode,toolpos,properties,time")
        ->delimiter(',')
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

void AddTarget(CLI::App& command, Arguments& arguments)
{
    command.add_option("-o", arguments.Target, "file to write")->required()->type_name("OUT");
}

/// The script of a key command: a file, "-" for standard input, or the text of --keys. No value when it
/// can't be read.
std::optional<std::string> ReadScript(const Arguments& arguments)
{
    if (arguments.Script.empty()) return arguments.Keys;
    std::string script;
    if (arguments.Script != "-") {
        if (ReadWholeFile(arguments.Script, script)) return std::nullopt;
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

/// Prints the outcome and returns the exit status.
int Finish(const Outcome& outcome)
{
    if (outcome.Status == StatusFailed) {
        std::fprintf(stderr, "brixley-cli: %s\n", outcome.Why.c_str());
        return StatusFailed;
    }
    const bool written =
        std::fwrite(outcome.Output.data(), 1, outcome.Output.size(), stdout) == outcome.Output.size();
    if (!written || std::fflush(stdout) != 0) {
        std::fprintf(stderr, "brixley-cli: the output could not be written\n");
        return StatusFailed;
    }
    return outcome.Status;
}

/// The message of a fault in the options, on one line.
std::string OneLine(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Checks, shows, converts and writes part programs of small Emco training machines.",
                 "brixley-cli");
    app.set_version_flag("--version", std::string("brixley-cli ") + ProductVersion);
    app.require_subcommand(1);

    Arguments arguments;
    std::function<Outcome()> run;
    const auto command = [&](const char* name, const char* does, std::function<Outcome()> action) {
        CLI::App* const added = app.add_subcommand(name, does);
        added->callback([&run, action] { run = action; });
        return added;
    };

    CLI::App* const check = command("check", "print every message of the error column, and one line a file",
                                    [&] { return CheckFiles(arguments.Load, arguments.Files); });
    AddFiles(*check, arguments);

    CLI::App* const show = command("show", "print the program as a table with all calculated columns", [&] {
        return ShowFile(arguments.Load, arguments.File, arguments.Json, WantsColor());
    });
    AddFile(*show, arguments);
    show->add_flag("--json", arguments.Json, "print the whole state as JSON");

    CLI::App* const listing = command("listing", "print the text of the printed listing", [&] {
        LoadOptions options = arguments.Load;
        options.View.insert(options.View.end(), arguments.Columns.begin(), arguments.Columns.end());
        return ListFile(options, arguments.File);
    });
    AddFile(*listing, arguments);
    listing->add_option("--columns", arguments.Columns, "columns to print: gcode,toolpos,properties,time")
        ->delimiter(',')
        ->check(CLI::IsMember(ViewNames));

    CLI::App* const save =
        command("save", "load FILE and write it again, with the end code if it has none",
                [&] { return SaveFile(arguments.Load, arguments.File, arguments.Target); });
    AddFile(*save, arguments);
    AddTarget(*save, arguments);

    CLI::App* const convert = command("convert", "convert the program's units and write it", [&] {
        return ConvertFile(arguments.Load, arguments.File, arguments.Units, arguments.Target);
    });
    AddFile(*convert, arguments);
    AddTarget(*convert, arguments);
    convert->add_option("--to", arguments.Units, "units to convert to")
        ->required()
        ->check(CLI::IsMember({"mm", "inch"}));

    CLI::App* const keys = command("keys", "type a key script into the program, then print the state", [&] {
        const auto script = ReadScript(arguments);
        if (!script) return Failed(arguments.Script + ": the script can't be read");
        return TypeKeys(arguments.Load, arguments.File, *script, arguments.Json, WantsColor());
    });
    keys->add_option("FILE", arguments.File, "program file to load first");
    AddLoadOptions(*keys, arguments.Load);
    CLI::Option* const script =
        keys->add_option("--script", arguments.Script, "file with the script, - for standard input");
    keys->add_option("--keys", arguments.Keys, "the script itself")->excludes(script);
    keys->add_flag("--json", arguments.Json, "print the whole state as JSON");

    CLI::App* const fingerprint =
        command("fingerprint", "print one number that pins the behaviour over all files",
                [&] { return FingerprintFiles(arguments.Load, arguments.Files); });
    AddFiles(*fingerprint, arguments);

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& asked) {
        return app.exit(asked); // help or version
    } catch (const CLI::Error& fault) {
        return Finish(Failed(OneLine(fault.what())));
    }
    return Finish(run());
}
