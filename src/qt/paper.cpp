#include "qt/paper.h"

#include "core/app_data.h"
#include "drawing/drawing_page.h"
#include "files/listing_pages.h"
#include "qt/painter_canvas.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPdfWriter>

namespace {

constexpr double PerInch = 2540;

/// Measures a font on a device.
class DeviceFace : public Face
{
public:
    DeviceFace(const std::string& name, QPaintDevice& device)
        : Base(FontOfName(name)), On(device), Dots(device.logicalDpiY() / PerInch)
    {
    }

    QFont Font(double points) const
    {
        QFont font(Base, &On);
        font.setPointSizeF(points);
        return font;
    }
    double Width(std::string_view text, double points) const override
    {
        const QString letters = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        return Metrics(points).horizontalAdvance(letters) / Dots;
    }
    double LineHeight(double points) const override { return Metrics(points).lineSpacing() / Dots; }
    double Ascent(double points) const { return Metrics(points).ascent() / Dots; }

private:
    const QFontMetricsF& Metrics(double points) const
    {
        if (points != KnownPoints) {
            Known = QFontMetricsF(Font(points), &On);
            KnownPoints = points;
        }
        return Known;
    }

    const QFont Base;
    QPaintDevice& On;
    const double Dots;
    mutable QFontMetricsF Known{QFont()};
    mutable double KnownPoints = 0;
};

void PaintImage(QPainter& painter, const PrintedImage& image, double dots)
{
    if (image.Operations == nullptr) return;
    const QRectF place(image.X * dots, image.Y * dots, image.PaperWidth * dots, image.PaperHeight * dots);
    painter.save();
    painter.setClipRect(place); // a drawing may reach beyond its window
    painter.translate(place.topLeft());
    painter.scale(place.width() / (image.Width / TwipsPerPixel),
                  place.height() / (image.Height / TwipsPerPixel));
    {
        PainterCanvas canvas(painter, image.Width, image.Height, PainterCanvas::Device::Vector);
        Replay(*image.Operations, canvas);
    }
    painter.restore();
}

void PaintSheet(QPainter& painter, const Sheet& sheet, const DeviceFace& face, double dots)
{
    constexpr double Hairline = 20; // 0.2 mm
    if (sheet.Image) PaintImage(painter, *sheet.Image, dots);
    painter.setPen(QPen(Qt::black, Hairline * dots));
    for (const SheetLine& line : sheet.Lines)
        painter.drawLine(QLineF(line.X1 * dots, line.Y1 * dots, line.X2 * dots, line.Y2 * dots));
    for (const SheetText& text : sheet.Texts) {
        painter.setFont(face.Font(text.Points));
        painter.drawText(QPointF(text.X * dots, (text.Y + face.Ascent(text.Points)) * dots),
                         QString::fromStdString(text.Text));
    }
}

} // namespace

QFont FontOfName(const std::string& name)
{
    const QString family = QString::fromStdString(name);
    QFont font = family.isEmpty() ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QFont(family);
    font.setStyleHint(QFont::Monospace);
    return font;
}

PageSize PrintablePage(const QPageLayout& layout)
{
    const QRectF area = layout.paintRect(QPageLayout::Millimeter);
    return {area.width() * 100, area.height() * 100};
}

bool PaintJob(const PrintJob& job, QPagedPaintDevice& device)
{
    QPainter painter;
    if (!painter.begin(&device)) return false;
    const double dots = device.logicalDpiY() / PerInch;
    const DeviceFace face(job.FontName, device);
    const PageSize page = PrintablePage(device.pageLayout());
    const std::vector<Sheet> sheets =
        IsDrawing(job) ? std::vector{LayOutDrawing(job, page, face)} : LayOutListing(job, page, face);
    for (size_t i = 0; i < sheets.size(); ++i) {
        if (i > 0 && !device.newPage()) return false;
        PaintSheet(painter, sheets[i], face, dots);
    }
    return painter.end();
}

std::string PdfOf(const PrintJob& job, const QPageLayout& layout)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(QString::fromStdString(job.Name));
        writer.setCreator(ProductName);
        writer.setPageLayout(layout);
        if (!PaintJob(job, writer)) return "";
    }
    return buffer.data().toStdString();
}

std::string PrintPdf(const PrintJob& job)
{
    const bool across = job.Orientation == Orientation::Landscape;
    constexpr double Margin = PaperMargin / 100;
    return PdfOf(job, QPageLayout(QPageSize(QPageSize::A4),
                                  across ? QPageLayout::Landscape : QPageLayout::Portrait,
                                  QMarginsF(Margin, Margin, Margin, Margin), QPageLayout::Millimeter));
}
