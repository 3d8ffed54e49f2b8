// The window at a real port: control-sim plays the machine at the other end of a pair of pseudo terminals.

#ifdef CONTROL_SIM

#include "qt/events.h"
#include "support/process.h"

#include "commands/exit.h"
#include "commands/load.h"
#include "commands/session.h"
#include "core/app_data.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "platform/files.h"
#include "qt/end_signals.h"
#include "qt/main_frame.h"
#include "qt/serial_port.h"
#include "serial/receive.h"
#include "serial/setup.h"
#include "ui/choice.h"
#include "ui/focus.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPlainTextEdit>
#include <QTest>
#include <csignal>
#include <ctime>
#include <gtest/gtest.h>
#include <memory>

namespace {

/// The longest time of the processor between two turns of the event loop: what a user feels as a freeze, less
/// what other programs take.
class Pulse
{
public:
    Pulse()
    {
        QObject::connect(&Beat, &QTimer::timeout, &Beat, [this] {
            Longest = std::max(Longest, Now() - Last);
            Last = Now();
        });
        Beat.start(1);
    }
    double Milliseconds() const { return Longest; }

private:
    static double Now()
    {
        timespec time{};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    }

    QTimer Beat;
    double Last = Now(), Longest = 0;
};

#ifdef __SANITIZE_ADDRESS__
constexpr double LongestFreeze = 1000; // milliseconds; what is measured then is the sanitizer
#else
constexpr double LongestFreeze = 100; // milliseconds
#endif
constexpr const char* FromTheMachine = "%\r\n    N` G`   X `    Z `  F`  H \r\n    00M30\r\n   M\r\n";

class TransferWindow : public ::testing::Test
{
protected:
    ~TransferWindow() override
    {
        Window.reset(); // nothing comes from the port any more
        Port.reset();
        ThePort = &Desk.Port;
    }

    /// The window with a program, and communication enabled on the machine's line.
    void Open(const std::string& options, const char* baud)
    {
        Sim = std::make_unique<Machine>(std::string("--line ") + baud + ",N,8,1 " + options);
        Desk = {};
        Desk.DataFolder = Work / "user";
        ThePlatform = &Desk;
        Port = std::make_unique<SerialPort>(Sim->Device);
        ThePort = Port.get();
        ResetState();
        Port->OnEvent = [this](PortEvent event) { Events.RunLater([event] { MSComm1_OnComm(event); }); };
        Window = std::make_unique<MainFrame>(Events);
        Events.Run([&] {
            StartNew(MachineKind::MK4, true, false);
            LoadFile(EXAMPLES_DIR "/mk4-mistakes.cnc");
            for (Control& option : frmMain.optBaudTX) {
                if (option.Text == baud) Choose(option);
            }
            for (Control& option : frmMain.optBaudRX) {
                if (option.Text == baud) Choose(option);
            }
            SetCheck(frmMain.chkEnableCom, true);
            LeaveSettings();
        });
        Window->Open();
        ASSERT_TRUE(Port->IsOpen());
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
    }

    QWidget* WidgetOf(const Control& control) { return Events.Widgets.Of(control); }
    /// A click of the mouse at the place where the control is, whatever lies over it there.
    void Click(const Control& control)
    {
        const QPoint at = WidgetOf(control)->mapTo(Window.get(), WidgetOf(control)->rect().center());
        QWidget* const hit = Window->childAt(at);
        ASSERT_NE(hit, nullptr);
        QTest::mouseClick(hit, Qt::LeftButton, {}, hit->mapFrom(Window.get(), at));
    }
    /// The machine hangs up: one box tells of it, and communication is off.
    static void ExpectOneBox()
    {
        ASSERT_TRUE(QTest::qWaitFor([] { return !Desk.Boxes.empty(); }, 10'000));
        QTest::qWait(300);
        ASSERT_EQ(Desk.Boxes.size(), 1U);
        EXPECT_NE(Desk.Boxes[0].Box.Text.find("is gone: check the cable"), std::string::npos);
        EXPECT_FALSE(Shared.ComEnabled);
    }
    static std::string Progress() { return frmMain.lblTransfer.Text; }

    const Folder Work;
    Desktop Events;
    std::unique_ptr<Machine> Sim;
    std::unique_ptr<SerialPort> Port;
    std::unique_ptr<MainFrame> Window;
};

} // namespace

TEST_F(TransferWindow, SendsAndShowsHowFarItIs)
{
    Open("", "9600");
    const Pulse pulse;
    const int selected = lvCncProgram.Selected;
    Click(frmMain.cmdTopButtons[9]);
    EXPECT_NE(Progress().find(" of 16 lines sent, 00:00:0"), std::string::npos) << Progress();
    EXPECT_NE(Progress().find("first message in N"), std::string::npos) << Progress();
    EXPECT_EQ(Window->cursor().shape(), Qt::WaitCursor);
    ASSERT_TRUE(QTest::qWaitFor([&] { return lvCncProgram.Selected > 5; }, 10'000));
    EXPECT_TRUE(WidgetOf(frmMain.cmdStop)->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([] { return !Shared.Transmitting; }, 30'000));
    EXPECT_LT(pulse.Milliseconds(), LongestFreeze);
    EXPECT_EQ(lvCncProgram.Selected, selected);
    EXPECT_EQ(Window->cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(Desk.Boxes.empty());
    Events.Run([] { SetCheck(frmMain.chkEnableCom, false); });
    EXPECT_EQ(Sim->Wait(), 0) << Sim->Report();
}

TEST_F(TransferWindow, StopsBesideAReception)
{
    const std::string memory = Work.Put("memory", std::string("from the machine\r\n") + '\0' + "\xE4");
    Open("--talk 40 --memory " + memory, "2400");
    Click(frmMain.cmdTopButtons[9]);
    ASSERT_TRUE(QTest::qWaitFor([] { return frmMain.txtRX.Text.ends_with("ä"); }, 10'000));
    EXPECT_EQ(qobject_cast<QPlainTextEdit*>(WidgetOf(frmMain.txtRX))->toPlainText(),
              QString::fromUtf8("from the machine\nä"));
    EXPECT_NE(Progress().find("2 lines received"), std::string::npos) << Progress();
    Click(frmMain.cmdStop);
    ASSERT_TRUE(QTest::qWaitFor([] { return !Shared.Transmitting; }, 10'000));
    EXPECT_TRUE(WidgetOf(frmMain.txtRX)->isVisible());
    EXPECT_FALSE(WidgetOf(frmMain.cmdStop)->isVisible());
    SendKeys("{F1}"); // the help lies in front of the received text
    const QWidget* const help = WidgetOf(frmMain.rtfHelp);
    EXPECT_TRUE(help->isAncestorOf(Window->childAt(help->mapTo(Window.get(), help->rect().center()))));
    SendKeys("{ESC}");
    EXPECT_TRUE(HasFocus(frmMain.txtRX));
    Events.Run([] { SetCheck(frmMain.chkEnableCom, false); });
    EXPECT_EQ(Sim->Wait(), 3) << Sim->Report();
    EXPECT_TRUE(Sim->Taken().ends_with("\r\nM\r\n"));
}

TEST_F(TransferWindow, ClosesBehindTheStopMark)
{
    Open("", "2400");
    Click(frmMain.cmdTopButtons[9]);
    QTest::qWait(200);
    Desk.Answers = {Answer::No};
    Window->close();
    EXPECT_TRUE(Shared.Transmitting);
    EXPECT_FALSE(Shared.StopSending);
    Window->close(); // Yes
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_EQ(Sim->Wait(), 3) << Sim->Report();
    EXPECT_EQ(Desk.Boxes.size(), 2U);
}

TEST_F(TransferWindow, ReceivesByItselfAndImports)
{
    Open("--send --memory " + Work.Put("memory", FromTheMachine), "9600");
    const int lines = LineCount();
    ASSERT_TRUE(QTest::qWaitFor([] { return frmMain.txtRX.Text.ends_with("   M\r\n"); }, 10'000));
    EXPECT_EQ(Progress(), "4 lines received");
    EXPECT_EQ(LineCount(), lines);
    Click(frmMain.cmdReceiveImport);
    EXPECT_EQ(LineCount(), 1);
    EXPECT_FALSE(WidgetOf(frmMain.txtRX)->isVisible());
    EXPECT_TRUE(Shared.Changed);
}

TEST_F(TransferWindow, TakesAMegabyteWithoutALineEnd)
{
    std::string memory;
    for (int i = 0; i < 1'000'000; ++i) memory += static_cast<char>('A' + i % 26);
    Open("--fast --send --memory " + Work.Put("memory", memory), "9600");
    Pulse pulse;
    ASSERT_TRUE(QTest::qWaitFor([&] { return frmMain.txtRX.Text.size() >= memory.size(); }, 60'000));
    EXPECT_TRUE(frmMain.txtRX.Text == memory);
    EXPECT_LT(pulse.Milliseconds(), LongestFreeze);
    // What the user types goes into the text, behind it all.
    QTest::keyClick(WidgetOf(frmMain.txtRX), '!');
    EXPECT_TRUE(frmMain.txtRX.Text == memory + "!");
    QTest::keyClick(WidgetOf(frmMain.txtRX), Qt::Key_Backspace);
    EXPECT_TRUE(frmMain.txtRX.Text == memory);
}

TEST_F(TransferWindow, KeepsWhatIsUnsavedWhenTheSystemEndsItBehindABox)
{
    Open("--talk 1 --memory " + Work.Put("memory", FromTheMachine), "9600");
    struct : QtPlatform {
        std::string Folder;
        std::string LocalDataFolder() override { return Folder; }
    } platform;
    platform.Folder = Desk.DataFolder;
    ThePlatform = &platform;
    Shared.Changed = true;
    const EndSignals ends([this] { Events.End(); });
    Events.Run([] { ASSERT_FALSE(ThePort->Write("%\r\n")); }); // the machine begins
    QTimer::singleShot(0, [this] { Events.Run(mnuExit_Click); });
    QTimer::singleShot(500, [] { std::raise(SIGTERM); });
    const QObject guard; // the timer ends with it
    QTimer::singleShot(5000, &guard, [] { QApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
    ThePlatform = &Desk;
    EXPECT_TRUE(Shared.Ended);
    const std::string received = BytesOf(AppDataPath() + "/Receive.txt");
    EXPECT_TRUE(!received.empty() && std::string(FromTheMachine).starts_with(received)) << received;
    EXPECT_EQ(FilesIn(AppDataPath(), ".cnc").size(), 1U);
}

TEST_F(TransferWindow, TellsOnceThatTheDeviceIsGoneWhileSending)
{
    Open("--hangup 150", "9600");
    Click(frmMain.cmdTopButtons[9]);
    ExpectOneBox();
    EXPECT_FALSE(Shared.Transmitting);
    EXPECT_TRUE(Progress().starts_with("Only part of the program was sent")) << Progress();
}

TEST_F(TransferWindow, TellsOnceThatTheDeviceIsGoneWhileReceiving)
{
    Open("--send --hangup 30 --memory " + Work.Put("memory", FromTheMachine), "9600");
    ExpectOneBox();
    EXPECT_EQ(frmMain.txtRX.Text, std::string(FromTheMachine).substr(0, 30));
}

#endif
