#include "cli/draw_command.h"

#include "cli/module.h"
#include "cli/ops_json.h"
#include "cli/summary.h"
#include "commands/drawing.h"
#include "core/draw_window.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/view.h"
#include "drawing/walk.h"
#include "platform/files.h"
#include "ui/choice.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace {

/// Sizes beyond a million twips can't be a picture.
constexpr int MostTwips = 1'000'000;

/// Pixels of a PNG, which has one for 15 by 15 twips: 400 MB while it is painted.
constexpr int64_t MostPixels = 100'000'000;

/// Sets the scale; one that the list has is picked there.
void ShowScale(float scale)
{
    Drawing.ListsBusy = true;
    for (int i = 0; i < static_cast<int>(frmDraw.cboScale.Items.size()); ++i) {
        if (ScaleOfIndex(i) == scale) PickItem(frmDraw.cboScale, i);
    }
    Drawing.ListsBusy = false;
    SetScale(scale);
}

std::string OperationLines()
{
    std::string lines;
    for (const Operation& operation : Picture.Operations()) lines += OperationAsJson(operation).dump() + "\n";
    return lines;
}

/// The drawing as a picture file, which replaces one of its name only when it is whole.
Outcome WritePicture(const std::string& target, PictureFormat format)
{
    const int64_t pixels = int64_t{CanvasWidth()} * CanvasHeight() / (15 * 15);
    if (format == PictureFormat::Png && pixels > MostPixels)
        return Failed(target + ": the picture is too large: more than " + std::to_string(MostPixels) +
                      " pixels");
    std::string why;
    PaintPictureRoutine* const paint = LoadPicturePainter(why);
    if (paint == nullptr) return Failed(why);
    const std::string bytes = paint({&Picture.Operations(), CanvasWidth(), CanvasHeight(), format});
    if (bytes.empty()) return Failed(target + ": the picture could not be made");
    if (const auto failure = ReplaceFile(target, bytes)) return Failed(target + ": " + failure->Reason);
    return {};
}

} // namespace

bool ReadCanvasSize(const std::string& text, DrawOptions& options)
{
    int read = 0;
    return std::sscanf(text.c_str(), "%7dx%7d%n", &options.Width, &options.Height, &read) == 2 &&
           static_cast<size_t>(read) == text.size() && options.Width > 0 && options.Height > 0 &&
           options.Width <= MostTwips && options.Height <= MostTwips;
}

bool ReadZeroPoint(const std::string& text, DrawOptions& options)
{
    const char* const end = text.data() + text.size();
    double x = 0, y = 0;
    const auto first = std::from_chars(text.data(), end, x);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != ',') return false;
    const auto second = std::from_chars(first.ptr + 1, end, y);
    const bool isPoint =
        second.ec == std::errc() && second.ptr == end && std::abs(x) <= MostTwips && std::abs(y) <= MostTwips;
    if (isPoint) options.Zero = {x, y};
    return isPoint;
}

void ShowDrawing(const DrawOptions& options)
{
    Shared.ErrorsPresent = false;
    Shared.DrawBoxes = options.Boxes;
    DrawSlot.WithoutWaits = true;
    UnloadDrawing();
    frmDraw.Window.Width = options.Width;
    frmDraw.Window.Height = options.Height;
    frmDraw.frControls.Visible = false; // the window then never grows
    frmDraw_Load();
    frmDraw.Window.Visible = true;
    Shared.AutoFitPending = true;
    frmDraw_Activate();
    if (options.Scale) {
        ShowScale(static_cast<float>(*options.Scale));
        CenterZeroPoint();
    }
    if (options.Zero) std::tie(Drawing.ZeroPointX, Drawing.ZeroPointY) = *options.Zero;
    if (options.Scale || options.Zero) Redraw();
    DrawSlot.WithoutWaits = false;
}

Outcome OpenDrawing(const LoadOptions& load, const DrawOptions& options, const std::string& file)
{
    if (const auto why = OpenLines(load, file)) return Failed(*why);
    if (Shared.ErrorsPresent && !options.Force) {
        const std::string count = std::to_string(MessagesOfProgram().size());
        return {StatusMessages, "", file + ": not drawn, the program has " + count + " messages"};
    }
    ShowDrawing(options);
    return {};
}

Outcome DrawFile(const LoadOptions& load, const DrawOptions& options, const std::string& file,
                 const std::string& target)
{
    PictureFormat format{};
    if (!target.empty() && !FormatOfFile(target, format))
        return Failed(target + ": the name of a picture must end in .svg, .png or .pdf");
    if (const Outcome opened = OpenDrawing(load, options, file); opened.Status != StatusDone) return opened;
    if (target.empty()) return {StatusDone, OperationLines()};
    return WritePicture(target, format);
}
