#include "files/sheet.h"

#include "core/text.h"

#include <algorithm>

std::vector<std::string> PrintedLines(std::string_view text)
{
    constexpr size_t TabWidth = 8;
    std::vector<std::string> lines;
    do {
        const size_t end = std::min(text.find_first_of("\r\n"), text.size());
        std::string line;
        for (const char c : text.substr(0, end)) {
            if (c == '\t') {
                line.append(TabWidth - CharacterCount(line) % TabWidth, ' ');
            } else {
                line += c;
            }
        }
        line.erase(line.find_last_not_of(' ') + 1);
        lines.push_back(std::move(line));
        text.remove_prefix(end);
        if (!text.empty()) text.remove_prefix(text.starts_with(LineEnd) ? 2 : 1);
    } while (!text.empty());
    return lines;
}

namespace {

/// How many characters of a text fit into a width, at least one.
size_t FittingCharacters(std::string_view text, double width, double points, const Face& face)
{
    size_t fits = 1, tooMany = CharacterCount(text) + 1;
    while (tooMany - fits > 1) {
        const size_t middle = fits + (tooMany - fits) / 2;
        (face.Width(FirstCharacters(text, middle), points) <= width ? fits : tooMany) = middle;
    }
    return fits;
}

/// Where to break a text of which so many bytes fit: the count of bytes in front of the break.
size_t BreakOf(std::string_view text, size_t fitting)
{
    if (fitting < text.size() && text[fitting] == ' ') return fitting;
    for (const char* const behind : {" ", "/\\"}) {
        const size_t at = text.substr(0, fitting).find_last_of(behind);
        const bool isLate = at != std::string_view::npos && at + 1 > fitting / 2;
        if (isLate && !IsBlank(text.substr(0, at))) return at + 1;
    }
    return fitting;
}

} // namespace

std::vector<std::string> WrapLine(const std::string& line, double width, double points, const Face& face,
                                  size_t indent)
{
    std::vector<std::string> lines;
    const std::string margin(face.Width(std::string(indent, ' '), points) < width / 2 ? indent : 0, ' ');
    std::string rest = line;
    while (face.Width(rest, points) > width) {
        const size_t characters = FittingCharacters(rest, width, points, face);
        const size_t end = BreakOf(rest, FirstCharacters(rest, characters).size());
        const size_t next = rest.find_first_not_of(' ', end);
        if (next == std::string::npos) break; // nothing but blanks would follow
        if (const std::string begin = rest.substr(0, end); !IsBlank(begin)) {
            lines.push_back(begin);
            rest.replace(0, next, margin);
        } else {
            rest.erase(0, next); // blanks wider than the page
        }
    }
    lines.push_back(rest);
    return lines;
}
