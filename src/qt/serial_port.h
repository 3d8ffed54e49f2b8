// serial_port.h: a serial port of the system.
//
// The toolkit tells when the system has taken bytes, not when they have gone: a LinePace works that out, and
// a timer wakes the program when the port has room. A port whose device is gone reports errors without end
// and still says that it is open, so it is closed at the first one. What it had received by then is kept.

#pragma once

#include "platform/port.h"

#include <QSerialPort>
#include <QTimer>

class SerialPort : public QObject, public Port
{
public:
    /// The system's ports; or, when one is named, that device alone as port 1.
    explicit SerialPort(std::string device = "");

    std::vector<std::string> Devices() override;
    void Select(int number) override { Number = number; }
    std::optional<PortFailure> Open() override;
    void Close() override;
    bool IsOpen() const override { return Device.isOpen(); }
    std::optional<PortFailure> SetLine(const std::string& parameters) override;
    std::optional<PortFailure> Write(std::string_view bytes) override;
    bool HasRoom() const override;
    bool IsEmpty() const override;
    std::optional<PortFailure> Read(std::string& bytes) override;
    PortFailure LastFailure() const override { return Last; }

private:
    std::optional<PortFailure> Refusal(const std::string& name) const;
    bool ApplyLine();
    size_t BytesInside() const;
    void Lose();
    void Wake();
    void WakeLater();

    const std::string Fixed;
    int Number = 1;
    std::string Name, Parameters = StandardLine();
    QSerialPort Device;
    QTimer Timer;
    LinePace Pace;
    /// Characters of a port that is closed by now.
    std::string Leftover;
    PortFailure Last;
    /// The program was told of room and of an empty port, of characters that it hasn't read.
    bool ToldRoom = true, ToldEmpty = true, ToldReceived = false;
    /// Bytes are being handed to the system.
    bool Writing = false;
    /// Counts openings: what is under way from an earlier one is no news.
    unsigned Opening = 0;
};
