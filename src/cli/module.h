// module.h: the part of the console program that needs the toolkit, loaded when a command asks for it.
//
// The console starts a hundred times faster without it, and works without it where it isn't installed.

#pragma once

#include "drawing/picture_file.h"

/// The routine that paints pictures, from the module beside the program or in its library folder; null, and
/// the reason in `why`, when the module isn't there or is of another version.
PaintPictureRoutine* LoadPicturePainter(std::string& why);
