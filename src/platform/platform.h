// platform.h: what the program asks of the world beyond files: boxes, dialogs, the clock, folders.
//
// A front end gives one object of this class. scripted.h is the one that is no toolkit at all,
// for the console and the tests.

#pragma once

#include <optional>
#include <string>
#include <vector>

enum class Buttons { OK, YesNo, YesNoCancel };
enum class Icon { None, Information, Exclamation, Critical, Question };
enum class Answer { OK, Yes, No, Cancel };

/// A message box. An empty title stands for the program's own.
struct MessageBox {
    std::string Text;
    std::string Title;
    ::Buttons Buttons = Buttons::OK;
    ::Icon Icon = Icon::None;
    /// What [ENTER] answers: No where Yes would lose work.
    bool SafeIsNo = false;
};

/// A file dialog: what it proposes, where it begins, and which files it shows
/// ("text|patterns|text|patterns|").
struct FileDialog {
    enum class Purpose { Open, Save } For;
    std::string Name;
    std::string Filter;
    /// Where the dialog begins; "" leaves that to the platform.
    std::string Folder;
    /// The dialog itself asks before a file is replaced; else the program does.
    bool AsksBeforeReplacing = false;
};

struct DateTime {
    int Year, Month, Day, Hour, Minute, Second;
};

class Platform
{
public:
    virtual ~Platform() = default;

    /// Shows the box and returns the button that closed it: one that the box has.
    virtual Answer Show(const MessageBox& box) = 0;

    /// Asks for a file. No value when the dialog was cancelled; "" when it was closed without a name.
    virtual std::optional<std::string> AskForFile(const FileDialog& dialog) = 0;

    /// Starts the first program of the names that is there; false when none could be started.
    virtual bool Launch(const std::vector<std::string>& programs) = 0;

    /// Asks for a colour, beginning with one; no value when cancelled. 24 bits in blue-green-red order.
    virtual std::optional<int> AskForColor(int present) = 0;

    /// A short sound that says no.
    virtual void Beep() = 0;

    /// Local date and time.
    virtual DateTime Now() = 0;
    /// Seconds since some moment; only goes forward.
    virtual double Seconds() = 0;

    /// The user's folder for application data without a separator at its end, "" for none.
    virtual std::string LocalDataFolder() = 0;

    /// A folder that takes the place of the user's own, "" for none.
    virtual std::string SettingsFolder() { return ""; }

    /// The folder of the running program without a separator at its end.
    virtual std::string ProgramFolder() = 0;
};

/// The platform in use. Never null: until a front end sets its own, it is a scripted one.
extern Platform* ThePlatform;

/// A box with an OK button alone.
void ShowMessage(const std::string& text, const std::string& title = "", Icon icon = Icon::None);
