// shared_state.h: the flags and values that several folders read and write.
//
// They are plain data without observers. What belongs to one routine alone stands with that routine.

#pragma once

#include "platform/line_parameters.h"

#include <cstdint>
#include <string>
#include <vector>

/// The three machines: the Compact 5 CNC lathe with the controls MK2 and MK4, and the F1 CNC mill.
enum class MachineKind { MK2, MK4, F1 };

/// Smallest size of the main window in twips.
constexpr int MinWidth = 11800;
constexpr int MinHeight = 8720;

/// What the drawing shows: the check boxes of its window as they were left last, 0 or 1 each. They outlast
/// the window.
struct DrawBoxValues {
    int Radii = 0, ToolWidth = 0, ToolCenter = 0, FillCycles = 0, Program = 0;
    int Grid = 0, Background = 0, Diameter = 0, AutoRedraw = 0;
};

/// The screen in twips, and its height above the task bar.
struct Screen {
    int Width = 28800, Height = 16200, WorkHeight = 15600;
};

struct SharedState {
    /// The front end puts its own screen here before the start.
    ::Screen Screen;

    /// The profile in force. Values are in 1/100 mm when Metric, else in 1/1000 inch. Horizontal is the
    /// spindle of the F1; it keeps its value while a lathe is selected.
    MachineKind Machine = MachineKind::MK4;
    bool Metric = true;
    bool Horizontal = false;

    /// The program differs from its file.
    bool Changed = false;
    /// An error of the last pass stands in the program.
    bool ErrorsPresent = false;
    /// The last pass found G22 or M30 anywhere.
    bool EndCodeSeen = false;
    /// The last pass walked an arc; the columns of centre and radius are shown only then.
    bool ArcsPresent = false;
    /// G90 or G92 is in force: at the line being walked, afterwards as the last walked line left it.
    bool AbsoluteMode = false;
    /// X is a radius, not a diameter: G24, and always on the F1. Left like AbsoluteMode.
    bool RadiusMode = false;
    /// The plane of the last move: "XY", "XZ", "YZ", or "" before the first.
    std::string ArcPlane;
    /// List index (from 1) of the line that was reported last, 0 for none.
    int LastErrorIndex = 0;

    /// The text of a program is made as the printed listing instead of the file.
    bool PrintMode = false;
    /// The main window follows the width of the visible columns.
    bool AutoWidthOn = false;
    /// User controls are enabled.
    bool ControlsEnabled = true;
    /// A transmission is running; it was asked to stop; the program is to be left when it has.
    bool Transmitting = false;
    bool StopSending = false;
    bool ExitPending = false;
    /// The walk of the editor's run waits at each line for the Step button.
    bool RunMode = false;
    /// The Step button was pressed; a waiting walk consumes it.
    bool StepRequested = false;
    /// The editor is locked from Run until Stop, also behind the end of the walk.
    bool RunLocked = false;
    /// Communication is enabled.
    bool ComEnabled = false;
    /// The serial port, from 1.
    int Port = 1;
    /// Line parameters of the two directions: baud rate, parity, data bits, stop bits.
    std::string SettingsTX = StandardLine(), SettingsRX = StandardLine();
    /// Twips of the drawing for one program unit.
    float DrawScale = 1;
    /// The state of the main window; normal when neither is set.
    bool Minimized = false, Maximized = false;
    /// A machine option is being set by ControlsPositioning, so its Click does nothing.
    bool PositioningControls = false;

    /// The feed presets that were last taken over: the number and one blank.
    std::string FeedA = "200 ";
    std::string FeedB = "50 ";
    /// Radius of the last M99R that was entered, in program units.
    float M99RRadius = 0;

    /// First part of the error column's header, and the number of the line that it names (from 0).
    std::string ErrorColumnTitle = "Error in line";
    int ErrorLine = 0;
    /// Colours of incremental and absolute lines, 24 bits in blue-green-red order.
    float IncrColor = 255;
    float AbsColor = 16711680;
    /// The code letter was touched since the code box took the cursor.
    bool CodeToggled = false;
    /// The code last given to the fields uses the feed presets.
    bool FeedButtonsOn = false;
    /// A row is being activated: its values are shown, not judged.
    bool Activating = false;
    /// The find dialog, while it is shown, has the keys.
    bool FindInFront = false;
    /// The settings pane was up when the last event ended.
    bool SettingsWereUp = false;
    /// The next search goes on behind the selected row.
    bool FindNext = false;
    /// The caption that the entry frame returns to when the program is cleared.
    std::string EntryCaption;
    /// Paths of the files opened or saved last, the latest first.
    std::vector<std::string> RecentFiles;
    /// The file that was named last in the dialog of program files; "" for none.
    std::string DialogFile;
    /// The printer's font and its size in points, as they were last taken over from their boxes.
    std::string FontName, FontSize = "10";
    /// The language module in use: its path, the language's name, the translator; "" without one.
    std::string LanguageFileName, LanguageName, TranslatorName;
    /// The manual of the language in force; the other help pages are called after it.
    std::string HelpFile = "English.html";
    /// How often a help page was to show its place (the Tag of its pane), and how often its text was
    /// searched.
    unsigned HelpJumps = 0, HelpSearches = 0;
    /// The program has been left.
    bool Ended = false;

    /// An open drawing is to follow the program when the event is over.
    bool DrawingFollows = false;
    /// It follows a load, and comes to the front.
    bool DrawingToFront = false;
    /// The drawing window is to draw when it is activated.
    bool RedrawPending = false;
    /// The drawing is to be fitted before it is drawn next.
    bool AutoFitPending = false;
    DrawBoxValues DrawBoxes;
};
extern SharedState Shared;
