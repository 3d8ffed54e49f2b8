#include "example.h"

#include "cli/draw_command.h"
#include "cli/key_script.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "drawing/drawing_state.h"
#include "platform/scripted.h"
#include "svg_canvas.h"
#include "ui/focus.h"

#include <sstream>
#include <stdexcept>
#include <vector>

namespace {

/// The size of the pictures in twips.
constexpr int PictureWidth = 5400, PictureHeight = 3900;

[[noreturn]] void Fail(const std::string& line, const std::string& why)
{
    throw std::runtime_error("examples.txt: \"" + line + "\": " + why);
}

std::vector<std::string> Parts(const std::string& text, const std::string& separator)
{
    std::vector<std::string> parts;
    for (size_t from = 0, to = 0; to != std::string::npos; from = to + separator.size()) {
        to = text.find(separator, from);
        parts.emplace_back(Trimmed(text.substr(from, to == std::string::npos ? to : to - from)));
    }
    return parts;
}

void Type(const std::string& line, const std::string& script)
{
    if (const auto why = RunKeyScript(script)) Fail(line, *why);
}

/// The label in front of the field that has the cursor.
const Control* LabelOfFocus()
{
    const MainWindow& main = frmMain;
    const std::pair<const Control*, const Control*> fields[] = {{&main.txtXI, &main.lblXI},
                                                                {&main.txtYJ, &main.lblYJ},
                                                                {&main.txtZK, &main.lblZK},
                                                                {&main.txtFKTL, &main.lblFKTL},
                                                                {&main.txtH, &main.lblH}};
    for (const auto& [box, label] : fields) {
        if (Focused() == box) return label;
    }
    return nullptr;
}

/// Types one line as a user would, and returns what was typed.
std::string TypeLine(const std::string& line)
{
    const size_t semicolon = line.find(';');
    std::istringstream words(line.substr(0, semicolon));
    std::string code, word;
    std::map<char, std::string> values;
    words >> code;
    while (words >> word) values[word[0]] = word.substr(1);
    const std::string comment = semicolon == std::string::npos ? "" : line.substr(semicolon + 1);

    // The letter stays as it was typed last; MK2 has the one alone.
    const bool both = Shared.Machine != MachineKind::MK2;
    const bool letterM = code[0] == 'M';
    const std::string typed = (both ? letterM ? "M" : "G" : "") + code.substr(letterM ? 1 : 0);
    std::string keys = typed + " [ENTER]";
    Type(line, "{FOCUS txtGMcode}" + typed + "{ENTER}");
    for (const Control* label = LabelOfFocus(); label != nullptr; label = LabelOfFocus()) {
        // The line of a jump is named by a word, in any language; the examples have the letter L.
        const auto value = values.find(label->Text.size() > 1 ? 'L' : label->Text[0]);
        if (value == values.end()) Fail(line, "no value for " + label->Text);
        Type(line, value->second + "{ENTER}");
        keys += " " + value->second + " [ENTER]";
        values.erase(value);
    }
    if (!values.empty()) Fail(line, std::string("no field for ") + values.begin()->first);
    Type(line, "{TEXT txtComment " + comment + "}{ENTER}");
    return keys + (comment.empty() ? "" : " " + comment) + " [ENTER]";
}

std::string Row(const ProgramLine& cells, const std::vector<size_t>& columns, const char* cellTag, bool bold)
{
    std::string row = "<tr>";
    for (const size_t column : columns) {
        std::string text(Trimmed(cells[column]));
        if (column == CellCode && text[0] != 'M') text = "G" + text;
        const char* const align = column == CellComment ? "" : " align=\"right\"";
        row += std::string("<") + cellTag + align + ">" +
               (bold && !text.empty() ? "<b>" + text + "</b>" : text) + "</" + cellTag + ">";
    }
    return row + "</tr>\n";
}

std::string ProgramTable(int worked)
{
    std::vector<size_t> columns{CellN, CellCode, CellX};
    if (Shared.Machine == MachineKind::F1) columns.push_back(CellY);
    columns.insert(columns.end(), {CellZ, CellF});
    if (Shared.Machine == MachineKind::MK4) columns.push_back(CellH);
    columns.push_back(CellToolX);
    if (Shared.Machine == MachineKind::F1) columns.push_back(CellToolY);
    columns.insert(columns.end(), {CellToolZ, CellComment});

    std::string table = "<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\">\n<tr>";
    for (const size_t column : columns) table += "<th>" + lvCncProgram.Headers[column] + "</th>";
    table += "</tr>\n";
    for (int row = 1; row <= LineCount(); ++row) {
        table += Row(lvCncProgram.Row(row), columns, "td", row == worked);
    }
    return table + "</table>\n";
}

/// The numbers of "X500 Y500 R250" by their letters.
std::map<char, double> NumbersOf(const std::string& words)
{
    std::istringstream text(words);
    std::map<char, double> numbers;
    for (std::string word; text >> word;) numbers[word[0]] = std::stod(word.substr(1));
    return numbers;
}

/// The drawing of the program as it stands, with the cutter where the example shows it.
std::string DrawnProgram(const std::vector<std::string>& cutters)
{
    DrawOptions options;
    options.Width = PictureWidth;
    options.Height = PictureHeight;
    options.Boxes.Background = options.Boxes.ToolCenter = options.Boxes.Radii = 1;
    ShowDrawing(options);
    SvgCanvas canvas;
    Replay(Picture.Operations(), canvas);
    canvas.SetForeColor(Colors::Black);
    for (const std::string& cutter : cutters) {
        auto at = NumbersOf(cutter);
        const double scale = double{Shared.DrawScale};
        canvas.DrawCircle(Drawing.ZeroPointX + at['X'] * scale, Drawing.ZeroPointY - at['Y'] * scale,
                          at['R'] * scale);
    }
    return canvas.Svg(PictureWidth, PictureHeight);
}

bool Moves()
{
    for (const Control* travel :
         {&frmMain.lblXAxisTravel, &frmMain.lblYAxisTravel, &frmMain.lblZAxisTravel}) {
        if (Trimmed(travel->Text) != "0") return true;
    }
    return false;
}

} // namespace

ExampleLines ReadExamples(const std::string& text)
{
    ExampleLines examples;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const size_t bar = line.find('|');
        if (line.empty() || line[0] == '#' || bar == std::string::npos) continue;
        std::istringstream words(line.substr(0, bar));
        std::string machine, code;
        words >> machine >> code;
        examples[machine + " " + code] = Trimmed(line.substr(bar + 1));
    }
    return examples;
}

Example MakeExample(const std::string& source, const std::string& code)
{
    Example example;
    int worked = 0;
    const size_t tilde = source.find(" ~ ");
    const std::string lines = source.substr(0, tilde);
    std::vector<std::string> cutters;
    if (tilde != std::string::npos) cutters = Parts(source.substr(tilde + 3), " / ");
    for (std::string line : Parts(lines, " / ")) {
        const bool here = line.starts_with("* ");
        if (here) line = line.substr(2);
        if (line.starts_with("@")) line = (code[0] == 'G' ? code.substr(1) : code) + line.substr(1);
        const std::string keys = TypeLine(line);
        if (!here) continue;
        worked = LineCount();
        example.Keys = keys;
    }
    if (worked == 0) Fail(lines, "no line is marked with *");
    for (int row = 1; row <= LineCount(); ++row) {
        const std::string message(Trimmed(lvCncProgram.Row(row)[CellError]));
        if (!message.empty()) Fail(lines, "N" + std::to_string(row - 1) + " " + message);
    }
    const auto& shown = dynamic_cast<const ScriptedPlatform&>(*ThePlatform).Boxes;
    if (!shown.empty()) Fail(lines, shown.front().Box.Text);
    example.Table = ProgramTable(worked);
    if (Moves()) example.Picture = DrawnProgram(cutters);
    return example;
}
