#include "files/reader.h"

#include "core/code_page.h"
#include "core/codes.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "core/text.h"

#include <span>

namespace {

/// The texts by which a file is known, searched in any case and in this order.
struct Literal {
    std::string_view Text;
    FileKind Kind;
    MachineKind Machine;
};
constexpr Literal Literals[] = {
    {"   N00 G", FileKind::Program, MachineKind::MK2},
    {"    N` G`   X `    Z", FileKind::Program, MachineKind::MK4},
    {"    N` G`  X  `  Y `   Z", FileKind::Program, MachineKind::F1},
    {"[Brixley, Language Resource]", FileKind::Language, MachineKind::MK4},
};
constexpr std::string_view CadCamMark = "%!*";

/// A file with so many lines has too many, whatever stands in them: lines of one character don't count.
constexpr int MostTokens = 4 * MaxFileLines;

/// A record is a line cut or padded to this many columns.
constexpr size_t RecordLength = 85;

/// Columns of a record, counted from 1 as in the tables of the format.
struct Columns {
    size_t First, Last;
};

struct Layout {
    Columns N, Letter, Code, XSign, X, YSign, Y, ZSign, Z, FSign, F, H;
};
constexpr Columns None{0, 0};
constexpr Columns Comment{32, 81};
constexpr Layout MK4Layout = {{4, 6}, {7, 7},   {8, 9},   {11, 11}, {12, 15}, None,
                              None,   {17, 17}, {18, 22}, {23, 23}, {24, 26}, {28, 30}};
constexpr Layout F1Layout = {{4, 6},   {7, 7},   {8, 9},   {10, 10}, {11, 15}, {16, 16},
                             {17, 20}, {21, 21}, {22, 26}, {27, 27}, {28, 30}, None};

const Literal* FindLiteral(std::string_view text, size_t& position)
{
    for (const Literal& literal : Literals) {
        position = FindNoCase(text, literal.Text);
        if (position != std::string_view::npos) return &literal;
    }
    return nullptr;
}

/// Lines as other systems end them get the line ends of the format: LF where there is no CR LF at all,
/// CR where there is neither.
std::string WithLineEnds(std::string_view bytes)
{
    if (bytes.find(LineEnd) != std::string_view::npos) return std::string(bytes);
    return ReplaceEach(bytes, bytes.find('\n') != std::string_view::npos ? "\n" : "\r", LineEnd);
}

/// One line of a file in its fixed columns. A byte is a column.
class Record
{
public:
    explicit Record(std::string_view line) : Text(line.substr(0, RecordLength))
    {
        Text.resize(RecordLength, ' ');
    }

    std::string_view All() const { return Text; }
    std::string_view Raw(Columns columns) const
    {
        return std::string_view(Text).substr(columns.First - 1, columns.Last - columns.First + 1);
    }
    std::string Field(Columns columns) const { return FromCodePage(Raw(columns)); }

    /// A number field with at least two digits, right-aligned in its columns. A field that isn't digits
    /// alone (blanks at its ends aside) stays as it is.
    std::string Number(Columns columns) const
    {
        const std::string_view digits = Trimmed(Raw(columns));
        const size_t width = columns.Last - columns.First + 1;
        const bool number =
            !digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos;
        return number ? RightPad(FormatWhole(Val(digits), 2), width) : Field(columns);
    }

private:
    std::string Text;
};

/// The letters that a code gives to its fields, whatever the file has there: a control sends none.
struct FieldLetters {
    std::string_view MK4Codes, F1Codes;
    Columns Layout::*Sign;
    char Letter;
};
constexpr FieldLetters LettersByCode[] = {
    {"M99", "M99", &Layout::XSign, 'I'},  {"", "M99", &Layout::YSign, 'J'},
    {"M99", "M99", &Layout::ZSign, 'K'},  {"G25 G27", "G25 G27", &Layout::FSign, 'L'},
    {"G33 G78", "", &Layout::FSign, 'K'}, {"M06", "M06", &Layout::FSign, 'T'},
    {"", "M06", &Layout::XSign, 'D'},     {"", "M06", &Layout::YSign, 'S'},
};

std::string SignedField(const Record& record, const Layout& layout, bool mill, Code code,
                        Columns Layout::*sign, Columns value)
{
    std::string text = record.Field(layout.*sign);
    for (const FieldLetters& letters : LettersByCode) {
        if (letters.Sign == sign && ListHolds(mill ? letters.F1Codes : letters.MK4Codes, code)) {
            text = letters.Letter;
        }
    }
    return text + record.Number(value);
}

ProgramLine ReadLine(const Record& record, bool mill, bool cadCam)
{
    const Layout& layout = mill ? F1Layout : MK4Layout;
    ProgramLine row;
    row[CellRowText] = row[CellN] = record.Number(layout.N);
    row[CellCode] = record.Field(layout.Letter) + record.Field(layout.Code) + " ";
    const Code code = CodeOfCell(row[CellCode]);
    row[CellX] = SignedField(record, layout, mill, code, &Layout::XSign, layout.X);
    if (mill) row[CellY] = SignedField(record, layout, mill, code, &Layout::YSign, layout.Y);
    row[CellZ] = SignedField(record, layout, mill, code, &Layout::ZSign, layout.Z);
    row[CellF] = SignedField(record, layout, mill, code, &Layout::FSign, layout.F);
    if (!mill) row[CellH] = record.Number(layout.H);
    if (!cadCam) row[CellComment] = Trimmed(record.Field(Comment));
    return row;
}

/// An MK2 line. Its number has two digits in the file, so the place in the file tells the hundred; all
/// other fields are taken as they stand.
ProgramLine ReadMK2Line(const Record& record, size_t element)
{
    std::string number = record.Field({5, 6});
    const std::string_view digits = Trimmed(number);
    if (!digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos) {
        number = (element > 100 ? "1" : "") + FormatWhole(Val(digits), 2);
    }
    ProgramLine row;
    row[CellRowText] = RightPad(number, 3);
    row[CellN] = " " + row[CellRowText];
    row[CellCode] = " " + record.Field({9, 10}) + " ";
    row[CellX] = record.Field({13, 17});
    row[CellZ] = record.Field({20, 25});
    row[CellF] = record.Field({28, 30});
    row[CellComment] = Trimmed(record.Field(Comment));
    return row;
}

std::optional<Trailer> TrailerOf(const Record& record, MachineKind machine)
{
    struct Mark {
        std::string_view Text;
        Trailer Means;
    };
    static constexpr Mark LatheMarks[] = {{"M", {true, std::nullopt}}, {"\"", {false, std::nullopt}}};
    static constexpr Mark MillMarks[] = {{"M", {true, false}},  {"\"", {false, false}},
                                         {"M-", {true, true}},  {"\"-", {false, true}},
                                         {"MI", {true, false}}, {"\"I", {false, false}}};

    const bool mill = machine == MachineKind::F1;
    const std::string_view field = Trimmed(mill                          ? record.Raw(F1Layout.N)
                                           : machine == MachineKind::MK2 ? record.Raw({4, 4})
                                                                         : record.All());
    const auto marks = mill ? std::span<const Mark>(MillMarks) : std::span<const Mark>(LatheMarks);
    for (const Mark& mark : marks) {
        if (EqualsNoCase(field, mark.Text)) return mark.Means;
    }
    return std::nullopt;
}

/// The notes in front of the program: everything before the "%" line, as one paragraph.
std::string NotesOf(std::string_view text, size_t literal)
{
    constexpr size_t PercentLine = 3;
    std::string notes =
        ReplaceEach(text.substr(0, literal < PercentLine ? 0 : literal - PercentLine), LineEnd, " ");
    std::erase(notes, '%');
    return FromCodePage(Trimmed(notes));
}

/// Ends the line in front of the literal where the literal doesn't begin one: nothing stands in front of it,
/// or an editor has moved it to the right.
void BeginLineAt(std::string& text, size_t& literal)
{
    if (std::string_view(text).substr(0, literal).ends_with(LineEnd)) return;
    text.insert(literal, LineEnd);
    literal += LineEnd.size();
}

} // namespace

FileKind KindOfFile(std::string_view bytes)
{
    size_t position = 0;
    const Literal* literal = FindLiteral(bytes, position);
    return literal == nullptr ? FileKind::Unknown : literal->Kind;
}

ProgramFile ReadProgram(std::string_view bytes)
{
    ProgramFile file;
    std::string text = WithLineEnds(bytes);
    size_t position = 0;
    const Literal* literal = FindLiteral(text, position);
    if (literal == nullptr || literal->Kind != FileKind::Program) return file;
    file.Machine = literal->Machine;
    BeginLineAt(text, position);

    const bool cadCam = file.Machine == MachineKind::MK4 && FindNoCase(text, CadCamMark) != std::string::npos;
    if (!cadCam) file.Notes = NotesOf(text, position);

    // Element 0 is the nothing in front of the line end before the literal. On MK4 and F1 a header line
    // stands in front of the first program line. Lines beyond MostTokens stay together in the last element.
    const bool mk2 = file.Machine == MachineKind::MK2;
    const std::vector<std::string_view> lines =
        SplitText(std::string_view(text).substr(position - LineEnd.size()), LineEnd, MostTokens);
    file.Rows.reserve(lines.size());
    for (size_t element = mk2 ? 1 : 2; element < lines.size(); ++element) {
        if (lines[element].size() <= 1) continue;
        const Record record(lines[element]);
        file.End = TrailerOf(record, file.Machine);
        if (file.End) break;
        file.TooLong = file.Rows.size() == MaxFileLines || element == MostTokens;
        if (file.TooLong) break;
        file.Rows.push_back(mk2 ? ReadMK2Line(record, element)
                                : ReadLine(record, file.Machine == MachineKind::F1, cadCam));
    }
    return file;
}
