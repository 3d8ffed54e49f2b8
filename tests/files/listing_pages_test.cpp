// Listings on pages: nothing is lost, nothing is wider than the page, and each page says where it belongs.

#include "files/listing_pages.h"

#include "core/text.h"
#include "support/program.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

/// A typewriter's face: each character is 0.6 of its height wide. A point is 35.28 hundredths of a mm.
class Typewriter : public Face
{
public:
    double Width(std::string_view text, double points) const override
    {
        return static_cast<double>(CharacterCount(text)) * 0.6 * points * 35.28;
    }
    double LineHeight(double points) const override { return 1.2 * points * 35.28; }
};

const Typewriter Letters;
constexpr PageSize Portrait{18000, 26700};

PrintJob JobOf(const std::string& table, double points = 10)
{
    PrintJob job;
    job.FontSize = points;
    job.Items = {{table, std::nullopt, true}};
    job.Date = "2026-01-02";
    return job;
}

/// The lines of a sheet above its foot, from top to bottom.
std::vector<std::string> BodyOf(const Sheet& sheet)
{
    std::vector<std::string> lines;
    for (const SheetText& text : sheet.Texts) {
        if (text.Y < sheet.Lines.at(0).Y1) lines.push_back(text.Text);
    }
    return lines;
}

std::string WithoutBlanks(std::string text)
{
    std::erase_if(text, [](char c) { return c == ' ' || c == '\r' || c == '\n'; });
    return text;
}

/// Nothing reaches over the page's edges, and no two texts of a sheet stand on one place.
void ExpectInside(const std::vector<Sheet>& sheets, PageSize page)
{
    for (const Sheet& sheet : sheets) {
        double bottom = 0;
        for (const SheetText& text : sheet.Texts) {
            EXPECT_LE(text.X + Letters.Width(text.Text, text.Points), page.Width + 1) << text.Text;
            EXPECT_LE(text.Y + Letters.LineHeight(text.Points), page.Height + 1) << text.Text;
            if (text.Y < sheet.Lines.at(0).Y1) {
                EXPECT_GE(text.Y, bottom - 0.01) << text.Text;
                bottom = text.Y + Letters.LineHeight(text.Points);
                EXPECT_LE(bottom, sheet.Lines.at(0).Y1) << text.Text << " stands in the foot";
            }
        }
    }
}

} // namespace

TEST(ListingPages, TheFontShrinksToTheWidestLineAndNoFurther)
{
    // 18000 / (0.6 x 35.28) are 850 points: 85 characters of 10, 141 of 6.
    const struct {
        const char* Name;
        size_t Characters;
        double Chosen, Used;
    } cases[] = {
        {"just fits", 85, 10, 10},
        {"one more character", 86, 10, 9.5},
        {"the last that shrinks", 141, 10, 6},
        {"then it wraps", 142, 10, 6},
        {"far too long", 500, 10, 6},
        {"a large font comes down as well", 85, 72, 10},
        {"between the steps", 100, 6.2, 6.2},
        {"from between the steps to the end", 140, 6.2, 6},
        {"a smaller one that was chosen stays", 200, 5, 5},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        const std::string line(row.Characters, 'x');
        const auto sheets =
            LayOutListing(JobOf("short\r\n" + line + "   \r\n", row.Chosen), Portrait, Letters);
        ASSERT_EQ(sheets.size(), 1u);
        EXPECT_EQ(sheets[0].Texts[0].Points, row.Used);
        std::string body;
        for (const std::string& piece : BodyOf(sheets[0])) body += WithoutBlanks(piece);
        EXPECT_EQ(body, "short" + line);
        ExpectInside(sheets, Portrait);
    }
}

TEST(ListingPages, ANoteThatMustWrapAnywayLeavesTheFontAlone)
{
    // On MK2 the header may be all blanks.
    for (const char* header : {"  N  Comment", "                              "}) {
        const std::string table = std::string("\r\n\r\n") + header + "\r\n" + std::string(86, 'x') + "\r\n";
        PrintJob job = JobOf(std::string(142, 'n') + table);
        job.Header = header;
        EXPECT_EQ(ListingPoints(job, Portrait.Width, Letters), 9.5);
        job.Items[0].Text = std::string(141, 'n') + table;
        EXPECT_EQ(ListingPoints(job, Portrait.Width, Letters), 6) << "a note that can be had on one line";
    }
}

TEST(ListingPages, ALongPathWrapsAndLeavesTheFontAlone)
{
    PrintJob job = JobOf("00 01\r\n");
    for (int i = 0; i < 30; ++i) job.Path += "/a folder of the user";
    job.Name = "pin.cnc";
    job.Path += "/pin.cnc";
    job.Items.insert(job.Items.begin(), {job.Path});
    const auto sheets = LayOutListing(job, Portrait, Letters);
    ExpectInside(sheets, Portrait);
    EXPECT_EQ(sheets[0].Texts[0].Points, 10);
    std::string body, foot;
    for (const SheetText& text : sheets[0].Texts)
        (text.Y < sheets[0].Lines[0].Y1 ? body : foot) += WithoutBlanks(text.Text);
    EXPECT_EQ(body, WithoutBlanks(job.Path) + "0001");
    EXPECT_EQ(foot, "2026-01-02Page1of1pin.cnc" + WithoutBlanks(job.Path));
}

TEST(ListingPages, NoLineOfALongListingIsLostAndEachPageHasTheHeader)
{
    std::string table = "note\r\n\r\n  N  Comment   \r\n";
    for (int i = 0; i < 300; ++i) table += "line " + std::to_string(i) + "\r\n";
    PrintJob job = JobOf(table);
    job.Header = "  N  Comment   ";
    const auto sheets = LayOutListing(job, Portrait, Letters);
    ASSERT_EQ(sheets.size(), 6u); // 61 lines a page, of which 60 are new behind the first
    ExpectInside(sheets, Portrait);
    int next = 0;
    for (size_t page = 0; page < sheets.size(); ++page) {
        const auto lines = BodyOf(sheets[page]);
        EXPECT_EQ(std::count(lines.begin(), lines.end(), "  N  Comment"), 1) << page;
        if (page > 0) {
            EXPECT_EQ(lines[0], "  N  Comment");
        }
        for (const std::string& line : lines) {
            if (line.starts_with("line ")) {
                EXPECT_EQ(line, "line " + std::to_string(next++));
            }
        }
        const auto isNumber = [&](const SheetText& text) {
            return text.Text == "2026-01-02   Page " + std::to_string(page + 1) + " of 6";
        };
        EXPECT_EQ(std::count_if(sheets[page].Texts.begin(), sheets[page].Texts.end(), isNumber), 1) << page;
    }
    EXPECT_EQ(next, 300);
}

TEST(ListingPages, AnyPageTakesEveryLine)
{
    const struct {
        const char* Name;
        PageSize Page;
        std::string Table;
    } cases[] = {
        {"a label", {2000, 1500}, "a line that has to be broken\r\nand another one\r\n"},
        {"narrower than a character", {50, 26700}, "abc\r\n"},
        {"blanks wider than the page", {2000, 26700}, std::string(50, ' ') + "end\r\n"},
        {"letters of several bytes", {1300, 26700}, "größeÄÖÜäöüß\r\n"},
        {"line ends of all kinds", {18000, 26700}, "a\nb\rc\r\n\td"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.Name);
        std::string body;
        for (const Sheet& sheet : LayOutListing(JobOf(row.Table), row.Page, Letters)) {
            for (const SheetText& text : sheet.Texts) {
                if (text.Points == 10 || text.Points == 6) body += WithoutBlanks(text.Text);
            }
        }
        std::string wanted = WithoutBlanks(row.Table);
        std::erase(wanted, '\t');
        EXPECT_EQ(body, wanted);
    }
    EXPECT_EQ(PrintedLines("abc\td")[0], "abc     d");
}
