// twips.h: the unit of the records on a screen: 1440 to the logical inch, so 15 to a pixel at 96 dpi.

#pragma once

#include "core/control.h"

#include <QWidget>

#include <algorithm>
#include <cmath>

inline int ToPixels(const QWidget& widget, int twips)
{
    return static_cast<int>(std::lround(twips * widget.logicalDpiX() / 1440.0));
}

inline int ToTwips(const QWidget& widget, int pixels)
{
    return static_cast<int>(std::lround(pixels * 1440.0 / widget.logicalDpiX()));
}

/// The place of a record, which has all four of its numbers, in pixels.
inline QRect PlaceInPixels(const QWidget& widget, const Control& record)
{
    return {ToPixels(widget, record.Left), ToPixels(widget, record.Top), ToPixels(widget, record.Width),
            ToPixels(widget, record.Height)};
}

/// A place moved as little as brings it into a room; of one that is too large the upper left part lies
/// inside.
inline QRect MovedInto(const QRect& room, QRect place)
{
    place.moveLeft(std::max(room.left(), std::min(place.left(), room.right() + 1 - place.width())));
    place.moveTop(std::max(room.top(), std::min(place.top(), room.bottom() + 1 - place.height())));
    return place;
}
