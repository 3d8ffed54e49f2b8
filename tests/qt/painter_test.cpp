// Drawings on pixels: sharp lines, the hatch, marks that restore what they touch, figures far beyond the
// sheet, exact ends of arcs.

#include "qt/painter_canvas.h"
#include "qt/picture_writer.h"

#include <QImage>
#include <chrono>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace {

constexpr int Side = 200; // pixels
constexpr double Pixel = 15;

/// What is drawn on a black sheet of Side by Side pixels, on a device with `ratio` pixels for each.
QImage Paint(const std::function<void(DrawCanvas&)>& draw, double ratio = 1)
{
    const int pixels = static_cast<int>(Side * ratio);
    QImage image(pixels, pixels, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.scale(ratio, ratio);
    PainterCanvas canvas(painter, Side * 15, Side * 15, PainterCanvas::Device::Raster, ratio);
    canvas.SetBackColor(Colors::Black);
    canvas.ClearCanvas();
    canvas.SetForeColor(Colors::White);
    draw(canvas);
    painter.end();
    return image;
}

int Light(const QImage& image, int x, int y)
{
    return qGray(image.pixel(x, y));
}

TEST(Painter, StraightLinesAreSharp)
{
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        for (const int width : {1, 2, 3}) {
            for (const double at : {100.0, 100.3, 100.5, 100.9}) {
                const QImage image = Paint(
                    [&](DrawCanvas& canvas) {
                        canvas.SetPenWidth(width);
                        canvas.DrawLine(0, at * Pixel, Side * Pixel, at * Pixel);
                        canvas.DrawLine(at * Pixel, 0, at * Pixel, Side * Pixel);
                    },
                    ratio);
                int whole = 0, partial = 0;
                for (int i = 0; i < image.height(); ++i) {
                    for (const int light : {Light(image, 20, i), Light(image, i, 20)}) {
                        whole += light == 255 ? 1 : 0;
                        partial += light > 0 && light < 255 ? 1 : 0;
                    }
                }
                EXPECT_EQ(whole, 2 * std::lround(width * ratio)) << ratio << " " << width << " " << at;
                EXPECT_EQ(partial, 0) << ratio << " " << width << " " << at;
            }
        }
    }
    const QImage dot = Paint([](DrawCanvas& canvas) { canvas.SetPoint(100.2 * Pixel, 50.8 * Pixel); });
    EXPECT_EQ(Light(dot, 100, 50), 255);
    const QImage dotted = Paint([](DrawCanvas& canvas) {
        canvas.SetPenStyle(PenStyle::Dotted);
        canvas.DrawLine(0, 1500, 3000, 1500);
    });
    int lit = 0;
    for (int x = 0; x < Side; ++x) lit += Light(dotted, x, 100) > 127 ? 1 : 0;
    EXPECT_TRUE(lit > Side / 8 && lit < Side * 5 / 8) << lit;
}

TEST(Painter, TheHatchRunsDownwardInEveryBoxAlike)
{
    const QImage image = Paint([](DrawCanvas& canvas) {
        canvas.SetFillStyle(FillStyle::Diagonal);
        canvas.SetFillColor(Colors::Green);
        for (const double left : {3.0, 103.0}) {
            canvas.SetPen(left * Pixel, 5 * Pixel);
            canvas.DrawBox((left + 90) * Pixel, 190 * Pixel);
        }
    });
    for (const int left : {3, 103}) {
        for (int x = left + 5; x < left + 85; ++x) {
            for (int y = 20; y < 180; ++y) {
                const int green = qGreen(image.pixel(x, y)), place = (y - x + Side) % 8;
                EXPECT_GE(green, place == 0 ? 100 : 0) << x << "," << y;
                EXPECT_LE(green, place == 4 ? 0 : 255) << x << "," << y;
            }
        }
    }
    EXPECT_EQ(Light(image, 98, 100), 0) << "nothing between the boxes";
    EXPECT_EQ(Light(image, 93, 100), 255) << "their sides";
}

TEST(Painter, InvertingTwiceRestores)
{
    const auto ground = [](DrawCanvas& canvas) {
        canvas.SetForeColor(Colors::Magenta);
        canvas.DrawLine(100, 200, 2900, 2500);
        canvas.DrawCircle(1500, 1500, 700);
        canvas.SetForeColor(Colors::White);
        canvas.SetFillStyle(FillStyle::Solid);
        canvas.SetFillColor(Colors::White);
        canvas.SetPen(1500, 300);
        canvas.DrawBox(2700, 1500);
    };
    const auto mark = [](DrawCanvas& canvas) {
        canvas.SetPenMode(PenMode::Invert);
        canvas.DrawLine(1000, 1000, 2000, 1000);
        canvas.DrawLine(1500, 500, 1500, 1507);
        canvas.DrawLine(333, 222, 2777, 1888);
        canvas.SetPenMode(PenMode::Copy);
    };
    const QImage before = Paint(ground);
    const QImage marked = Paint([&](DrawCanvas& canvas) {
        ground(canvas);
        mark(canvas);
    });
    const QImage again = Paint([&](DrawCanvas& canvas) {
        ground(canvas);
        mark(canvas);
        mark(canvas);
    });
    EXPECT_EQ(Light(before, 80, 66), 0);
    EXPECT_EQ(Light(marked, 80, 66), 255); // black became white
    EXPECT_EQ(Light(before, 120, 66), 255);
    EXPECT_EQ(Light(marked, 120, 66), 0); // white became black
    EXPECT_EQ(again, before);
}

TEST(Painter, AnInvertingPenDoesNotReachTheNextGround)
{
    const QImage image = Paint([](DrawCanvas& canvas) {
        canvas.DrawLine(0, 1500, 3000, 1500);
        canvas.SetPenMode(PenMode::Invert);
        canvas.DrawLine(0, 900, 3000, 900);
        canvas.ClearCanvas();
        canvas.DrawLine(0, 600, 3000, 600);
    });
    EXPECT_EQ(Light(image, 100, 100), 0); // the old line is gone
    EXPECT_EQ(Light(image, 100, 60), 0);
    EXPECT_EQ(Light(image, 100, 40), 255); // and the pen still inverts
}

TEST(Painter, TheGroundChangesOnceForAll)
{
    const QImage image = Paint([](DrawCanvas& canvas) {
        canvas.SetForeColor(Colors::Red);
        canvas.DrawLine(0, 300, 3000, 300);
        canvas.SetBackColor(Colors::White); // the black picture is gone
        canvas.DrawLine(0, 600, 3000, 600);
        canvas.SetBackColor(Colors::White); // nothing new
    });
    EXPECT_EQ(image.pixelColor(50, 20), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(50, 30), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(50, 40), QColor(Qt::red));
}

TEST(Painter, TheGroundIsPaintedOnceAlsoWithoutFigures)
{
    RecordingCanvas drawn;
    drawn.ClearCanvas();
    drawn.SetBackColor(Colors::Black);
    drawn.SetBackColor(Colors::Red);
    for (const bool figure : {false, true}) {
        if (figure) drawn.DrawLine(0, 0, 1500, 1500);
        const std::string svg = PaintPicture({&drawn.Operations(), 1500, 1500, PictureFormat::Svg});
        const size_t ground = svg.find("<rect");
        EXPECT_NE(ground, svg.npos) << svg;
        EXPECT_EQ(svg.find("<rect", ground + 1), svg.npos) << svg;
        EXPECT_NE(svg.find("fill=\"#ff0000\""), svg.npos) << svg;
    }
}

TEST(Painter, FiguresFarBeyondTheSheet)
{
    const auto begin = std::chrono::steady_clock::now();
    const QImage image = Paint([](DrawCanvas& canvas) {
        canvas.DrawLine(-1e30, 150, 1e30, 150);
        canvas.SetPenStyle(PenStyle::Dotted);
        for (int i = 0; i < 1000; ++i) canvas.DrawLine(-1e9, 1e9 + 9000, 1e9, -1e9 + 9000);
        canvas.SetPenStyle(PenStyle::Solid);
        canvas.SetPen(-1e20, -1e20);
        canvas.DrawBox(1e20, 450);
        canvas.SetPoint(1e12, 5);
        // Arcs that pass through (100, 100) and (150, 100) pixels; many others miss the sheet.
        canvas.DrawCircle(1e8 + 1504, 1500, 1e8);
        canvas.DrawArc(2250 - 2e6, 1500, 2e6, 6.28, 0.01);
        for (int i = 0; i < 1000; ++i) canvas.DrawCircle(3e6, 4e6, 2e6 + i);
        for (const double radius : {1e15, 1e25, 1e38}) canvas.DrawCircle(radius, 0, radius);
    });
    EXPECT_EQ(Light(image, 100, 10), 255);
    EXPECT_EQ(Light(image, 120, 30), 255);
    EXPECT_GT(Light(image, 99, 100) + Light(image, 100, 100) + Light(image, 101, 100), 200);
    EXPECT_GT(Light(image, 149, 100) + Light(image, 150, 100), 200);
    EXPECT_EQ(Light(image, 125, 100), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST(Painter, ArcsEndWhereTheyShould)
{
    // Angles halfway between the sixteenths of a degree; to round to one would be an error of 1.6 pixels.
    constexpr double Radius = 3000, ToRadians = M_PI / 180;
    for (const double middle : {0.03125, 45.03125, 123.46875, 200.03125, 300.40625}) {
        const double start = (middle - 1) * ToRadians, end = (middle + 1) * ToRadians;
        const double turn = middle * ToRadians;
        // The middle of the arc lies in the middle of the sheet.
        const double x = Side / 2.0 - Radius * std::cos(turn), y = Side / 2.0 + Radius * std::sin(turn);
        const QImage image = Paint([&](DrawCanvas& canvas) {
            canvas.DrawArc(x * Pixel, y * Pixel, Radius * Pixel, start < 0 ? start + 2 * M_PI : start, end);
        });
        double first = 1e9, last = -1e9;
        for (int row = 0; row < Side; ++row) {
            for (int column = 0; column < Side; ++column) {
                const double weight = Light(image, column, row) / 255.0;
                if (weight < 0.3) continue;
                const double dx = column + 0.5 - x, dy = y - row - 0.5;
                EXPECT_NEAR(std::hypot(dx, dy), Radius, 1.2) << middle << ": " << column << "," << row;
                const double along = std::remainder(std::atan2(dy, dx) - turn, 2 * M_PI) * Radius;
                first = std::min(first, along);
                last = std::max(last, along);
            }
        }
        // Half the pen and half a pixel.
        EXPECT_NEAR(first, -ToRadians * Radius, 1) << middle;
        EXPECT_NEAR(last, ToRadians * Radius, 1) << middle;
    }
}

} // namespace
