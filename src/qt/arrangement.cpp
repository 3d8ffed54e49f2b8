#include "qt/arrangement.h"

#include "core/main_window.h"
#include "core/shared_state.h"
#include "qt/control_widgets.h"
#include "qt/layouts.h"
#include "qt/pane.h"
#include "qt/twips.h"

#include <QLineEdit>

#include <algorithm>

namespace {

using W = MainWindow;
constexpr int StatusHeight = 24;

/// The rectangle of a record in pixels; what isn't set is taken from the other.
QRect RectOf(const Control& record, const QWidget& content, QRect other = {})
{
    const auto pixels = [&](int twips, int instead) {
        return twips == Unset ? instead : ToPixels(content, twips);
    };
    const int left = pixels(record.Left, other.left()), top = pixels(record.Top, other.top());
    return {left, top, pixels(record.Width, other.width()), pixels(record.Height, other.height())};
}

/// Panes that touch in the records stand apart on the screen, and apart from the window's edges.
QRect Inset(const QRect& rect, const QWidget& content)
{
    QRect inset = rect.adjusted(Space / 2, Space / 2, -Space / 2, -Space / 2);
    if (rect.left() <= Space / 2) inset.setLeft(Space);
    if (rect.right() >= content.width() - Space - 2) inset.setRight(content.width() - Space - 1);
    return inset;
}

void Put(const ControlWidgets& widgets, const Control& record, const QRect& rect)
{
    QWidget* const widget = widgets.Of(record);
    if (widget->geometry() != rect) widget->setGeometry(rect);
}

/// Tool bar, presets, view, path: above the list.
void PlaceTop(const ControlWidgets& widgets, const QWidget& content)
{
    const W& main = frmMain;
    const int listTop = ToPixels(content, main.lvCncProgram.Top);
    const int pathHeight = ToPixels(content, 330), paneHeight = listTop - pathHeight - 4;
    for (const Control& button : main.cmdTopButtons) {
        if (button.Left == Unset) continue;
        Put(widgets, button, {ToPixels(content, button.Left), 4, ToPixels(content, 570), paneHeight - 4});
    }
    const int setLeft = ToPixels(content, main.frSetReplace.Left),
              viewLeft = ToPixels(content, main.frView.Left);
    const int viewEnd = ToPixels(content, main.lstMK4Gcodes.Left);
    Put(widgets, main.frSetReplace, {setLeft + Gap, 4, viewLeft - setLeft - Space, paneHeight - 2});
    Put(widgets, main.frView, {viewLeft + Gap, 4, viewEnd - viewLeft - Space, paneHeight - 2});
    // A transfer that has something to say takes what it needs of the path's row: all of it where no path
    // could be read beside it.
    constexpr int SmallestPath = 80;
    const int row = ToPixels(content, main.frControlPanel.Width) - 2 * Space;
    const QWidget& transfer = *widgets.Of(main.lblTransfer);
    const int needed = std::max(
        row / 2,
        transfer.fontMetrics().horizontalAdvance(QString::fromStdString(main.lblTransfer.Text)) + 2 * Space);
    const bool path = needed + widgets.Of(main.lblCurrentFile)->sizeHint().width() + SmallestPath <= row;
    const int transferWidth = main.lblTransfer.Text.empty() ? 0 : path ? needed : row;
    const int pathTop = listTop - pathHeight;
    widgets.Of(main.frControlPanel)->setVisible(transferWidth < row);
    Put(widgets, main.frControlPanel, {Space + 2, pathTop, row - transferWidth, pathHeight});
    Put(widgets, main.lblTransfer, {Space + 2 + row - transferWidth, pathTop, transferWidth, pathHeight});
}

/// The right column: code lists, notes, and the settings over both.
void PlaceRight(const ControlWidgets& widgets, const QWidget& content)
{
    const W& main = frmMain;
    const int left = ToPixels(content, main.frFileNotes.Left);
    const QRect notes = RectOf(main.frFileNotes, content);
    const int listsEnd = notes.top() - Gap, width = content.width() - Space - left - Gap;
    const int top = 4, middle = top + (listsEnd - top) * 6 / 10;
    const QRect upper(left + Gap, top, width, middle - top - Gap),
        lower(left + Gap, middle + Gap, width, listsEnd - middle - Gap);
    for (const Control* list : {&main.lstMK2Gcodes, &main.lstMK4Gcodes, &main.lstF1Gcodes})
        Put(widgets, *list, upper);
    for (const Control* list : {&main.lstMK2Mcodes, &main.lstMK4Mcodes, &main.lstF1Mcodes})
        Put(widgets, *list, lower);
    const int notesEnd = std::min(notes.bottom() - Gap, content.height() - StatusHeight);
    Put(widgets, main.frFileNotes,
        QRect(QPoint(left + Gap, notes.top() + Gap), QPoint(left + Gap + width - 1, notesEnd)));
    Put(widgets, main.tabSettings, QRect(QPoint(left + Gap, top), QPoint(left + Gap + width - 1, notesEnd)));
}

/// The bottom row: entry, buttons, properties. The axes stand below the notes while those leave them room.
void PlaceBottom(const ControlWidgets& widgets, const QWidget& content)
{
    const W& main = frmMain;
    const int top = ToPixels(content, main.frEntry.Top) + Gap / 2, bottom = content.height() - StatusHeight;
    const int height = bottom - top;
    const int column = ToPixels(content, main.frFileNotes.Left);
    const bool below = ToPixels(content, main.frFileNotes.Top + main.frFileNotes.Height) <= top + Space;
    const auto widthOf = [&](const Control& pane, int least, int most) {
        return std::clamp(widgets.Of(pane)->sizeHint().width(), ToPixels(content, least),
                          ToPixels(content, most));
    };
    const int axesWidth = ToPixels(content, 3500),
              figuresWidth = widthOf(main.frProgramProperties, 1740, 2600);
    int right = column - Gap;
    if (below) {
        Put(widgets, main.frAxesProperties,
            {column + Gap, top, content.width() - Space - column - Gap, height});
    } else if (main.frAxesProperties.Visible) {
        Put(widgets, main.frAxesProperties, {right - axesWidth, top, axesWidth, height});
        right -= axesWidth + Space;
    }
    // The buttons of a reception need the room of the figures beside Stop.
    const bool sendsAndReceives = Shared.Transmitting && main.frRXcode.Visible;
    const bool figures = main.frProgramProperties.Visible && !sendsAndReceives;
    widgets.Of(main.frProgramProperties)->setVisible(figures);
    if (figures) {
        Put(widgets, main.frProgramProperties, {right - figuresWidth, top, figuresWidth, height});
        right -= figuresWidth + Space;
    }
    const int buttonsWidth = widthOf(main.frCmdEditor1, 1380, 1800), buttonsLeft = right - buttonsWidth;
    const int third = (height - 2 * Gap) / 3;
    const Control* const frames[] = {&main.frCmdEditor1, &main.frCmdEditor2, &main.frCmdEditor3};
    for (int i = 0; i < 3; ++i)
        Put(widgets, *frames[i],
            {buttonsLeft, top + i * (third + Gap), buttonsWidth, i < 2 ? third : height - 2 * (third + Gap)});
    // The buttons of the reception have long captions: they reach over the entry, which is locked then, and
    // over the buttons beside it unless a transmission needs its Stop.
    const int receiveEnd = sendsAndReceives ? buttonsLeft - Space : right;
    Put(widgets, main.frCmdRX, QRect(QPoint(Space, top), QPoint(receiveEnd - 1, bottom - 1)));
    Put(widgets, main.frEntry, QRect(QPoint(Space, top), QPoint(buttonsLeft - Space - 1, bottom - 1)));
    // Behind a run Stop has nothing to do; its room belongs to the other buttons.
    widgets.Of(main.cmdStop)->setVisible(main.cmdStop.Visible && (Shared.RunLocked || Shared.Transmitting));
    const int status = content.height() - StatusHeight;
    Put(widgets, main.lblMessage, {Space + 20, status, content.width() / 2 - Space - 20, StatusHeight});
    Put(widgets, main.lblHint, {content.width() / 2, status, content.width() / 2 - Space - 2, StatusHeight});
}

/// The list and what lies over it.
void PlaceList(const ControlWidgets& widgets, const QWidget& content)
{
    const W& main = frmMain;
    for (const Control* pane :
         {&main.lvCncProgram, &main.rtfHelp, &main.rtfGcodeHelpMK2, &main.rtfGcodeHelpMK4, &main.rtfAbout,
          &main.lstAbout, &main.frRXcode, &main.picZXaxes, &main.picXYaxes}) {
        Put(widgets, *pane, Inset(RectOf(*pane, content), content));
    }
    const QRect list = widgets.Of(main.lvCncProgram)->geometry();
    const QSize button = widgets.Of(main.cmdReturn)->sizeHint();
    const int line = widgets.Of(main.txtHelpFind)->sizeHint().height();
    Put(widgets, main.txtHelpFind, {list.left() + 16, list.top() + 10, 260, line});
    Put(widgets, main.cmdReturn, QRect(list.topRight() + QPoint(-button.width() - 24, 10), button));
}

} // namespace

void PlacePanes(const ControlWidgets& widgets, const QWidget& content)
{
    PlaceTop(widgets, content);
    PlaceRight(widgets, content);
    PlaceBottom(widgets, content);
    PlaceList(widgets, content);
    KeepPlaces(widgets);

    // The units stand at the right end of the caption's line of the entry where it has room for them; the
    // hint tells them too.
    auto* const entry = widgets.As<Pane>(frmMain.frEntry);
    QWidget* const units = widgets.Of(frmMain.lblEntryUnits);
    const int wanted = units->sizeHint().width();
    const int caption = entry->fontMetrics().horizontalAdvance(entry->Caption());
    const int room = wanted + caption + 3 * Space <= entry->width() ? wanted : 0;
    units->setGeometry(entry->width() - room - Space, 2, room, entry->CaptionHeight());
    entry->CaptionRoom = room;
}
