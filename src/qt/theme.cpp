#include "qt/theme.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace Theme {

namespace {

double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& a, const QColor& b)
{
    const double first = Luminance(a), second = Luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

/// The pictures name the colours of their lines and of what they stress; the palette gives them.
QByteArray Tinted(QByteArray svg, const QPalette& palette, bool enabled)
{
    const auto group = enabled ? QPalette::Active : QPalette::Disabled;
    const QColor paper = palette.color(QPalette::Active, QPalette::Window);
    const QColor ink = palette.color(group, QPalette::WindowText);
    const QColor accent = enabled ? Readable(palette.color(QPalette::Active, QPalette::Highlight), paper)
                                  : Mixed(ink, paper, 0.2);
    svg.replace("#000001", ink.name().toLatin1());
    svg.replace("#000002", accent.name().toLatin1());
    svg.replace("#000003", Mixed(paper, accent, 0.25).name().toLatin1());
    return svg;
}

class PictureEngine : public QIconEngine
{
public:
    explicit PictureEngine(QString name) : Name(std::move(name)) {}

    void paint(QPainter* painter, const QRect& into, QIcon::Mode mode, QIcon::State) override
    {
        DrawPicture(*painter, into, Name, QApplication::palette(), mode != QIcon::Disabled);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new PictureEngine(Name); }

private:
    QString Name;
};

} // namespace

QColor Mixed(const QColor& from, const QColor& to, double part)
{
    const auto mix = [part](double a, double b) { return static_cast<float>(a + (b - a) * part); };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

QColor Readable(QColor color, const QColor& background)
{
    const QColor end = Luminance(background) > 0.18 ? Qt::black : Qt::white;
    constexpr int Steps = 20;
    const QColor start = color;
    for (int step = 1; step <= Steps && Contrast(color, background) < 4.5; ++step) {
        color = Mixed(start, end, static_cast<double>(step) / Steps);
    }
    return color;
}

QColor Line(const QPalette& palette)
{
    return Mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.2);
}

QColor Muted(const QPalette& palette)
{
    const QColor paper = palette.color(QPalette::Window);
    return Readable(Mixed(palette.color(QPalette::WindowText), paper, 0.35), paper);
}

QColor Error(const QPalette& palette, QPalette::ColorRole background)
{
    return Readable(QColor(0xC6, 0x28, 0x28), palette.color(background));
}

QColor SelectedRow(const QPalette& palette, bool focused)
{
    return Mixed(palette.color(QPalette::Base), palette.color(QPalette::Active, QPalette::Highlight),
                 focused ? 0.30 : 0.16);
}

int ToBgr(const QColor& color)
{
    return color.red() | color.green() << 8 | color.blue() << 16;
}

void DrawPicture(QPainter& painter, const QRectF& into, const QString& name, const QPalette& palette,
                 bool enabled)
{
    QFile file(":/pictures/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly)) return;
    QSvgRenderer renderer(Tinted(file.readAll(), palette, enabled));
    QSizeF size = renderer.defaultSize();
    size.scale(into.size(), Qt::KeepAspectRatio);
    const QPointF corner = into.center() - QPointF(size.width() / 2, size.height() / 2);
    renderer.render(&painter, QRectF(corner, size));
}

QIcon PictureIcon(const QString& name)
{
    return QIcon(new PictureEngine(name));
}

} // namespace Theme
