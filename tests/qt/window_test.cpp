// The window with its real widgets: names, keys, clicks, what fits. Boxes and dialogs are answered by a
// script.

#include "qt/events.h"
#include "ui/text_box_cases.h"

#include "cli/key_script.h"
#include "commands/keyboard.h"
#include "commands/session.h"
#include "core/control_names.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "interpreter/interpreter.h"
#include "qt/main_frame.h"
#include "qt/pane.h"
#include "qt/program_list_view.h"
#include "qt/theme.h"
#include "support/program.h"
#include "ui/focus.h"
#include "ui/tick.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QTextBrowser>
#include <functional>
#include <gtest/gtest.h>

namespace {

/// The desktop with its windows, at a size in pixels; boxes are answered by Desk.
class Window : public testing::Test
{
protected:
    Desktop Events;
    std::unique_ptr<MainFrame> Main;
    std::unique_ptr<FindFrame> Find;

    void Open(MachineKind machine, QSize size = {1000, 667})
    {
        Desk = {};
        ThePlatform = &Desk;
        ResetState();
        const bool first = Main == nullptr;
        if (first) {
            Main = std::make_unique<MainFrame>(Events);
            Find = std::make_unique<FindFrame>(Events, nullptr);
        }
        frmMain.Window.Width = size.width() * 15;
        frmMain.Window.Height = size.height() * 15;
        Events.Run([&] { StartNew(machine, true, false); });
        if (first) Main->Open();
        Main->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Main.get()));
    }

    void SetUp() override { Open(MachineKind::MK4); }

    QWidget* WidgetOf(const Control& control) { return Events.Widgets.Of(control); }
    void Click(const Control& control)
    {
        QTest::mouseClick(WidgetOf(control), Qt::LeftButton, {}, WidgetOf(control)->rect().center());
    }
};

/// All that the engine holds of a program and the window, to compare two ways that lead there.
std::string StateText()
{
    std::string text;
    for (const ProgramLine& row : lvCncProgram.Rows) {
        for (const std::string& cell : row.Cells) text += cell + "|";
        text += "\n";
    }
    frmMain.ForEach([&](Control& control) {
        text += FullName(control) + "=" + control.Text + (control.Visible ? "" : " hidden") +
                (control.Enabled ? "" : " disabled") + " " + std::to_string(control.Value) + " " +
                std::to_string(control.Index) + "\n";
    });
    text += Focused() == nullptr ? "" : Focused()->Name;
    for (const auto& shown : Desk.Boxes) text += "\n" + shown.Box.Text;
    return text + "\nselected " + std::to_string(lvCncProgram.Selected);
}

} // namespace

TEST_F(Window, EveryControlHasItsNames)
{
    EXPECT_EQ(Main->findChild<QAction*>("mnuSave")->shortcut(), QKeySequence("Ctrl+S"));
    frmMain.ForEach([&](Control& control) {
        SCOPED_TRACE(FullName(control));
        // A tip says more than the name of the record.
        EXPECT_NE(TipOf(control), FullName(control));
        if (control.Is == Kind::Menu) return;
        QWidget* const widget = WidgetOf(control);
        ASSERT_NE(widget, nullptr);
        EXPECT_EQ(widget->objectName().toStdString(), FullName(control));
        EXPECT_FALSE(widget->accessibleName().isEmpty());
        EXPECT_FALSE(widget->toolTip().isEmpty());
    });
    for (const QWidget* window : {static_cast<QWidget*>(Main.get()), static_cast<QWidget*>(Find.get())}) {
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            const bool input = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                               qobject_cast<const QLineEdit*>(widget) != nullptr;
            // Parts of the toolkit's own widgets are called "qt_...".
            const QString name = widget->objectName();
            const bool own =
                !name.startsWith("qt_") && qobject_cast<QMenuBar*>(widget->parent()) == nullptr &&
                !widget->parent()->inherits("QComboBox") && !widget->parent()->inherits("QTableView");
            if (!input || !own) continue;
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << name.toStdString();
        }
    }
}

TEST_F(Window, TextBoxesEditAsTheirTwinsDo)
{
    for (const TextBoxCase& c : TextBoxCases) {
        SCOPED_TRACE(c.Name);
        Control& box = c.Notes ? frmMain.txtFileNotes : frmMain.txtComment;
        Events.Run([&] {
            SetFocus(box);
            box.Text = c.Text;
            box.SelStart = c.SelStart;
            box.SelLength = c.SelLength;
        });
        SendKeys(c.Keys);
        Events.Run([] {}); // takes the caret in
        EXPECT_EQ(box.Text, c.Expected);
        EXPECT_EQ(box.SelStart, c.ExpectedStart);
        Events.Run([] { SetFocus(frmMain.lvCncProgram); });
    }
}

TEST_F(Window, KeysDoTheSameInWidgetsAndWithout)
{
    struct Case {
        const char* Name;
        MachineKind Machine;
        const char* Keys;
    };
    const Case cases[] = {
        {"a lathe's program on the keypad alone", MachineKind::MK4,
         "92{ENTER}3000.1000.{ENTER}m03{ENTER}{ENTER}g00 2000+100 100 "
         "first{ENTER}84{ENTER}1800{ENTER}-1500{ENTER}"
         "a{ENTER}{ENTER}m30{ENTER}{ENTER}"},
        {"refused values and unknown codes", MachineKind::MK4,
         "12{ENTER}1{ENTER}7000{ENTER}{ENTER}9*{ENTER}600{ENTER}b"},
        {"the lathe without M codes", MachineKind::MK2,
         "m00{ENTER}1000{ENTER}-5{ENTER}{ENTER}2{ENTER}900{ENTER}{ENTER}22 {ENTER}"},
        {"the mill, with a boring depth proposed", MachineKind::F1,
         "m06{ENTER}500{ENTER}1500{ENTER}{ENTER}1{ENTER}{ENTER}g81{ENTER}-800{ENTER}b{ENTER}83{ENTER}{ENTER}{"
         "ENTER}{ENTER}"},
        {"lines opened, changed, inserted and deleted", MachineKind::MK4,
         "00{ENTER}100{ENTER}200{ENTER}{ENTER}25{ENTER}7{ENTER}{ENTER}{ESC}{UP}{UP}{ENTER}01{ENTER}{RIGHT}{"
         "LEFT}5{ENTER}{ENTER}"
         "{ENTER}x{ENTER}{ESC}{INSERT}{UP}{DELETE}"},
        {"a run in steps", MachineKind::MK4,
         "90{ENTER}{ENTER}00{ENTER}100{ENTER}50{ENTER}{ENTER}{ALT-R}{ALT-S}{ALT-S}"},
        {"focus in a circle, help and find", MachineKind::F1,
         "01{TAB}5{TAB}{TAB}{TAB}{TAB}{TAB}{SHIFT-TAB}c{ENTER}{F1}{F1}{CTRL-F}01{ENTER}{F2}{CTRL-G}{ESC}"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Open(c.Machine);
        SendKeys(c.Keys);
        const std::string typed = StateText();
        Desk = {};
        Events.Run([&] {
            ResetState();
            StartNew(c.Machine, true, false);
        });
        EXPECT_FALSE(RunKeyScript(c.Keys));
        EXPECT_EQ(typed, StateText());
    }
}

TEST_F(Window, ClicksReachTheEngine)
{
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf(frmMain.txtGMcode)) << "the first keys are a code";
    SendKeys("00{KEYPAD}100{ENTER}50{ENTER}{KEYPAD}01{ENTER}7000");
    // A refused value keeps the cursor; the click comes to nothing.
    Click(frmMain.txtComment);
    EXPECT_TRUE(HasFocus(frmMain.txtXI));
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf(frmMain.txtXI));
    SendKeys("700");
    Click(frmMain.txtZK);
    EXPECT_EQ(frmMain.txtXI.Text, "700");
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf(frmMain.txtZK));
    // What the engine selects in the box stays selected, so that typing replaces it.
    SendKeys("50");
    Click(frmMain.txtXI);
    EXPECT_EQ(qobject_cast<QLineEdit*>(WidgetOf(frmMain.txtXI))->selectedText(), "700");

    Click(frmMain.chkViewToolPos);
    EXPECT_EQ(frmMain.chkViewToolPos.Value, 1);
    auto* const list = Events.Widgets.As<ProgramListView>(frmMain.lvCncProgram);
    EXPECT_FALSE(list->isColumnHidden(static_cast<int>(CellToolX)));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(0, CellX)).center());
    EXPECT_EQ(lvCncProgram.Selected, 1);
    EXPECT_TRUE(HasFocus(frmMain.txtGMcode));

    // Headers: a width that is dragged is kept; the one of the messages opens the line of the first.
    list->setColumnWidth(CellX, 80);
    EXPECT_EQ(lvCncProgram.Widths[CellX], 80 * 15);
    Events.Run([] { Enter("G00 X0 Z0 / G01 X9999 Z0 F50 / M30"); });
    QHeaderView& headers = *list->horizontalHeader();
    QTest::mouseClick(headers.viewport(), Qt::LeftButton, {},
                      {headers.sectionViewportPosition(CellError) + 9, 9});
    EXPECT_EQ(lvCncProgram.Selected, 2);

    Click(frmMain.cmdTopButtons[5]);
    EXPECT_TRUE(WidgetOf(frmMain.picZXaxes)->isVisible());
    Click(frmMain.picZXaxes);
    EXPECT_FALSE(WidgetOf(frmMain.picZXaxes)->isVisible());
}

TEST_F(Window, TabsAreWalkedInsideTheSettings)
{
    Events.Run([] { ChooseMenu(frmMain.mnuSettingsShow); });
    EXPECT_TRUE(HasFocus(frmMain.tabSettings));
    SendKeys("{RIGHT}{TAB}");
    EXPECT_TRUE(HasFocus(frmMain.optSettingsMm));
    SendKeys("{TAB} ");
    EXPECT_EQ(frmMain.optSettingsInch.Value, 1);
    EXPECT_FALSE(Shared.Metric);
    // The disabled frame of the mill and the other tabs are passed over.
    SendKeys("{TAB}");
    EXPECT_TRUE(HasFocus(frmMain.tabSettings));
    SendKeys("{ESC}");
    EXPECT_TRUE(HasFocus(frmMain.lvCncProgram));
}

TEST_F(Window, NothingIsCutOffInTheSmallestWindow)
{
    for (const MachineKind machine : {MachineKind::MK2, MachineKind::MK4, MachineKind::F1}) {
        Open(machine, {787, 581});
        Events.Run([] {
            frmMain.lblPPMachineTime.Text = "00:00:00";
            frmMain.lblPPLinesExe.Text = "32767";
        });
        QApplication::processEvents();
        frmMain.ForEach([&](Control& control) {
            const QWidget* const widget = control.Is == Kind::Menu ? nullptr : WidgetOf(control);
            if (widget == nullptr || !widget->isVisible() || &control == &frmMain.lblPath) return;
            if (control.Is == Kind::Label && control.Text.empty()) return;
            int needed = 0;
            const QString text = QString::fromStdString(AccessibleName(control));
            if (control.Is == Kind::Label) needed = widget->sizeHint().width();
            if (control.Is == Kind::CheckBox) needed = widget->minimumSizeHint().width();
            if (control.Is == Kind::Button)
                needed = widget->fontMetrics()
                             .size(Qt::TextShowMnemonic, QString::fromStdString(control.Text))
                             .width() +
                         4;
            EXPECT_LE(needed, widget->width()) << FullName(control);
            const QRect inWindow(widget->mapTo(Main.get(), QPoint()), widget->size());
            EXPECT_TRUE(Main->rect().contains(inWindow)) << FullName(control);
        });
    }
}

TEST_F(Window, AFileDroppedIsOpenedAndRemembered)
{
    Folder folder;
    const std::string path =
        folder.Put("a&b.cnc", BytesOf(std::string(EXAMPLES_DIR) + "/mk2-stepped-pin.cnc"));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    // A text box would take its name as a text; without drops of its own it leaves it to the window.
    for (const Control* box : {&frmMain.txtGMcode, &frmMain.txtComment, &frmMain.txtFileNotes})
        EXPECT_FALSE(WidgetOf(*box)->acceptDrops()) << box->Name;
    QApplication::sendEvent(Main.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QApplication::sendEvent(Main.get(), &drop);
    QTest::qWait(10);
    EXPECT_EQ(frmMain.lblPath.Text, path);
    EXPECT_EQ(Shared.Machine, MachineKind::MK2);
    EXPECT_EQ(frmMain.mnuRecentFile[0].Text, "&1  a&&b.cnc");
    // The next dialog begins where the file lies.
    Click(frmMain.cmdTopButtons[0]);
    ASSERT_EQ(Desk.Dialogs.size(), 1u);
    EXPECT_EQ(Desk.Dialogs[0].Folder, path.substr(0, path.rfind('/')));
}

TEST_F(Window, ALongProgramFollowsItsVersion)
{
    std::string text = "%\n    N` G`   X `    Z `  F`  H \n";
    for (int i = 0; i < 5000; ++i) text += "    00 21                      \n";
    Load(text + "   M\n");
    Events.Run([] { SelectRow(4000); });
    auto* const list = Events.Widgets.As<ProgramListView>(frmMain.lvCncProgram);
    EXPECT_EQ(list->model()->rowCount(), lvCncProgram.RowCount());
    EXPECT_TRUE(list->viewport()->rect().intersects(list->visualRect(list->model()->index(3999, CellN))));
}

TEST(Colors, CanBeReadOnLightAndDark)
{
    EXPECT_EQ(Theme::Readable(Qt::black, Qt::white), QColor(Qt::black));
    EXPECT_LT(Theme::Readable(Qt::yellow, Qt::white).lightness(), 90);
    EXPECT_GT(Theme::Readable(Qt::blue, Qt::black).lightness(), 150);
}

TEST_F(Window, AnEditPaintsTheRowsThatItChanges)
{
    struct : QObject {
        QRegion Region;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Paint) Region += static_cast<QPaintEvent*>(event)->region();
            return false;
        }
    } painted;
    auto& list = *Events.Widgets.As<ProgramListView>(frmMain.lvCncProgram);
    const auto rowsPaintedBy = [&](const std::function<void()>& change) {
        QApplication::processEvents();
        painted.Region = {};
        list.viewport()->installEventFilter(&painted);
        change();
        QApplication::processEvents();
        list.viewport()->removeEventFilter(&painted);
        std::string rows;
        for (int row = 0; row < 5; ++row) {
            const bool is = painted.Region.intersects(list.visualRect(list.model()->index(row, CellCode)));
            rows += is ? std::to_string(row) : "";
        }
        return rows;
    };
    Events.Run([] { Enter("G00 X100 Z100 / G00 X100 Z0 / G92 X0 Z0 / G00 X100 Z0"); });
    Click(frmMain.chkViewToolPos);
    EXPECT_EQ(rowsPaintedBy([&] {
                  Events.Run([] {
                      lvCncProgram.Row(2)[CellX] = "  200 ";
                      Interpreter();
                  });
              }),
              "1")
        << "the tool stands at a new zero behind it";
    EXPECT_EQ(rowsPaintedBy([&] {
                  Events.Run([] {
                      Shared.AbsColor = Shared.IncrColor = 0;
                      Interpreter();
                  });
              }),
              "01234");
}

TEST_F(Window, AWindowThatIsTooSmallComesBack)
{
    Main->setMinimumSize(0, 0);
    Main->resize(600, 400);
    Events.Run(tmr1sec_Timer);
    EXPECT_GE(Main->width(), 786);
    EXPECT_GE(Main->height(), 581);
}

TEST_F(Window, HelpGoesToItsPlaceFollowsLinksAndFinds)
{
    auto& page = *Events.Widgets.As<QTextBrowser>(frmMain.rtfGcodeHelpMK4);
    auto& manual = *Events.Widgets.As<QTextBrowser>(frmMain.rtfHelp);
    const auto firstWord = [](const QTextBrowser& view) {
        QTextCursor cursor = view.cursorForPosition({20, 4});
        cursor.select(QTextCursor::WordUnderCursor);
        return cursor.selectedText().toStdString();
    };
    SendKeys("84{ENTER}{F1}");
    EXPECT_TRUE(page.isVisible());
    EXPECT_EQ(firstWord(page), "G84");
    EXPECT_FALSE(
        page.document()->resource(QTextDocument::ImageResource, QUrl("pictures/MK4-G84.svg")).isNull());
    Main->resize(1300, 900); // the lines break elsewhere, the place stays
    EXPECT_EQ(firstWord(page), "G84");

    emit page.anchorClicked(QUrl("#M30"));
    EXPECT_EQ(firstWord(page), "M30");
    emit page.anchorClicked(QUrl("English.html#transfer"));
    EXPECT_FALSE(page.isVisible());
    EXPECT_EQ(firstWord(manual), "Transfer");

    SendKeys("{CTRL-F}cmdwait{ENTER}");
    EXPECT_EQ(manual.textCursor().selectedText(), "cmdWAIT");
    SendKeys("{ESC}");
    EXPECT_FALSE(manual.isVisible());
    EXPECT_FALSE(WidgetOf(frmMain.txtHelpFind)->isVisible());
    // A search in one page is none in another.
    Click(frmMain.txtXI);
    SendKeys("{F1}");
    EXPECT_EQ(firstWord(page), "G84");
}

TEST_F(Window, TheSearchOfTheHelpBeginsWhereThePageIsAndTellsWhatIsMissing)
{
    auto& page = *Events.Widgets.As<QTextBrowser>(frmMain.rtfGcodeHelpMK4);
    auto& missed = *page.findChild<QLabel*>("helpMissed");
    SendKeys("84{ENTER}{F1}");
    const int place = page.textCursor().position();
    EXPECT_GT(place, 1000);
    SendKeys("{CTRL-F}enter{ENTER}");
    const int first = page.textCursor().position();
    EXPECT_GT(first, place);
    SendKeys("{ENTER}");
    EXPECT_GT(page.textCursor().position(), first);
    SendKeys("{CTRL-F}no such word{ENTER}"); // the old text was selected
    EXPECT_EQ(frmMain.txtHelpFind.Text, "no such word");
    EXPECT_TRUE(missed.isVisible());
    EXPECT_EQ(missed.text(), "\"no such word\" is not on this page");
    SendKeys("{CTRL-F}pitch{ENTER}"); // stands in front of the place only
    EXPECT_FALSE(missed.isVisible());
    EXPECT_EQ(page.textCursor().selectedText().toLower(), "pitch");
}

TEST_F(Window, AClickAnywhereOnAboutShowsTheVersions)
{
    Events.Run([] { ChooseMenu(frmMain.mnuAbout); });
    auto& list = *Events.Widgets.As<QListWidget>(frmMain.lstAbout);
    ASSERT_TRUE(list.isVisible());
    const QPoint empty = list.viewport()->rect().bottomRight() - QPoint(20, 20);
    ASSERT_EQ(list.itemAt(empty), nullptr);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, empty);
    EXPECT_FALSE(list.isVisible());
    EXPECT_TRUE(WidgetOf(frmMain.rtfAbout)->isVisible());
}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
