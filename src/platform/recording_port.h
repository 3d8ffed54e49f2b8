// recording_port.h: a serial port without a device, for the console's scripts and the tests.
//
// It keeps what was sent; what comes in, what leaves and what fails is told to it.

#pragma once

#include "platform/port.h"

class RecordingPort : public Port
{
public:
    /// How many ports there are.
    int Count = 1;
    /// The chosen port, its line parameters, and every byte that was written.
    int Number = 1;
    std::string Line = StandardLine();
    std::string Sent;
    /// Failure number of the next operation (open, set, write, read), 0 for none.
    int NextFailure = 0;
    /// The device was pulled.
    bool Unplugged = false;

    /// Characters come in; lost while the port is closed.
    void Receive(std::string_view bytes);
    /// What was written leaves the port.
    void Leave();
    /// The device is gone.
    void Unplug();

    std::vector<std::string> Devices() override;
    void Select(int number) override { Number = number; }
    std::optional<PortFailure> Open() override;
    void Close() override;
    bool IsOpen() const override { return Opened; }
    std::optional<PortFailure> SetLine(const std::string& parameters) override;
    std::optional<PortFailure> Write(std::string_view bytes) override;
    bool HasRoom() const override { return Waiting == 0; }
    bool IsEmpty() const override { return Waiting == 0; }
    std::optional<PortFailure> Read(std::string& bytes) override;
    PortFailure LastFailure() const override { return Last; }

private:
    std::optional<PortFailure> Fault();
    void Raise(PortEvent event);

    bool Opened = false;
    /// Bytes that have not left yet, characters that have not been read.
    size_t Waiting = 0;
    std::string Input;
    PortFailure Last;
};
