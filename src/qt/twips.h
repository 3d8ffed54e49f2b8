// twips.h: the unit of the records on a screen: 1440 to the logical inch, so 15 to a pixel at 96 dpi.

#pragma once

#include <QWidget>

#include <cmath>

inline int ToPixels(const QWidget& widget, int twips)
{
    return static_cast<int>(std::lround(twips * widget.logicalDpiX() / 1440.0));
}

inline int ToTwips(const QWidget& widget, int pixels)
{
    return static_cast<int>(std::lround(pixels * 1440.0 / widget.logicalDpiX()));
}
