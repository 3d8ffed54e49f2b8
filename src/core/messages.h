// messages.h: every text of the system that a language module can replace by its table and index.
//
// The tables are empty until a module fills them; each text then falls back on its built-in English
// form. A text that begins with "!" stands in the error cell of the line at fault.

#pragma once

#include <array>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>

/// Number of entries of every table; the highest index in use is 31.
constexpr int TableSize = 32;
using TextTable = std::array<std::string, TableSize>;

struct TranslatedTables {
    TextTable MessageTable;
    TextTable ProgramErrorTable;
    TextTable ErrorMessageTable;
    /// Captions and texts of the drawing window.
    TextTable DrawViewTable, DrawButtonTable, DrawRunTable, DrawScaleTable;
    TextTable DrawWindowTable, DrawErrorTable, DrawMessageTable;
    /// Texts of this program alone, by their English form.
    std::map<std::string, std::string, std::less<>> Own;
    /// Grows with each module that is read, so that a front end sees when its texts are of yesterday.
    unsigned Version = 0;
};
extern TranslatedTables Translated;

/// The translated text, or the default when it is empty or of blanks only.
std::string_view TextOr(std::string_view defaultText, std::string_view translated);

/// A text of the tables with its built-in form. Blank ends belong to the texts.
struct Message {
    TextTable TranslatedTables::*Table;
    size_t Index;
    std::string_view Default;
};
std::string TextOf(const Message& message);

/// A text that stands in no table, in the language in force: a file's or a port's fault, progress, a tip.
std::string Tr(std::string_view english);
/// The same for a text with places for values: "%1 lines with messages".
std::string Tr(std::string_view english, std::initializer_list<std::string_view> values);

/// The tip of a field with this limit string: "-5999 = Low, Hi = 5999" for "-5999TO5999".
std::string LimitTip(std::string_view limits);

namespace Messages {
using T = TranslatedTables;
inline constexpr Message SaveOpenFile{&T::MessageTable, 1, "Do you want to save the open file now?"};
inline constexpr Message ClearAnyway{&T::MessageTable, 2, "File has been changed. Clear anyway?"};
inline constexpr Message Continue{&T::MessageTable, 3, "Continue?"};
inline constexpr Message Clear{&T::MessageTable, 4, "Clear?"};
inline constexpr Message NoFile{&T::MessageTable, 5, "No file specified"};
inline constexpr Message Minimum{&T::MessageTable, 11, "minimum"};
inline constexpr Message Maximum{&T::MessageTable, 12, "maximum"};
inline constexpr Message ProgramVersion{&T::MessageTable, 13, "Program Version"};
inline constexpr Message LanguageModule{&T::MessageTable, 14, "Language Module"};
inline constexpr Message TheFile{&T::MessageTable, 15, "The file"};
inline constexpr Message NotEmcoFile{&T::MessageTable, 16,
                                     " does not appear to be an Emco CNC formatted file"};
inline constexpr Message RecognizingProblem{&T::MessageTable, 17, "File Recognizing Problem"};
inline constexpr Message HasBeenSaved{&T::MessageTable, 18, "has been saved"};
inline constexpr Message Overwrite{&T::MessageTable, 19, "Overwrite"};
inline constexpr Message LowestValue{&T::MessageTable, 20, "Lowest value for this field is"};
inline constexpr Message HighestValue{&T::MessageTable, 21, "Highest value for this field is"};
inline constexpr Message Translator{&T::MessageTable, 22, ""};
inline constexpr Message MaxRpm{&T::MessageTable, 23, "max RPM"};
inline constexpr Message LeftAngle{&T::MessageTable, 24, "L"};
inline constexpr Message RightAngle{&T::MessageTable, 25, "R"};
inline constexpr Message DragTaskBar{
    &T::MessageTable, 26,
    "To maximise the screen, drag down taskbar until it is invisible or set it to auto hide"};
inline constexpr Message LowerPartBlocked{
    &T::MessageTable, 27,
    "The lower part of your view will be blocked by the taskbar. You could drag down the taskbar until it is "
    "invisible or set it to auto hide."};

inline constexpr Message UnknownControlCommand{&T::ProgramErrorTable, 1, "!Unknown ControlCommand"};
inline constexpr Message StartIsEnd{&T::ProgramErrorTable, 2, "!Start and End same value"};
inline constexpr Message OneQuadrantMax{&T::ProgramErrorTable, 3, "!1 quadrant max"};
inline constexpr Message G24First{&T::ProgramErrorTable, 4, "!G24 must precede G90/G92"};
inline constexpr Message InvalidSub{&T::ProgramErrorTable, 5, "!Invalid SUB"};
inline constexpr Message TooManySubs{&T::ProgramErrorTable, 6, "!Max 5 nested SUBs"};
inline constexpr Message EndlessLoop{&T::ProgramErrorTable, 7, "!Endless loop"};
inline constexpr Message NoSuchLine{&T::ProgramErrorTable, 8, "!Line doesn't exist"};
inline constexpr Message ReturnWithoutSub{&T::ProgramErrorTable, 9, "!RETURN without SUB"};
inline constexpr Message ArcMustPrecede{&T::ProgramErrorTable, 10, "!Must be preceded by G02/03"};
inline constexpr Message NoPercent{&T::ProgramErrorTable, 11, "!No % allowed"};
inline constexpr Message DivisionOfCut{&T::ProgramErrorTable, 12, "!Division-of-cut error"};
inline constexpr Message NotFullQuadrant{&T::ProgramErrorTable, 13, "!Not a full quadrant"};
inline constexpr Message InvalidArc{&T::ProgramErrorTable, 14, "!Invalid arc"};
inline constexpr Message RadiusTooSmall{&T::ProgramErrorTable, 15, "!Radius too small"};
inline constexpr Message ToolMustPrecede{&T::ProgramErrorTable, 16, "!Must be preceded by M06"};
inline constexpr Message PocketTooSmall{&T::ProgramErrorTable, 17, "!Pocket too small for tool radius"};

inline constexpr Message NoLines{&T::ErrorMessageTable, 1, "No Lines of code present"};
inline constexpr Message DeleteLine{&T::ErrorMessageTable, 3, "Delete selected line?"};
inline constexpr Message MaxLinesReached{&T::ErrorMessageTable, 4,
                                         "Maximum number of lines has been reached"};
inline constexpr Message MustBeNumeric{&T::ErrorMessageTable, 6, "Entered value must be numeric"};
inline constexpr Message No3d{&T::ErrorMessageTable, 8, "!No 3-d allowed"};
inline constexpr Message UnknownCode{&T::ErrorMessageTable, 9, "Unknown code"};

inline constexpr Message XDiameter{&T::DrawWindowTable, 1, "X-diameter"};
inline constexpr Message XRadius{&T::DrawWindowTable, 2, "X-radius"};

inline constexpr Message DivisionMetric{&T::DrawMessageTable, 1, "1Division"};
inline constexpr Message UnitMetric{&T::DrawMessageTable, 2, "x 0.01mm"};
inline constexpr Message DivisionInch{&T::DrawMessageTable, 3, "1Division"};
inline constexpr Message UnitInch{&T::DrawMessageTable, 4, "x 0.01 Inch"};
inline constexpr Message Distance{&T::DrawMessageTable, 5, "Distance"};
} // namespace Messages
