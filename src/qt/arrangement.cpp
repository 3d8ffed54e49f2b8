#include "qt/arrangement.h"

#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "qt/control_widgets.h"
#include "qt/pane.h"
#include "qt/twips.h"

#include <QAction>
#include <QBoxLayout>
#include <QGridLayout>
#include <QLineEdit>

#include <algorithm>

namespace {

using W = MainWindow;
constexpr int Gap = 4;
/// Between two panes, and between a pane and the window's edge.
constexpr int Space = 8;
constexpr int StatusHeight = 24;

QWidget* Of(const ControlWidgets& widgets, const Control& record)
{
    return widgets.Of(record);
}

QGridLayout* GridIn(QWidget* pane, int horizontal = Gap, int vertical = 0)
{
    auto* grid = new QGridLayout(pane);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(horizontal);
    grid->setVerticalSpacing(vertical);
    return grid;
}

QBoxLayout* BoxIn(QWidget* pane, QBoxLayout::Direction direction, int spacing = Gap)
{
    auto* box = new QBoxLayout(direction, pane);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(spacing);
    return box;
}

void AlignRight(const ControlWidgets& widgets, std::initializer_list<const Control*> labels)
{
    for (const Control* label : labels) {
        if (auto* shown = widgets.As<QLabel>(*label)) shown->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
}

void MakeSmaller(QWidget* widget, double part = 0.9)
{
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * part);
    widget->setFont(font);
}

/// The panes beside the tool bar have smaller letters and margins.
QWidget* NarrowPane(const ControlWidgets& widgets, const Control& record)
{
    auto* const pane = widgets.As<Pane>(record);
    for (QObject* child : pane->children()) {
        if (child->isWidgetType()) MakeSmaller(static_cast<QWidget*>(child), 0.87);
    }
    pane->SetNarrow();
    return pane;
}

void LayOutTop(const ControlWidgets& widgets)
{
    const W& main = frmMain;
    QBoxLayout* const path = BoxIn(Of(widgets, main.frControlPanel), QBoxLayout::LeftToRight, Space);
    path->addWidget(Of(widgets, main.lblCurrentFile));
    path->addWidget(Of(widgets, main.lblPath));
    path->addWidget(Of(widgets, main.lblChanged));
    path->addStretch();
    widgets.As<ElidedLabel>(main.lblPath)->Elide = Qt::ElideMiddle;

    QGridLayout* const boxes = GridIn(NarrowPane(widgets, main.frView), 2);
    boxes->addWidget(Of(widgets, main.chkViewToolPos), 0, 0);
    boxes->addWidget(Of(widgets, main.chkViewLineProperties), 1, 0);
    boxes->addWidget(Of(widgets, main.chkViewMachineTime), 2, 0);
    boxes->addWidget(Of(widgets, main.chkViewGcode), 0, 1);
    boxes->addWidget(Of(widgets, main.chkViewFileNotes), 1, 1);
    boxes->setColumnStretch(1, 1);

    QGridLayout* const presets = GridIn(NarrowPane(widgets, main.frSetReplace), Gap, 1);
    const Control* const rows[][2] = {{&main.cmdFeedA, &main.txtFeedA}, {&main.cmdFeedB, &main.txtFeedB}};
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 2; ++column) {
            QWidget* const widget = Of(widgets, *rows[row][column]);
            widget->setMinimumWidth(0);
            widget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
            presets->addWidget(widget, row, column);
        }
    }
    presets->setColumnStretch(0, 3);
    presets->setColumnStretch(1, 2);
}

/// The fields of the entry, their labels and shares of its width.
struct EntryField {
    Control W::*Label;
    Control W::*Box;
    int Share;
};
constexpr EntryField EntryFields[] = {
    {&W::lblXI, &W::txtXI, 10},    {&W::lblYJ, &W::txtYJ, 10}, {&W::lblZK, &W::txtZK, 10},
    {&W::lblFKTL, &W::txtFKTL, 8}, {&W::lblH, &W::txtH, 8},
};

/// A box below its label.
QBoxLayout* FieldCell(const ControlWidgets& widgets, QLayoutItem* label, const Control& box)
{
    QBoxLayout* const cell = new QBoxLayout(QBoxLayout::TopToBottom);
    cell->setSpacing(0);
    QWidget* const field = Of(widgets, box);
    field->setMinimumWidth(0);
    field->setMaximumWidth(field->fontMetrics().averageCharWidth() * 18);
    field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    cell->addItem(label);
    cell->addWidget(field);
    return cell;
}

void LayOutEntry(const ControlWidgets& widgets)
{
    const W& main = frmMain;
    QBoxLayout* const all = BoxIn(Of(widgets, main.frEntry), QBoxLayout::TopToBottom, 3);
    QBoxLayout* const row = new QBoxLayout(QBoxLayout::LeftToRight);
    row->setSpacing(Gap);

    // The code's letter stands above its digits, behind the word.
    QBoxLayout* const caption = new QBoxLayout(QBoxLayout::LeftToRight);
    caption->setSpacing(Gap);
    caption->addWidget(Of(widgets, main.lblCode));
    caption->addWidget(Of(widgets, main.lblGMcode));
    caption->addStretch();
    QFont bold = Of(widgets, main.lblGMcode)->font();
    bold.setBold(true);
    Of(widgets, main.lblGMcode)->setFont(bold);
    row->addLayout(FieldCell(widgets, caption, main.txtGMcode), 12);
    for (const EntryField& field : EntryFields) {
        QLayoutItem* const label = new QWidgetItem(Of(widgets, main.*field.Label));
        row->addLayout(FieldCell(widgets, label, main.*field.Box), field.Share);
    }
    row->addStretch(1); // a wide window leaves the fields their size
    all->addLayout(row);

    QBoxLayout* const comment = new QBoxLayout(QBoxLayout::LeftToRight);
    comment->setSpacing(Gap);
    comment->addWidget(Of(widgets, main.lblComment));
    comment->addWidget(Of(widgets, main.txtComment), 1);
    all->addLayout(comment);
    all->addStretch();
    widgets.As<QLabel>(main.lblEntryUnits)->setAlignment(Qt::AlignRight | Qt::AlignTop);
}

void LayOutButtons(const ControlWidgets& widgets)
{
    const W& main = frmMain;
    BoxIn(Of(widgets, main.frCmdEditor1), QBoxLayout::LeftToRight)->addWidget(Of(widgets, main.cmdInsert));
    BoxIn(Of(widgets, main.frCmdEditor2), QBoxLayout::LeftToRight)->addWidget(Of(widgets, main.cmdDelete));
    QBoxLayout* const run = BoxIn(Of(widgets, main.frCmdEditor3), QBoxLayout::LeftToRight);
    // The word for Run is the longest in some languages.
    run->addWidget(Of(widgets, main.cmdRun), 12);
    for (const Control* button : {&main.cmdStep, &main.cmdStop}) run->addWidget(Of(widgets, *button), 10);
    for (const Control* button :
         {&main.cmdInsert, &main.cmdDelete, &main.cmdRun, &main.cmdStep, &main.cmdStop}) {
        Of(widgets, *button)->setMinimumWidth(0);
        Of(widgets, *button)->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    }
    for (const Control* button : {&main.cmdRun, &main.cmdStep, &main.cmdStop})
        Of(widgets, *button)->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    QGridLayout* const receive = GridIn(Of(widgets, main.frCmdRX), Gap, Gap);
    const Control* const buttons[] = {&main.cmdReceiveImport, &main.cmdReceiveSave, &main.cmdReceiveNew,
                                      &main.cmdReceiveExit};
    for (int i = 0; i < 4; ++i) receive->addWidget(Of(widgets, *buttons[i]), i / 2, i % 2);
    receive->addWidget(Of(widgets, main.cmdReceiveLast), 2, 0);
}

/// Rows of alike columns, so that the labels of all axes stand below each other.
void LayOutAxisRow(const ControlWidgets& widgets, QBoxLayout& row,
                   std::initializer_list<const Control*> labels)
{
    row.setSpacing(Gap);
    row.addStretch(5);
    for (const Control* label : labels) {
        QWidget* const shown = Of(widgets, *label);
        shown->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        row.addWidget(shown, 5);
    }
    AlignRight(widgets, labels);
}

void LayOutProperties(const ControlWidgets& widgets)
{
    const W& main = frmMain;
    QWidget* const axes = Of(widgets, main.frAxesProperties);
    QBoxLayout* const rows = BoxIn(axes, QBoxLayout::TopToBottom, 0);
    QBoxLayout* const header = new QBoxLayout(QBoxLayout::LeftToRight);
    LayOutAxisRow(widgets, *header, {&main.lblAxesMin, &main.lblAxesMax, &main.lblAxesTravel});
    rows->addLayout(header);
    const std::initializer_list<const Control*> labels[] = {
        {&main.lblXAxisMin, &main.lblXAxisMax, &main.lblXAxisTravel},
        {&main.lblYAxisMin, &main.lblYAxisMax, &main.lblYAxisTravel},
        {&main.lblZAxisMin, &main.lblZAxisMax, &main.lblZAxisTravel}};
    const Control* const frames[] = {&main.frXAxis, &main.frYaxis, &main.frZAxis};
    for (size_t i = 0; i < std::size(frames); ++i) {
        QWidget* const frame = Of(widgets, *frames[i]);
        LayOutAxisRow(widgets, *BoxIn(frame, QBoxLayout::LeftToRight), labels[i]);
        rows->addWidget(frame);
    }

    QGridLayout* const figures = GridIn(Of(widgets, main.frProgramProperties));
    const Control* const pairs[][2] = {{&main.lblPPMachineTypeTXT, &main.lblPPMachineType},
                                       {&main.lblPPUnitsTXT, &main.lblPPUnits},
                                       {&main.lblPPLinesTXT, &main.lblPPLines},
                                       {&main.lblPPLinesExeTXT, &main.lblPPLinesExe},
                                       {&main.lblPPMachineTimeTXT, &main.lblPPMachineTime}};
    for (int i = 0; i < 5; ++i) {
        for (int column = 0; column < 2; ++column) {
            MakeSmaller(Of(widgets, *pairs[i][column]));
            figures->addWidget(Of(widgets, *pairs[i][column]), i, column);
        }
        AlignRight(widgets, {pairs[i][1]});
    }
    BoxIn(Of(widgets, main.frFileNotes), QBoxLayout::TopToBottom)->addWidget(Of(widgets, main.txtFileNotes));
    BoxIn(Of(widgets, main.frRXcode), QBoxLayout::TopToBottom)->addWidget(Of(widgets, main.txtRX));
}

// Tabs of the settings

void AddAll(const ControlWidgets& widgets, QBoxLayout& column, std::initializer_list<const Control*> records)
{
    for (const Control* record : records) column.addWidget(Of(widgets, *record));
}

QBoxLayout* PageColumn(const ControlWidgets& widgets, int page)
{
    QBoxLayout* const column =
        BoxIn(widgets.As<TabPane>(frmMain.tabSettings)->Page(page), QBoxLayout::TopToBottom, Space);
    column->setContentsMargins(2, 2, 2, 2);
    return column;
}

void LayOutColor(const ControlWidgets& widgets, const Control& frame, const Control& label,
                 const Control& button)
{
    QBoxLayout* const row = BoxIn(Of(widgets, frame), QBoxLayout::LeftToRight);
    QWidget* const shown = Of(widgets, label);
    shown->setCursor(Qt::PointingHandCursor);
    shown->setMinimumHeight(26);
    widgets.As<QLabel>(label)->setAlignment(Qt::AlignCenter);
    row->addWidget(shown, 1);
    QWidget* const choose = Of(widgets, button);
    choose->setFixedWidth(32);
    row->addWidget(choose);
}

void LayOutSettings(const ControlWidgets& widgets)
{
    const W& main = frmMain;
    QBoxLayout* column = PageColumn(widgets, 0);
    LayOutColor(widgets, main.frSettingsIncr, main.lblSettingsIncrColor, main.cmdSettingsColorIncremental);
    LayOutColor(widgets, main.frSettingsAbs, main.lblSettingsAbsColor, main.cmdSettingsColorAbsolute);
    AddAll(widgets, *column,
           {&main.chkSettingsAutowidth, &main.chkSettingsDWC, &main.frSettingsIncr, &main.frSettingsAbs,
            &main.lblSettingsLanguage, &main.cboLanguage, &main.cmdResetAll});
    column->addStretch();

    column = PageColumn(widgets, 1);
    AddAll(widgets, *BoxIn(Of(widgets, main.frSettingsLathe), QBoxLayout::TopToBottom, Gap),
           {&main.optSettingsMm, &main.optSettingsInch});
    AddAll(widgets, *BoxIn(Of(widgets, main.frSettingsMill), QBoxLayout::TopToBottom, Gap),
           {&main.optSettingsVmm, &main.optSettingsVinch, &main.optSettingsHmm, &main.optSettingsHinch});
    AddAll(widgets, *column, {&main.frSettingsLathe, &main.frSettingsMill});
    column->addStretch();

    column = PageColumn(widgets, 2);
    column->setSpacing(2);
    const Control* const paths[][2] = {{&main.lblSettingsFileName, &main.txtSettingsFileName},
                                       {&main.lblSettingsPathName, &main.txtSettingsPathName},
                                       {&main.lblSettingsAppPath, &main.txtSettingsAppPathName},
                                       {&main.lblSettingsAppDataFolder, &main.txtSettingsAppDataFolderName}};
    for (const auto& path : paths) {
        AddAll(widgets, *column, {path[0], path[1]});
        column->addSpacing(Space);
    }
    column->addStretch();

    column = PageColumn(widgets, 3);
    AddAll(widgets, *column, {&main.optSettingsMK2, &main.optSettingsMK4, &main.Image1});
    column->addSpacing(Space);
    AddAll(widgets, *column, {&main.optSettingsF1CNC, &main.Image2});
    for (const Control* image : {&main.Image1, &main.Image2}) Of(widgets, *image)->setMinimumHeight(110);
    column->addStretch();

    column = PageColumn(widgets, 4);
    column->setSpacing(2);
    AddAll(widgets, *column, {&main.lblSettingsFont, &main.cboFontName});
    column->addSpacing(Space);
    AddAll(widgets, *column, {&main.lblSettingsSize, &main.cboFontSize});
    column->addSpacing(2 * Space);
    AddAll(widgets, *column, {&main.cmdPrinterDialog});
    column->addStretch();
}

/// One direction of the serial line: its frames below each other, short options side by side.
template <size_t Ports, size_t Bauds>
void LayOutDirection(const ControlWidgets& widgets, const Control (&frames)[8], const Control (&ports)[Ports],
                     const Control (&bauds)[Bauds], const Control (&parities)[3],
                     const Control (&dataBits)[2], const Control (&stopBits)[2],
                     std::initializer_list<const Control*> handshake, const Control& filter,
                     const Control& standard, const Control& emco)
{
    const auto fill = [&](const Control& frame, const Control* options, int count, int columns) {
        QGridLayout* const grid = GridIn(Of(widgets, frame), 2, 1);
        for (int i = 0; i < count; ++i) grid->addWidget(Of(widgets, options[i]), i / columns, i % columns);
    };
    fill(frames[1], ports, static_cast<int>(Ports), 2);
    fill(frames[2], bauds, static_cast<int>(Bauds), 3);
    fill(frames[3], parities, 3, 3);
    fill(frames[4], dataBits, 2, 2);
    fill(frames[5], stopBits, 2, 2);
    AddAll(widgets, *BoxIn(Of(widgets, frames[6]), QBoxLayout::TopToBottom, 1), handshake);
    AddAll(widgets, *BoxIn(Of(widgets, frames[7]), QBoxLayout::TopToBottom, 1), {&filter});
    QBoxLayout* const all = BoxIn(Of(widgets, frames[0]), QBoxLayout::TopToBottom, Space);
    for (size_t i = 1; i < std::size(frames); ++i) all->addWidget(Of(widgets, frames[i]));
    AddAll(widgets, *all, {&standard, &emco});
}

void LayOutSerialLine(const ControlWidgets& widgets)
{
    const W& main = frmMain;
    QBoxLayout* const column = PageColumn(widgets, 5);
    AddAll(widgets, *BoxIn(Of(widgets, main.frComEnable), QBoxLayout::TopToBottom, 1), {&main.chkEnableCom});
    LayOutDirection(widgets, main.frTX, main.optPortTX, main.optBaudTX, main.optParityTX, main.optDataBitsTX,
                    main.optStopBitsTX, {&main.chkTXxonxoff, &main.chkTXdtrdsr, &main.chkTXrtscts},
                    main.chkTXfilter, main.lblTXstandard, main.cmdTXEmco);
    LayOutDirection(widgets, main.frRX, main.optPortRX, main.optBaudRX, main.optParityRX, main.optDataBitsRX,
                    main.optStopBitsRX, {&main.chkRXxonxoff, &main.chkRXdtrdsr, &main.chkRXrtscts},
                    main.chkRXfilter, main.lblRXstandard, main.cmdRXEmco);
    AddAll(widgets, *column, {&main.frComEnable, &main.frTX[0], &main.frRX[0]});
    column->addStretch();
}

// Places in the window

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
    // A transfer that has something to say takes the right half of the path's row.
    const int pathWidth = ToPixels(content, main.frControlPanel.Width) - 2 * Space;
    const int transferWidth = main.lblTransfer.Text.empty() ? 0 : pathWidth / 2;
    const int pathTop = listTop - pathHeight;
    Put(widgets, main.frControlPanel, {Space + 2, pathTop, pathWidth - transferWidth, pathHeight});
    Put(widgets, main.lblTransfer,
        {Space + 2 + pathWidth - transferWidth, pathTop, transferWidth, pathHeight});
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
    if (main.frProgramProperties.Visible) {
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
    const int receiveEnd = Shared.Transmitting ? buttonsLeft - Space : right;
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

/// The fields of a code keep their places also while it doesn't use them; those that the machine hasn't
/// leave theirs to the others.
void KeepPlaces(const ControlWidgets& widgets)
{
    auto* const row = qobject_cast<QBoxLayout*>(widgets.Of(frmMain.frEntry)->layout()->itemAt(0)->layout());
    int place = 0;
    for (const EntryField& field : EntryFields) {
        ++place;
        bool keeps = true;
        if (field.Box == &W::txtYJ) keeps = lvCncProgram.Widths[CellY] > 0;
        if (field.Box == &W::txtH) keeps = lvCncProgram.Widths[CellH] > 0;
        row->setStretch(place, keeps || (frmMain.*field.Box).Visible ? field.Share : 0);
        for (const auto part : {field.Label, field.Box}) {
            QWidget* const widget = widgets.Of(frmMain.*part);
            QSizePolicy policy = widget->sizePolicy();
            if (policy.retainSizeWhenHidden() == keeps) continue;
            policy.setRetainSizeWhenHidden(keeps);
            widget->setSizePolicy(policy);
        }
    }
}

} // namespace

void LayOutPanes(ControlWidgets& widgets)
{
    LayOutTop(widgets);
    LayOutEntry(widgets);
    LayOutButtons(widgets);
    LayOutProperties(widgets);
    LayOutSettings(widgets);
    LayOutSerialLine(widgets);
    AlignRight(widgets, {&frmMain.lblHint, &frmMain.lblTransfer});
}

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
