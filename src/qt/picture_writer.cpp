#include "qt/picture_writer.h"

#include "qt/painter_canvas.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace {

constexpr double TwipsPerPoint = 20;

void Paint(const PictureRequest& request, QPainter& painter, PainterCanvas::Device device)
{
    PainterCanvas canvas(painter, request.Width, request.Height, device);
    Replay(*request.Operations, canvas);
}

bool WritePng(const PictureRequest& request, QBuffer& to)
{
    const QSize size(qRound(request.Width / TwipsPerPixel), qRound(request.Height / TwipsPerPixel));
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull()) return false;
    constexpr int DotsPerMeter = 3780; // 96 to the inch
    image.setDotsPerMeterX(DotsPerMeter);
    image.setDotsPerMeterY(DotsPerMeter);
    QPainter painter(&image);
    Paint(request, painter, PainterCanvas::Device::Raster);
    return painter.end() && image.save(&to, "PNG");
}

bool WriteSvg(const PictureRequest& request, QBuffer& to)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&to);
    generator.setResolution(96);
    const QRectF box(0, 0, request.Width / TwipsPerPixel, request.Height / TwipsPerPixel);
    generator.setSize(box.size().toSize());
    generator.setViewBox(box);
    generator.setTitle(QStringLiteral("Tool path"));
    QPainter painter;
    if (!painter.begin(&generator)) return false;
    Paint(request, painter, PainterCanvas::Device::Vector);
    return painter.end();
}

bool WritePdf(const PictureRequest& request, QBuffer& to)
{
    QPdfWriter writer(&to);
    writer.setTitle(QStringLiteral("Tool path"));
    writer.setPageSize(QPageSize(QSizeF(request.Width / TwipsPerPoint, request.Height / TwipsPerPoint),
                                 QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer)) return false;
    painter.scale(writer.logicalDpiX() / 96.0, writer.logicalDpiY() / 96.0);
    Paint(request, painter, PainterCanvas::Device::Vector);
    return painter.end();
}

} // namespace

std::string PaintPicture(const PictureRequest& request)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    bool painted = false;
    switch (request.Format) {
    case PictureFormat::Png: painted = WritePng(request, buffer); break;
    case PictureFormat::Svg: painted = WriteSvg(request, buffer); break;
    case PictureFormat::Pdf: painted = WritePdf(request, buffer); break;
    }
    return painted ? buffer.data().toStdString() : std::string();
}
