#include "qt/serial_port.h"

#include "platform/failure_numbers.h"

#include <QSerialPortInfo>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <grp.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace {

using namespace std::chrono_literals;
using Clock = LinePace::Clock;

using Failures::PermissionDenied, Failures::PortAlreadyOpen, Failures::PortNotOpen;
constexpr int MostLatePolls = 50; ///< milliseconds between looks at a port that stands still

std::string PathOf(const std::string& name)
{
    return name.starts_with('/') ? name : "/dev/" + name;
}

/// A terminal that is no line: it takes any parameters and keeps none.
bool IsPseudo(const std::string& name)
{
    return PathOf(name).starts_with("/dev/pts/");
}

/// The group that may use a device; the usual one where belonging to its own would not help.
std::string GroupOf(const std::string& path)
{
    struct stat info;
    constexpr mode_t Use = S_IRGRP | S_IWGRP;
    const bool helps = ::stat(path.c_str(), &info) == 0 && info.st_gid != 0 && (info.st_mode & Use) == Use;
    const group* const named = helps ? ::getgrgid(info.st_gid) : nullptr;
    return named != nullptr ? named->gr_name : "dialout";
}

QSerialPort::Parity ParityOf(char letter)
{
    return letter == 'E'   ? QSerialPort::EvenParity
           : letter == 'O' ? QSerialPort::OddParity
                           : QSerialPort::NoParity;
}

} // namespace

SerialPort::SerialPort(std::string device) : Fixed(std::move(device))
{
    Timer.setSingleShot(true);
    Timer.setTimerType(Qt::PreciseTimer);
    connect(&Timer, &QTimer::timeout, this, [this] { Wake(); });
    connect(&Device, &QSerialPort::readyRead, this, [this] {
        if (std::exchange(ToldReceived, true)) return;
        if (OnEvent) OnEvent(PortEvent::Received);
    });
    connect(&Device, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        switch (error) {
        case QSerialPort::NoError:
        case QSerialPort::UnsupportedOperationError: // SetLine says so itself
        case QSerialPort::TimeoutError:
        case QSerialPort::OpenError:
        case QSerialPort::NotOpenError: break;
        default:
            if (Device.isOpen() && !(Writing && Device.errorString() == qt_error_string(EAGAIN))) Lose();
        }
    });
}

std::vector<std::string> SerialPort::Devices()
{
    if (!Fixed.empty()) return {Fixed};
    std::vector<std::string> devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        devices.push_back(info.portName().toStdString());
    OrderPorts(devices);
    return devices;
}

/// Why the device can't be used, as far as that can be seen without opening it.
std::optional<PortFailure> SerialPort::Refusal(const std::string& name) const
{
    if (name.empty()) return PortFailure{PortNotOpen, PortReasons::None};
    const std::string path = PathOf(name);
    struct stat info;
    if (::stat(path.c_str(), &info) != 0 || !S_ISCHR(info.st_mode))
        return PortFailure{PortNotOpen, PortReasons::NotOpened, {name, std::string(PortReasons::NoSuchPort)}};
    if (::access(path.c_str(), R_OK | W_OK) != 0)
        return PortFailure{PermissionDenied, PortReasons::Forbidden, {GroupOf(path)}};
    return std::nullopt;
}

std::optional<PortFailure> SerialPort::Open()
{
    if (Device.isOpen()) return PortFailure{PortAlreadyOpen};
    const std::vector<std::string> devices = Devices();
    const size_t index = static_cast<size_t>(Number - 1);
    Name = index < devices.size() ? devices[index] : "";
    if (const auto refusal = Refusal(Name)) return refusal;

    // Opened with parameters that every device takes; the wanted ones are set behind that.
    Device.setPortName(QString::fromStdString(PathOf(Name)));
    Device.setBaudRate(9600);
    Device.setDataBits(QSerialPort::Data8);
    Device.setParity(QSerialPort::NoParity);
    Device.setStopBits(QSerialPort::OneStop);
    Device.setFlowControl(QSerialPort::NoFlowControl);
    Device.clearError();
    ++Opening;
    if (!Device.open(QIODevice::ReadWrite)) {
        const bool held = Device.error() == QSerialPort::PermissionError;
        if (held) return PortFailure{PortAlreadyOpen, PortReasons::Held, {Name}};
        return PortFailure{PortNotOpen, PortReasons::NotOpened, {Name, Device.errorString().toStdString()}};
    }
    Pace.Reset();
    ToldRoom = ToldEmpty = true;
    ToldReceived = false;
    if (ApplyLine()) return std::nullopt;
    Close();
    return PortFailure{PortNotOpen, PortReasons::Refused, {Name}, true};
}

void SerialPort::Close()
{
    ++Opening;
    Timer.stop();
    Pace.Reset();
    if (!Device.isOpen()) return;
    // The system would hold the program up until what is left has gone, if it ever goes.
    if (BytesInside() > 0) ::tcflush(Device.handle(), TCOFLUSH);
    Device.close();
}

bool SerialPort::ApplyLine()
{
    const LineParameters line = ReadLineParameters(Parameters).value_or(LineParameters{});
    Pace.SetLine(line);
    const bool taken = Device.setBaudRate(line.Baud) &&
                       Device.setDataBits(static_cast<QSerialPort::DataBits>(line.DataBits)) &&
                       Device.setParity(ParityOf(line.Parity)) &&
                       Device.setStopBits(line.StopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop);
    return taken || !Device.isOpen() || IsPseudo(Name);
}

std::optional<PortFailure> SerialPort::SetLine(const std::string& parameters)
{
    if (parameters == Parameters) return std::nullopt;
    const std::string before = std::exchange(Parameters, parameters);
    if (!Device.isOpen() || ApplyLine()) return std::nullopt;
    Parameters = before;
    ApplyLine();
    return PortFailure{PortNotOpen, PortReasons::Refused, {Name}, true};
}

std::optional<PortFailure> SerialPort::Write(std::string_view bytes)
{
    if (!Device.isOpen()) return Last.Number != 0 ? Last : PortFailure{PortNotOpen};
    const auto count = static_cast<qint64>(bytes.size());
    // A port that stands still refuses bytes; they are kept and go when it goes on.
    Writing = true;
    const qint64 taken = Device.write(bytes.data(), count);
    if (taken == count) Device.flush();
    Writing = false;
    if (taken != count) {
        if (Device.isOpen()) Lose();
        return Last;
    }
    if (!Device.isOpen()) return Last; // the first error closed it
    Pace.Add(bytes.size(), Clock::now());
    ToldRoom = ToldEmpty = false;
    WakeLater();
    return std::nullopt;
}

/// Bytes that the toolkit and the system still hold.
size_t SerialPort::BytesInside() const
{
    if (!Device.isOpen()) return 0;
    int queued = 0;
    if (::ioctl(Device.handle(), TIOCOUTQ, &queued) != 0) queued = 0;
    return static_cast<size_t>(Device.bytesToWrite()) + static_cast<size_t>(std::max(queued, 0));
}

bool SerialPort::HasRoom() const
{
    return Clock::now() >= Pace.RoomAt() && BytesInside() <= Pace.LeadBytes();
}

bool SerialPort::IsEmpty() const
{
    return Clock::now() >= Pace.WhenEmpty() && BytesInside() == 0;
}

std::optional<PortFailure> SerialPort::Read(std::string& bytes)
{
    ToldReceived = false;
    const bool readable = Device.isOpen() || !Leftover.empty();
    bytes += std::exchange(Leftover, {});
    if (Device.isOpen()) bytes += Device.readAll().toStdString();
    if (!readable) return PortFailure{PortNotOpen};
    return std::nullopt;
}

/// The device is gone. The program hears of it when it is in no call to the port.
void SerialPort::Lose()
{
    Leftover += Device.readAll().toStdString();
    Last = {PortNotOpen, PortReasons::Gone, {Name}};
    Timer.stop();
    Pace.Reset();
    Device.close();
    QTimer::singleShot(0, this, [this, opening = Opening] {
        if (!Leftover.empty() && OnEvent) OnEvent(PortEvent::Received);
        if (opening == Opening && OnEvent) OnEvent(PortEvent::Failed);
    });
}

/// Tells of room, and of a port that has run empty, once each.
void SerialPort::Wake()
{
    if (!Device.isOpen()) return;
    const bool room = !ToldRoom && HasRoom(), empty = !ToldEmpty && IsEmpty();
    ToldRoom = ToldRoom || room;
    ToldEmpty = ToldEmpty || empty;
    WakeLater();
    if ((room || empty) && OnEvent) OnEvent(PortEvent::Sent);
}

void SerialPort::WakeLater()
{
    if (ToldRoom && ToldEmpty) return;
    const auto due = ToldRoom ? Pace.WhenEmpty() : Pace.RoomAt();
    const auto now = Clock::now();
    // A port that is late is looked at again and again, at longer times the later it is.
    const auto late = std::chrono::duration_cast<std::chrono::milliseconds>(now - due);
    const auto wait = now < due ? std::chrono::ceil<std::chrono::milliseconds>(due - now)
                                : std::clamp(late / 4, 1ms, std::chrono::milliseconds(MostLatePolls));
    Timer.start(wait);
}
