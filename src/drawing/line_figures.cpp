#include "drawing/line_figures.h"

#include "core/vector.h"
#include "drawing/drawing_state.h"

#include <algorithm>
#include <cmath>

namespace {

using Op = Operation::Kind;

double DistanceToLine(double x, double y, const std::array<float, 5>& at)
{
    const double dx = double{at[2]} - at[0], dy = double{at[3]} - at[1];
    const double square = dx * dx + dy * dy;
    const double part =
        square == 0 ? 0 : std::clamp(((x - at[0]) * dx + (y - at[1]) * dy) / square, 0.0, 1.0);
    return std::hypot(at[0] + part * dx - x, at[1] + part * dy - y);
}

double SweepOf(const std::array<float, 5>& arc)
{
    const double sweep = double{arc[4]} - arc[3];
    return sweep < 0 ? sweep + 2 * Pi : sweep;
}

double DistanceToArc(double x, double y, const std::array<float, 5>& at)
{
    const double angle = VectorAngle(x - at[0], at[1] - y);
    double turn = angle - at[3];
    if (turn < 0) turn += 2 * Pi;
    if (turn <= SweepOf(at)) return std::abs(std::hypot(x - at[0], y - at[1]) - at[2]);
    const auto toEnd = [&](double end) {
        return std::hypot(at[0] + at[2] * std::cos(end) - x, at[1] - at[2] * std::sin(end) - y);
    };
    return std::min(toEnd(at[3]), toEnd(at[4]));
}

double LengthOf(const Operation& figure)
{
    const auto& at = figure.At;
    switch (figure.Is) {
    case Op::DrawLine: return std::hypot(at[2] - at[0], at[3] - at[1]);
    case Op::DrawArc: return at[2] * SweepOf(at);
    default: return 0;
    }
}

struct Place {
    double X, Y;
};

/// The place behind a part of the figure, from 0 to 1.
Place PlaceOn(const Operation& figure, double part)
{
    const auto& at = figure.At;
    switch (figure.Is) {
    case Op::DrawLine: return {std::lerp(at[0], at[2], part), std::lerp(at[1], at[3], part)};
    case Op::DrawArc: {
        const double angle = at[3] + part * SweepOf(at);
        return {at[0] + at[2] * std::cos(angle), at[1] - at[2] * std::sin(angle)};
    }
    default: return {at[0], at[1]};
    }
}

bool Holds(const CanvasBox& box, double x, double y)
{
    return x >= box.Left && x < box.Left + box.Width && y >= box.Top && y < box.Top + box.Height;
}

/// Takes the figures of the picture one by one, complete in themselves, with the line that they belong to.
template <class Visit> class Figures : public DrawCanvas
{
public:
    explicit Figures(Visit visit) : Take(visit) {}

    void Run()
    {
        const auto& operations = Picture.Operations();
        auto start = Drawing.LineStarts.begin();
        for (size_t i = 0; i < operations.size(); ++i) {
            for (; start != Drawing.LineStarts.end() && start->Operation <= i; ++start) Line_ = start->Line;
            Replay({&operations[i], 1}, *this);
        }
    }

protected:
    void Clear() override {}
    void Line(float x1, float y1, float x2, float y2) override
    {
        Take(Line_, {Op::DrawLine, 0, {x1, y1, x2, y2}});
    }
    void Box(float x, float y) override
    {
        Line(x, y, PenX(), y);
        Line(PenX(), y, PenX(), PenY());
        Line(PenX(), PenY(), x, PenY());
        Line(x, PenY(), x, y);
    }
    void Point() override { Take(Line_, {Op::SetPoint, 0, {PenX(), PenY()}}); }
    void Circle(float) override {}
    void Arc(float radius, float start, float end) override
    {
        Take(Line_, {Op::DrawArc, 0, {PenX(), PenY(), radius, start, end}});
    }

private:
    Visit Take;
    int Line_ = 0;
};

template <class Visit> void ForEachFigure(Visit visit)
{
    Figures<Visit>(visit).Run();
}

} // namespace

int LineAt(double x, double y, double distance)
{
    int found = 0;
    ForEachFigure([&](int line, const Operation& figure) {
        if (line == 0) return;
        double away = 0;
        switch (figure.Is) {
        case Op::DrawLine: away = DistanceToLine(x, y, figure.At); break;
        case Op::DrawArc: away = DistanceToArc(x, y, figure.At); break;
        default: away = std::hypot(figure.At[0] - x, figure.At[1] - y);
        }
        if (away <= distance) found = line;
    });
    return found;
}

std::vector<Operation> FiguresOfLine(int line)
{
    std::vector<Operation> figures;
    ForEachFigure([&](int of, const Operation& figure) {
        if (of == line) figures.push_back(figure);
    });
    return figures;
}

std::vector<int> PlacesIn(std::span<const CanvasBox> boxes)
{
    constexpr double Apart = 100;
    constexpr double Most = 1000; // of one figure, however far it reaches
    std::vector<int> inside(boxes.size());
    ForEachFigure([&](int line, const Operation& figure) {
        if (line == 0) return;
        const double places = std::clamp(std::floor(LengthOf(figure) / Apart), 1.0, Most);
        for (double i = 0.5; i < places; ++i) {
            const auto [x, y] = PlaceOn(figure, i / places);
            for (size_t k = 0; k < boxes.size(); ++k) inside[k] += Holds(boxes[k], x, y) ? 1 : 0;
        }
    });
    return inside;
}
