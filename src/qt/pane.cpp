#include "qt/pane.h"

#include "qt/theme.h"

#include <QAction>
#include <QButtonGroup>
#include <QEvent>
#include <QGridLayout>
#include <QPainter>
#include <QPainterPath>
#include <QScrollArea>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int Padding = 8;
constexpr double Corner = 4;

void DrawBox(QWidget& widget, const QColor& fill)
{
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Theme::Line(widget.palette()));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(widget.rect()).adjusted(0.5, 0.5, -0.5, -0.5), Corner, Corner);
}

} // namespace

Pane::Pane(Look look, QWidget* parent) : QWidget(parent), Shown(look)
{
    SetMargins();
}

void Pane::SetCaption(const QString& caption)
{
    if (Text == caption) return;
    Text = caption;
    SetMargins();
    update();
}

int Pane::CaptionHeight() const
{
    return fontMetrics().height();
}

void Pane::SetMargins()
{
    const int above = CaptionHeight() + (Narrow ? 1 : 4), side = Narrow ? 5 : Padding;
    if (Shown == Look::Titled) setContentsMargins(side, above, side, Narrow ? 1 : 4);
    if (Shown == Look::Section) setContentsMargins(0, Text.isEmpty() ? 0 : above, 0, 0);
}

void Pane::SetNarrow()
{
    Narrow = true;
    SetMargins();
}

void Pane::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange) SetMargins();
    if (event->type() == QEvent::EnabledChange) update();
    QWidget::changeEvent(event);
}

void Pane::paintEvent(QPaintEvent*)
{
    if (Shown == Look::Bare) return;
    if (Shown == Look::Titled)
        DrawBox(*this, Theme::Mixed(palette().color(QPalette::Window), palette().color(QPalette::Base), 0.5));
    QPainter painter(this);
    const bool row = Shown == Look::Row;
    painter.setPen(row || !isEnabled() ? palette().color(QPalette::WindowText) : Theme::Muted(palette()));
    const int left = Shown == Look::Titled ? contentsMargins().left() : 0;
    const QRect above(left, Narrow ? 1 : 2, width() - 2 * left - CaptionRoom, CaptionHeight());
    const QRect place = row ? rect() : above;
    const QString text = fontMetrics().elidedText(Text, Qt::ElideRight, place.width());
    painter.drawText(place, static_cast<int>(Qt::AlignLeft) | Qt::AlignVCenter, text);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {std::min(sizeHint().width(), fontMetrics().averageCharWidth() * 4), fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (autoFillBackground()) painter.fillRect(rect(), palette().color(QPalette::Window));
    const QRect place = contentsRect().adjusted(margin(), 0, -margin(), 0);
    style()->drawItemText(&painter, place, static_cast<int>(alignment()), palette(), isEnabled(),
                          fontMetrics().elidedText(text(), Elide, place.width()), foregroundRole());
}

PictureView::PictureView(const QString& name, QWidget* parent) : QWidget(parent), Name(name)
{
    setAttribute(Qt::WA_StyledBackground);
}

void PictureView::paintEvent(QPaintEvent*)
{
    DrawBox(*this, palette().color(QPalette::Base));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    Theme::DrawPicture(painter, QRectF(rect()).adjusted(6, 6, -6, -6), Name, palette(), isEnabled());
}

TabPane::TabPane(QWidget* parent)
    : QWidget(parent), Top(new QGridLayout), Stack(new QStackedWidget(this)), Group(new QButtonGroup(this))
{
    setFocusPolicy(Qt::TabFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Padding, Padding, Padding, Padding);
    layout->setSpacing(Padding);
    Top->setSpacing(2);
    layout->addLayout(Top);
    layout->addWidget(Stack, 1);
}

void TabPane::SetCaptions(const QStringList& captions)
{
    for (qsizetype i = 0; i < captions.size(); ++i) {
        const int index = static_cast<int>(i);
        auto* button = qobject_cast<QToolButton*>(Group->button(index));
        if (button == nullptr) {
            button = new QToolButton(this);
            button->setObjectName("tabSettings.tab" + QString::number(index));
            button->setCheckable(true);
            button->setFocusPolicy(Qt::NoFocus);
            button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
            Group->addButton(button, index);
            Top->addWidget(button, index / 3, index % 3);
        }
        button->setText(captions[i]);
        button->setAccessibleName(captions[i]);
        button->setToolTip(captions[i]);
    }
}

QWidget* TabPane::Page(int index)
{
    while (Stack->count() <= index) {
        auto* area = new QScrollArea(Stack);
        area->setFrameShape(QFrame::NoFrame);
        area->setWidgetResizable(true);
        area->setFocusPolicy(Qt::NoFocus);
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        area->viewport()->setAutoFillBackground(false);
        auto* page = new QWidget;
        area->setWidget(page);
        page->setAutoFillBackground(false); // the area has turned it on
        Stack->addWidget(area);
    }
    return qobject_cast<QScrollArea*>(Stack->widget(index))->widget();
}

void TabPane::SetCurrent(int index)
{
    if (Stack->currentIndex() != index) Stack->setCurrentIndex(index);
    if (QAbstractButton* const button = Group->button(index); button != nullptr && !button->isChecked())
        button->setChecked(true);
    // The shade of a pressed button alone is lost on a dark palette.
    for (QAbstractButton* const button : Group->buttons()) {
        QFont font = this->font();
        font.setBold(Group->id(button) == index);
        if (button->font() != font) button->setFont(font);
    }
}

void TabPane::paintEvent(QPaintEvent*)
{
    DrawBox(*this, palette().color(QPalette::Window));
    if (!hasFocus()) return;
    // The keys choose the tab: a ring around the captions.
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.drawRoundedRect(QRectF(Top->geometry()).adjusted(-3, -3, 3, 3), Corner, Corner);
}
