// qt_platform.h: boxes, dialogs, clock and folders of the desktop.

#pragma once

#include "platform/platform.h"

#include <functional>

class QtPlatform : public Platform
{
public:
    /// Runs before a box or dialog is shown, so that the window behind it shows what it is about.
    std::function<void()> BeforeBox;

    Answer Show(const MessageBox& box) override;
    std::optional<std::string> AskForFile(const FileDialog& dialog) override;
    bool Launch(const std::vector<std::string>& programs) override;
    std::optional<int> AskForColor(int present) override;
    void Beep() override;
    DateTime Now() override;
    double Seconds() override;
    std::string LocalDataFolder() override;
    std::string ProgramFolder() override;

private:
    /// False when the program has been ended: a box gets its safe answer then, a dialog is given up.
    bool MayAsk() const;
};
