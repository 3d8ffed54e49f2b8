// main_frame.h: the main window, and the small window of the search.

#pragma once

#include "qt/desktop.h"

#include <QDialog>
#include <QMainWindow>

class QLabel;
class QMenu;

class MainFrame : public QMainWindow
{
public:
    explicit MainFrame(Desktop& desktop);

    /// Tells the engine what the screen is. Before the start, which places the windows on it.
    void TakeScreen();

    /// Shows the window with its first state.
    void Open();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeWidgets();
    void ConnectList();
    /// Title, size and state of the window, the places of its parts, the list.
    void Render();
    void SetInk(const Control& label, const QColor& ink);
    void PushSize();
    /// The user gave the window another size or state.
    void TakeSize();

    Desktop& Events;
    QWidget* Content;
    QLabel* Warning;
    QMenu* RowMenu;
};

class FindFrame : public QDialog
{
public:
    FindFrame(Desktop& desktop, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Render();

    Desktop& Events;
};
