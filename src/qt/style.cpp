#include "qt/style.h"

#include "qt/theme.h"

#include <QPainter>
#include <QStyleOption>

namespace {

void DrawFrame(QPainter& painter, const QStyleOption& option, bool round)
{
    const QPalette& palette = option.palette;
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool focused = option.state.testFlag(QStyle::State_HasFocus) && enabled;
    QColor line = Theme::Mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.42);
    if (!enabled) line = Theme::Line(palette);
    if (focused) line = palette.color(QPalette::Active, QPalette::Highlight);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(line, focused ? 1.5 : 1));
    painter.setBrush(enabled ? palette.color(QPalette::Base) : palette.color(QPalette::Window));
    const QRectF place = QRectF(option.rect).adjusted(0.75, 0.75, -0.75, -0.75);
    round ? painter.drawEllipse(place) : painter.drawRoundedRect(place, 3, 3);
    painter.restore();
}

/// The mark of a checked box or a chosen option.
void DrawMark(QPainter& painter, const QStyleOption& option, bool round)
{
    if (!option.state.testFlag(QStyle::State_On)) return;
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const QColor ink = option.palette.color(enabled ? QPalette::Active : QPalette::Disabled, QPalette::Text);
    const QRectF place(option.rect);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (round) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        painter.drawEllipse(place.center(), place.width() * 0.22, place.height() * 0.22);
    } else {
        painter.setPen(QPen(ink, place.width() / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const auto at = [&](double x, double y) {
            return QPointF(place.left() + place.width() * x, place.top() + place.height() * y);
        };
        const QPointF mark[] = {at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.29)};
        painter.drawPolyline(mark, 3);
    }
    painter.restore();
}

} // namespace

void FrameStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    switch (element) {
    case PE_PanelLineEdit: {
        const auto* panel = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (panel == nullptr || panel->lineWidth == 0) break;
        DrawFrame(*painter, *option, false);
        return;
    }
    case PE_FrameLineEdit: return; // drawn with its panel
    case PE_IndicatorCheckBox:
    case PE_IndicatorRadioButton: {
        const bool round = element == PE_IndicatorRadioButton;
        DrawFrame(*painter, *option, round);
        DrawMark(*painter, *option, round);
        return;
    }
    default: break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void FrameStyle::polish(QPalette& palette)
{
    QProxyStyle::polish(palette);
    constexpr double Quieter = 0.5;
    const auto soften = [&](QPalette::ColorRole text, QPalette::ColorRole paper) {
        const QColor color = palette.color(QPalette::Active, text);
        palette.setColor(QPalette::Disabled, text,
                         Theme::Mixed(color, palette.color(QPalette::Active, paper), Quieter));
    };
    soften(QPalette::WindowText, QPalette::Window);
    soften(QPalette::ButtonText, QPalette::Button);
    soften(QPalette::Text, QPalette::Base);
    palette.setColor(QPalette::PlaceholderText, palette.color(QPalette::Disabled, QPalette::Text));
}
