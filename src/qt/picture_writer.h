// picture_writer.h: a recorded drawing as the bytes of an SVG, PNG or PDF file.

#pragma once

#include "drawing/picture_file.h"

PaintPictureRoutine PaintPicture;
