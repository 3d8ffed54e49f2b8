#include "files/listing_pages.h"

#include "core/messages.h"
#include "core/text.h"

#include <algorithm>

namespace {

constexpr double LargestFootPoints = 8;
/// Between the text and the line above the foot, and between that and the foot's text.
constexpr double FootGap = 150;
/// Blanks in front of what is left of a wrapped line.
constexpr size_t WrapIndent = 8;

/// The lines of a job that go on paper, each no wider than the page.
struct Body {
    std::vector<std::string> Lines;
    /// The table's header: where its lines begin, and how many they are; no lines when there is none.
    size_t HeaderAt = 0, HeaderLines = 0;
};

Body BodyOf(const PrintJob& job, double width, double points, const Face& face)
{
    std::string header = job.Header;
    header.erase(header.find_last_not_of(' ') + 1);
    Body body;
    for (const PrintItem& item : job.Items) {
        for (const std::string& line : PrintedLines(item.Text)) {
            const auto pieces = WrapLine(line, width, points, face, item.IsTable ? WrapIndent : 0);
            if (item.IsTable && body.HeaderLines == 0 && !header.empty() && line == header) {
                body.HeaderAt = body.Lines.size();
                body.HeaderLines = pieces.size();
            }
            body.Lines.insert(body.Lines.end(), pieces.begin(), pieces.end());
        }
    }
    return body;
}

std::string PageText(const PrintJob& job, size_t page, size_t pages)
{
    const std::string number = Tr(job.PageText, {std::to_string(page), std::to_string(pages)});
    return job.Date.empty() ? number : job.Date + "   " + number;
}

/// The foot of each page: what stands on the left, and its measures.
struct Foot {
    std::vector<std::string> Left;
    double Points, Height;
};

Foot FootOf(const PrintJob& job, PageSize page, const Face& face)
{
    Foot foot;
    foot.Points = std::min(job.FontSize, LargestFootPoints);
    const std::string right = "   " + PageText(job, 9999, 9999);
    const double width = page.Width - face.Width(right, foot.Points);
    const std::string left = job.Name == job.Path ? job.Name : job.Name + "   " + job.Path;
    foot.Left = WrapLine(left, std::max(width, page.Width / 4), foot.Points, face);
    foot.Height = 2 * FootGap + face.LineHeight(foot.Points) * static_cast<double>(foot.Left.size());
    return foot;
}

void AddFoot(Sheet& sheet, const Foot& foot, const std::string& right, PageSize page, const Face& face)
{
    double y = page.Height - foot.Height + FootGap;
    sheet.Lines.push_back({0, y, page.Width, y});
    y += FootGap;
    const double x = page.Width - face.Width(right, foot.Points);
    sheet.Texts.push_back({x, y, foot.Points, right});
    for (const std::string& line : foot.Left) {
        sheet.Texts.push_back({0, y, foot.Points, line});
        y += face.LineHeight(foot.Points);
    }
}

} // namespace

double ListingPoints(const PrintJob& job, double width, const Face& face)
{
    double points = job.FontSize, most = 0;
    std::string widest;
    for (const PrintItem& item : job.Items) {
        if (!item.IsTable) continue;
        const std::string_view text = item.Text;
        const size_t header = job.Header.empty() ? 0 : text.find(job.Header + std::string(LineEnd));
        const size_t table = std::min(header, text.size());
        const auto consider = [&](std::string_view part, bool mayWrap) {
            for (const std::string& line : PrintedLines(part)) {
                const double wide = face.Width(line, points);
                if (wide <= most || (mayWrap && face.Width(line, SmallestPoints) > width)) continue;
                most = wide;
                widest = line;
            }
        };
        consider(text.substr(0, table), true);
        consider(text.substr(table), false);
    }
    while (points > SmallestPoints && face.Width(widest, points) > width)
        points = std::max(points - PointStep, SmallestPoints);
    return points;
}

std::vector<Sheet> LayOutListing(const PrintJob& job, PageSize page, const Face& face)
{
    const double points = ListingPoints(job, page.Width, face);
    const Body body = BodyOf(job, page.Width, points, face);
    const Foot foot = FootOf(job, page, face);
    const double lineHeight = face.LineHeight(points);
    // A page takes a line even where the foot leaves no room, so that every line comes on paper.
    const size_t fitting =
        static_cast<size_t>(std::max(1.0, (page.Height - foot.Height) / std::max(lineHeight, 1.0)));

    std::vector<Sheet> sheets;
    size_t onPage = fitting;
    const auto add = [&](const std::string& line) {
        sheets.back().Texts.push_back({0, lineHeight * static_cast<double>(onPage++), points, line});
    };
    for (size_t i = 0; i < body.Lines.size(); ++i) {
        if (onPage >= fitting) {
            sheets.emplace_back();
            onPage = 0;
            const bool repeats = body.HeaderLines < fitting && i >= body.HeaderAt + body.HeaderLines;
            for (size_t j = 0; repeats && j < body.HeaderLines; ++j) add(body.Lines[body.HeaderAt + j]);
        }
        add(body.Lines[i]);
    }
    for (size_t i = 0; i < sheets.size(); ++i)
        AddFoot(sheets[i], foot, PageText(job, i + 1, sheets.size()), page, face);
    return sheets;
}
