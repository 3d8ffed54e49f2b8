#include "support/figures.h"

#include "commands/drawing.h"
#include "core/draw_window.h"
#include "core/vector.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/view.h"
#include "drawing/walk.h"
#include "support/program.h"

#include <cmath>
#include <cstdio>
#include <vector>

namespace {

using Op = Operation::Kind;
constexpr float ZeroCircle = 150;

std::string Number(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", std::round(value * 1000) / 1000 + 0.0);
    return text;
}

std::string Place(double x, double y)
{
    return Number(x - Drawing.ZeroPointX) + "," + Number(y - Drawing.ZeroPointY);
}

std::string ColorName(int color)
{
    constexpr std::pair<int, const char*> Names[] = {
        {Colors::Black, "black"},     {Colors::White, "white"}, {Colors::Red, "red"},
        {Colors::Green, "green"},     {Colors::Blue, "blue"},   {Colors::Yellow, "yellow"},
        {Colors::Magenta, "magenta"}, {Colors::Cyan, "cyan"},   {Colors::Grey, "grey"},
        {Colors::DarkGrey, "dark"},
    };
    for (const auto& [known, name] : Names) {
        if (known == color) return name;
    }
    return "?";
}

/// Replays the recording into texts.
class Scribe : public DrawCanvas
{
public:
    struct Entry {
        std::string Kind, Text, Ink, From, To;
    };
    std::vector<Entry> Entries;

protected:
    void Clear() override { Entries.clear(); }
    void Line(float x1, float y1, float x2, float y2) override
    {
        Entries.push_back({"line", "", Ink(), Place(x1, y1), Place(x2, y2)});
    }
    void Box(float fromX, float fromY) override
    {
        Put("box", "box " + Place(fromX, fromY) + ">" + Place(PenX(), PenY()));
    }
    void Point() override { Put("dot", "dot " + Place(PenX(), PenY())); }
    void Circle(float radius) override
    {
        Put("circle", "circle " + Place(PenX(), PenY()) + " r" + Number(radius));
        if (radius == ZeroCircle) Entries.clear();
    }
    void Arc(float radius, float start, float end) override
    {
        constexpr double ToDegrees = 180 / Pi;
        Put("arc", "arc " + Place(PenX(), PenY()) + " r" + Number(radius) + " " +
                       Number(std::round(start * ToDegrees * 10) / 10) + ".." +
                       Number(std::round(end * ToDegrees * 10) / 10));
    }

private:
    std::string Ink() const
    {
        const CanvasSettings& now = Settings();
        return ColorName(now.Fore) + (now.Width == 1 ? "" : "/" + std::to_string(now.Width)) +
               (now.Style == PenStyle::Dotted ? "~" : "");
    }
    void Put(const char* kind, const std::string& text) { Entries.push_back({kind, text, Ink(), "", ""}); }
};

} // namespace

void Draw(std::string_view profile, std::string_view lines, const Look& look)
{
    Start(profile);
    Enter(lines);
    Shared.DrawBoxes = look.Boxes;
    UnloadDrawing();
    frmDraw_Load();
    frmDraw.Window.Visible = true;
    Drawing.PausesTakeTime = false;
    SetScale(look.Scale);
    Drawing.ZeroPointX = look.ZeroX;
    Drawing.ZeroPointY = look.ZeroY;
    Redraw();
}

std::string Figures()
{
    Scribe scribe;
    Replay(Picture.Operations(), scribe);
    std::string list;
    const Scribe::Entry* last = nullptr;
    for (const Scribe::Entry& entry : scribe.Entries) {
        const bool goesOn =
            last != nullptr && entry.Kind == "line" && last->Ink == entry.Ink && last->To == entry.From;
        if (goesOn) {
            list += ">" + entry.To;
        } else {
            const std::string text = entry.Kind == "line" ? entry.From + ">" + entry.To : entry.Text;
            list += (list.empty() ? "" : "; ") + entry.Ink + " " + text;
        }
        last = &entry;
    }
    return list + (list.empty() ? "@" : "; @") + Place(Picture.PenX(), Picture.PenY());
}

int CountOf(std::string_view kind)
{
    Scribe scribe;
    Replay(Picture.Operations(), scribe);
    int count = 0;
    for (const Scribe::Entry& entry : scribe.Entries) count += entry.Kind == kind ? 1 : 0;
    return count;
}

std::string Grid()
{
    struct Lines {
        int Count = 0;
        float First = 0, Last = 0;
    } down, across;
    for (const Operation& op : Picture.Operations()) {
        if (op.Is == Op::SetForeColor && op.Value == Colors::Red) break; // the zero point's marks
        if (op.Is != Op::DrawLine) continue;
        const bool lies = op.At[1] == op.At[3];
        Lines& lines = lies ? down : across;
        const float at = op.At[lies ? 1 : 0];
        if (lines.Count++ == 0) lines.First = at;
        lines.Last = at;
    }
    const auto text = [](const Lines& lines) {
        return std::to_string(lines.Count) + ", " + Number(lines.First) + " to " + Number(lines.Last);
    };
    return "down " + text(down) + "; across " + text(across);
}
