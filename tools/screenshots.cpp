// Draws the windows of the desktop program in all their states into a folder, at one scale (QT_SCALE_FACTOR):
// three sizes, a light and a dark palette. tools/screenshots runs it once a scale.
// Usage: screenshots FOLDER EXAMPLES [NAME OF A STATE [LANGUAGE MODULE]]
// "" stands for all states. With a language module in the light palette alone: texts don't change with it.

#include "commands/keyboard.h"
#include "commands/load.h"
#include "commands/session.h"
#include "commands/settings.h"
#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "drawing/draw_controls.h"
#include "drawing/measure.h"
#include "platform/recording_port.h"
#include "qt/draw_frame.h"
#include "qt/main_frame.h"
#include "serial/receive.h"
#include "serial/setup.h"
#include "ui/choice.h"
#include "ui/focus.h"
#include "ui/panes.h"
#include "ui/tick.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

QString Examples;
/// The path of a module, "" for none.
std::string Language;

void Open(const char* name)
{
    LoadFile((Examples + "/" + name).toStdString());
    AfterEvent();
}

void Type(const char* keys)
{
    for (; *keys != 0; ++keys) {
        PressKey(*keys == '\n' ? KeyStroke{KeyName::Enter} : KeyStroke{KeyName::Character, *keys});
        AfterEvent();
    }
}

void CheckViews()
{
    for (Control* box :
         {&frmMain.chkViewToolPos, &frmMain.chkViewLineProperties, &frmMain.chkViewMachineTime})
        SetCheck(*box, true);
}

void ShowTab(int index)
{
    ChooseMenu(frmMain.mnuSettingsShow);
    PickListItem(frmMain.tabSettings, index);
}

void OpenDrawing(const char* name, std::initializer_list<Control*> boxes)
{
    Open(name);
    tmr1sec_Timer();
    ChooseMenu(frmMain.mnuDraw);
    for (Control* box : boxes) ClickControl(*box);
    ClickControl(frmDraw.cmdRedraw);
}

/// The frame of the controls is dragged to a place in twips.
void DragFrame(float x, float y)
{
    frControls_MouseDown(0, 0);
    frmDraw_DragDrop(x, y);
}

RecordingPort& TheRecorder()
{
    return *static_cast<RecordingPort*>(ThePort); // no front end has set another
}

constexpr const char* FromTheMachine =
    "%\r\n    N` G`   X `   Z `  F`  H\r\n    00 21\r\n    01M30\r\n   M\r\n";

void EnableCommunication()
{
    ThePort->OnEvent = MSComm1_OnComm;
    SetCheck(frmMain.chkEnableCom, true);
    LeaveSettings();
    tmr1sec_Timer();
}

/// A program goes out and has come to a line.
void Transmit(const char* program, int lines)
{
    Open(program);
    EnableCommunication();
    ChooseMenu(frmMain.mnuTX);
    for (int i = 0; i < lines; ++i) {
        AfterEvent();
        TheRecorder().Leave();
    }
}

struct State {
    const char* Name;
    void (*Make)();
    /// The picture is that of the drawing window, with the Program Lines below it when they are shown.
    bool OfDrawing = false;
};
const State States[] = {
    {"new", [] {}},
    {"typing", [] { Type("00\n2000\n100\n\n01\n2000\n-1500\n"); }},
    {"program-mk4",
     [] {
         Open("mk4-first-turning.cnc");
         CheckViews();
         ClickRow(6);
     }},
    {"errors-mk4",
     [] {
         Open("mk4-mistakes.cnc");
         ClickHeader(9);
     }},
    {"program-f1",
     [] {
         Open("f1-first-milling.cnc");
         ClickRow(5);
     }},
    {"program-mk2", [] { Open("mk2-stepped-pin.cnc"); }},
    {"notes",
     [] {
         Open("mk4-first-turning.cnc");
         ClickControl(frmMain.chkViewFileNotes);
     }},
    {"run",
     [] {
         Open("mk4-first-turning.cnc");
         ClickControl(frmMain.cmdRun);
         for (int i = 0; i < 5; ++i) {
             ClickControl(frmMain.cmdStep);
             AfterEvent();
         }
     }},
    {"settings-general", [] { ShowTab(0); }},
    {"settings-units", [] { ShowTab(1); }},
    {"settings-info",
     [] {
         Open("mk4-first-turning.cnc");
         ShowTab(2);
     }},
    {"settings-machine", [] { ShowTab(3); }},
    {"settings-printer", [] { ShowTab(4); }},
    {"settings-com", [] { ShowTab(5); }},
    {"axes-lathe", [] { ClickControl(frmMain.cmdTopButtons[5]); }},
    {"axes-mill",
     [] {
         ShowTab(3);
         ClickControl(frmMain.optSettingsF1CNC);
     }},
    {"help", [] { ChooseMenu(frmMain.mnuHelpText); }},
    {"help-codes", [] { ChooseMenu(frmMain.mnuGhelp); }},
    {"help-field",
     [] {
         Type("84\n");
         PressKey({KeyName::F1});
     }},
    {"about", [] { ChooseMenu(frmMain.mnuAbout); }},
    {"drawing-lathe",
     [] {
         OpenDrawing("mk4-chess-pawn.cnc", {&frmDraw.chkShowRadii, &frmDraw.chkGrid});
         DragFrame(120, 5000);
         SelectRow(7);
     },
     true},
    {"drawing-mill-white",
     [] {
         OpenDrawing("f1-pocket-and-holes.cnc",
                     {&frmDraw.chkToolWidth, &frmDraw.chkPrintableBackground, &frmDraw.chkGrid});
     },
     true},
    {"drawing-lathe-fill",
     [] {
         OpenDrawing("mk4-first-turning.cnc", {&frmDraw.chkFillCycles, &frmDraw.chkShowRadii});
     },
     true},
    {"drawing-lathe-white",
     [] {
         OpenDrawing("mk4-threaded-shaft.cnc",
                     {&frmDraw.chkFillCycles, &frmDraw.chkGrid, &frmDraw.chkPrintableBackground});
         SelectRow(9);
     },
     true},
    {"drawing-mill", [] { OpenDrawing("f1-first-milling.cnc", {&frmDraw.chkShowRadii}); }, true},
    {"drawing-mill-width",
     [] {
         OpenDrawing("f1-first-milling.cnc",
                     {&frmDraw.chkToolWidth, &frmDraw.chkToolCenter, &frmDraw.chkGrid});
     },
     true},
    {"drawing-lines",
     [] {
         OpenDrawing("f1-pocket-and-holes.cnc", {&frmDraw.chkProgramWindow, &frmDraw.chkToolWidth});
         PickListItem(frmDraw.cboRun, 1);
         for (int i = 0; i < 8; ++i) {
             ClickControl(frmDraw.cmdStep);
             AfterEvent();
         }
     },
     true},
    {"drawing-lines-lathe",
     [] {
         OpenDrawing("mk4-chess-pawn.cnc", {&frmDraw.chkProgramWindow, &frmDraw.chkFillCycles});
     },
     true},
    {"drawing-german",
     [] {
         Open("../languages/German.txt");
         OpenDrawing("f1-first-milling.cnc", {});
         frmDraw_MouseDown(9000, 6000);
         frmDraw_MouseMove(10500, 7500);
         frmDraw_MouseDown(10500, 7500);
     },
     true},
    {"drawing-french",
     [] {
         Open("../languages/French.txt");
         OpenDrawing("mk4-first-turning.cnc", {&frmDraw.chkGrid});
     },
     true},
    {"drawing-step",
     [] {
         OpenDrawing("mk2-threaded-bolt.cnc", {&frmDraw.chkFillCycles});
         PickListItem(frmDraw.cboRun, 1);
         for (int i = 0; i < 9; ++i) {
             ClickControl(frmDraw.cmdStep);
             AfterEvent();
         }
     },
     true},
    {"drawing-measure",
     [] {
         OpenDrawing("mk4-threaded-shaft.cnc", {});
         DragFrame(120, 5000);
         frmDraw_MouseDown(2085, 3705); // from the end of the thread to its beginning
         frmDraw_MouseMove(7100, 3705);
         frmDraw_MouseDown(7100, 3705);
     },
     true},
    {"transmission", [] { Transmit("mk4-first-turning.cnc", 9); }},
    {"transmission-receiving",
     [] {
         Transmit("mk4-mistakes.cnc", 6);
         TheRecorder().Receive(FromTheMachine);
     }},
    {"reception",
     [] {
         EnableCommunication();
         TheRecorder().Receive(FromTheMachine);
     }},
    {"reception-empty",
     [] {
         EnableCommunication();
         TheRecorder().Receive(FromTheMachine);
         ClickControl(frmMain.cmdReceiveExit);
         ChooseMenu(frmMain.mnuRX);
     }},
};

const QSize Sizes[] = {{787, 581}, {1366, 768}, {2560, 1440}};

QPalette Dark()
{
    QPalette palette;
    const QColor window(0x2A, 0x2C, 0x30), base(0x1E, 0x20, 0x23), text(0xE6, 0xE6, 0xE6);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::PlaceholderText, QColor(0x90, 0x90, 0x90));
    palette.setColor(QPalette::Button, QColor(0x3A, 0x3D, 0x42));
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, QColor(0x2F, 0x7F, 0xC8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Light, QColor(0x4A, 0x4D, 0x52));
    palette.setColor(QPalette::Dark, QColor(0x15, 0x16, 0x18));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x7A, 0x7D, 0x82));
    return palette;
}

bool Save(const QPixmap& picture, const QString& file)
{
    if (picture.save(file)) return true;
    std::fprintf(stderr, "%s could not be written\n", qPrintable(file));
    return false;
}

/// A window, and below it another one when that is shown.
QPixmap Grab(QWidget& window, QWidget& below)
{
    const QPixmap upper = window.grab();
    if (!below.isVisible()) return upper;
    const QPixmap lower = below.grab();
    QPixmap both(std::max(upper.width(), lower.width()), upper.height() + lower.height());
    both.fill(Qt::gray);
    QPainter painter(&both);
    painter.drawPixmap(QRect(QPoint(), upper.size()), upper);
    painter.drawPixmap(QRect(QPoint(0, upper.height()), lower.size()), lower);
    return both;
}

/// One state in one size; false when a picture could not be written.
bool Draw(Desktop& desktop, MainFrame& window, QWidget& drawing, QWidget& lines, const State& state,
          QSize size, const QString& name)
{
    const auto make = [&] {
        ResetState();
        frmMain.Window.Width = size.width() * 15;
        frmMain.Window.Height = size.height() * 15;
        StartNew(MachineKind::MK4, true, false);
        LoadLanguageModule(Language);
        state.Make();
    };
    desktop.Run(make);
    if (state.OfDrawing) desktop.Run(make); // the window, shown for the first time, has found its size
    desktop.Run(tmr1sec_Timer);
    QApplication::processEvents();
    return Save(state.OfDrawing ? Grab(drawing, lines) : window.grab(), name);
}

} // namespace

int main(int argc, char** argv)
{
    // What the states leave is not the user's.
    const QTemporaryDir user;
    qputenv("XDG_DATA_HOME", user.path().toUtf8());
    QApplication application(argc, argv);
    if (argc < 3) return 2;
    const QDir folder(argv[1]);
    Examples = argv[2];
    const QString only = argc > 3 ? argv[3] : "";
    if (argc > 4) Language = argv[4];
    const QString scale =
        QString::number(qRound(qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble() * 100));

    Desktop desktop;
    ResetState();
    MainFrame window(desktop);
    FindFrame find(desktop, &window);
    DrawFrame drawing(desktop);
    ProgramFrame lines(desktop, &drawing);
    desktop.Run([] { StartNew(MachineKind::MK4, true, false); });
    window.Open();

    const QPalette light = QApplication::palette();
    bool whole = true;
    for (const bool dark : {false, true}) {
        if (dark && !Language.empty()) break;
        // The palette changes while the windows are open.
        QApplication::setPalette(dark ? Dark() : light);
        const QString end = "-" + scale + (dark ? "-dark.png" : "-light.png");
        for (const State& state : States) {
            if (!only.isEmpty() && only != state.Name) continue;
            for (const QSize size : Sizes) {
                if (state.OfDrawing && size != Sizes[0]) continue; // it has a size of its own
                const QString name = QString("%1-%2x%3").arg(state.Name).arg(size.width()).arg(size.height());
                whole =
                    Draw(desktop, window, drawing, lines, state, size, folder.filePath(name + end)) && whole;
            }
        }
        for (QAction* menu : window.menuBar()->actions()) {
            if (!menu->isVisible() || !only.isEmpty()) continue;
            whole = Save(menu->menu()->grab(), folder.filePath(menu->objectName() + end)) && whole;
        }
    }
    return whole ? 0 : 1;
}
