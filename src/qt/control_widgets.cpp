#include "qt/control_widgets.h"

#include "core/control_names.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "qt/code_list.h"
#include "qt/help_page.h"
#include "qt/long_text.h"
#include "qt/pane.h"
#include "qt/program_list_view.h"
#include "qt/text_sync.h"
#include "qt/theme.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include <utility>

namespace {

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

/// Pictures by the name of their record.
struct PictureRow {
    const char* Control;
    int Element;
    const char* Picture;
};
constexpr PictureRow PictureRows[] = {
    {"cmdTopButtons", 0, "open"},     {"cmdTopButtons", 1, "save"},      {"cmdTopButtons", 2, "new"},
    {"cmdTopButtons", 3, "print"},    {"cmdTopButtons", 4, "settings"},  {"cmdTopButtons", 5, "axes-zx"},
    {"cmdTopButtons", 6, "axes-xy"},  {"cmdTopButtons", 7, "draw"},      {"cmdTopButtons", 8, "receive"},
    {"cmdTopButtons", 9, "transmit"}, {"lstMK2Mcodes", -1, "panel-mk2"}, {"picZXaxes", -1, "lathe-axes"},
    {"picXYaxes", -1, "mill-axes"},   {"Image1", -1, "lathe"},           {"Image2", -1, "mill"},
};

QString PictureOf(const Control& record)
{
    for (const PictureRow& row : PictureRows) {
        if (std::string_view(record.Name) == row.Control && record.Element == row.Element) return row.Picture;
    }
    return {};
}

Pane::Look LookOf(const Control& record)
{
    const MainWindow& main = frmMain;
    for (const Control* row : {&main.frXAxis, &main.frYaxis, &main.frZAxis}) {
        if (&record == row) return Pane::Look::Row;
    }
    for (const Control* bare : {&main.frControlPanel, &main.frCmdEditor1, &main.frCmdEditor2,
                                &main.frCmdEditor3, &main.frSettingsIncr, &main.frSettingsAbs}) {
        if (&record == bare) return Pane::Look::Bare;
    }
    // Groups of options inside a frame.
    for (const Control* outer : {&main.frTX[0], &main.frRX[0]}) {
        if (record.In == outer) return Pane::Look::Section;
    }
    return Pane::Look::Titled;
}

QWidget* MakeButton(const Control& record, QWidget* parent)
{
    const QString picture = PictureOf(record);
    if (picture.isEmpty()) return new QPushButton(parent);
    auto* button = new QToolButton(parent);
    button->setIcon(Theme::PictureIcon(picture));
    button->setIconSize({26, 26});
    button->setAutoRaise(true);
    return button;
}

QWidget* MakeTextBox(const Control& record, QWidget* parent)
{
    if (record.MultiLine) {
        auto* edit = new LongText(parent);
        edit->setTabChangesFocus(true);
        edit->setAcceptDrops(false); // a file is dropped on the window
        if (&record == &frmMain.txtRX) edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        return edit;
    }
    auto* line = new QLineEdit(parent);
    line->setReadOnly(record.ReadOnly);
    line->setAcceptDrops(false);
    if (record.MaxLength > 0) line->setMaxLength(record.MaxLength);
    return line;
}

QWidget* MakeWidget(const Control& record, QWidget* parent)
{
    switch (record.Is) {
    case Kind::Label: {
        auto* label = new ElidedLabel(parent);
        label->setTextFormat(Qt::PlainText);
        return label;
    }
    case Kind::TextBox: return MakeTextBox(record, parent);
    case Kind::CheckBox: return new QCheckBox(parent);
    case Kind::Option: {
        auto* option = new QRadioButton(parent);
        option->setAutoExclusive(false); // the engine turns the others off
        return option;
    }
    case Kind::Button: return MakeButton(record, parent);
    case Kind::Frame: return new Pane(LookOf(record), parent);
    case Kind::Combo: {
        auto* combo = new QComboBox(parent);
        combo->setEditable(&record == &frmMain.cboFontSize);
        if (combo->isEditable()) combo->lineEdit()->setAcceptDrops(false);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        return combo;
    }
    case Kind::List: return new CodeList(parent);
    case Kind::ProgramList: return new ProgramListView(parent);
    case Kind::Tabs: return new TabPane(parent);
    case Kind::Picture: return new PictureView(PictureOf(record), parent);
    case Kind::RichText: return new HelpPage(parent);
    case Kind::Form:
    case Kind::Menu: break;
    }
    return new QWidget(parent);
}

void PushCaption(QWidget& widget, const Control& record)
{
    const QString text = Text(record.Text);
    if (auto* label = qobject_cast<QLabel*>(&widget)) {
        label->setText(text);
    } else if (auto* tool = qobject_cast<QToolButton*>(&widget)) {
        tool->setText(text);
        tool->setToolButtonStyle(text.isEmpty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextUnderIcon);
    } else if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
        button->setText(text.isEmpty() ? QString::fromUtf8("…") : text);
    } else if (auto* pane = dynamic_cast<Pane*>(&widget)) {
        pane->SetCaption(text);
    } else if (auto* page = dynamic_cast<HelpPage*>(&widget)) {
        page->SetPage(text);
    }
}

void PushItems(QWidget& widget, const Control& record)
{
    QStringList items;
    for (const std::string& item : record.Items) items << Text(item);
    const QSignalBlocker quiet(widget);
    if (auto* list = qobject_cast<QListWidget*>(&widget)) {
        list->clear();
        list->addItems(items);
    } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
        combo->clear();
        combo->addItems(items);
    } else if (auto* tabs = dynamic_cast<TabPane*>(&widget)) {
        tabs->SetCaptions(items);
    }
}

/// What the user may have changed in the widget itself is compared with the widget.
void PushChoice(QWidget& widget, const Control& record)
{
    const QSignalBlocker quiet(widget);
    if (auto* button = qobject_cast<QAbstractButton*>(&widget); button != nullptr && button->isCheckable()) {
        if (button->isChecked() != (record.Value == 1)) button->setChecked(record.Value == 1);
    } else if (auto* list = qobject_cast<QListWidget*>(&widget)) {
        if (list->currentRow() != record.Index) list->setCurrentRow(record.Index);
        if (record.Index < 0) list->clearSelection();
    } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
        if (combo->currentIndex() != record.Index) combo->setCurrentIndex(record.Index);
        if (combo->isEditable()) PushText(widget, record);
    } else if (auto* tabs = dynamic_cast<TabPane*>(&widget)) {
        tabs->SetCurrent(record.Index);
    } else if (record.Is == Kind::TextBox) {
        PushText(widget, record);
    }
}

void PushColors(QWidget& widget, const Control& record)
{
    if (record.Back < 0) return;
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, Theme::FromBgr(record.Back));
    palette.setColor(QPalette::WindowText, Theme::FromBgr(record.Fore));
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

/// Object name, accessible name, tip.
void PushNames(const Control& record, QWidget& widget)
{
    widget.setObjectName(Text(FullName(record)));
    widget.setAccessibleName(Text(AccessibleName(record)));
    widget.setToolTip(Text(TipOf(record)));
}

} // namespace

QWidget* ControlWidgets::Make(Control& record, QWidget* parent)
{
    QWidget* const widget = MakeWidget(record, parent);
    widget->hide(); // until its record is pushed
    // The engine gives the focus; a click on a widget doesn't take it.
    if (record.Is != Kind::TextBox && widget->focusPolicy() != Qt::NoFocus)
        widget->setFocusPolicy(Qt::TabFocus);
    Add(record, widget);
    return widget;
}

void ControlWidgets::Add(Control& record, QWidget* widget)
{
    All.push_back({&record, widget, nullptr, {}});
    Records[widget] = &record;
    Widgets[&record] = widget;
}

void ControlWidgets::Add(Control& record, QAction* action)
{
    All.push_back({&record, nullptr, action, {}});
    Records[action] = &record;
}

QWidget* ControlWidgets::Of(const Control& record) const
{
    const auto found = Widgets.find(&record);
    return found == Widgets.end() ? nullptr : found->second;
}

Control* ControlWidgets::RecordOf(const QObject* widget) const
{
    for (; widget != nullptr; widget = widget->parent()) {
        if (Control* const record = RecordOfExactly(widget)) return record;
    }
    return nullptr;
}

Control* ControlWidgets::RecordOfExactly(const QObject* widget) const
{
    const auto found = Records.find(widget);
    return found == Records.end() ? nullptr : found->second;
}

void ControlWidgets::Push()
{
    NewLanguage = std::exchange(PushedLanguage, Translated.Version) != Translated.Version;
    for (Bound& bound : All) bound.Widget != nullptr ? PushWidget(bound) : PushAction(bound);
}

void ControlWidgets::PushWidget(Bound& bound)
{
    const Control& now = *bound.Record;
    QWidget& widget = *bound.Widget;
    Control& last = bound.Pushed;
    const bool newText = bound.Fresh || now.Text != last.Text;
    if (newText && now.Is != Kind::TextBox && now.Is != Kind::Combo && now.Is != Kind::Form)
        PushCaption(widget, now);
    if (bound.Fresh || now.Items != last.Items) PushItems(widget, now);
    PushChoice(widget, now);
    if (bound.Fresh || now.Back != last.Back || now.Fore != last.Fore) PushColors(widget, now);
    if (bound.Fresh || now.Enabled != last.Enabled) widget.setEnabled(now.Enabled);
    // A window shows itself.
    if (now.Is != Kind::Form && widget.isHidden() == now.Visible) widget.setVisible(now.Visible);
    if (newText || NewLanguage || now.ToolTip != last.ToolTip || now.Visible != last.Visible)
        PushNames(now, widget);
    last = now;
    bound.Fresh = false;
}

void ControlWidgets::PushAction(Bound& bound)
{
    const Control& now = *bound.Record;
    QAction& action = *bound.Action;
    if (bound.Fresh || NewLanguage || now.Text != bound.Pushed.Text || now.ToolTip != bound.Pushed.ToolTip) {
        action.setText(Text(now.Text));
        action.setObjectName(Text(FullName(now)));
        action.setToolTip(Text(TipOf(now)));
        action.setStatusTip(Text(TipOf(now)));
    }
    if (action.isEnabled() != now.Enabled) action.setEnabled(now.Enabled);
    if (action.isVisible() != now.Visible) action.setVisible(now.Visible);
    bound.Pushed = now;
    bound.Fresh = false;
}
