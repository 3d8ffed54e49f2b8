#include "qt/layouts.h"

#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "qt/control_widgets.h"
#include "qt/pane.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLineEdit>

namespace {

using W = MainWindow;

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
    Of(widgets, main.lblCurrentFile)->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    widgets.As<ElidedLabel>(main.lblPath)->Elide = Qt::ElideMiddle; // it gives way to the rest of its row

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
    {&W::lblXI, &W::txtXI, 21},     {&W::lblYJ, &W::txtYJ, 21}, {&W::lblZK, &W::txtZK, 21},
    {&W::lblFKTL, &W::txtFKTL, 16}, {&W::lblH, &W::txtH, 14},
};

/// A box below its label.
QBoxLayout* FieldCell(const ControlWidgets& widgets, QLayoutItem* label, const Control& box)
{
    QBoxLayout* const cell = new QBoxLayout(QBoxLayout::TopToBottom);
    cell->setSpacing(0);
    QWidget* const field = Of(widgets, box);
    field->setMinimumWidth(0);
    // In the smallest window five digits and a sign take all the room that there is.
    if (auto* const line = qobject_cast<QLineEdit*>(field)) line->setTextMargins(-2, 0, -2, 0);
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
    Of(widgets, main.lblCode)->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    Of(widgets, main.lblGMcode)
        ->setMaximumWidth(Of(widgets, main.lblGMcode)->fontMetrics().averageCharWidth() * 13);
    QFont bold = Of(widgets, main.lblGMcode)->font();
    bold.setBold(true);
    Of(widgets, main.lblGMcode)->setFont(bold);
    row->addLayout(FieldCell(widgets, caption, main.txtGMcode), 14);
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
    fill(frames[1], ports, static_cast<int>(Ports), 1); // with the names of their devices
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

} // namespace

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

void LayOutPanes(ControlWidgets& widgets)
{
    LayOutTop(widgets);
    LayOutEntry(widgets);
    LayOutButtons(widgets);
    LayOutProperties(widgets);
    LayOutSettings(widgets);
    LayOutSerialLine(widgets);
    AlignRight(widgets, {&frmMain.lblHint, &frmMain.lblTransfer});
    MakeSmaller(widgets.Of(frmMain.lblTransfer)); // beside a reception its row is just long enough
}
