// The desktop's printer: PDF files where the system has no printer, the dialogs, and a real queue.
//
// The tests whose names begin with Queue need a print server of their own; print_to_cups starts one.

#include "commands/drawing.h"
#include "commands/printing.h"
#include "commands/session.h"
#include "drawing/printing.h"
#include "qt/printer.h"
#include "support/program.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <csignal>
#include <gtest/gtest.h>

namespace {

/// Calls a routine with the dialog of a name as soon as it is up.
template <class Action> void WhenUp(const char* name, Action action)
{
    auto* const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog->objectName() != name) return;
        timer->deleteLater();
        action(*dialog);
    });
    timer->start(20);
}

/// A window's program with three lines, the desktop's printer, and a folder for its files.
class Printers : public testing::Test
{
protected:
    Printers()
    {
        Start("MK4 mm");
        ThePrinter = &OnDesk;
        Enter("G00 X2000 Z100 / G01 X2000 Z-1000 F50 ;first cut / M30");
    }
    ~Printers() override { ThePrinter = &Desk.Printer; }

    const Folder Work;
    QtPrinter OnDesk;
};

class Queue : public Printers
{
protected:
    void SetUp() override
    {
        if (QPrinterInfo::availablePrinters().isEmpty()) GTEST_SKIP() << "no print server is running";
    }
};

} // namespace

TEST_F(Printers, WithoutAPrinterEachCopyBecomesAFile)
{
    if (!QPrinterInfo::availablePrinters().isEmpty()) GTEST_SKIP() << "there is a printer";
    ASSERT_TRUE(OnDesk.MakesFiles());
    const PageSize page = OnDesk.Page(Orientation::Landscape);
    EXPECT_NEAR(page.Width, A4.Height - 2 * PaperMargin, 5);
    EXPECT_NEAR(page.Height, A4.Width - 2 * PaperMargin, 5);

    Desk.Files = {Work / "first.pdf"};
    PrintDirect();
    EXPECT_TRUE(BytesOf(Work / "first.pdf").starts_with("%PDF"));
    ASSERT_EQ(Desk.Dialogs.size(), 1u);
    EXPECT_TRUE(Desk.Dialogs[0].Filter.ends_with("|*.pdf|"));

    // The dialog's copies and file are for the next print, and only the copies for those behind it.
    const std::string named = Work / "named.pdf";
    WhenUp("printDialog", [&named](QDialog& dialog) {
        dialog.findChild<QSpinBox*>("copies")->setValue(2);
        dialog.findChild<QLineEdit*>("filename")->setText(QString::fromStdString(named));
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    cmdPrinterDialog_Click();
    PrintDirect();
    EXPECT_EQ(Desk.Dialogs.size(), 1u);
    EXPECT_TRUE(BytesOf(named).starts_with("%PDF"));
    EXPECT_TRUE(BytesOf(Work / "named-2.pdf").starts_with("%PDF"));

    // Given up, no second copy is asked for; what fails is told.
    PrintDirect();
    EXPECT_EQ(Desk.Dialogs.size(), 2u);
    EXPECT_TRUE(Desk.Boxes.empty());
    Desk.Files = {Work / "nowhere/x.pdf"};
    PrintDirect();
    ASSERT_EQ(Desk.Boxes.size(), 1u);
    EXPECT_TRUE(Desk.Boxes[0].Box.Text.starts_with("Printing failed: "));
    EXPECT_EQ(LogList(), "482 mnuPrint_Click");
}

TEST_F(Printers, ADrawingLiesAcrossAndTheNextListingStands)
{
    if (!QPrinterInfo::availablePrinters().isEmpty()) GTEST_SKIP() << "there is a printer";
    mnuDraw_Click();
    AfterEvent();
    Desk.Files = {Work / "drawing.pdf", Work / "listing.pdf"};
    cmdPrint_Click();
    PrintDirect();
    const std::string drawing = BytesOf(Work / "drawing.pdf"), listing = BytesOf(Work / "listing.pdf");
    EXPECT_NE(drawing.find("/MediaBox [0 0 842.000000 595.000000]"), std::string::npos);
    EXPECT_NE(listing.find("/MediaBox [0 0 595.000000 842.000000]"), std::string::npos);
}

TEST_F(Printers, ThePreviewShowsEveryPageAndPrintsNothingByItself)
{
    std::string lines = "G00 X0 Z0";
    for (int i = 0; i < 199; ++i) lines += " / G00 X1 Z" + std::to_string(i);
    Enter(lines);
    int pages = 0;
    WhenUp("printPreview", [&pages](QDialog& dialog) {
        QTest::qWait(50);
        pages = dialog.findChild<QPrintPreviewWidget*>()->pageCount();
        dialog.reject();
    });
    mnuPrint_Click();
    EXPECT_EQ(pages, 4); // 200 lines and those around them, some 60 a page
    EXPECT_TRUE(Desk.Dialogs.empty()) << "a file was asked for";
    EXPECT_TRUE(Desk.Boxes.empty());
}

TEST_F(Queue, TakesEachCopyAsAJob)
{
    ASSERT_FALSE(OnDesk.MakesFiles());
    WhenUp("printDialog", [](QDialog& dialog) {
        dialog.findChild<QSpinBox*>("copies")->setValue(2);
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    cmdPrinterDialog_Click();
    EXPECT_EQ(OnDesk.Copies(), 2);
    PrintDirect();

    // From the preview: its print button brings up the dialog, and the job is printed once.
    WhenUp("printPreview", [](QDialog& preview) {
        WhenUp("", [](QDialog& dialog) {
            EXPECT_EQ(dialog.findChild<QSpinBox*>("copies")->value(), 2);
            dialog.findChild<QSpinBox*>("copies")->setValue(1);
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
        for (QAction* action : preview.findChildren<QAction*>()) {
            if (action->text() == "Print") action->trigger();
        }
    });
    mnuPrint_Click();
    EXPECT_EQ(OnDesk.Copies(), 1);

    mnuDraw_Click();
    AfterEvent();
    cmdPrint_Click();
    EXPECT_TRUE(Desk.Boxes.empty());
    EXPECT_TRUE(Desk.Dialogs.empty());
}

TEST_F(Queue, ThatIsGoneIsTold)
{
    const int server = qEnvironmentVariableIntValue("PRINT_SERVER");
    ASSERT_GT(server, 0);
    ASSERT_FALSE(OnDesk.MakesFiles());
    ASSERT_EQ(::kill(server, SIGTERM), 0);
    while (QFileInfo::exists(qEnvironmentVariable("CUPS_SERVER"))) QTest::qWait(10);
    PrintDirect();
    ASSERT_EQ(Desk.Boxes.size(), 1u);
    EXPECT_EQ(Desk.Boxes[0].Box.Text, "Printing failed: the printer is no longer there");
}
