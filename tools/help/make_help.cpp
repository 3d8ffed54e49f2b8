// make_help.cpp: writes the help pages of the program, in each language that has sources.
//
//     make_help HELP LANGUAGES TARGET
//
// HELP/en and HELP/de hold the texts; captions, keys, limits, worked programs and pictures come from the
// engine, so that a page can't tell another limit than the program knows. The pages of a language are called
// after its module: German.html is the manual, German-MK4.html and so on the codes, German-about.html the
// versions.
//
// In manual.html and about.html stand {{name}} for the caption of a control (frmDraw.name for the drawing's),
// {{key name}} for the shortcut of a menu entry, {{tab N}} for a tab of the settings, {{item name N}} for an
// item of a list or combo, {{text Line}} for a text of the language module, {{from name}} and {{to name}} for
// the limits of a box, {{lines MK4}} for the lines that a machine holds, {{version}}, {{contents}}.
//
// codes.html consists of blocks: "@G84 MK2 MK4" begins the text of a code, for all machines that have it
// unless some are named; lines "X: ..." in front of its first "<" say what the words mean. "@words" gives the
// meanings that hold where a block has none, "@words F1" those of a machine, "@intro MK4" the beginning of a
// page, "@labels" the headings.

#include "example.h"

#include "commands/keyboard.h"
#include "commands/session.h"
#include "core/app_data.h"
#include "core/codes.h"
#include "core/control_names.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/profile.h"
#include "core/text.h"
#include "editor/code_box.h"
#include "editor/fields.h"
#include "interpreter/limits.h"
#include "platform/files.h"
#include "platform/scripted.h"
#include "settings/language.h"
#include "ui/panes.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <vector>

namespace {

struct Language {
    const char *Folder, *Name;
};
constexpr Language LanguageTable[] = {{"en", "English"}, {"de", "German"}};

ScriptedPlatform Platform;
std::string HelpFolder, ModuleFolder, TargetFolder;

std::string Read(const std::string& path)
{
    std::string bytes;
    if (const auto failure = ReadWholeFile(path, bytes))
        throw std::runtime_error(path + ": " + failure->Reason);
    return bytes;
}

void Write(const std::string& name, const std::string& bytes)
{
    const std::string path = TargetFolder + "/" + name;
    if (const auto failure = ReplaceFile(path, bytes))
        throw std::runtime_error(path + ": " + failure->Reason);
}

/// A new program on a machine, with the texts of a language.
void Begin(const Language& language, MachineKind machine, bool metric = true, bool horizontal = false)
{
    Platform = {};
    ThePlatform = &Platform;
    ResetState();
    StartNew(machine, metric, horizontal);
    ReadLanguageModule(Read(ModuleFolder + "/" + language.Name + ".txt"));
}

std::string Escaped(const std::string& text)
{
    return ReplaceEach(ReplaceEach(ReplaceEach(text, "&", "&amp;"), "<", "&lt;"), ">", "&gt;");
}

/// A caption as it reads: without its access mark.
std::string Caption(const Control& control)
{
    return Escaped(ReplaceEach(control.Text, "&", ""));
}

Control& ControlOf(const std::string& name)
{
    Control* found = nullptr;
    const bool draw = name.starts_with("frmDraw.");
    const std::string own = draw ? name.substr(8) : name;
    const auto look = [&](Control& control) {
        if (FullName(control) == own) found = &control;
    };
    if (draw) {
        frmDraw.ForEach(look);
    } else {
        frmMain.ForEach(look);
    }
    if (found == nullptr) throw std::runtime_error("no control is called " + name);
    return *found;
}

std::string Key(const std::string& name)
{
    const Control& entry = ControlOf(name);
    if (&entry == &frmMain.mnuHelpText) return "[F1]";
    const char letter = ShortcutOf(entry);
    if (letter == 0) throw std::runtime_error(name + " has no key");
    return std::string("[CTRL-") + letter + "]";
}

/// The lower or the upper part of a limit string.
std::string Limit(const std::string& name, bool upper)
{
    const std::string& tag = ControlOf(name).Tag;
    const size_t to = tag.find("TO");
    if (to == std::string::npos) throw std::runtime_error(name + " has no limits");
    return upper ? tag.substr(to + 2) : tag.substr(0, to);
}

/// The headings of a page that can be linked to, as a list of links.
std::string Contents(const std::string& page)
{
    std::string list = "<ul>\n";
    constexpr std::string_view Head = "<h2 id=\"";
    for (size_t at = page.find(Head); at != std::string::npos; at = page.find(Head, at + 1)) {
        const size_t id = at + Head.size(), idEnd = page.find('"', id), text = page.find('>', idEnd) + 1;
        list += "<li><a href=\"#" + page.substr(id, idEnd - id) + "\">" +
                page.substr(text, page.find("</h2>", text) - text) + "</a></li>\n";
    }
    return list + "</ul>\n";
}

std::string ValueOf(const std::string& placeholder)
{
    std::istringstream words(placeholder);
    std::string kind, name;
    int index = 0;
    words >> kind >> name >> index;
    if (name.empty() && kind == "version") return ProductVersion;
    if (name.empty()) return "<b>" + Caption(ControlOf(kind)) + "</b>";
    if (kind == "key") return Key(name);
    if (kind == "tab") return "<b>" + Escaped(frmMain.tabSettings.Items.at(std::stoul(name))) + "</b>";
    if (kind == "item") return Escaped(ControlOf(name).Items.at(static_cast<size_t>(index)));
    if (kind == "text") return Escaped(Tr(name));
    if (kind == "from" || kind == "to") return Limit(name, kind == "to");
    if (MachineKind machine{}; kind == "lines" && MachineOfName(name, machine))
        return std::to_string(ProfileOf(machine).MaxLines);
    throw std::runtime_error("unknown placeholder {{" + placeholder + "}}");
}

std::string Filled(std::string page)
{
    for (size_t at = 0; (at = page.find("{{", at)) != std::string::npos;) {
        const size_t end = page.find("}}", at);
        const std::string placeholder = page.substr(at + 2, end - at - 2);
        if (placeholder == "contents") { // when all headings are there
            at = end;
            continue;
        }
        const std::string value = ValueOf(placeholder);
        page.replace(at, end + 2 - at, value);
        at += value.size();
    }
    return ReplaceEach(page, "{{contents}}", Contents(page));
}

/// Anchors that every reader of pages knows: an id becomes a named place inside its element.
std::string WithAnchors(const std::string& page)
{
    std::string result;
    size_t from = 0;
    for (size_t at = page.find(" id=\""); at != std::string::npos; at = page.find(" id=\"", at + 1)) {
        const size_t id = at + 5, end = page.find('>', id) + 1;
        result += page.substr(from, at - from) + ">";
        result += "<a name=\"" + page.substr(id, page.find('"', id) - id) + "\"></a>";
        from = end;
    }
    return result + page.substr(from);
}

// The code pages

struct Block {
    std::string Head;
    std::map<std::string, std::string> Words;
    std::string Text;
};

std::vector<Block> Blocks(const std::string& source)
{
    std::vector<Block> blocks;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("@")) {
            blocks.push_back({line.substr(1), {}, ""});
            continue;
        }
        if (blocks.empty()) continue;
        Block& block = blocks.back();
        const size_t colon = line.find(": ");
        if (block.Text.empty() && colon != std::string::npos && line[0] != '<') {
            block.Words[line.substr(0, colon)] = line.substr(colon + 2);
        } else if (!line.empty()) {
            block.Text += line + "\n";
        }
    }
    return blocks;
}

class CodePage
{
public:
    CodePage(const Language& language, MachineKind machine, const std::string& source,
             const ExampleLines& examples)
        : In(language), Machine(machine), Name(ProfileOf(machine).Name), Texts(Blocks(source)),
          Examples(examples)
    {
    }

    std::string Html()
    {
        Begin(In, Machine);
        std::string contents = "<table cellpadding=\"2\">\n", sections;
        for (const std::string& item : Items()) {
            const std::string code(Trimmed(item.substr(0, 4)));
            const std::string title = Escaped(ItemDescription(item));
            contents +=
                "<tr><td><a href=\"#" + code + "\">" + code + "</a></td><td>" + title + "</td></tr>\n";
            sections += "<h2 id=\"" + code + "\">" + code + " " + title + "</h2>\n" + Section(code);
        }
        const Block& intro = BlockOf("intro");
        return Filled(intro.Text) + contents + "</table>\n" + sections;
    }

private:
    std::vector<std::string> Items() const
    {
        std::vector<std::string> items = CodeListOf(false).Items;
        if (Machine == MachineKind::MK2) return items; // it has one list alone
        const std::vector<std::string>& ofM = CodeListOf(true).Items;
        items.insert(items.end(), ofM.begin(), ofM.end());
        return items;
    }

    /// The block of a name for this machine: one that names the machine goes first.
    const Block& BlockOf(const std::string& name) const
    {
        const Block* found = nullptr;
        for (const Block& block : Texts) {
            const std::string head = " " + block.Head + " ";
            if (head.find(" " + name + " ") == std::string::npos) continue;
            const bool machines =
                head.find(" MK") != std::string::npos || head.find(" F1 ") != std::string::npos;
            if (head.find(" " + Name + " ") != std::string::npos) return block;
            if (!machines) found = &block;
        }
        if (found == nullptr) throw std::runtime_error("codes.html: no text for " + name + " on the " + Name);
        return *found;
    }

    std::string Label(const std::string& name) const { return BlockOf("labels").Words.at(name); }

    std::string Meaning(const Block& block, const std::string& code, const std::string& word) const
    {
        if (const auto own = block.Words.find(word); own != block.Words.end()) return own->second;
        const std::string* common = nullptr;
        for (const Block& words : Texts) {
            const auto found = words.Words.find(word);
            if (found == words.Words.end()) continue;
            if (words.Head == "words " + Name) return found->second;
            if (words.Head == "words") common = &found->second;
        }
        if (common != nullptr) return *common;
        throw std::runtime_error("codes.html: no meaning of " + word + " in " + code);
    }

    /// The captions and limits of the code's fields in one profile.
    std::vector<std::pair<std::string, std::string>> Fields(const std::string& code, bool metric,
                                                            bool horizontal)
    {
        Begin(In, Machine, metric, horizontal);
        SetUpFields(code.size() == 4 ? code : code + " ");
        const MainWindow& main = frmMain;
        std::vector<std::pair<std::string, std::string>> fields;
        // The mill has no word H: its pulses stand in F.
        const auto hWord = Machine == MachineKind::F1 ? &LineWords::F : &LineWords::H;
        const std::tuple<const Control*, const Control*, int16_t LineWords::*> all[] = {
            {&main.lblXI, &main.txtXI, &LineWords::X},
            {&main.lblYJ, &main.txtYJ, &LineWords::Y},
            {&main.lblZK, &main.txtZK, &LineWords::Z},
            {&main.lblFKTL, &main.txtFKTL, &LineWords::F},
            {&main.lblH, &main.txtH, hWord}};
        for (const auto& [label, box, word] : all) {
            if (box->Visible) fields.emplace_back(label->Text, box->Enabled ? Limits(*box, code, word) : "");
        }
        return fields;
    }

    /// What both the entry and the check allow.
    std::string Limits(const Control& box, const std::string& code, int16_t LineWords::*word) const
    {
        std::string cell = code.size() == 4 ? code : code + " ";
        if (cell[0] == 'G') cell[0] = ' ';
        std::optional<WordLimits> limits = CheckedLimits(CodeOfCell(cell), word);
        if (const size_t to = box.Tag.find("TO"); to != std::string::npos) {
            const int low = std::stoi(box.Tag), high = std::stoi(box.Tag.substr(to + 2));
            limits = limits ? WordLimits{std::max(limits->Low, low), std::min(limits->High, high)}
                            : WordLimits{low, high};
        }
        if (!limits) return "";
        return std::to_string(limits->Low) + " " + Label("to") + " " + std::to_string(limits->High);
    }

    std::string Parameters(const Block& block, const std::string& code)
    {
        const bool mill = Machine == MachineKind::F1;
        std::vector<std::vector<std::pair<std::string, std::string>>> profiles;
        std::string head = "<tr><th></th><th>" + Label("meaning") + "</th>";
        // The settings under which the limits hold; the unit of a value stands in its meaning.
        const Control* const lathes[] = {&frmMain.optSettingsMm, &frmMain.optSettingsInch};
        const Control* const mills[] = {&frmMain.optSettingsVmm, &frmMain.optSettingsVinch,
                                        &frmMain.optSettingsHmm, &frmMain.optSettingsHinch};
        for (int i = 0; i < (mill ? 4 : 2); ++i) {
            profiles.push_back(Fields(code, i % 2 == 0, i >= 2));
            head += "<th>" + Caption(mill ? *mills[i] : *lathes[i]) + "</th>";
        }
        if (profiles[0].empty()) return "<p>" + Label("none") + "</p>\n";
        std::string table = "<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\">\n" + head + "</tr>\n";
        for (size_t row = 0; row < profiles[0].size(); ++row) {
            const std::string& word = profiles[0][row].first;
            table += "<tr><td><b>" + word + "</b></td><td>" + Meaning(block, code, word) + "</td>";
            for (const auto& fields : profiles)
                table += "<td align=\"center\">" + fields[row].second + "</td>";
            table += "</tr>\n";
        }
        return table + "</table>\n";
    }

    std::string Section(const std::string& code)
    {
        const Block& block = BlockOf(code);
        std::string html = Filled(block.Text) + Parameters(block, code);
        Begin(In, Machine);
        const auto own = Examples.find(Name + " " + code);
        const Example example =
            MakeExample(own != Examples.end() ? own->second : Examples.at(Name + " *"), code);
        html += "<p>" + Label("typed") + "<br><code>" + example.Keys + "</code></p>\n" + example.Table;
        if (example.Picture.empty()) return html;
        const std::string picture = Name + "-" + code + ".svg";
        Write("pictures/" + picture, example.Picture);
        return html + "<p><img src=\"pictures/" + picture + "\" alt=\"" + code + "\"></p>\n";
    }

    const Language& In;
    MachineKind Machine;
    std::string Name;
    std::vector<Block> Texts;
    const ExampleLines& Examples;
};

/// A whole page around its content, with the links to the other pages of the language.
std::string Page(const Language& language, const std::string& title, const std::string& content)
{
    const std::string stem = language.Name;
    std::string links;
    for (const auto& [page, name] :
         std::initializer_list<std::pair<const char*, std::string>>{{"", Caption(frmMain.mnuHelpText)},
                                                                    {"-MK2", "MK2"},
                                                                    {"-MK4", "MK4"},
                                                                    {"-F1", "F1"},
                                                                    {"-about", Caption(frmMain.mnuAbout)}}) {
        if (!links.empty()) links += " | ";
        links += "<a href=\"" + stem + page + ".html\">" + name + "</a>";
    }
    return std::string("<!DOCTYPE html>\n<html lang=\"") + language.Folder +
           "\"><head><meta charset=\"utf-8\"><title>" + title + "</title></head><body>\n<p>" + links +
           "</p>\n<h1>" + title + "</h1>\n" + WithAnchors(content) + "</body></html>\n";
}

void MakePages(const Language& language)
{
    const std::string folder = HelpFolder + "/" + language.Folder + "/", stem = language.Name;
    const ExampleLines examples = ReadExamples(Read(HelpFolder + "/examples.txt"));
    const std::string codes = Read(folder + "codes.html");
    for (const MachineKind machine : {MachineKind::MK2, MachineKind::MK4, MachineKind::F1}) {
        const std::string name(ProfileOf(machine).Name);
        const std::string content = CodePage(language, machine, codes, examples).Html();
        Write(stem + "-" + name + ".html", Page(language, Caption(frmMain.mnuGhelp) + " " + name, content));
    }
    for (const char* part : {"", "-about"}) {
        Begin(language, MachineKind::MK4);
        const std::string source = Read(folder + (*part == 0 ? "manual" : "about") + ".html");
        Write(stem + part + ".html", Page(language, "Brixley", Filled(source)));
    }
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 4) {
        std::fputs("make_help HELP LANGUAGES TARGET\n", stderr);
        return 2;
    }
    HelpFolder = arguments[1];
    ModuleFolder = arguments[2];
    TargetFolder = arguments[3];
    MakeFolders(TargetFolder + "/pictures");
    try {
        for (const Language& language : LanguageTable) MakePages(language);
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "make_help: %s\n", fault.what());
        return 1;
    }
    return 0;
}
