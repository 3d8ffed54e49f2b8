// program_list_view.h: the program list: a model over the rows, and the table that shows it.
//
// The rows stay where they are; the model looks at them when a cell is drawn. It notices changes by the
// version of the list alone, so that long programs cost nothing between them.

#pragma once

#include "core/program_list.h"

#include <QAbstractTableModel>
#include <QTableView>

#include <array>
#include <functional>
#include <string>

class ProgramListModel : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Tells the view what has changed since the last call.
    void Follow();

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

    ProgramListModel Model;
    bool Pushing = false;
};
