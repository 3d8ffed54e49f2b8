// The windows in every language that is shipped: no text is cut off, and the toolkit's dialogs follow.

#include "commands/drawing.h"
#include "commands/keyboard.h"
#include "commands/session.h"
#include "commands/settings.h"
#include "core/control_names.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "editor/code_box.h"
#include "qt/dialog_language.h"
#include "qt/draw_frame.h"
#include "qt/main_frame.h"
#include "serial/transmit.h"
#include "support/program.h"
#include "ui/choice.h"
#include "ui/focus.h"
#include "ui/panes.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileSystemModel>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

std::string ModuleOf(const std::string& language)
{
    return std::string(LANGUAGES_DIR) + "/" + language + ".txt";
}

class InLanguage : public testing::TestWithParam<const char*>
{
protected:
    Desktop Events;
    MainFrame Main{Events};
    FindFrame Find{Events, nullptr};
    DrawFrame Drawing{Events};

    void Open(MachineKind machine)
    {
        Desk = {};
        ThePlatform = &Desk;
        ThePort = &Desk.Port;
        ResetState();
        frmMain.Window.Width = 787 * 15;
        frmMain.Window.Height = 581 * 15;
        Events.Run([&] {
            StartNew(machine, true, false);
            LoadLanguageModule(ModuleOf(GetParam()));
        });
        Main.Open();
    }
    void SetUp() override { Open(MachineKind::MK4); }

    int WidthOf(const QWidget& widget, const std::string& text)
    {
        return widget.fontMetrics().size(Qt::TextShowMnemonic, QString::fromStdString(text)).width();
    }

    /// Codes stand in front of their descriptions, which are broken between words.
    void ExpectWordsFit(const Control& list, const QWidget& widget)
    {
        constexpr int CodeAndScrollBar = 72;
        for (const std::string& item : list.Items) {
            const QString description = QString::fromStdString(item).section('\t', 1);
            for (const QString& word : description.split(' '))
                EXPECT_LE(widget.fontMetrics().horizontalAdvance(word), widget.width() - CodeAndScrollBar)
                    << item;
        }
    }

    void ExpectFit(const Control& control)
    {
        const QWidget* const widget = control.Is == Kind::Menu ? nullptr : Events.Widgets.Of(control);
        if (widget == nullptr || !widget->isVisible()) return;
        if (control.Is == Kind::List) return ExpectWordsFit(control, *widget);
        if (control.Text.empty()) return;
        int needed = 0;
        // A path is shortened, and the units stand where there is room.
        const bool elided = &control == &frmMain.lblPath || &control == &frmMain.lblEntryUnits;
        if (control.Is == Kind::Label && !elided) needed = WidthOf(*widget, control.Text);
        if (control.Is == Kind::CheckBox || control.Is == Kind::Option)
            needed = widget->minimumSizeHint().width();
        if (control.Is == Kind::Button) needed = WidthOf(*widget, control.Text) + 4;
        if (control.Is == Kind::Frame) needed = WidthOf(*widget, control.Text) + 8;
        EXPECT_LE(needed, widget->width()) << GetParam() << " " << FullName(control) << ": " << control.Text;
    }
    void ExpectAllFit()
    {
        QApplication::processEvents();
        frmMain.ForEach([&](Control& control) { ExpectFit(control); });
        frmDraw.ForEach([&](Control& control) { ExpectFit(control); });
    }
};

TEST_P(InLanguage, NoTextIsCutOffInTheSmallestWindow)
{
    for (const MachineKind machine : {MachineKind::MK2, MachineKind::MK4, MachineKind::F1}) {
        Open(machine);
        ExpectAllFit();
        // All fields, and the word of a jump.
        for (const char* code : {machine == MachineKind::MK4 ? "G84 " : "G01 ", "G25 "}) {
            Events.Run([&] { PickCode(code); });
            ExpectAllFit();
            // The hint of each place that the cursor comes to.
            for (Control* place : {&frmMain.lvCncProgram, &frmMain.txtGMcode, &frmMain.txtXI, &frmMain.txtZK,
                                   &frmMain.txtFKTL, &frmMain.txtH, &frmMain.txtComment}) {
                Events.Run([&] { SetFocus(*place); });
                ExpectFit(frmMain.lblHint);
            }
        }
        for (int tab = 0; tab < static_cast<int>(frmMain.tabSettings.Items.size()); ++tab) {
            Events.Run([&] {
                frmMain.tabSettings.Visible = true;
                PickItem(frmMain.tabSettings, tab);
            });
            ExpectAllFit();
        }
    }
    Load(BytesOf(EXAMPLES_DIR "/mk4-first-turning.cnc"));
    Events.Run([] {
        frmMain.tabSettings.Visible = false;
        ClickControl(frmMain.cmdRun);
    });
    ExpectAllFit();
    Events.Run([] {
        ClickControl(frmMain.cmdStop);
        for (Control* frame : {&frmMain.frCmdEditor1, &frmMain.frCmdEditor2, &frmMain.frCmdEditor3})
            frame->Visible = false;
        frmMain.frRXcode.Visible = frmMain.frCmdRX.Visible = frmMain.cmdReceiveLast.Visible = true;
    });
    ExpectAllFit();
    // A program with messages goes out, and the machine sends.
    Open(MachineKind::MK4);
    Load(BytesOf(EXAMPLES_DIR "/mk4-mistakes.cnc"));
    Events.Run([] {
        SetCheck(frmMain.chkEnableCom, true);
        mnuTX_Click();
    });
    Events.Run([] { Desk.Port.Receive(std::string(9999, '\r')); });
    ASSERT_TRUE(Shared.Transmitting && frmMain.frRXcode.Visible);
    ExpectAllFit();
}

TEST_P(InLanguage, NoTextIsCutOffInTheDrawing)
{
    for (const char* file : {"/mk4-chess-pawn.cnc", "/f1-pocket-and-holes.cnc"}) {
        Load(BytesOf(std::string(EXAMPLES_DIR) + file));
        Events.Run([] {
            mnuDraw_Click();
            for (Control* covering : {&frmDraw.cmdStep, &frmDraw.cmdAbort, &frmDraw.frMeasure})
                covering->Visible = true;
        });
        ExpectAllFit();
    }
}

/// The size of a file of so many bytes, as the dialog of files shows it.
std::string ShownSize(size_t bytes)
{
    const Folder user;
    const QString path = QString::fromStdString(user.Put("x.cnc", std::string(bytes, 'x')));
    QFileSystemModel files;
    files.setRootPath(QString::fromStdString(user / ""));
    FileDetails details;
    details.setSourceModel(&files);
    QElapsedTimer passed;
    passed.start();
    while (files.size(files.index(path)) <= 0 && passed.elapsed() < 5000) QApplication::processEvents();
    return details.mapFromSource(files.index(path, 1)).data().toString().toStdString();
}

TEST_P(InLanguage, DialogsOfTheToolkitFollow)
{
    const std::map<std::string, std::pair<std::string, QString>> files{
        {"German", {"Ja", "qtbase_de.qm"}},   {"French", {"Oui", "qtbase_fr.qm"}},
        {"Spanish", {"Sí", "qtbase_es.qm"}},  {"Dutch", {"Ja", "qtbase_nl.qm"}},
        {"English", {"Yes", "qtbase_en.qm"}},
    };
    const auto& [yes, file] = files.at(GetParam());
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!QFile::exists(folder + "/" + file)) GTEST_SKIP() << "qt6-translations-l10n is not installed";
    const auto text = [] {
        QString button = QApplication::translate("QPlatformTheme", "&Yes");
        return button.remove('&').toStdString();
    };
    EXPECT_EQ(text(), yes);
    Events.Run([] { LoadLanguageModule(ModuleOf("English")); });
    EXPECT_EQ(text(), "Yes");
    Events.Run([] { LoadLanguageModule(ModuleOf(GetParam())); });
    EXPECT_EQ(text(), yes);

    // Sizes of files, as the dialog of files shows them: three and a half of a thousand bytes.
    const std::string size = ShownSize(3584);
    EXPECT_TRUE(size.starts_with(yes == "Yes" ? "3.50" : "3,50")) << size;

    // The boxes of the program itself, also where the toolkit has no such language.
    std::string shown;
    QTimer::singleShot(0, &Main, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        shown = box->button(QMessageBox::Yes)->text().remove('&').toStdString();
        QTest::keyClick(box, Qt::Key_Return);
    });
    QtPlatform platform;
    EXPECT_EQ(platform.Show({"?", "", Buttons::YesNo, Icon::None, true}), Answer::No)
        << "Yes would lose work";
    EXPECT_EQ(shown, yes);
}

INSTANTIATE_TEST_SUITE_P(Shipped, InLanguage,
                         testing::Values("English", "German", "French", "Spanish", "Dutch"),
                         [](const auto& test) { return std::string(test.param); });

TEST(Language, ATipThatStoodSinceTheStartFollows)
{
    Desktop events;
    MainFrame window(events);
    ResetState();
    events.Run([] { StartNew(MachineKind::MK4, true, false); });
    const QWidget& button = *events.Widgets.Of(frmMain.cmdInsert);
    const std::string english = button.toolTip().toStdString();
    events.Run([] { LoadLanguageModule(ModuleOf("German")); });
    EXPECT_NE(button.toolTip().toStdString(), english);
    EXPECT_EQ(button.toolTip().toStdString(), TipOf(frmMain.cmdInsert));
}

} // namespace
