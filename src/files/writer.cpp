#include "files/writer.h"

#include "core/main_window.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "core/program_list.h"
#include "core/text.h"

namespace {

/// The header line in the file and in the listing, in the order of MachineKind.
struct Header {
    std::string_view File, Listing;
};
constexpr Header Headers[] = {
    {"", "                              "},
    {"    N` G`   X `    Z `  F`  H ", "     N   G    X      Z   F   H "},
    {"    N` G`  X  `  Y `   Z ` F  ", "     N  G     X    Y     Z   F"},
};

/// A column of the listing: separated so that texts of up to 9 characters line up.
void AppendColumn(std::string& text, std::string_view content)
{
    const size_t length = CharacterCount(content);
    text.append(length < 9 ? 10 - length : 1, ' ').append(content);
}

/// Whether the listing has the column.
bool IsListed(size_t cell)
{
    return lvCncProgram.Widths[cell] > 0;
}

void AppendNotes(std::string& text)
{
    const std::string& notes = frmMain.txtFileNotes.Text;
    if (!notes.empty()) {
        // In the listing each sentence has a line of its own.
        text += Shared.PrintMode ? ReplaceEach(notes, ". ", ".\r\n") : notes;
        text += LineEnd;
    }
    if (!Shared.PrintMode) text += '%';
    text += LineEnd;
}

void AppendHeader(std::string& text)
{
    const std::string_view header = Headers[static_cast<size_t>(Shared.Machine)].File;
    if (Shared.PrintMode) {
        text.append(ListingHeader()).append(LineEnd);
    } else if (!header.empty()) {
        text.append(header).append(LineEnd);
    }
}

/// The machine's own fields: columns 1 to 30.
void AppendFields(std::string& text, const ProgramLine& row)
{
    const std::string_view code = row[CellCode];
    const std::string_view trimmedCode = code.substr(0, code.find_last_not_of(' ') + 1);
    switch (Shared.Machine) {
    case MachineKind::MK2:
        text.append("   N").append(LastCharacters(FormatWhole(Val(row[CellN]), 2), 2));
        text.append(" G").append(FirstCharacters(FromCharacter(code, 1), 2));
        text.append(" X").append(row[CellX]).append(" Z").append(row[CellZ]);
        text.append(" F").append(LastCharacters(" " + row[CellF], 3));
        break;
    case MachineKind::MK4:
        text.append("   ").append(row[CellN]).append(trimmedCode).append(" ").append(row[CellX]).append(" ");
        text.append(row[CellZ]).append(row[CellF]).append(" ").append(row[CellH]);
        break;
    case MachineKind::F1:
        text.append("   ").append(row[CellN]).append(trimmedCode).append(row[CellX]).append(row[CellY]);
        text.append(row[CellZ]).append(row[CellF]);
        break;
    }
}

void AppendLine(std::string& text, const ProgramLine& row)
{
    AppendFields(text, row);
    for (size_t cell = CellError; cell <= CellTime; ++cell) {
        if (Shared.PrintMode && IsListed(cell)) AppendColumn(text, row[cell]);
    }
    // On MK4 the file has one more blank in front of the comment.
    text.append(Shared.Machine == MachineKind::MK4 ? "  " : " ")
        .append(Trimmed(row[CellComment]))
        .append(LineEnd);
}

void AppendTrailer(std::string& text)
{
    text.append("   ").append(Shared.Metric ? "M" : "\"");
    if (IsMill()) text += Shared.Horizontal ? '-' : 'I';
    text += LineEnd;
}

} // namespace

std::string ListingHeader()
{
    std::string text(Headers[static_cast<size_t>(Shared.Machine)].Listing);
    for (size_t cell = CellError; cell <= CellComment; ++cell) {
        if (IsListed(cell)) AppendColumn(text, lvCncProgram.Headers[cell]);
    }
    return text;
}

std::string GenerateAll()
{
    const int lines = LineCount();
    if (lines == 0) return "";
    std::string text;
    AppendNotes(text);
    AppendHeader(text);
    for (int i = 1; i <= lines; ++i) {
        const ProgramLine& row = lvCncProgram.Row(i);
        // The control MK4 takes a line with an N in its number for the blank row.
        if (Shared.Machine == MachineKind::MK4 && FindNoCase(row[CellN], "N") != std::string::npos) continue;
        AppendLine(text, row);
    }
    AppendTrailer(text);
    return text;
}
