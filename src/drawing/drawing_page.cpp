#include "drawing/drawing_page.h"

#include "core/messages.h"
#include "core/numbers.h"

#include <algorithm>
#include <cmath>

namespace {

/// The texts below the image are set between these sizes in points.
constexpr double LeastPoints = 6, MostPoints = 12;
/// Between image and texts, and the ends of the bar, which stand above and below it, in 1/100 mm as all
/// lengths.
constexpr double Gap = 300, BarEnd = 100;
/// Room for the bar, where the page is no narrower than three times that.
constexpr double MostBar = 6000;

const PrintedImage* ImageOf(const PrintJob& job)
{
    for (const PrintItem& item : job.Items) {
        if (item.Image) return &*item.Image;
    }
    return nullptr;
}

/// What stands below the image, with its height.
struct Caption {
    std::vector<std::string> Lines;
    double Points, LineHeight, BarRoom, Height;
};

Caption CaptionOf(const PrintJob& job, double points, PageSize page, const Face& face)
{
    Caption caption;
    caption.Points = points;
    caption.LineHeight = face.LineHeight(caption.Points);
    caption.BarRoom = std::min(MostBar, page.Width / 3);
    const double width = page.Width - caption.BarRoom - 2 * Gap;
    for (const PrintItem& item : job.Items) {
        if (item.Image || item.Text.empty()) continue;
        for (const std::string& line : PrintedLines(item.Text)) {
            const auto pieces = WrapLine(line, width, caption.Points, face);
            caption.Lines.insert(caption.Lines.end(), pieces.begin(), pieces.end());
        }
    }
    const double texts = caption.LineHeight * static_cast<double>(caption.Lines.size());
    caption.Height = Gap + std::max(texts, caption.LineHeight + 2 * BarEnd);
    return caption;
}

/// The bar ends at the right edge of the page, with its label below.
void AddScaleBar(Sheet& sheet, const PrintedImage& image, double top, const Caption& caption, PageSize page,
                 const Face& face)
{
    const double unit = image.UnitTwips * image.PaperWidth / image.Width;
    const ScaleBar bar = ScaleBarOf(unit, image.Metric, caption.BarRoom, image.LengthText);
    const double right = page.Width, left = right - bar.Length, y = top + BarEnd;
    sheet.Lines.push_back({left, y, right, y});
    for (const double end : {left, right}) sheet.Lines.push_back({end, y - BarEnd, end, y + BarEnd});
    const double wide = face.Width(bar.Label, caption.Points);
    const double x = std::min(left + (bar.Length - wide) / 2, right - wide);
    sheet.Texts.push_back({x, y + BarEnd, caption.Points, bar.Label});
}

} // namespace

ScaleBar ScaleBarOf(double unit, bool metric, double most, const std::string& lengthText)
{
    const double whole = metric ? 100 : 1000; // units in 1 mm or 1 inch
    int power = static_cast<int>(std::floor(std::log10(most / (unit * whole))));
    int factor = 1;
    for (const int larger : {2, 5}) {
        if (larger * std::pow(10, power) * unit * whole <= most) factor = larger;
    }
    const double length = factor * std::pow(10, power);
    return {length * unit * whole, Tr(lengthText, {FormatDecimals(length, std::max(0, -power))})};
}

bool IsDrawing(const PrintJob& job)
{
    return ImageOf(job) != nullptr;
}

Sheet LayOutDrawing(const PrintJob& job, PageSize page, const Face& face)
{
    Sheet sheet;
    const PrintedImage* const printed = ImageOf(job);
    if (printed == nullptr) return sheet;
    PrintedImage& image = sheet.Image.emplace(*printed);
    Caption caption = CaptionOf(job, std::clamp(job.FontSize, LeastPoints, MostPoints), page, face);
    // The longest path there is takes less than half of a page in small letters.
    if (caption.Height > page.Height / 2) caption = CaptionOf(job, LeastPoints, page, face);
    const double room = std::max(page.Height - caption.Height, page.Height / 2);
    const double shrink =
        std::min({1.0, room / (image.Y + image.PaperHeight), page.Width / (image.X + image.PaperWidth)});
    for (double* const length : {&image.X, &image.Y, &image.PaperWidth, &image.PaperHeight})
        *length *= shrink;

    const double top = image.Y + image.PaperHeight + Gap;
    double y = top;
    for (const std::string& line : caption.Lines) {
        sheet.Texts.push_back({0, y, caption.Points, line});
        y += caption.LineHeight;
    }
    AddScaleBar(sheet, image, top, caption, page, face);
    return sheet;
}
