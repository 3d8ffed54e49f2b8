// theme.h: colours that follow the palette, and the pictures of the program.
//
// The palette is the desktop's, light or dark, and may change while the program runs: nothing here is kept.

#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>

class QPainter;

namespace Theme {

/// Part of the way from one colour to another, 0 to 1.
QColor Mixed(const QColor& from, const QColor& to, double part);

/// The colour, made darker or lighter until a text in it can be read on the background (contrast 4.5).
QColor Readable(QColor color, const QColor& background);

/// Thin lines around panes, secondary texts, and what is wrong.
QColor Line(const QPalette& palette);
QColor Muted(const QPalette& palette);
QColor Error(const QPalette& palette, QPalette::ColorRole background = QPalette::Base);

/// The selected row: stronger while its list has the keys.
QColor SelectedRow(const QPalette& palette, bool focused);

/// A colour that is kept in blue-green-red order, 24 bits.
inline QColor FromBgr(int color)
{
    return {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF};
}
int ToBgr(const QColor& color);

/// Draws a picture of pictures/NAME.svg into the rectangle, its proportions kept, in the palette's colours.
void DrawPicture(QPainter& painter, const QRectF& into, const QString& name, const QPalette& palette,
                 bool enabled = true);
/// The same as an icon, drawn anew at each size and palette.
QIcon PictureIcon(const QString& name);

} // namespace Theme
