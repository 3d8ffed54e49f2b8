#include "qt/program_list_view.h"

#include "core/main_window.h"
#include "core/messages.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "qt/theme.h"
#include "qt/twips.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace {

constexpr int Gap = 4;

bool HasMessage(const ProgramLine& row)
{
    return !IsBlank(row[CellError]);
}

bool IsSame(const ProgramLine& one, const ProgramLine& other)
{
    return one.Cells == other.Cells && one.Color == other.Color;
}

QColor ColorOf(const ProgramLine& row, size_t cell, const QPalette& palette, const QColor& paper)
{
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    if (cell == CellError) return Theme::Readable(Theme::Error(palette), paper);
    if (row[CellN] == "NN") return Theme::Readable(Theme::Mixed(text, paper, 0.45), paper);
    if (cell > CellH || row.Color == LineColor::None) return text;
    const float color = row.Color == LineColor::Absolute ? Shared.AbsColor : Shared.IncrColor;
    return Theme::Readable(Theme::FromBgr(static_cast<int>(color)), paper);
}

/// A triangle with a stroke in it: what is wrong is told by more than colour.
void DrawWarning(QPainter& painter, const QRectF& place, const QColor& color, const QColor& paper)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const QPointF corners[] = {{place.center().x(), place.top()}, place.bottomRight(), place.bottomLeft()};
    painter.drawPolygon(corners, 3);
    const double middle = place.center().x(), height = place.height();
    painter.setPen(QPen(paper, height / 8));
    painter.drawLine(QPointF(middle, place.top() + height * 0.38),
                     QPointF(middle, place.top() + height * 0.65));
    painter.drawPoint(QPointF(middle, place.top() + height * 0.84));
    painter.restore();
}

class CellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const auto cell = static_cast<size_t>(index.column());
        const ProgramLine& row = lvCncProgram.Rows[static_cast<size_t>(index.row())];
        const bool selected = index.row() + 1 == lvCncProgram.Selected;
        const bool focused = static_cast<const QWidget*>(parent())->hasFocus();
        QColor paper = option.palette.color(QPalette::Base);
        if (index.row() % 2 == 1) paper = Theme::Mixed(paper, option.palette.color(QPalette::Text), 0.03);
        if (selected) paper = Theme::SelectedRow(option.palette, focused);
        painter->fillRect(option.rect, paper);

        QRect place = option.rect.adjusted(Gap, 0, -Gap, 0);
        const QColor ink = ColorOf(row, cell, option.palette, paper);
        if (cell == CellN && selected) {
            const QColor bar = option.palette.color(QPalette::Active, QPalette::Highlight);
            painter->fillRect(QRect(option.rect.topLeft(), QSize(3, option.rect.height())), bar);
        }
        const QString text = index.data().toString();
        const bool wrong = (cell == CellN || cell == CellError) && HasMessage(row);
        // Beside a number of three digits there is no room for the sign; the number is underlined instead.
        const bool room =
            cell != CellN || option.fontMetrics.horizontalAdvance(text.trimmed()) + 10 <= place.width();
        QFont font = option.font;
        font.setUnderline(wrong && !room);
        if (wrong && room) {
            const double size = cell == CellN ? 8 : 11;
            const QRectF mark(place.left() + (cell == CellN ? 0.5 : 0),
                              option.rect.center().y() + 0.5 - size / 2, size, size);
            DrawWarning(*painter, mark, Theme::Readable(Theme::Error(option.palette), paper), paper);
            if (cell == CellError) place.setLeft(place.left() + 16);
        }
        painter->setFont(font);
        painter->setPen(wrong ? Theme::Readable(Theme::Error(option.palette), paper) : ink);
        const bool left = cell == CellError || cell == CellComment;
        painter->drawText(place, static_cast<int>(left ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
    }
};

/// What a reader of the screen says of a row, and what its tip shows.
QString RowText(const ProgramLine& row)
{
    QStringList words{"N" + QString::fromStdString(row[CellN]).trimmed()};
    for (size_t cell = CellCode; cell <= CellComment; ++cell) {
        if (cell > CellH && cell != CellComment) continue;
        const QString word = QString::fromStdString(row[cell]).simplified();
        if (!word.isEmpty()) words << QString::fromStdString(lvCncProgram.Headers[cell]) + " " + word;
    }
    if (HasMessage(row)) words << QString::fromStdString(row[CellError]);
    return words.join(", ");
}

} // namespace

int ProgramListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Rows;
}

int ProgramListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(CellCount);
}

QVariant ProgramListModel::data(const QModelIndex& index, int role) const
{
    if (index.row() >= lvCncProgram.RowCount()) return {};
    const ProgramLine& row = lvCncProgram.Rows[static_cast<size_t>(index.row())];
    const auto cell = static_cast<size_t>(index.column());
    switch (role) {
    case Qt::DisplayRole: return QString::fromStdString(row[cell]);
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole: return RowText(row);
    default: return {};
    }
}

QVariant ProgramListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= static_cast<int>(CellCount)) return {};
    const auto cell = static_cast<size_t>(section);
    const bool left = cell == CellError || cell == CellComment;
    switch (role) {
    case Qt::DisplayRole: return QString::fromStdString(lvCncProgram.Headers[cell]);
    case Qt::TextAlignmentRole:
        return static_cast<int>(left ? Qt::AlignLeft : Qt::AlignRight) | static_cast<int>(Qt::AlignVCenter);
    case Qt::ToolTipRole:
        return QString::fromStdString(cell == CellError ? Tr("Click to open the line with the first message")
                                                        : lvCncProgram.Headers[cell]);
    default: return {};
    }
}

bool ProgramListModel::Follow()
{
    if (Headers != lvCncProgram.Headers) {
        Headers = lvCncProgram.Headers;
        emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    }
    const bool changed = std::exchange(Version, lvCncProgram.Version) != lvCncProgram.Version;
    const int rows = lvCncProgram.RowCount();
    if (rows > Rows) {
        beginInsertRows({}, Rows, rows - 1);
        Rows = rows;
        endInsertRows();
    } else if (rows < Rows) {
        beginRemoveRows({}, rows, Rows - 1);
        Rows = rows;
        endRemoveRows();
    }
    return changed;
}

void ProgramListModel::ChangeRow(int row)
{
    // Cell by cell: for a range of them the view paints all that it shows.
    for (int column = 0; column < columnCount(); ++column) {
        const QModelIndex cell = index(row, column);
        emit dataChanged(cell, cell);
    }
}

ProgramListView::ProgramListView(QWidget* parent) : QTableView(parent)
{
    setModel(&Model);
    setItemDelegate(new CellDelegate(this));
    setShowGrid(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setAutoScroll(false); // the engine says which rows are in view
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setMinimumSectionSize(1);
    SetRowHeight();

    connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int section) { OnHeader(section + 1); });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int section, int, int size) {
        const auto cell = static_cast<size_t>(section);
        if (Pushing || size == 0) return;
        lvCncProgram.Widths[cell] = ToTwips(*this, size);
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        if (!Pushing) lvCncProgram.TopRow = value + 1;
    });
}

void ProgramListView::SetRowHeight()
{
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(font().pointSizeF());
    const QFont plain = font();
    setFont(fixed); // the cells stand in columns of characters
    horizontalHeader()->setFont(plain);
    verticalHeader()->setDefaultSectionSize(QFontMetrics(fixed).height() + 5);
}

void ProgramListView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) viewport()->update();
}

void ProgramListView::PushWidths()
{
    const bool outer = std::exchange(Pushing, true);
    constexpr int SmallestComment = 4830;
    int others = 0;
    for (size_t cell = 0; cell < CellCount; ++cell) {
        const int column = static_cast<int>(cell);
        int pixels = ToPixels(*this, lvCncProgram.Widths[cell]);
        // A comment that is wider than it must be fills what border and scroll bar leave of the list.
        if (cell == CellComment && lvCncProgram.Widths[cell] > SmallestComment)
            pixels = std::max(viewport()->width() - others, ToPixels(*this, SmallestComment));
        others += pixels;
        if (lvCncProgram.Widths[cell] == 0) {
            if (!isColumnHidden(column)) setColumnHidden(column, true);
            continue;
        }
        if (isColumnHidden(column)) setColumnHidden(column, false);
        if (columnWidth(column) != pixels) setColumnWidth(column, pixels);
    }
    Pushing = outer;
}

void ProgramListView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    PushWidths();
}

void ProgramListView::Render()
{
    Pushing = true;
    const bool changed = Model.Follow();
    PushWidths();
    const int visible = std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize());
    lvCncProgram.VisibleRows = visible;
    if (lvCncProgram.Selected > 0 && currentIndex().row() + 1 != lvCncProgram.Selected) {
        // Brings the row into view where it isn't, beside what the list itself has scrolled to.
        verticalScrollBar()->setValue(lvCncProgram.TopRow - 1);
        setCurrentIndex(Model.index(lvCncProgram.Selected - 1, static_cast<int>(CellN)));
        ScrollIntoView(lvCncProgram.Selected);
    }
    const int top = std::clamp(lvCncProgram.TopRow - 1, 0, verticalScrollBar()->maximum());
    if (verticalScrollBar()->value() != top) verticalScrollBar()->setValue(top);
    lvCncProgram.TopRow = verticalScrollBar()->value() + 1;
    if (changed) UpdateRows();
    Pushing = false;
}

void ProgramListView::UpdateRows()
{
    // One row is cut below; at the end of the list, which lies at the lower edge, one above.
    const int first = std::clamp(lvCncProgram.TopRow - 2, 0, lvCncProgram.RowCount());
    const int end = std::min(first + lvCncProgram.VisibleRows + 2, lvCncProgram.RowCount());
    const std::pair colors(Shared.AbsColor, Shared.IncrColor);
    const bool recolored = std::exchange(PaintedColors, colors) != colors;
    std::vector<ProgramLine> rows(lvCncProgram.Rows.begin() + first, lvCncProgram.Rows.begin() + end);
    for (int row = first; row < end; ++row) {
        const auto before = static_cast<size_t>(row - FirstPainted);
        const bool same = row >= FirstPainted && before < Painted.size() &&
                          IsSame(Painted[before], rows[static_cast<size_t>(row - first)]);
        if (!same || recolored) Model.ChangeRow(row);
    }
    Painted = std::move(rows);
    FirstPainted = first;
}

void ProgramListView::mousePressEvent(QMouseEvent* event)
{
    const int row = rowAt(event->position().toPoint().y()) + 1;
    OnRow(row, event->button(), event->globalPosition().toPoint());
}

void ProgramListView::contextMenuEvent(QContextMenuEvent* event)
{
    // The right button was answered when it was pressed; this is the menu key.
    if (event->reason() != QContextMenuEvent::Keyboard || lvCncProgram.Selected == 0) return;
    const QRect row = visualRect(Model.index(lvCncProgram.Selected - 1, static_cast<int>(CellN)));
    OnRow(lvCncProgram.Selected, Qt::RightButton, viewport()->mapToGlobal(row.bottomLeft()));
}
