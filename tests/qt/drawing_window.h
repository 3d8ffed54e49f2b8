// drawing_window.h: the open drawing window for tests, and what a hand does there.

#pragma once

#include "qt/events.h"

#include "commands/load.h"
#include "commands/session.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "drawing/drawing_state.h"
#include "drawing/line_figures.h"
#include "drawing/walk.h"
#include "qt/draw_frame.h"
#include "qt/main_frame.h"
#include "qt/picture_writer.h"
#include "support/program.h"
#include "ui/choice.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>
#include <memory>

constexpr const char* ThreeMoves = "G00 X100 Z100 / G00 X200 Z200 / G00 X300 Z300 / M30";

/// The desktop with main window, drawing and Program Lines. The drawing of three moves is open; at scale x 4
/// and with the zero point at pixel 400, 400 they end at 426, 480 and 560 on both axes.
class DrawingWindow : public testing::Test
{
protected:
    Desktop Events;
    std::unique_ptr<MainFrame> Main;
    std::unique_ptr<DrawFrame> Draw;
    std::unique_ptr<ProgramFrame> Lines;

    void SetUp() override
    {
        Desk = {};
        ThePlatform = &Desk;
        ThePicturePainter = PaintPicture;
        ResetState();
        Main = std::make_unique<MainFrame>(Events);
        Draw = std::make_unique<DrawFrame>(Events);
        Lines = std::make_unique<ProgramFrame>(Events, Draw.get());
        Main->TakeScreen();
        Events.Run([] { StartNew(MachineKind::MK4, true, false); });
        Main->Open();
        Main->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Main.get()));
        Enter(ThreeMoves);
        Open();
    }

    void Open()
    {
        SendKeys("{CTRL-D}");
        ASSERT_TRUE(Draw->isVisible());
        ASSERT_TRUE(QTest::qWaitForWindowActive(Draw.get()));
        Events.Run([] {
            PickItem(frmDraw.cboScale, 5);
            Drawing.ZeroPointX = Drawing.ZeroPointY = 6000;
            Redraw();
        });
    }

    QWidget* WidgetOf(const Control& control) { return Events.Widgets.Of(control); }
    QWidget* Canvas() { return Draw->findChild<QWidget*>("canvas"); }
    void Click(const Control& control)
    {
        QPoint at = WidgetOf(control)->rect().center();
        if (control.Is == Kind::CheckBox) at.setX(8); // nothing happens behind the caption
        QTest::mouseClick(WidgetOf(control), Qt::LeftButton, {}, at);
    }
    void ClickCanvas(int x, int y) { QTest::mouseClick(Canvas(), Qt::LeftButton, {}, {x, y}); }
    void Move(int x, int y)
    {
        QMouseEvent move(QEvent::MouseMove, QPointF(x, y), QPointF(x, y), Qt::NoButton, {}, {});
        QApplication::sendEvent(Canvas(), &move);
    }
    void Turn(int angle, QPointF at)
    {
        QWheelEvent wheel(at, at, {}, {0, angle}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Canvas(), &wheel);
    }
    /// Chooses an item of a combo box in its popup, which a click opens.
    static void PickIn(QComboBox& combo, int index)
    {
        QTest::mouseClick(&combo, Qt::LeftButton);
        ASSERT_TRUE(combo.view()->isVisible());
        combo.view()->setCurrentIndex(combo.model()->index(index, 0));
        QTest::keyClick(combo.view(), Qt::Key_Enter);
    }
    void Pick(const Control& control, int index)
    {
        PickIn(*Events.Widgets.As<QComboBox>(control), index);
        Draw->activateWindow(); // a window system does that behind a popup
        ASSERT_TRUE(QTest::qWaitForWindowActive(Draw.get()));
    }
    void LoadExample(const char* name)
    {
        Shared.Changed = false;
        Events.Run([name] { LoadFile(std::string(EXAMPLES_DIR) + "/" + name); });
    }
    /// Whether a green line passes; slanted lines are smoothed.
    bool IsOnLine(int x, int y)
    {
        const QColor pixel = Shown().pixelColor(x, y);
        return pixel.green() > 100 && pixel.red() == 0 && pixel.blue() == 0;
    }
    /// The picture without the frame that floats over it.
    QImage Shown()
    {
        QImage image = Canvas()->grab().toImage();
        QPainter(&image).fillRect(WidgetOf(frmDraw.frControls)->geometry(), Qt::gray);
        return image;
    }

    static size_t Drawn()
    {
        size_t figures = 0;
        for (int line = 1; line <= LineCount(); ++line) figures += FiguresOfLine(line).size();
        return figures;
    }
};
