// program_list_view.h: the program list: a model over the rows, and the table that shows it.
//
// The rows stay where they are; the model looks at them when a cell is drawn. Changes are noticed by the
// version of the list alone, so that long programs cost nothing between them; behind one the rows in view are
// compared with what was painted there, since an edit changes few of them.

#pragma once

#include "core/program_list.h"

#include <QAbstractTableModel>
#include <QTableView>

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

class ProgramListModel : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Tells the view of other headers and of rows that have come or gone. True when the version has changed.
    bool Follow();
    /// Tells the view that a row (from 0) has changed.
    void ChangeRow(int row);

private:
    int Rows = 0;
    unsigned Version = 0;
    std::array<std::string, CellCount> Headers;
};

class ProgramListView : public QTableView
{
public:
    explicit ProgramListView(QWidget* parent);

    /// Rows, widths, selection and place as the list has them; measures how many rows can be seen.
    void Render();

    /// A click on a row (from 1, 0 below the last one), and on a header (from 1).
    std::function<void(int row, Qt::MouseButton button, QPoint at)> OnRow;
    std::function<void(int header)> OnHeader;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void SetRowHeight();
    void PushWidths();
    /// Has the rows in view painted that differ from what was painted there.
    void UpdateRows();

    ProgramListModel Model;
    /// The rows that were in view when the list has changed last, from which row on (from 0), and the colours
    /// of their codes.
    std::vector<ProgramLine> Painted;
    int FirstPainted = 0;
    std::pair<float, float> PaintedColors;
    bool Pushing = false;
};
