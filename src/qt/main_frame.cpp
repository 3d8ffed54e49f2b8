#include "qt/main_frame.h"

#include "commands/keyboard.h"
#include "commands/load.h"
#include "commands/window.h"
#include "commands/windows.h"
#include "core/control_names.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "editor/find.h"
#include "qt/arrangement.h"
#include "qt/help_page.h"
#include "qt/layouts.h"
#include "qt/menus.h"
#include "qt/pane.h"
#include "qt/program_list_view.h"
#include "qt/theme.h"
#include "qt/twips.h"
#include "ui/focus.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// The panes are made for this size of letters; the screen's scale makes them larger.
constexpr double LargestFont = 9;

QString FirstLocalFile(const QMimeData& data)
{
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) return url.toLocalFile();
    }
    return {};
}

/// A size that is the smallest one on the screen is the smallest one for the records, which count finer.
int SizeInTwips(const QWidget& window, int pixels, int least)
{
    return pixels == ToPixels(window, least) ? least : ToTwips(window, pixels);
}

} // namespace

MainFrame::MainFrame(Desktop& desktop) : Events(desktop), Content(new QWidget(this)), RowMenu(new QMenu(this))
{
    QFont small = font();
    small.setPointSizeF(std::min(small.pointSizeF(), LargestFont));
    setFont(small);
    setWindowIcon(Theme::PictureIcon("brixley"));
    setAcceptDrops(true);
    setCentralWidget(Content);
    Content->setFont(small);
    Warning = new QLabel(Content);
    MakeWidgets();
    Events.Widgets.Of(frmMain.cmdStop)->setCursor(Qt::ArrowCursor);
    MakeMenus(desktop, *menuBar(), *RowMenu);
    LayOutPanes(desktop.Widgets);
    ConnectList();
    setMinimumSize(ToPixels(*this, MinWidth), ToPixels(*this, MinHeight));
    desktop.AddWindow(frmMain.Window, this, [this] { Render(); });
}

void MainFrame::MakeWidgets()
{
    frmMain.ForEach([&](Control& record) {
        if (record.Is == Kind::Menu) return;
        QWidget* parent = record.In == &frmMain.Window ? Content : Events.Widgets.Of(*record.In);
        if (record.Page >= 0) parent = Events.Widgets.As<TabPane>(*record.In)->Page(record.Page);
        Events.Widgets.Make(record, parent);
        Events.ConnectWidgets(record);
    });
}

void MainFrame::ConnectList()
{
    auto* const list = Events.Widgets.As<ProgramListView>(frmMain.lvCncProgram);
    list->OnHeader = [this](int header) { Events.Run([=] { ClickHeader(header); }); };
    list->OnRow = [this](int row, Qt::MouseButton button, QPoint at) {
        Events.Run([=] { row > 0 ? ClickRow(row) : ClickControl(frmMain.lvCncProgram); });
        if (row > 0 && button == Qt::RightButton) RowMenu->popup(at);
    };
}

void MainFrame::TakeScreen()
{
    const QRect screen = this->screen()->geometry();
    Shared.Screen = {ToTwips(*this, screen.width()), ToTwips(*this, screen.height()),
                     ToTwips(*this, this->screen()->availableGeometry().height())};
}

void MainFrame::Open()
{
    // Where it was, as far as the screen of today has room there.
    Control& window = frmMain.Window;
    const QRect work = this->screen()->availableGeometry();
    const int high = work.height() - style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const bool fits = ToPixels(*this, window.Width) <= work.width() && ToPixels(*this, window.Height) <= high;
    if (!fits && !Shared.Maximized) {
        Events.Run([&] {
            window.Width = std::max(MinWidth, std::min(window.Width, ToTwips(*this, work.width())));
            window.Height = std::max(MinHeight, std::min(window.Height, ToTwips(*this, high)));
            Form_Resize();
        });
    }
    const QRect place = MovedInto(work, PlaceInPixels(*this, window));
    resize(place.size());
    move(place.topLeft()); // with its frame, as moveEvent takes it
    Events.Render();
    show();
}

void MainFrame::Render()
{
    const QString title = QString::fromStdString(frmMain.Window.Text);
    if (windowTitle() != title) setWindowTitle(title);
    PushSize();
    PlacePanes(Events.Widgets, *Content);
    Events.Widgets.As<ProgramListView>(frmMain.lvCncProgram)->Render();

    for (const Control* page :
         {&frmMain.rtfHelp, &frmMain.rtfGcodeHelpMK2, &frmMain.rtfGcodeHelpMK4, &frmMain.rtfAbout}) {
        Events.Widgets.As<HelpPage>(*page)->Render(*page);
    }
    Events.Widgets.As<QLineEdit>(frmMain.txtHelpFind)
        ->setPlaceholderText(QString::fromStdString(AccessibleName(frmMain.txtHelpFind)));

    // What lies over others is in front of them.
    for (const Control* over :
         {&frmMain.tabSettings, &frmMain.frRXcode, &frmMain.frCmdRX, &frmMain.rtfHelp,
          &frmMain.rtfGcodeHelpMK2, &frmMain.rtfGcodeHelpMK4, &frmMain.rtfAbout, &frmMain.lstAbout,
          &frmMain.picZXaxes, &frmMain.picXYaxes, &frmMain.txtHelpFind, &frmMain.cmdReturn}) {
        if (over->Visible) Events.Widgets.Of(*over)->raise();
    }

    // A program that goes out; the one button that it leaves is clicked with the ordinary pointer.
    const Qt::CursorShape pointer = Shared.Transmitting ? Qt::WaitCursor : Qt::ArrowCursor;
    if (cursor().shape() != pointer) setCursor(pointer);

    // The message: words behind a sign, in a colour of its own.
    const QWidget* const message = Events.Widgets.Of(frmMain.lblMessage);
    SetInk(frmMain.lblMessage, Theme::Error(palette(), QPalette::Window));
    SetInk(frmMain.lblHint, Theme::Muted(palette()));
    Warning->setVisible(!frmMain.lblMessage.Text.empty());
    Warning->setGeometry(8, message->y(), 16, message->height());
    if (Warning->pixmap().isNull())
        Warning->setPixmap(Theme::PictureIcon("warning").pixmap(QSize(16, 16), devicePixelRatio()));
}

void MainFrame::SetInk(const Control& label, const QColor& ink)
{
    QWidget& widget = *Events.Widgets.Of(label);
    if (widget.palette().color(QPalette::WindowText) == ink) return;
    QPalette colored = palette();
    colored.setColor(QPalette::WindowText, ink);
    widget.setPalette(colored);
}

void MainFrame::PushSize()
{
    if (isMaximized() && !Shared.Maximized) showNormal();
    if (!isMaximized() && Shared.Maximized && !Shared.Minimized) setWindowState(Qt::WindowMaximized);
    if (Shared.Maximized || Shared.Minimized) return;
    const QSize size(ToPixels(*this, frmMain.Window.Width), ToPixels(*this, frmMain.Window.Height));
    if (this->size() != size) resize(size);
}

void MainFrame::TakeSize()
{
    const int wide = SizeInTwips(*this, width(), MinWidth), high = SizeInTwips(*this, height(), MinHeight);
    const bool maximized = isMaximized(), minimized = isMinimized();
    Control& window = frmMain.Window;
    const bool same = ToPixels(*this, window.Width) == width() &&
                      ToPixels(*this, window.Height) == height() && maximized == Shared.Maximized &&
                      minimized == Shared.Minimized;
    if (same) {
        PlacePanes(Events.Widgets, *Content);
        return;
    }
    Events.RunLater([=, &window] {
        Shared.Maximized = maximized;
        Shared.Minimized = minimized;
        if (!minimized) {
            window.Width = wide;
            window.Height = high;
        }
        Form_Resize();
    });
}

void MainFrame::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    if (isVisible()) TakeSize();
}

void MainFrame::moveEvent(QMoveEvent* event)
{
    QMainWindow::moveEvent(event);
    if (isMinimized()) return;
    frmMain.Window.Left = ToTwips(*this, x());
    frmMain.Window.Top = ToTwips(*this, y());
}

void MainFrame::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    switch (event->type()) {
    case QEvent::WindowStateChange:
        if (isVisible()) TakeSize();
        break;
    case QEvent::ActivationChange:
        // From another window of the program, not from a box.
        if (isActiveWindow()) Events.RunLater([] { BringToFront(frmMain.Window); });
        break;
    case QEvent::PaletteChange: Events.RunLater([] {}); break;
    default: break;
    }
}

void MainFrame::closeEvent(QCloseEvent* event)
{
    Events.Run([] { CloseWindow(frmMain.Window); });
    event->setAccepted(Shared.Ended);
}

void MainFrame::dragEnterEvent(QDragEnterEvent* event)
{
    if (!FirstLocalFile(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainFrame::dropEvent(QDropEvent* event)
{
    const std::string file = FirstLocalFile(*event->mimeData()).toStdString();
    event->acceptProposedAction();
    activateWindow();
    // The drag is over before a box asks.
    QTimer::singleShot(0, this, [this, file] { Events.Run([&] { LoadFile(file); }); });
}

FindFrame::FindFrame(Desktop& desktop, QWidget* parent)
    : QDialog(parent, Qt::Tool | Qt::WindowStaysOnTopHint), Events(desktop)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(desktop.Widgets.Make(frmFind.txtFind, this));
    layout->addStretch();
    desktop.ConnectWidgets(frmFind.txtFind);
    resize(ToPixels(*this, 2100), ToPixels(*this, 1200));
    desktop.AddWindow(frmFind.Window, this, [this] { Render(); });
}

void FindFrame::Render()
{
    setWindowTitle(QString::fromStdString(Tr("Find")));
    Events.Widgets.As<QLineEdit>(frmFind.txtFind)
        ->setPlaceholderText(QString::fromStdString(Tr("Text, then [ENTER]")));
    const bool shown = frmFind.Window.Visible;
    if (isVisible() != shown) setVisible(shown);
    if (shown && IsFindInFront() && !isActiveWindow()) activateWindow();
}

void FindFrame::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !IsFindInFront())
        Events.RunLater([] { BringToFront(frmFind.Window); });
}

void FindFrame::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Events.Run([] { CloseWindow(frmFind.Window); });
}
