// The drawing window with its real widgets: what is clicked, turned, dragged and typed there, and every way
// out.

#include "qt/drawing_window.h"

#include "commands/drawing.h"
#include "commands/settings.h"
#include "core/control_names.h"
#include "drawing/draw_controls.h"
#include "qt/twips.h"
#include "ui/focus.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QTimer>
#include <functional>

TEST_F(DrawingWindow, EveryControlHasItsNames)
{
    const auto check = [&](Control& control) {
        SCOPED_TRACE(FullName(control));
        EXPECT_NE(TipOf(control), FullName(control));
        EXPECT_FALSE(WidgetOf(control)->accessibleName().isEmpty());
        EXPECT_FALSE(WidgetOf(control)->toolTip().isEmpty());
    };
    frmDraw.ForEach(check);
    frmProgramWindow.ForEach(check);
    // Names that the main window has as well.
    EXPECT_NE(TipOf(frmDraw.cmdStep), TipOf(frmMain.cmdStep));
    EXPECT_NE(TipOf(frmDraw.frView), TipOf(frmMain.frView));
}

TEST_F(DrawingWindow, OpensOnItsCanvasAndShowsWhatIsChosen)
{
    EXPECT_EQ(QApplication::focusWidget(), Canvas());
    EXPECT_EQ(Drawn(), 3U);
    EXPECT_TRUE(IsOnLine(453, 453));
    EXPECT_EQ(Shown().pixelColor(300, 550), QColor(Qt::black));

    Click(frmDraw.chkAutoRedraw);
    Click(frmDraw.chkPrintableBackground);
    EXPECT_EQ(Shown().pixelColor(300, 550), QColor(Qt::white));
    const QImage before = Shown();
    Click(frmDraw.chkGrid);
    EXPECT_NE(Shown(), before);
    Click(frmDraw.chkGrid);
    EXPECT_EQ(Shown(), before);
    Click(frmDraw.chkDiameter);
    EXPECT_EQ(Draw->windowTitle(), "X-diameter=");
    EXPECT_FALSE(WidgetOf(frmDraw.chkToolWidth)->isVisible()) << "the mill's";
    EXPECT_EQ(Shared.DrawBoxes.Background, 1);
}

TEST_F(DrawingWindow, FillOfTheLatheOutlastsTheMill)
{
    Click(frmDraw.chkFillCycles);
    LoadExample("f1-first-milling.cnc");
    EXPECT_FALSE(WidgetOf(frmDraw.chkFillCycles)->isVisible());
    EXPECT_EQ(frmDraw.chkFillCycles.Value, 0);
    Click(frmDraw.chkGrid);
    LoadExample("mk4-first-turning.cnc");
    EXPECT_EQ(frmDraw.chkFillCycles.Value, 1);
}

TEST_F(DrawingWindow, ScaleByTheListAndByTheWheel)
{
    Click(frmDraw.chkAutoRedraw);
    Pick(frmDraw.cboScale, 4);
    EXPECT_EQ(Shared.DrawScale, 2);
    EXPECT_TRUE(IsOnLine(426, 426)) << "half as far";

    // The place under the pointer stays; a touchpad's parts of a step add up.
    Move(500, 450);
    const QString title = Draw->windowTitle();
    Turn(120, {500, 450});
    EXPECT_EQ(Shared.DrawScale, 4);
    EXPECT_EQ(Events.Widgets.As<QComboBox>(frmDraw.cboScale)->currentIndex(), 5);
    EXPECT_EQ(Draw->windowTitle(), title);
    for (const int part : {-40, -40, -40}) Turn(part, {500, 450});
    EXPECT_EQ(Shared.DrawScale, 2);
    // Above a list of the frame it isn't the list's.
    QWheelEvent over({5, 5}, {5, 5}, {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(WidgetOf(frmDraw.cboRun), &over);
    EXPECT_EQ(frmDraw.cboRun.Index, 0);
    for (int i = 0; i < 9; ++i) Turn(120, {790, 590});
    EXPECT_EQ(frmDraw.cboScale.Index, 9) << "no further";
    EXPECT_LT(Drawing.ZeroPointX, 0);
    EXPECT_EQ(FiguresOfLine(1).at(0).At[0], static_cast<float>(Drawing.ZeroPointX)) << "drawn there too";
    Move(790, 590);
    const double across = (790 * 15 - Drawing.ZeroPointX) / Shared.DrawScale;
    EXPECT_NEAR(across, (790 - 400) * 15 / 2.0, 1) << "the place under the pointer stays";

    // A fit below the list: the wheel grows into the list from there.
    Events.Run([] {
        PickItem(frmDraw.cboScale, -1);
        Shared.DrawScale = 0.0625F;
    });
    Turn(-120, {500, 450});
    EXPECT_EQ(Shared.DrawScale, 0.0625F);
    Turn(120, {500, 450});
    EXPECT_EQ(Shared.DrawScale, 0.125F);
}

TEST_F(DrawingWindow, TheMiddleButtonMovesThePicture)
{
    QTest::mousePress(Canvas(), Qt::MiddleButton, {}, {500, 500});
    Move(520, 490);
    Move(540, 480);
    QTest::mouseRelease(Canvas(), Qt::MiddleButton, {}, {540, 480});
    Move(600, 300);
    EXPECT_EQ(Drawing.ZeroPointX, 6600);
    EXPECT_EQ(Drawing.ZeroPointY, 5700);
    EXPECT_TRUE(IsOnLine(453 + 40, 453 - 20));
    // Beyond the left edge too.
    QTest::mousePress(Canvas(), Qt::MiddleButton, {}, {500, 500});
    Move(0, 500);
    QTest::mouseRelease(Canvas(), Qt::MiddleButton, {}, {0, 500});
    EXPECT_EQ(Drawing.ZeroPointX, -900);
    EXPECT_EQ(FiguresOfLine(1).at(0).At[0], -900);
}

TEST_F(DrawingWindow, TheZeroPointIsChosenByAClick)
{
    Click(frmDraw.cmdZeroPoint);
    EXPECT_EQ(Canvas()->cursor().shape(), Qt::CrossCursor);
    EXPECT_FALSE(WidgetOf(frmDraw.cmdRedraw)->isEnabled());
    SendKeys("{ESC}");
    EXPECT_EQ(Drawn(), 3U) << "[ESC] brings the picture back";
    EXPECT_EQ(Drawing.ZeroPointX, 6000);
    Click(frmDraw.cmdZeroPoint);
    // A double click on what is drawn there then chooses no more than the place.
    const int selected = lvCncProgram.Selected;
    ClickCanvas(500, 300);
    QTest::mouseDClick(Canvas(), Qt::LeftButton, {}, {500, 300});
    EXPECT_EQ(lvCncProgram.Selected, selected);
    EXPECT_FALSE(Drawing.MeasureStarted);
    EXPECT_EQ(Drawing.ZeroPointX, 7500);
    EXPECT_TRUE(WidgetOf(frmDraw.cmdRedraw)->isEnabled());
    EXPECT_EQ(Canvas()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(DrawingWindow, TwoClicksMeasureAndAThirdEnds)
{
    const QImage before = Shown();
    for (const char* const end : {"click", "{ESC}"}) {
        SCOPED_TRACE(end);
        ClickCanvas(420, 300);
        EXPECT_TRUE(WidgetOf(frmDraw.frMeasure)->isVisible()) << "before the pointer moves";
        Move(440, 330);
        ClickCanvas(450, 340);
        EXPECT_NE(Shown(), before);
        EXPECT_FALSE(WidgetOf(frmDraw.cmdRedraw)->isEnabled());
        // 30 and 40 pixels at 15 / 4 units each.
        EXPECT_EQ(frmDraw.lblMeasureDistance.Text, "187");
        EXPECT_EQ(frmDraw.lblMeasureDistanceUnits.Text, "1.87 mm");

        Click(frmDraw.txtMeasureX1);
        SendKeys("{DOWN}{UP}1-00{ENTER}");
        EXPECT_EQ(frmDraw.txtMeasureX1.Text, "100");
        EXPECT_EQ(QApplication::focusWidget(), WidgetOf(frmDraw.txtMeasureZ1));
        // Beside the boxes, and on a button that is disabled now: nothing.
        QTest::mouseClick(WidgetOf(frmDraw.lblX), Qt::LeftButton);
        Click(frmDraw.cmdRedraw);
        EXPECT_TRUE(Drawing.MeasureDone);

        end[0] == '{' ? SendKeys(end) : ClickCanvas(600, 300);
        EXPECT_FALSE(WidgetOf(frmDraw.frMeasure)->isVisible());
        EXPECT_TRUE(WidgetOf(frmDraw.frView)->isVisible()) << "before the pointer moves";
        EXPECT_TRUE(WidgetOf(frmDraw.cmdRedraw)->isEnabled());
        EXPECT_EQ(Shown(), before) << "no mark is left";
    }
    ClickCanvas(420, 300);
    SendKeys("{ESC}");
    EXPECT_EQ(Shown(), before) << "after one click";
}

TEST_F(DrawingWindow, TheTitleFollowsTheLanguageUnderAPointerThatRests)
{
    ClickCanvas(420, 300);
    Move(440, 330);
    const Folder folder;
    const std::string module =
        folder.Put("mine.txt", WithCrLf("[Brixley, Language Resource]\n[DRAW Message]\n1=A\n"
                                        "2=B\n3=C\n4=D\n5=E\n6=F\n7=G\n8=H\n9=I\n"));
    const std::string before = frmDraw.Window.Text;
    Events.Run([&] { LoadLanguageModule(module); });
    EXPECT_NE(frmDraw.Window.Text, before);
    const std::string followed = frmDraw.Window.Text;
    Move(441, 330);
    Move(440, 330);
    EXPECT_EQ(frmDraw.Window.Text, followed);
}

TEST_F(DrawingWindow, ADrawingLargerThanTheScreenIsShownWhole)
{
    Events.Run(frmDraw_Close);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    Events.Run([] {
        mnuDraw_Click();
        frmDraw.Window.Width = 500000;
        frmDraw.Window.Height = 500000;
    });
    QApplication::processEvents();
    const QWidget& window = *WidgetOf(frmDraw.Window);
    EXPECT_TRUE(screen.contains(window.geometry())) << window.width() << " x " << window.height();
    EXPECT_EQ(frmDraw.Window.Width, window.width() * 15);
    EXPECT_EQ(frmDraw.Window.Height, window.height() * 15);
}

TEST_F(DrawingWindow, ADoubleClickSelectsTheLine)
{
    Click(frmDraw.chkAutoRedraw);
    Click(frmDraw.chkProgramWindow);
    const QImage before = Shown();
    const QPoint onSecond(453, 455);
    QTest::mouseClick(Canvas(), Qt::LeftButton, {}, onSecond);
    QTest::mouseDClick(Canvas(), Qt::LeftButton, {}, onSecond);
    EXPECT_EQ(lvCncProgram.Selected, 2);
    EXPECT_EQ(Events.Widgets.As<QListWidget>(frmProgramWindow.lstCncLines)->currentRow(), 1);
    EXPECT_FALSE(Drawing.MeasureStarted);
    EXPECT_TRUE(WidgetOf(frmDraw.frView)->isVisible());
    const QImage marked = Shown();
    EXPECT_NE(marked, before) << "the line is marked";
    Events.Run([] { SelectRow(1); });
    EXPECT_NE(Shown(), marked) << "and the mark follows the selection";
    // In a measurement its second point alone.
    ClickCanvas(420, 300);
    QTest::mouseClick(Canvas(), Qt::LeftButton, {}, onSecond);
    QTest::mouseDClick(Canvas(), Qt::LeftButton, {}, onSecond);
    EXPECT_TRUE(Drawing.MeasureStarted && !Drawing.MeasureDone);
    Move(460, 330);
    EXPECT_EQ(frmDraw.lblMeasureDistance.Text, "187");
    SendKeys("{ESC}");
    // Beside all figures the clicks are two points.
    QTest::mouseClick(Canvas(), Qt::RightButton, {}, {600, 300});
    QTest::mouseDClick(Canvas(), Qt::RightButton, {}, {600, 300});
    EXPECT_TRUE(Drawing.MeasureDone);
}

TEST_F(DrawingWindow, StepsPausesAndProgramLines)
{
    auto* const list = Events.Widgets.As<QListWidget>(frmProgramWindow.lstCncLines);
    Click(frmDraw.chkProgramWindow);
    Pick(frmDraw.cboRun, 1);
    EXPECT_TRUE(Lines->isVisible());
    EXPECT_EQ(list->count(), 5);
    EXPECT_EQ(list->currentRow(), 0);
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf(frmDraw.cmdStep));
    Click(frmDraw.cmdStep);
    EXPECT_EQ(list->currentRow(), 1);
    SendKeys(" ");
    EXPECT_EQ(WaitingLine(), 2);
    EXPECT_EQ(Drawn(), 3U);
    // A frame that was closed comes back by a click also while the walk waits.
    Click(frmDraw.cmdCloseControls);
    EXPECT_FALSE(WidgetOf(frmDraw.frControls)->isVisible());
    ClickCanvas(600, 300);
    EXPECT_TRUE(WidgetOf(frmDraw.frControls)->isVisible());
    Click(frmDraw.cmdAbort);
    EXPECT_EQ(WaitingLine(), -1);

    Pick(frmDraw.cboRun, 3);
    EXPECT_EQ(WaitingLine(), 0);
    EXPECT_TRUE(QTest::qWaitFor([] { return WaitingLine() == 1; }, 2000)) << "a pause ends by itself";
    SendKeys("{ESC}");
    EXPECT_EQ(WaitingLine(), -1);
    Pick(frmDraw.cboRun, 2);
    EXPECT_TRUE(QTest::qWaitFor([] { return WaitingLine() < 0; }, 2000));
    EXPECT_EQ(Drawn(), 3U);

    // The window stays where it is put and as large as it was made.
    Lines->setGeometry(30, 40, 600, 250);
    Lines->close();
    EXPECT_FALSE(Lines->isVisible());
    Pick(frmDraw.cboRun, 0);
    EXPECT_TRUE(Lines->isVisible());
    EXPECT_EQ(Lines->geometry().topLeft(), QPoint(30, 40));
    EXPECT_EQ(Lines->size(), QSize(600, 250));
}

TEST_F(DrawingWindow, TheDrawingFollowsAnEditedLine)
{
    Click(frmDraw.chkAutoRedraw);
    Click(frmDraw.chkProgramWindow);
    Click(frmDraw.cmdEditor);
    ASSERT_TRUE(QTest::qWaitForWindowActive(Main.get()));
    Events.Run([] {
        SetFocus(frmMain.lvCncProgram);
        SelectRow(1);
    });
    SendKeys("{ENTER}00{ENTER}0{ENTER}150{ENTER}{ENTER}");
    EXPECT_EQ(FiguresOfLine(1).at(0).At[1], FiguresOfLine(1).at(0).At[3]) << "a level line now";
    EXPECT_EQ(&ActiveWindow(), &frmMain.Window);
    EXPECT_EQ(frmProgramWindow.lstCncLines.Index, lvCncProgram.Selected - 1);
}

TEST_F(DrawingWindow, ClosesCleanlyInEveryState)
{
    struct Case {
        const char* Name;
        std::function<void()> Make;
    };
    const Case cases[] = {
        {"at rest", [] {}},
        {"at a step", [&] { Pick(frmDraw.cboRun, 1); }},
        {"in a pause", [&] { Pick(frmDraw.cboRun, 4); }},
        {"at a held line",
         [&] {
             lvCncProgram.Row(2)[CellComment] = "cmdWAIT";
             Click(frmDraw.cmdRedraw);
         }},
        {"measuring", [&] { ClickCanvas(600, 300); }},
        {"choosing a zero point", [&] { Click(frmDraw.cmdZeroPoint); }},
        {"with Program Lines at a step",
         [&] {
             Click(frmDraw.chkProgramWindow);
             Pick(frmDraw.cboRun, 1);
         }},
        {"without its frame", [&] { Click(frmDraw.cmdCloseControls); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Enter(ThreeMoves);
        c.Make();
        Draw->close();
        EXPECT_FALSE(Draw->isVisible() || Lines->isVisible() || Drawing.DrawingNow);
        ASSERT_TRUE(QTest::qWaitForWindowActive(Main.get()));
        Enter(ThreeMoves);
        Open();
        EXPECT_EQ(Drawn(), 3U);
        EXPECT_TRUE(WidgetOf(frmDraw.cmdRedraw)->isEnabled());
        EXPECT_TRUE(WidgetOf(frmDraw.frControls)->isVisible());
        EXPECT_TRUE(WidgetOf(frmDraw.frView)->isVisible());
        Shared.DrawBoxes = {};
    }
}

TEST_F(DrawingWindow, ComesBackOnTheScreen)
{
    const QRect screen = Draw->screen()->availableGeometry();
    Draw->showMaximized();
    QTest::qWait(20);
    EXPECT_TRUE(Drawing.Maximized);
    // The frame doesn't leave a maximised window.
    Events.Run([] { frmDraw.frControls.Left = 90000; });
    EXPECT_TRUE(Draw->rect().contains(WidgetOf(frmDraw.frControls)->geometry()));
    Draw->close();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Main.get()));
    Open();
    EXPECT_FALSE(Draw->isMaximized());
    EXPECT_TRUE(screen.contains(Draw->pos()));

    frmProgramWindow.Window.Top = ToTwips(*Draw, screen.bottom() - 20);
    Click(frmDraw.chkProgramWindow);
    Click(frmDraw.cmdRedraw);
    EXPECT_LE(Lines->frameGeometry().bottom(), screen.bottom());
}

TEST_F(DrawingWindow, ThePictureIsSaved)
{
    Folder folder;
    const std::pair<const char*, std::string_view> files[] = {
        {"a.svg", "<?xml"}, {"a.png", "\x89PNG"}, {"a.PDF", "%PDF"}};
    for (const auto& [name, head] : files) {
        Desk.Files.push_back(folder / name);
        Click(frmDraw.cmdSavePicture);
        EXPECT_TRUE(BytesOf(folder / name).starts_with(head)) << name;
    }
    const QImage saved(QString::fromStdString(folder / "a.png"));
    EXPECT_EQ(saved.size(), Canvas()->size());
    EXPECT_EQ(saved.pixelColor(453, 453), Shown().pixelColor(453, 453));
    EXPECT_TRUE(Desk.Boxes.empty());
    Desk.Files.push_back(folder / "a.gif");
    Click(frmDraw.cmdSavePicture);
    EXPECT_EQ(Desk.Boxes.size(), 1U);

    // The kind that is chosen in the dialog gives the proposed name its ending.
    QtPlatform platform;
    QTimer::singleShot(0, [&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        PickIn(*dialog->findChild<QComboBox*>("fileTypeCombo"), 1);
        QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Enter);
        if (dialog->isVisible()) dialog->reject();
    });
    const auto chosen = platform.AskForFile(
        {FileDialog::Purpose::Save, "b.svg", "SVG picture|*.svg|PNG picture|*.png|", folder / ""});
    EXPECT_EQ(chosen.value_or("cancelled"), folder / "b.png");
}

TEST_F(DrawingWindow, ALongWalkIsAborted)
{
    // 8,000 passes through two moves by three levels of calls, with a look at the events every 10 ms.
    Enter("20*G25 L21 / M30 / 20*G25 L42 / M17 / 20*G25 L63 / M17 / G00 X10 Z10 / G00 X-10 Z-10 / M17");
    Drawing.YieldAfter = 10;
    Click(frmDraw.cmdRedraw);
    ASSERT_TRUE(Drawing.DrawingNow) << "events are let through";
    EXPECT_TRUE(WidgetOf(frmDraw.cmdAbort)->isVisible());
    Click(frmDraw.cmdAbort);
    EXPECT_FALSE(Drawing.DrawingNow);
    const int aborted = Picture.FigureCount();
    EXPECT_LT(aborted, 16000);
    Click(frmDraw.cmdRedraw);
    for (int i = 0; i < 100000 && Drawing.DrawingNow; ++i) QApplication::processEvents();
    EXPECT_FALSE(Drawing.DrawingNow);
    EXPECT_GT(Picture.FigureCount(), 16000);
}
