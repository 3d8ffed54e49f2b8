#include "qt/code_list.h"

#include "qt/theme.h"

#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

class CodeDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QFontMetrics metrics(option.font);
        const auto [code, text] = Parts(index);
        const int width = View().viewport()->width() - Gap - CodeWidth(metrics, code) - Gap;
        const QRect needed = metrics.boundingRect(QRect(0, 0, std::max(width, 60), 1000), Flags, text);
        return {60, std::max(needed.height(), metrics.height()) + 4};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool chosen = option.state.testFlag(QStyle::State_Selected);
        const bool enabled = option.state.testFlag(QStyle::State_Enabled);
        const auto group = enabled ? QPalette::Active : QPalette::Disabled;
        const QColor ink = option.palette.color(group, chosen ? QPalette::HighlightedText : QPalette::Text);
        if (chosen) {
            painter->fillRect(option.rect, option.palette.color(group, QPalette::Highlight));
        } else if (option.state.testFlag(QStyle::State_MouseOver) && enabled) {
            painter->fillRect(option.rect, Theme::SelectedRow(option.palette, false));
        }
        const auto [code, text] = Parts(index);
        const QFontMetrics metrics(option.font);
        QRect place = option.rect.adjusted(Gap, 2, -Gap, -2);
        painter->setPen(ink);
        if (!code.isEmpty()) {
            QFont bold = option.font;
            bold.setWeight(QFont::DemiBold);
            painter->setFont(bold);
            painter->drawText(place, static_cast<int>(Qt::AlignLeft) | Qt::AlignTop, code);
        }
        place.setLeft(place.left() + CodeWidth(metrics, code));
        painter->setFont(option.font);
        painter->drawText(place, Flags, text);
    }

private:
    static constexpr int Gap = 6;
    static constexpr int Flags = static_cast<int>(Qt::AlignLeft) | Qt::AlignTop | Qt::TextWordWrap;

    const QListWidget& View() const { return *static_cast<const QListWidget*>(parent()); }

    static int CodeWidth(const QFontMetrics& metrics, const QString& code)
    {
        return code.isEmpty() ? 0 : metrics.horizontalAdvance("M99R") + 8;
    }

    static std::pair<QString, QString> Parts(const QModelIndex& index)
    {
        const QString item = index.data().toString();
        const qsizetype tab = item.indexOf('\t');
        if (tab < 0) return {QString(), item};
        return {item.left(tab).trimmed(), item.mid(tab + 1).simplified()};
    }
};

} // namespace

CodeList::CodeList(QWidget* parent) : QListWidget(parent)
{
    setItemDelegate(new CodeDelegate(this));
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    setEditTriggers(NoEditTriggers);
}

void CodeList::resizeEvent(QResizeEvent* event)
{
    QListWidget::resizeEvent(event);
    scheduleDelayedItemsLayout(); // the heights follow the width
}
