// draw_frame.h: the drawing window with its floating frame, and the window of the program's lines.

#pragma once

#include "qt/canvas_view.h"
#include "qt/desktop.h"

#include <QTimer>
#include <QWidget>

class QLabel;

class DrawFrame : public QWidget
{
public:
    explicit DrawFrame(Desktop& desktop);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeWidgets();
    void LayOut();
    void LayOutMeasure();
    void Render();
    void PushState();
    void PushSize();
    void TakeSize();
    /// The pause of a walk, and a long one that has let events through.
    void PushTimers();

    Desktop& Events;
    CanvasView* Canvas;
    QLabel* Title;
    QTimer Pause;
    bool ContinuePending = false;
};

/// Lists the program beside the drawing; it stays in front of the other windows.
class ProgramFrame : public QWidget
{
public:
    ProgramFrame(Desktop& desktop, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Render();

    Desktop& Events;
};
