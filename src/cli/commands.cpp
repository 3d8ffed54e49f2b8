#include "cli/commands.h"

#include "cli/key_script.h"
#include "cli/module.h"
#include "cli/state_json.h"
#include "cli/summary.h"
#include "commands/save.h"
#include "commands/session.h"
#include "commands/settings.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "editor/whole_program.h"
#include "files/print_job.h"
#include "files/writer.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

/// The opened program goes to the target through the program's own save command. A target that exists
/// is replaced.
Outcome SaveTo(const std::string& target)
{
    if (target.empty()) return Failed("no file is named after -o");
    Console.Boxes.clear();
    Console.Files = {target};
    mnuSaveAs_Click();
    AfterEvent();
    if (const std::string refusal = LastRefusal(); !refusal.empty()) return Failed(target + ": " + refusal);
    if (frmMain.lblPath.Text != target) return Failed(target + " was not saved");
    return {};
}

/// FNV-1a, 64 bits.
class Fingerprint
{
public:
    void Add(std::string_view text)
    {
        for (const char c : text) Byte(static_cast<unsigned char>(c));
        Byte(0xFF);
    }
    std::string Text() const
    {
        char text[20];
        std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(Hash));
        return text;
    }

private:
    void Byte(unsigned char byte) { Hash = (Hash ^ byte) * 0x100000001B3ULL; }
    uint64_t Hash = 0xCBF29CE484222325ULL;
};

void AddProgram(Fingerprint& print)
{
    frmMain.lblPath.Text.clear(); // where the file lies is no behaviour
    print.Add(StateAsJson());
    print.Add(ListingText());
    print.Add(GenerateAll());
    (Shared.Metric ? mnuMMtoINCH_click : mnuINCHtoMM_click)();
    print.Add(StateAsJson());
}

} // namespace

Outcome CheckFiles(const LoadOptions& options, const std::vector<std::string>& files)
{
    Outcome outcome;
    for (const std::string& file : files) {
        if (const auto why = OpenProgram(options, file)) return Failed(*why);
        for (const LineMessage& message : MessagesOfProgram()) {
            outcome.Output += file + ":" + message.Number + ": " + message.Text + "\n";
            outcome.Status = StatusMessages;
        }
        outcome.Output += file + ": " + SummaryLine() + "\n";
    }
    return outcome;
}

namespace {

/// The user's folder of a key script, removed at its end; "" when none could be made.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::error_code failed;
        std::string name = (std::filesystem::temp_directory_path(failed) / "brixley-XXXXXX").string();
        if (!failed && mkdtemp(name.data()) != nullptr) Path = name;
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        if (!Path.empty()) std::filesystem::remove_all(Path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string Path;
};

/// The program as a person reads it: notes, table, key figures behind `name`.
std::string ProgramAsText(const std::string& name, bool withColor)
{
    std::string output;
    if (const std::string& notes = frmMain.txtFileNotes.Text; !notes.empty())
        output += Printable(notes, "\r\n\t") + "\n\n";
    if (LineCount() > 0) output += ProgramTable(withColor) + "\n";
    return output + name + ": " + SummaryLine() + "\n";
}

} // namespace

Outcome ShowFile(const LoadOptions& options, const std::string& file, bool asJson, bool withColor)
{
    if (const auto why = OpenProgram(options, file)) return Failed(*why);
    if (asJson) return {StatusDone, StateAsJson()};
    return {StatusDone, ProgramAsText(file, withColor)};
}

Outcome TypeKeys(const LoadOptions& options, const std::string& file, const std::string& script, int ports,
                 bool asJson, bool withColor)
{
    const TemporaryFolder user;
    if (const auto why = BeginProgram(options, user.Path, ports)) return Failed(*why);
    if (!file.empty()) {
        if (const auto why = LoadInto(file)) return Failed(*why);
    }
    ThePicturePainter = PaintByModule;
    if (frmMain.cboLanguage.Items.empty()) FillLanguages();
    if (const auto fault = RunKeyScript(script)) return Failed(*fault);
    return {StatusDone,
            asJson ? WindowStateAsJson() : ProgramAsText(file.empty() ? "keys" : file, withColor)};
}

Outcome ListFile(const LoadOptions& options, const std::string& file)
{
    if (const auto why = OpenLines(options, file)) return Failed(*why);
    return {StatusDone, ListingText()};
}

Outcome SaveFile(const LoadOptions& options, const std::string& file, const std::string& target)
{
    if (const auto why = OpenProgram(options, file)) return Failed(*why);
    return SaveTo(target);
}

Outcome ConvertFile(const LoadOptions& options, const std::string& file, const std::string& units,
                    const std::string& target)
{
    if (const auto why = OpenProgram(options, file)) return Failed(*why);
    if (units == "inch" && Shared.Metric) mnuMMtoINCH_click();
    if (units == "mm" && !Shared.Metric) mnuINCHtoMM_click();
    return SaveTo(target);
}

Outcome FingerprintFiles(const LoadOptions& options, const std::vector<std::string>& files)
{
    Fingerprint print;
    for (const std::string& file : files) {
        if (const auto why = OpenProgram(options, file)) return Failed(*why);
        AddProgram(print);
    }
    return {StatusDone, print.Text() + "\n"};
}
