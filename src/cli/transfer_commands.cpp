#include "cli/transfer_commands.h"

#include "cli/module.h"
#include "commands/session.h"
#include "core/main_window.h"
#include "editor/run.h"
#include "platform/files.h"
#include "serial/receive.h"
#include "serial/transfer.h"
#include "serial/transmit.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace {

/// The port of a device in the place of the recording one, for as long as the command runs.
class RealPort
{
public:
    std::unique_ptr<PortSession> Session;

    /// Why the port can't be used, or "".
    std::string Begin(const LineOptions& line)
    {
        if (!ReadLineParameters(line.Parameters))
            return "--line: not line parameters such as 300,N,8,1: " + line.Parameters;
        if (line.Device.empty()) return "no port is named";
        std::string why;
        PortSessionRoutine* const open = LoadPortSession(why);
        if (open == nullptr) return why;
        Session.reset(open(line.Device));
        ThePort = &Session->ThisPort();
        return "";
    }

    RealPort() = default;
    RealPort(const RealPort&) = delete;
    RealPort& operator=(const RealPort&) = delete;
    ~RealPort()
    {
        if (!Session) return;
        ThePort->OnEvent = nullptr;
        ThePort->Close();
        ThePort = &Console.Port;
    }
};

/// One line on standard error, written over and over.
class ProgressLine
{
public:
    void Show(const std::string& text)
    {
        const std::string blanks(text.size() < Width ? Width - text.size() : 0, ' ');
        std::fprintf(stderr, "\r%s%s", text.c_str(), blanks.c_str());
        std::fflush(stderr);
        Width = text.size();
    }
    void End() { std::fputs("\n", stderr); }

private:
    size_t Width = 0;
};

/// The first sentence of the last box that reported a failure.
std::string PortTroubleText()
{
    const std::string text = LastRefusal();
    return text.substr(0, text.find('\r'));
}

} // namespace

Outcome SendFile(const LoadOptions& load, const LineOptions& line, const std::string& file, bool filter)
{
    if (const auto why = OpenLines(load, file)) return Failed(*why);
    RealPort port;
    if (const std::string why = port.Begin(line); !why.empty()) return Failed(why);

    ProgressLine progress;
    ThePort->OnEvent = [&](PortEvent event) {
        MSComm1_OnComm(event);
        AfterEvent();
        progress.Show(TransmissionText());
        if (!Shared.Transmitting) port.Session->Quit();
    };
    bool abandoned = false;
    port.Session->OnInterrupt = [&] {
        abandoned = Shared.StopSending;
        cmdStop_Click();
        if (abandoned) AbandonTransmission();
        AfterEvent();
        if (!Shared.Transmitting) port.Session->Quit();
    };
    frmMain.chkEnableCom.Value = 1;
    frmMain.chkTXfilter.Value = filter ? 1 : 0;
    Shared.ComEnabled = true;
    Shared.SettingsTX = line.Parameters;
    Console.Boxes.clear();
    mnuTX_Click();
    AfterEvent();
    if (Shared.Transmitting) {
        progress.Show(TransmissionText());
        port.Session->Run();
        progress.End();
    }

    if (abandoned) return Failed(file + ": given up before the stop mark was sent");
    if (const std::string why = PortTroubleText(); !why.empty()) return Failed(file + ": not sent: " + why);
    if (HowTransmissionEnded() == TransmissionEnd::Sent) return {};
    return Failed(file + ": " + TransmissionText());
}

namespace {

/// A text that can't be written where it should is not lost.
std::string KeepElsewhere(const std::string& bytes)
{
    std::error_code failed;
    const auto place = std::filesystem::temp_directory_path(failed) / "brixley-received.txt";
    return ReplaceFile(place.string(), bytes) ? "" : "; it is in " + place.string();
}

} // namespace

Outcome ReceiveFile(const LineOptions& line, const std::string& target, double idle)
{
    if (target.empty()) return Failed("no file is named after -o");
    RealPort port;
    ThePlatform = &Console;
    if (const std::string why = port.Begin(line); !why.empty()) return Failed(why);

    std::string received, fault;
    ThePort->OnEvent = [&](PortEvent event) {
        if (event == PortEvent::Failed) {
            fault = ReasonOf(ThePort->LastFailure());
            port.Session->Quit();
        }
        if (event != PortEvent::Received) return;
        ThePort->Read(received);
        port.Session->CallAfter(idle, [&] { port.Session->Quit(); });
    };
    port.Session->OnInterrupt = [&] { port.Session->Quit(); };
    std::optional<PortFailure> failure = ThePort->SetLine(line.Parameters);
    if (!failure) failure = ThePort->Open();
    if (failure) return Failed(ReasonOf(*failure));
    port.Session->Run();

    std::erase(received, '\0');
    if (received.empty()) return Failed(fault.empty() ? line.Device + ": nothing came" : fault);
    if (const auto unwritten = ReplaceFile(target, received))
        return Failed(target + ": " + unwritten->Reason + KeepElsewhere(received));
    if (!fault.empty()) return Failed(fault + "; what came is in " + target);
    return {};
}
