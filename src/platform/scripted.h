// scripted.h: a platform without a toolkit, for the console program and the tests.
//
// Boxes and dialogs are answered from queues and recorded; the clock stands still; port and printer only
// record.

#pragma once

#include "platform/platform.h"
#include "platform/recording_port.h"
#include "platform/recording_printer.h"

#include <deque>
#include <vector>

class ScriptedPlatform : public Platform
{
public:
    /// Answers to coming boxes, in order. One that a box has no button for is passed over. Without
    /// an answer a box gets the affirmative one: Yes, else OK.
    std::deque<Answer> Answers;
    /// Answers to coming file dialogs; without one a dialog is cancelled.
    std::deque<std::optional<std::string>> Files;

    /// Answers to coming colour dialogs; without one a dialog is cancelled.
    std::deque<int> Colors;

    struct ShownBox {
        MessageBox Box;
        Answer Given;
    };
    /// A file, colour or printer dialog: "open", "save", "color" or "printer", what it proposed, the answer
    /// if not cancelled.
    struct ShownDialog {
        std::string Kind, Name, Filter;
        std::optional<std::string> Given;
        std::string Folder = {};
    };
    std::vector<ShownBox> Boxes;
    std::vector<ShownDialog> Dialogs;
    /// Programs that were started: the first name of each call.
    std::vector<std::string> Launched;
    int Beeps = 0;
    RecordingPort Port;
    RecordingPrinter Printer;

    DateTime Clock{2026, 1, 2, 3, 4, 5};
    /// What passes between two looks at the seconds; a user is slow beside a stream of characters.
    double BetweenLooks = 60, Passed = 0;
    std::string DataFolder, OtherFolder;

    Answer Show(const MessageBox& box) override;
    std::optional<std::string> AskForFile(const FileDialog& dialog) override;
    bool Launch(const std::vector<std::string>& programs) override;
    std::optional<int> AskForColor(int present) override;
    void Beep() override { ++Beeps; }
    DateTime Now() override { return Clock; }
    double Seconds() override { return Passed += BetweenLooks; }
    std::string LocalDataFolder() override { return DataFolder; }
    std::string SettingsFolder() override { return OtherFolder; }
    std::string ProgramFolder() override;
};
