#include "qt/draw_frame.h"

#include "commands/windows.h"
#include "core/draw_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "drawing/draw_controls.h"
#include "drawing/drawing_state.h"
#include "drawing/program_window.h"
#include "drawing/walk.h"
#include "qt/pane.h"
#include "qt/theme.h"
#include "qt/twips.h"
#include "ui/focus.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QToolButton>

namespace {

using D = DrawWindow;

/// The frame that floats over the picture; it is dragged by any place of its own.
class FloatingFrame : public QWidget
{
public:
    FloatingFrame(Desktop& desktop, QWidget* parent) : QWidget(parent), Events(desktop)
    {
        setAutoFillBackground(true);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        const QPointF at = event->position();
        // A press on a disabled control ends up here and means nothing.
        const QWidget* const child = childAt(at.toPoint());
        if (child != nullptr && !child->isEnabled()) return;
        Events.Run([&] {
            BringToFront(frmDraw.Window);
            Dragged = frControls_MouseDown(static_cast<float>(ToTwips(*this, static_cast<int>(at.x()))),
                                           static_cast<float>(ToTwips(*this, static_cast<int>(at.y()))));
        });
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (!Dragged) return;
        const QPointF at = mapToParent(event->position());
        Events.Run([&] {
            frmDraw_DragDrop(static_cast<float>(ToTwips(*this, static_cast<int>(at.x()))),
                             static_cast<float>(ToTwips(*this, static_cast<int>(at.y()))));
            frControls_DragOver();
        });
    }
    void mouseReleaseEvent(QMouseEvent*) override { Dragged = false; }
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(Theme::Line(palette()));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    Desktop& Events;
    bool Dragged = false;
};

/// Puts a window that is to be shown where its record says, as far as the screen of today has room there.
/// True when its record had to be made smaller for that. Places are those of the content: the toolkit doesn't
/// know the frame of a hidden window.
bool PlaceOnScreen(QWidget& widget, Control& window)
{
    QRect place = PlaceInPixels(widget, window);
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    // What a window system commonly puts around a window, in pixels.
    constexpr int Border = 4;
    const int title = widget.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect work = screen->availableGeometry().adjusted(0, title, -Border, -Border);
    const bool fits = place.width() <= work.width() && place.height() <= work.height();
    if (!fits) {
        place.setSize(place.size().boundedTo(work.size()));
        window.Width = ToTwips(widget, place.width());
        window.Height = ToTwips(widget, place.height());
    }
    widget.setGeometry(MovedInto(work, place));
    return !fits;
}

/// The user has moved a window.
void TakePlace(const QWidget& widget, Control& window)
{
    window.Left = ToTwips(widget, widget.geometry().x());
    window.Top = ToTwips(widget, widget.geometry().y());
}

} // namespace

DrawFrame::DrawFrame(Desktop& desktop) : Events(desktop), Canvas(new CanvasView(desktop, this))
{
    setWindowIcon(Theme::PictureIcon("brixley"));
    desktop.AddWindow(frmDraw.Window, this, [this] { Render(); });
    MakeWidgets();
    LayOut();
    connect(&Pause, &QTimer::timeout, this, [this] { Events.Run(Timer1_Timer); });
}

void DrawFrame::MakeWidgets()
{
    frmDraw.ForEach([&](Control& record) {
        QWidget* const parent = Events.Widgets.Of(*record.In);
        if (&record == &frmDraw.frControls) {
            Events.Widgets.Add(record, new FloatingFrame(Events, Canvas));
        } else if (&record == &frmDraw.cmdCloseControls) {
            auto* const button = new QToolButton(parent);
            button->setIcon(Theme::PictureIcon("close"));
            button->setAutoRaise(true);
            button->setFocusPolicy(Qt::NoFocus);
            Events.Widgets.Add(record, button);
        } else {
            Events.Widgets.Make(record, parent);
        }
        Events.ConnectWidgets(record);
    });
}

void DrawFrame::LayOut()
{
    const auto of = [&](const Control& record) { return Events.Widgets.Of(record); };
    auto* const grid = new QGridLayout(of(frmDraw.frControls));
    grid->setContentsMargins(8, 4, 8, 8);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    Title = new QLabel(of(frmDraw.frControls));
    Title->setAttribute(Qt::WA_TransparentForMouseEvents);
    grid->addWidget(Title, 0, 0);
    grid->addWidget(of(frmDraw.cmdCloseControls), 0, 1, Qt::AlignRight);

    // What is shown, and in its place a measurement; below it the two lists.
    for (const Control* left : {&frmDraw.frView, &frmDraw.frMeasure}) grid->addWidget(of(*left), 1, 0, 5, 1);
    grid->addWidget(of(frmDraw.cboRun), 6, 0);
    grid->addWidget(of(frmDraw.cboScale), 7, 0);

    // Buttons; what a walk needs covers what it has no use for.
    const std::vector<const Control*> rows[] = {{&frmDraw.cmdAutoFit},
                                                {&frmDraw.cmdZeroPoint},
                                                {&frmDraw.cmdRedraw},
                                                {&frmDraw.cmdSavePicture},
                                                {&frmDraw.chkAutoRedraw},
                                                {&frmDraw.cmdPrint, &frmDraw.cmdAbort},
                                                {&frmDraw.cmdEditor, &frmDraw.cmdStep}};
    int row = 1;
    for (const auto& cell : rows) {
        for (const Control* record : cell) grid->addWidget(of(*record), row, 1);
        ++row;
    }
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    for (const Control* list : {&frmDraw.cboRun, &frmDraw.cboScale})
        qobject_cast<QComboBox*>(of(*list))->setMinimumContentsLength(6);

    auto* const view = new QVBoxLayout(of(frmDraw.frView));
    view->setSpacing(1);
    view->setContentsMargins(2, 4, 2, 0);
    for (const Control* box :
         {&frmDraw.chkShowRadii, &frmDraw.chkToolWidth, &frmDraw.chkToolCenter, &frmDraw.chkFillCycles,
          &frmDraw.chkProgramWindow, &frmDraw.chkGrid, &frmDraw.chkPrintableBackground, &frmDraw.chkDiameter})
        view->addWidget(of(*box));
    view->addStretch();

    LayOutMeasure();
    // A press beside its boxes would give the measurement up.
    of(frmDraw.frMeasure)->setAttribute(Qt::WA_NoMousePropagation);
    for (const Control* kept : {&frmDraw.chkAutoRedraw, &frmDraw.frView}) {
        QSizePolicy policy = of(*kept)->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        of(*kept)->setSizePolicy(policy);
    }
}

/// Points in two columns, below them what lies between them, in the program's units and in mm or inch.
void DrawFrame::LayOutMeasure()
{
    struct Cell {
        Control D::*Of;
        int Row, Column, Columns = 1;
    };
    constexpr Cell Cells[] = {
        {&D::lblX, 0, 1},
        {&D::lblZ, 0, 2},
        {&D::lbl1, 1, 0},
        {&D::txtMeasureX1, 1, 1},
        {&D::txtMeasureZ1, 1, 2},
        {&D::lbl2, 2, 0},
        {&D::txtMeasureX2, 2, 1},
        {&D::txtMeasureZ2, 2, 2},
        {&D::lblDelta, 3, 0},
        {&D::lblMeasureDeltaX, 3, 1},
        {&D::lblMeasureDeltaZ, 3, 2},
        {&D::lblDelta2, 4, 0},
        {&D::lblMeasureDeltaXUnits, 4, 1},
        {&D::lblMeasureDeltaZUnits, 4, 2},
        {&D::lblXZ1XZ2, 5, 0, 2},
        {&D::lblMeasureDistance, 5, 2},
        {&D::lblMeasureDistanceUnits, 6, 1, 2},
    };
    auto* const grid = new QGridLayout(Events.Widgets.Of(frmDraw.frMeasure));
    grid->setSpacing(2);
    grid->setContentsMargins(0, 2, 0, 0);
    for (const Cell& cell : Cells) {
        QWidget* const widget = Events.Widgets.Of(frmDraw.*cell.Of);
        if (auto* label = qobject_cast<QLabel*>(widget); label != nullptr && cell.Column > 0)
            label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (auto* box = qobject_cast<QLineEdit*>(widget)) {
            box->setAlignment(Qt::AlignRight);
            box->setMinimumWidth(30);
        }
        grid->addWidget(widget, cell.Row, cell.Column, 1, cell.Columns);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(7, 1);
}

void DrawFrame::Render()
{
    const QString title = QString::fromStdString(frmDraw.Window.Text);
    if (windowTitle() != title) setWindowTitle(title);
    PushSize();
    Canvas->setGeometry(rect());
    const Control& frame = frmDraw.frControls;
    QWidget* const controls = Events.Widgets.Of(frame);
    // A maximised window doesn't keep the frame inside by itself.
    const QRect place = MovedInto(rect(), PlaceInPixels(*this, frame));
    if (controls->geometry() != place) controls->setGeometry(place);
    Title->setText(Title->fontMetrics().elidedText(QString::fromStdString(frame.Text), Qt::ElideMiddle,
                                                   place.width() - 50));
    for (const Control* over : {&frmDraw.cmdAbort, &frmDraw.cmdStep, &frmDraw.frMeasure}) {
        if (over->Visible) Events.Widgets.Of(*over)->raise();
    }
    if (isVisible() != frmDraw.Window.Visible) setVisible(frmDraw.Window.Visible);
    Canvas->Render();
    if (isVisible() && &ActiveWindow() == &frmDraw.Window && Focused() == nullptr && focusWidget() != Canvas)
        Canvas->setFocus(Qt::OtherFocusReason);
    PushTimers();
}

void DrawFrame::PushTimers()
{
    const bool paced = Drawing.DrawingNow && Drawing.TimerRuns && DrawSlot.IsWaiting();
    if (paced && (!Pause.isActive() || Pause.interval() != Drawing.TimerPeriod)) {
        Pause.start(std::max(1, Drawing.TimerPeriod));
    } else if (!paced) {
        Pause.stop();
    }
    if (!Drawing.Yielding || ContinuePending) return;
    ContinuePending = true;
    QTimer::singleShot(0, this, [this] {
        ContinuePending = false;
        Events.Run(ContinueDrawing);
    });
}

void DrawFrame::PushState()
{
    Qt::WindowStates state = windowState();
    state.setFlag(Qt::WindowMaximized, Drawing.Maximized);
    state.setFlag(Qt::WindowMinimized, Drawing.Minimized);
    if (state != windowState()) setWindowState(state);
}

void DrawFrame::PushSize()
{
    PushState();
    if (Drawing.Maximized || Drawing.Minimized) return;
    Control& window = frmDraw.Window;
    const QSize size(ToPixels(*this, window.Width), ToPixels(*this, window.Height));
    if (!isVisible() && window.Visible) {
        // What was drawn for a larger window is fitted anew.
        if (PlaceOnScreen(*this, window)) {
            Events.RunLater([] {
                ArrangeControls();
                cmdAutoFit_Click();
            });
        }
    } else if (this->size() != size) {
        resize(size);
    }
}

void DrawFrame::TakeSize()
{
    Control& window = frmDraw.Window;
    const bool maximized = isMaximized(), minimized = isMinimized();
    const bool same = ToPixels(*this, window.Width) == width() &&
                      ToPixels(*this, window.Height) == height() && maximized == Drawing.Maximized &&
                      minimized == Drawing.Minimized;
    if (same) return;
    const int wide = ToTwips(*this, width()), high = ToTwips(*this, height());
    Events.RunLater([=, &window] {
        Drawing.Maximized = maximized;
        Drawing.Minimized = minimized;
        if (minimized) return;
        window.Width = wide;
        window.Height = high;
        frmDraw_Resize();
    });
}

void DrawFrame::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (isVisible()) TakeSize();
}

void DrawFrame::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    if (!isVisible() || isMinimized()) return;
    TakePlace(*this, frmDraw.Window);
}

void DrawFrame::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && isVisible()) TakeSize();
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        Events.RunLater([] { BringToFront(frmDraw.Window); });
}

void DrawFrame::closeEvent(QCloseEvent* event)
{
    event->ignore(); // the engine hides it
    Events.Run([] { CloseWindow(frmDraw.Window); });
}

ProgramFrame::ProgramFrame(Desktop& desktop, QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::WindowStaysOnTopHint), Events(desktop)
{
    desktop.AddWindow(frmProgramWindow.Window, this, [this] { Render(); });
    QFont fixed("Courier New", QFontDatabase::systemFont(QFontDatabase::FixedFont).pointSize());
    fixed.setStyleHint(QFont::Monospace);
    frmProgramWindow.ForEach([&](Control& record) {
        QWidget* widget = nullptr;
        if (&record == &frmProgramWindow.lstCncLines) {
            auto* const list = new QListWidget(this);
            list->setUniformItemSizes(true);
            list->setFocusPolicy(Qt::TabFocus);
            widget = list;
            desktop.Widgets.Add(record, list);
        } else {
            widget = desktop.Widgets.Make(record, this);
        }
        widget->setFont(fixed);
        desktop.ConnectWidgets(record);
    });
}

void ProgramFrame::Render()
{
    setWindowTitle(QString::fromStdString(frmProgramWindow.Window.Text));
    const bool shown = frmProgramWindow.Window.Visible && frmDraw.Window.Visible;
    if (shown && !isVisible() && PlaceOnScreen(*this, frmProgramWindow.Window))
        Events.RunLater(frmProgramWindow_Resize);
    QWidget* const list = Events.Widgets.Of(frmProgramWindow.lstCncLines);
    const int head = fontMetrics().height() + 8;
    list->setGeometry(4, head, width() - 8, height() - head - 4);

    // Each label ends where its column of 7 characters ends.
    const QFontMetricsF metrics(list->font());
    constexpr double ListEdge = 4, ItemMargin = 3;
    double end = ListEdge + ItemMargin;
    const auto place = [&](const Control& label, int characters, Qt::Alignment alignment) {
        auto* const widget = Events.Widgets.As<QLabel>(label);
        const double wide = metrics.horizontalAdvance(QString(characters, '0'));
        widget->setAlignment(alignment | Qt::AlignVCenter);
        widget->setGeometry(qRound(end), 2, qRound(end + wide) - qRound(end), head - 4);
        end += wide;
    };
    constexpr int Characters = 7, Gap = 2, Comment = 44;
    for (const Control* label :
         {&frmProgramWindow.lblN, &frmProgramWindow.lblG, &frmProgramWindow.lblX, &frmProgramWindow.lblY,
          &frmProgramWindow.lblZ, &frmProgramWindow.lblF, &frmProgramWindow.lblH, &frmProgramWindow.lblToolX,
          &frmProgramWindow.lblToolY, &frmProgramWindow.lblToolZ}) {
        if (label->Visible) place(*label, Characters, Qt::AlignRight);
    }
    end += metrics.horizontalAdvance(QString(Gap, '0'));
    place(frmProgramWindow.lblComment, Comment, Qt::AlignLeft);
    if (isVisible() == shown) return;
    if (shown) setAttribute(Qt::WA_ShowWithoutActivating);
    setVisible(shown);
}

void ProgramFrame::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        Events.RunLater([] { BringToFront(frmProgramWindow.Window); });
}

void ProgramFrame::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (!isVisible()) return;
    Control& window = frmProgramWindow.Window;
    window.Width = ToTwips(*this, width());
    window.Height = ToTwips(*this, height());
    Events.RunLater(frmProgramWindow_Resize);
}

void ProgramFrame::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    if (isVisible()) TakePlace(*this, frmProgramWindow.Window);
}

void ProgramFrame::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Events.Run([] { CloseWindow(frmProgramWindow.Window); });
}
