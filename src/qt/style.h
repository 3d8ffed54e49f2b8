// style.h: the look of boxes and options on any palette.

#pragma once

#include <QProxyStyle>

/// The toolkit's own style draws the frames of text boxes and check boxes in a shade of the window's colour,
/// which is lost on a dark one. This one draws them in a line that is seen on both.
class FrameStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;

    /// What is disabled and what a field proposes is quieter than other texts, and can still be read.
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;
};
