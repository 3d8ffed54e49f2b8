// Sending and receiving as a user meets them: each case types a script into a program of three lines and
// looks at one thing. The port records.

#include "cli/key_script.h"
#include "cli/open_program.h"
#include "commands/keyboard.h"
#include "commands/load.h"
#include "commands/session.h"
#include "core/code_page.h"
#include "core/failure.h"
#include "core/main_window.h"
#include "core/program_list.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "editor/run.h"
#include "serial/receive.h"
#include "serial/setup.h"
#include "serial/transmit.h"
#include "settings/language.h"
#include "support/program.h"
#include "ui/choice.h"
#include "ui/focus.h"
#include "ui/tick.h"

#include <gtest/gtest.h>
#include <random>

namespace {

const std::string Program =
    "A note\n;another\n%\n    N` G`   X `    Z `  F`  H \n"
    "    00 00   100    200           first\n    01 00  9999     00        \n    02M30\n"
    "   M\n";

/// What a machine sends, as {RX} takes it.
#define SENT                                                                                                 \
    "{RX %\\r\\n    N` G`   X `    Z `  F`  H \\r\\n    00 00   300     00\\r\\n    01M30\\r\\n   M\\r\\n}"
/// Communication is switched on as a user does it.
#define COM "{CLICK cmdTopButtons(4)}{PICK tabSettings 6}{CHECK chkEnableCom}{CLICK cmdTopButtons(4)}"
#define TAB "{CLICK cmdTopButtons(4)}{PICK tabSettings 6}"

std::string Shown(std::string text)
{
    text = ReplaceEach(text, "\r", "\\r");
    return ReplaceEach(text, "\n", "\\n");
}

Control* ControlOf(const std::string& name)
{
    Control* found = nullptr;
    frmMain.ForEach([&](Control& control) {
        const std::string full = control.Element < 0
                                     ? std::string(control.Name)
                                     : control.Name + ("(" + std::to_string(control.Element) + ")");
        if (name == full) found = &control;
    });
    return found;
}

std::string Look(const std::string& what)
{
    const auto yes = [](bool is) { return std::string(is ? "yes" : "no"); };
    const std::string name = what.substr(std::min(what.find(' ') + 1, what.size()));
    std::string joined;
    if (what == "messages") {
        for (const auto& shown : Console.Boxes) joined += Shown(shown.Box.Text) + "|";
        return joined;
    }
    if (what == "sent") return Shown(FromCodePage(Console.Port.Sent));
    if (what == "last sent")
        return Shown(
            Console.Port.Sent.substr(Console.Port.Sent.rfind('\n', Console.Port.Sent.size() - 2) + 1));
    if (what == "port")
        return yes(Console.Port.IsOpen()) + " " + std::to_string(Console.Port.Number) + " " +
               Console.Port.Line;
    if (what == "settings") return Shared.SettingsTX + " " + Shared.SettingsRX;
    if (what == "com") return yes(Shared.ComEnabled) + " " + std::to_string(frmMain.chkEnableCom.Value);
    if (what == "log") return LogList();
    if (what == "focus") return Focused() == nullptr ? "" : Focused()->Name;
    if (what == "lines") return std::to_string(LineCount());
    if (what == "selected") return std::to_string(lvCncProgram.Selected);
    if (what == "beeps") return std::to_string(Console.Beeps);
    if (what == "locked") return yes(!Shared.ControlsEnabled);
    if (what == "transmitting") return yes(Shared.Transmitting);
    if (what == "ended") return yes(Shared.Ended);
    if (what == "changed") return yes(Shared.Changed) + " '" + FileNameOf(frmMain.lblPath.Text) + "'";
    if (what.starts_with("file ")) return Shown(BytesOf(Console.DataFolder + "/EMCO/BXL_160/" + name));
    if (what.starts_with("visible ")) return yes(ControlOf(name)->Visible);
    if (what.starts_with("usable ")) return yes(IsUsable(*ControlOf(name)));
    if (what.starts_with("value ")) return std::to_string(ControlOf(name)->Value);
    return Shown(ControlOf(name)->Text);
}

struct Case {
    const char* Name;
    const char* Script;
    const char* What;
    const char* Expected;
    int Ports = 1;
};

/// The script runs as the console runs it: what still waits at its end goes out.
void RunCase(const Case& c)
{
    const Folder folder;
    BeginProgram({}, folder / "user", c.Ports);
    LoadFile(folder.Put("three.cnc", WithCrLf(Program)));
    AfterEvent();
    const std::string script = ReplaceEach(c.Script, "FOLDER", folder / "");
    EXPECT_EQ(RunKeyScript(script).value_or(""), "") << c.Name;
    EXPECT_EQ(Look(c.What), c.Expected) << c.Name << " (" << c.What << ")";
}

const Case ComTab[] = {
    {"a choice in one group holds for the other", TAB "{CLICK optPortRX(1)}", "value optPortTX(1)", "1", 2},
    {"and turns the former one off", TAB "{CLICK optPortRX(1)}", "value optPortTX(0)", "0", 2},
    {"an open port is opened anew", COM TAB "{CLICK optPortTX(1)}", "port", "yes 2 300,N,8,1", 2},
    {"a port that isn't there can't be chosen", TAB "{CLICK optPortRX(2)}", "value optPortTX(0)", "1", 2},
    {"each option names its device", TAB, "optPortTX(1)", "Com2 – ttyUSB1", 2},
    {"as they are when the tab is picked", "{UNPLUG}" TAB, "optPortTX(0)", "Com1"},
    {"without a device the name alone", TAB, "optPortRX(2)", "Com3", 2},
    {"other values change the settings at once",
     TAB "{CLICK optBaudTX(6)}{CLICK optParityRX(1)}{CLICK optDataBitsRX(0)}{CLICK optStopBitsRX(1)}",
     "settings", "9600,N,8,1 300,E,7,2"},
    {"but not the port", COM TAB "{CLICK optBaudTX(6)}", "port", "yes 1 300,N,8,1"},
    {"the standard needs no button", TAB, "usable cmdTXEmco", "no"},
    {"any change brings it back", TAB "{CHECK chkTXfilter}", "usable cmdTXEmco", "yes"},
    {"on its own side", TAB "{CHECK chkTXxonxoff}", "usable lblRXstandard", "no"},
    {"the button leads back", TAB "{CLICK optBaudRX(6)}{CHECK chkRXfilter}{CLICK cmdRXEmco}",
     "usable cmdRXEmco", "no"},
    {"with every value", TAB "{CLICK optBaudTX(6)}{CLICK optStopBitsTX(1)}{CLICK lblTXstandard}", "settings",
     "300,N,8,1 300,N,8,1"},
    {"and the standard port", TAB "{CLICK optPortTX(1)}{CLICK optBaudTX(6)}{CLICK cmdTXEmco}", "port",
     "no 1 300,N,8,1", 2},
    {"while the other side keeps its values",
     TAB "{CLICK optBaudTX(6)}{CLICK optBaudRX(6)}{CLICK lblTXstandard}", "settings", "300,N,8,1 9600,N,8,1"},
    {"no ports, no communication", "", "com", "no 0", 0},
    {"leaving the settings opens the port", COM, "port", "yes 1 300,N,8,1"},
    {"switching off closes it", COM TAB "{CHECK chkEnableCom}", "port", "no 1 300,N,8,1"},
    {"and locks the options", COM TAB "{CHECK chkEnableCom}", "usable optBaudTX(1)", "no"},
    {"a port that fails says so once", "{PORT FAIL 8005}" COM TAB TAB, "messages",
     "8005  Port already open in mnuSettingsShow_Click|"},
    {"and is off", "{PORT FAIL 8005}" COM, "com", "no 0"},
    {"one that is gone as well", COM "{UNPLUG}{RX x}" TAB TAB, "messages",
     "ttyUSB0 is gone: check the cable or the adapter|"},
    {"a failure of a choice is logged under its name", COM TAB "{PORT FAIL 8018}{CLICK optPortRX(1)}", "log",
     "8018 optPortRX_Click", 2},
};

const Case Sending[] = {
    {"the machine's columns", COM "{MENU mnuTX}", "sent",
     "%\\r\\n    N` G`   X `    Z `  F`  H \\r\\n    00 00   100    200        \\r\\n    01 00  9999     00  "
     "      \\r\\n    02M30                     \\r\\n   M\\r\\n"},
    {"without the filter all of it",
     COM TAB "{CHECK chkTXfilter}"
             "{CLICK cmdTopButtons(4)}{MENU mnuTX}",
     "sent",
     "A note ;another\\r\\n%\\r\\n    N` G`   X `    Z `  F`  H \\r\\n    00 00   100    200          "
     "first\\r\\n    "
     "01 00  9999     00          \\r\\n    02M30                       \\r\\n   M\\r\\n"},
    {"the end code is added first", COM "{ROW 3}{CLICK cmdDelete}{CLICK cmdTopButtons(9)}", "lines", "3"},
    {"nothing without communication but a beep", "{CLICK cmdTopButtons(9)}", "beeps", "1"},
    {"no lines, no transmission", COM "{MENU mnuNew}{CLICK cmdTopButtons(9)}", "messages",
     "No Lines of code present|"},
    {"the parameters come before the first character",
     COM TAB "{CLICK optBaudTX(6)}{CLICK cmdTopButtons(4)}{MENU mnuTX}", "port", "yes 1 9600,N,8,1"},
    {"stop sends the mark in place of the next line", COM "{MENU mnuTX}{LINES 1}{CLICK cmdStop}", "sent",
     "%\\r\\n    N` G`   X `    Z `  F`  H \\r\\nM\\r\\n"},
    {"in its own form on inch programs",
     "{CLICK cmdTopButtons(4)}{PICK tabSettings 2}{CLICK optSettingsInch}{CLICK cmdTopButtons(4)}" COM
     "{MENU mnuTX}{CLICK cmdStop}",
     "last sent", "\"\\r\\n"},
    {"behind the last line there is nothing to stop", COM "{MENU mnuTX}{LINES 5}{CLICK cmdStop}", "last sent",
     "   M\\r\\n"},
    {"a stopped program is not called sent", COM "{MENU mnuTX}{LINES 1}{CLICK cmdStop}", "lblTransfer",
     "Only part of the program was sent: 2 of 6 lines sent"},
    {"a whole one is", COM "{MENU mnuTX}", "lblTransfer", "6 of 6 lines sent"},
    {"as long as it is there", COM "{MENU mnuTX}{LINES 6}{MENU mnuNew}", "lblTransfer", ""},
    {"the selection comes back", COM "{ROW 2}{MENU mnuTX}", "selected", "2"},
    {"and the editor", COM "{MENU mnuTX}", "locked", "no"},
    {"a pulled cable: one message",
     COM "{MENU mnuTX}{LINES 2}{UNPLUG}{LINES 3}{TICK}{CLICK cmdTopButtons(9)}", "messages",
     "ttyUSB0 is gone: check the cable or the adapter\\r\\n\\r\\n8018  Port not open in mnuTX_Click|"},
    {"nothing goes on behind it", COM "{MENU mnuTX}{LINES 1}{UNPLUG}{LINES 9}", "last sent",
     "    N` G`   X `    Z `  F`  H \\r\\n"},
    {"nor is it called sent", COM "{MENU mnuTX}{LINES 1}{UNPLUG}", "lblTransfer",
     "Only part of the program was sent: 1 of 6 lines sent"},
    {"a write that fails ends it", COM "{MENU mnuTX}{PORT FAIL 8018}{LINES 1}", "messages",
     "8018  Port not open in mnuTX_Click|"},
    {"also with a number of another kind", COM "{MENU mnuTX}{PORT FAIL 57}{LINES 1}", "com", "no 0"},
    {"a port that doesn't open: nothing is changed",
     COM "{ROW 3}{CLICK cmdDelete}{PORT FAIL 8005}{MENU mnuTX}", "lines", "2"},
    {"rows are held", COM "{MENU mnuTX}{ROW 1}{DELETE}", "lines", "3"},
    {"so is the port", COM TAB "{CLICK cmdTopButtons(9)}{CHECK chkEnableCom}", "last sent", "   M\\r\\n"},
    {"also against a choice of another",
     COM TAB "{CLICK cmdTopButtons(9)}{CLICK optPortRX(1)}{CLICK optPortTX(1)}", "port", "yes 1 300,N,8,1",
     2},
    {"closing: Yes stops first", COM "{MENU mnuTX}{LINES 1}{CLOSE frmMain}", "last sent", "M\\r\\n"},
    {"and then leaves", COM "{MENU mnuTX}{CLOSE frmMain}", "ended", "yes"},
    {"closing: No goes on", COM "{MENU mnuTX}{ANSWER No}{CLOSE frmMain}", "lblTransfer", "6 of 6 lines sent"},
    {"closing twice waits for nothing, so that no item follows",
     COM "{MENU mnuTX}{CLOSE frmMain}{CLOSE frmMain}{MISSPELT}", "ended", "yes"},
};

const Case Receiving[] = {
    {"a stream opens the pane", COM SENT, "visible frRXcode", "yes"},
    {"and locks the editor", COM SENT, "locked", "yes"},
    {"which keeps its program", COM SENT "{ROW 1}{DELETE}", "lines", "3"},
    {"a closed port hears nothing", "{RX abc}", "visible frRXcode", "no"},
    {"NULs don't show; bytes do", COM "{RX a\\x00\\xE4b\\x00\\x80}", "txtRX", "aäb€"},
    {"more is added behind, wherever the caret is", COM "{RX abc}{HOME}{RX def}", "txtRX", "abcdef"},
    {"it is counted", COM "{RX a\\r\\nb\\rc}", "lblTransfer", "3 lines received"},
    {"a half typed value isn't judged", COM "{ROW 1}00{ENTER}6000{RX abc}", "messages", ""},
    {"until its line is written",
     COM "{ROW 1}00{ENTER}6000{RX abc}{CLICK cmdReceiveExit}{FOCUS txtComment}{ENTER}", "messages",
     "Highest value for this field is 5999|"},
    {"also when the stream went on behind the pane",
     COM "{ROW 1}00{ENTER}6000{RX abc}{CLICK cmdReceiveExit}{RX d}{CLICK cmdReceiveExit}{FOCUS "
         "txtComment}{ENTER}",
     "messages", "Highest value for this field is 5999|"},
    {"and behind the help",
     COM "{ROW 1}00{ENTER}6000{RX abc}{F1}{ESC}{CLICK cmdReceiveExit}{FOCUS txtComment}{ENTER}", "messages",
     "Highest value for this field is 5999|"},
    {"the command does nothing without communication", "{CLICK cmdTopButtons(8)}", "visible frRXcode", "no"},
    {"it sets the parameters", COM TAB "{CLICK optBaudRX(6)}{CLICK cmdTopButtons(4)}{MENU mnuRX}", "port",
     "yes 1 9600,N,8,1"},
    {"a stream that opens the pane sets them too",
     COM TAB "{CLICK optBaudRX(6)}{CLICK cmdTopButtons(4)}{RX a}", "port", "yes 1 9600,N,8,1"},
    {"a port that fails has a box", TAB "{CHECK chkEnableCom}{PORT FAIL 8018}{CLICK cmdTopButtons(8)}",
     "messages", "port problem|"},
    {"import", COM SENT "{CLICK cmdReceiveImport}", "lines", "2"},
    {"makes a changed program without a file", COM SENT "{CLICK cmdReceiveImport}", "changed", "yes ''"},
    {"and leads back", COM SENT "{CLICK cmdReceiveImport}", "locked", "no"},
    {"nothing to import", COM "{MENU mnuRX}{TEXT txtRX    }{CLICK cmdReceiveImport}", "messages",
     "No Lines of code present|"},
    {"an unknown text stays", COM "{RX  abc}{CLICK cmdReceiveImport}", "txtRX", " abc"},
    {"and changes nothing", COM "{RX abc}{CLICK cmdReceiveImport}", "changed", "no 'three.cnc'"},
    {"a saved text is a program's", COM "{RX abc}{FILE FOLDER/user/EMCO/BXL_160/a.cnc}{CLICK cmdReceiveSave}",
     "file a.cnc", "%\\r\\n    abc"},
    {"save needs a name", COM "{RX abc}{FILE}{CLICK cmdReceiveSave}", "messages", "No file specified|"},
    {"a text that is left is kept", COM "{RX abc\\xE4}{CLICK cmdReceiveExit}", "file Receive.txt", "abc\xE4"},
    {"and offered", COM "{RX abc}{CLICK cmdReceiveExit}{MENU mnuRX}{CLICK cmdReceiveLast}", "txtRX", "abc"},
    {"not beside a text", COM "{RX abc}{CLICK cmdReceiveExit}{MENU mnuRX}{TEXT txtRX x}",
     "visible cmdReceiveLast", "no"},
    {"nor behind the next stream",
     COM "{RX abc}{CLICK cmdReceiveNew}{RX d}{FILE FOLDER/d.tmp}{CLICK cmdReceiveSave}{CLICK "
         "cmdReceiveExit}{MENU "
         "mnuRX}",
     "visible cmdReceiveLast", "no"},
    {"left by a click on a line the settings open the port", TAB "{CHECK chkEnableCom}{ROW 1}{RX abc}",
     "txtRX", "abc"},
    {"a read that fails loses nothing", COM "{RX abc}{PORT FAIL 70}{RX def}", "txtRX", "abcdef"},
    {"a run doesn't stand in the way of the import", COM "{CLICK cmdRun}{RX abc}{CLICK cmdReceiveImport}",
     "visible cmdReceiveImport", "yes"},
    {"a cleared text is kept too", COM "{RX abc}{CLICK cmdReceiveNew}", "file Receive.txt", "abc"},
    {"leaving the program keeps it", COM "{RX abc}{CLOSE frmMain}", "file Receive.txt", "abc"},
    {"a full disk is told before it is lost",
     COM "{RX abc}{DISK FULL}{ANSWER No}{CLICK cmdReceiveExit}{DISK OK}", "txtRX", "abc"},
    {"a gone device leaves the text", COM "{RX abc}{UNPLUG}", "txtRX", "abc"},
    {"a transmission goes on below the pane", COM "{MENU mnuTX}{RX abc}", "last sent", "   M\\r\\n"},
    {"its end leaves the pane", COM "{MENU mnuTX}{RX abc}", "locked", "yes"},
    {"with Stop in its row", COM "{MENU mnuTX}{RX abc}{CLICK cmdStop}", "last sent", "M\\r\\n"},
    {"leaving the pane doesn't unlock", COM "{MENU mnuTX}{RX abc}{CLICK cmdReceiveExit}{CLICK cmdDelete}",
     "lines", "3"},
    {"nor can the rows be replaced", COM "{MENU mnuTX}" SENT "{CLICK cmdReceiveImport}", "lines", "3"},
    {"a run is not left by it", COM "{ALT-R}{RX abc}{CLICK cmdReceiveExit}", "usable cmdStep", "yes"},
    {"the parameters of a transmission stay until its end",
     COM TAB "{CLICK optBaudRX(6)}{CLICK cmdTopButtons(4)}{MENU mnuTX}{RX abc}{CLICK cmdStop}", "port",
     "yes 1 9600,N,8,1"},
};

/// A program that is being sent, up to the first line that was handed over.
class Transmission : public ::testing::Test
{
protected:
    void Begin(const char* before = "")
    {
        BeginProgram({}, Work / "user", 2);
        LoadFile(Work.Put("three.cnc", WithCrLf(Program)));
        EXPECT_EQ(RunKeyScript(std::string(COM) + before).value_or(""), "");
        mnuTX_Click();
        AfterEvent();
    }
    static void LineLeaves()
    {
        Console.Port.Leave();
        AfterEvent();
    }

    const Folder Work;
};

TEST_F(Transmission, ShowsTheLineThatGoesOut)
{
    Begin("{ROW 3}");
    lvCncProgram.TopRow = 2; // the list scrolls along
    EXPECT_TRUE(IsUsable(frmMain.cmdStop));
    EXPECT_FALSE(frmMain.cmdRun.Visible);
    EXPECT_EQ(Look("lblTransfer"), "0 of 6 lines sent, 00:00:05 left, first message in N01");
    // The start symbol, the header and N00 select nothing.
    std::string selected = Look("selected");
    for (int i = 0; i < 5; ++i) {
        LineLeaves();
        selected += " " + Look("selected");
    }
    EXPECT_EQ(selected, "3 3 3 2 3 3");
    tmr1sec_Timer();
    EXPECT_FALSE(frmMain.cmdTopButtons[0].Enabled);
    LineLeaves();
    EXPECT_EQ(Look("selected") + " " + Look("focus"), "3 lvCncProgram");
    EXPECT_EQ(lvCncProgram.TopRow, 1);
    EXPECT_EQ(Look("lblTransfer"), "6 of 6 lines sent");
}

TEST_F(Transmission, StopsBehindAnyLine)
{
    for (size_t behind = 0; behind < 6; ++behind) {
        Begin();
        for (size_t i = 0; i < behind; ++i) LineLeaves();
        const std::string before = Console.Port.Sent;
        cmdStop_Click();
        AfterEvent();
        EXPECT_FALSE(IsUsable(frmMain.cmdStop));
        LineLeaves();
        // The last line is out: nothing is left to be stopped.
        EXPECT_EQ(Console.Port.Sent, before + (behind < 5 ? "M\r\n" : ""));
        LineLeaves();
        LineLeaves();
        EXPECT_FALSE(Shared.Transmitting);
        EXPECT_EQ(HowTransmissionEnded() == TransmissionEnd::Sent, behind == 5) << behind;
    }
}

TEST_F(Transmission, LeavesStopInReachBesideAReception)
{
    Begin(TAB "{CLICK optBaudRX(6)}{CLICK cmdTopButtons(4)}");
    Console.Port.Receive("abc");
    AfterEvent();
    EXPECT_EQ(Look("port"), "yes 1 300,N,8,1");
    EXPECT_TRUE(frmMain.frRXcode.Visible);
    EXPECT_TRUE(IsUsable(frmMain.cmdStop));
    EXPECT_TRUE(Look("lblTransfer").starts_with("1 line received; 0 of 6 lines sent")) << Look("lblTransfer");
    for (int i = 0; i < 6; ++i) LineLeaves();
    EXPECT_FALSE(IsUsable(frmMain.cmdStop));
    EXPECT_EQ(Look("lblTransfer"), "1 line received; 6 of 6 lines sent");
    RunKeyScript("{CLICK cmdReceiveExit}");
    EXPECT_EQ(Look("lblTransfer"), "6 of 6 lines sent");
    RunKeyScript("{RX abc}");
    EXPECT_EQ(Look("lblTransfer"), "1 line received");
    EXPECT_EQ(Look("locked"), "yes");
}

TEST_F(Transmission, TellsOfAFailureOnceAndInTheLanguageInForce)
{
    Begin();
    ReadLanguageModule(BytesOf(std::string(LANGUAGES_DIR) + "/German.txt"));
    Console.Port.NextFailure = Failures::PortNotOpen;
    LineLeaves();
    // Events that were under way when the port was closed.
    for (const PortEvent old : {PortEvent::Received, PortEvent::Failed, PortEvent::Sent}) {
        MSComm1_OnComm(old);
        AfterEvent();
    }
    EXPECT_EQ(Look("messages"), "8018  Anschluss ist nicht offen in mnuTX_Click|");
    EXPECT_EQ(Look("lblTransfer"),
              "Das Programm wurde nur zum Teil gesendet: 0 von 6 S\xC3\xA4tzen gesendet");
    EXPECT_FALSE(frmMain.frRXcode.Visible);
    EXPECT_EQ(Look("com"), "no 0");

    // One of a port that was lost says nothing against the one that is open now.
    SetCheck(frmMain.chkEnableCom, true);
    LeaveSettings();
    MSComm1_OnComm(PortEvent::Failed);
    EXPECT_EQ(Look("com"), "yes 1");
}

/// Whatever comes in whichever order: what was received is in the pane, a failure is told of once, a program
/// is only called sent when all of it has gone, and the last that leaves is a whole line.
TEST_F(Transmission, HoldsWithAnyEvents)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 lot(seed);
        Begin();
        std::string received;
        size_t failures = 0;
        for (int i = 0; i < 12; ++i) {
            switch (lot() % 8) {
            case 0:
                if (Console.Port.IsOpen()) received += static_cast<char>('a' + i);
                Console.Port.Receive(std::string(1, static_cast<char>('a' + i)));
                break;
            case 1: cmdStop_Click(); break;
            case 2:
                if (lot() % 4 == 0 && Console.Port.IsOpen()) {
                    ++failures;
                    Console.Port.Unplug();
                }
                break;
            case 3: ClickControl(frmMain.optPortTX[1]); break;
            case 4: PressKey({KeyName::Escape}); break;
            default: Console.Port.Leave();
            }
            AfterEvent();
        }
        EXPECT_EQ(frmMain.txtRX.Text, received);
        EXPECT_EQ(Console.Boxes.size(), failures);
        EXPECT_TRUE(Console.Port.Sent.ends_with("\r\n"));
        const bool whole = Console.Port.Sent.ends_with("   M\r\n");
        EXPECT_TRUE(whole || HowTransmissionEnded() != TransmissionEnd::Sent);
        EXPECT_EQ(LineCount(), 3);
    }
}

TEST(Serial, TheComTabSetsUpThePort)
{
    for (const Case& c : ComTab) RunCase(c);
}

TEST(Serial, AProgramGoesOut)
{
    for (const Case& c : Sending) RunCase(c);
}

TEST(Serial, AStreamComesIn)
{
    for (const Case& c : Receiving) RunCase(c);
}

TEST(Serial, AStreamThatGoesOnIsKeptWhole)
{
    const Folder folder;
    BeginProgram({}, folder / "user", 1);
    Console.BetweenLooks = 0.1;
    RunKeyScript(COM
                 "{RX abc}{CLICK cmdReceiveExit}{RX def}{CLICK cmdReceiveNew}{RX g}{CLICK cmdReceiveExit}");
    EXPECT_EQ(Look("file Receive.txt"), "abcdefg");
    RunKeyScript("{MENU mnuRX}{TEXT txtRX x}{CLICK cmdReceiveExit}");
    EXPECT_EQ(Look("file Receive.txt"), "abcdefgx") << "typed: kept behind the stream, not in its place";
}

} // namespace
