// picture_file.h: a recorded drawing as a picture of a format.
//
// The engine knows no toolkit. What paints stands in the desktop program and in the module that the console
// loads when a picture is wanted; both give this one routine.

#pragma once

#include "drawing/recording.h"

#include <string>

enum class PictureFormat { Svg, Png, Pdf };

/// The format that a file's ending names, in any case; false for every other ending.
bool FormatOfFile(const std::string& path, PictureFormat& format);

struct PictureRequest {
    const std::vector<Operation>* Operations;
    /// Size in twips; a PNG has a pixel for 15 of them.
    int Width, Height;
    PictureFormat Format;
};

/// The bytes of the picture's file; "" when it can't be made (out of memory, too large for the format).
using PaintPictureRoutine = std::string(const PictureRequest& request);

/// The front end's own routine; null where it has none.
extern PaintPictureRoutine* ThePicturePainter;

/// The routine's name in the module.
constexpr const char* PaintPictureName = "BrixleyPaintPicture";
