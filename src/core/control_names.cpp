#include "core/control_names.h"

#include "core/draw_window.h"
#include "core/main_window.h"
#include "core/messages.h"

#include <span>
#include <string_view>

namespace {

/// A control by the name of its record; what it is called where its caption doesn't say that; its tip.
struct NameRow {
    std::string_view Control, Name, Tip;
};
constexpr NameRow Names[] = {
    // Path and view
    {"frControlPanel", "Current file", "The file that is open"},
    {"lblCurrentFile", "", "The file that is open"},
    {"lblPath", "Path of the current file", "No file yet: the program has not been saved"},
    {"lblChanged", "Changed since the last save", "A star means that there are changes to save"},
    {"frView", "", "What the list shows"},
    {"chkViewToolPos", "", "Columns with the tool position after each line"},
    {"chkViewLineProperties", "", "Columns with angles, and the centre and radius of arcs"},
    {"chkViewMachineTime", "", "A column with the machine time of each line"},
    {"chkViewGcode", "", "Describes each code in its comment"},
    {"chkViewFileNotes", "", "Gives the notes the place of the properties"},
    {"frSetReplace", "", "Two preset feeds: A or B in the feed field takes one"},
    {"txtFeedA", "Feed A", "Feed A: [ENTER] also replaces the old one in the program"},
    {"txtFeedB", "Feed B", "Feed B: [ENTER] also replaces the old one in the program"},
    {"cmdFeedA", "Use feed A", "Puts feed A into the line"},
    {"cmdFeedB", "Use feed B", "Puts feed B into the line"},
    {"lvCncProgram", "Program", "Click a line, or press [ENTER] on it, to edit it"},

    // Entry
    {"frEntry", "Line entry", "Type a code, its values and a comment; [ENTER] moves on"},
    {"lblCode", "", "The code of the line"},
    {"lblGMcode", "Code letter", "The code of the line: [-] switches between G and M"},
    {"txtGMcode", "Code", "Two digits, then [ENTER]"},
    {"lblXI", "First value", "The first value of the code"},
    {"txtXI", "First value", "A whole number or a sum such as 200+50"},
    {"lblYJ", "Second value", "The second value of the code"},
    {"txtYJ", "Second value", "A whole number or a sum such as 200+50"},
    {"lblZK", "Third value", "The third value of the code"},
    {"txtZK", "Third value", "A whole number or a sum such as 200+50"},
    {"lblFKTL", "Fourth value", "The fourth value of the code"},
    {"txtFKTL", "Fourth value", "A whole number or a sum; A or B takes a feed preset"},
    {"lblH", "Fifth value", "The fifth value of the code"},
    {"txtH", "Fifth value", "A whole number or a sum such as 200+50"},
    {"lblComment", "", "A comment of up to 44 characters"},
    {"txtComment", "Comment", "A comment; [ENTER] puts the line into the program"},
    {"lblEntryUnits", "Units of the values", "The units of the values"},
    {"frCmdEditor1", "Insert", "Inserts a line"},
    {"cmdInsert", "", "Inserts an empty line (G21) before the selected one: [INSERT]"},
    {"frCmdEditor2", "Delete", "Deletes a line"},
    {"cmdDelete", "", "Deletes the selected line: [DELETE] in the list"},
    {"frCmdEditor3", "Run", "Goes through the program line by line"},
    {"cmdRun", "", "Starts going through the program line by line"},
    {"cmdStep", "", "Runs the selected line and moves on to the next"},
    {"cmdStop", "", "Stops going through the program"},

    // Properties
    {"frAxesProperties", "", "How far the tool travels along each axis"},
    {"lblAxesMin", "", "The smallest value of each axis"},
    {"lblAxesMax", "", "The largest value of each axis"},
    {"lblAxesTravel", "", "The travel along each axis"},
    {"frXAxis", "", "How far the tool travels along X"},
    {"lblXAxisMin", "X-axis, smallest value", "The smallest X"},
    {"lblXAxisMax", "X-axis, largest value", "The largest X"},
    {"lblXAxisTravel", "X-axis, travel", "The travel along X"},
    {"frYaxis", "", "How far the tool travels along Y"},
    {"lblYAxisMin", "Y-axis, smallest value", "The smallest Y"},
    {"lblYAxisMax", "Y-axis, largest value", "The largest Y"},
    {"lblYAxisTravel", "Y-axis, travel", "The travel along Y"},
    {"frZAxis", "", "How far the tool travels along Z"},
    {"lblZAxisMin", "Z-axis, smallest value", "The smallest Z"},
    {"lblZAxisMax", "Z-axis, largest value", "The largest Z"},
    {"lblZAxisTravel", "Z-axis, travel", "The travel along Z"},
    {"frProgramProperties", "", "The program in figures"},
    {"lblPPMachineTypeTXT", "", "The machine that the program is for"},
    {"lblPPMachineType", "Machine type", "The machine that the program is for"},
    {"lblPPUnitsTXT", "", "The units of the program"},
    {"lblPPUnits", "Units of the program", "The units of the program"},
    {"lblPPLinesTXT", "", "How many lines the program has"},
    {"lblPPLines", "Number of lines", "How many lines the program has"},
    {"lblPPLinesExeTXT", "", "How many lines the machine runs, repeats counted"},
    {"lblPPLinesExe", "Lines executed", "How many lines the machine runs, repeats counted"},
    {"lblPPMachineTimeTXT", "", "How long moves, dwells and G73 take; other cycles and threads don't count"},
    {"lblPPMachineTime", "Machine time",
     "How long moves, dwells and G73 take; other cycles and threads don't count"},

    // Code lists and notes
    {"lstMK2Gcodes", "G codes", "Click a code to put it into the entry"},
    {"lstMK2Mcodes", "Panel of the control MK2", "This control has no M codes"},
    {"lstMK4Gcodes", "G codes", "Click a code to put it into the entry"},
    {"lstMK4Mcodes", "M codes", "Click a code to put it into the entry"},
    {"lstF1Gcodes", "G codes", "Click a code to put it into the entry"},
    {"lstF1Mcodes", "M codes", "Click a code to put it into the entry"},
    {"frFileNotes", "", "Notes that are saved in front of the program in its file"},
    {"txtFileNotes", "File notes", "Notes that are saved in front of the program in its file"},

    // Settings
    {"tabSettings", "Settings", "Settings: [LEFT] and [RIGHT] change the tab"},
    {"chkSettingsAutowidth", "", "Makes the window as wide as the columns of the list"},
    {"chkSettingsDWC", "", "Deletes a line without asking"},
    {"lblSettingsLanguage", "", "The language of all texts"},
    {"cboLanguage", "Language", "The language of all texts"},
    {"frSettingsIncr", "Colour of incremental lines", "The colour of incremental lines"},
    {"lblSettingsIncrColor", "", "The colour of incremental lines: click to change it"},
    {"cmdSettingsColorIncremental", "Change the colour of incremental lines",
     "Changes the colour of incremental lines"},
    {"frSettingsAbs", "Colour of absolute lines", "The colour of absolute lines"},
    {"lblSettingsAbsColor", "", "The colour of absolute lines: click to change it"},
    {"cmdSettingsColorAbsolute", "Change the colour of absolute lines",
     "Changes the colour of absolute lines"},
    {"cmdResetAll", "", "Puts all settings back to their defaults and clears the program"},
    {"frSettingsLathe", "", "The units of the lathe"},
    {"optSettingsMm", "", "Values in 1/100 mm. The numbers stay: Convert in the menu changes them"},
    {"optSettingsInch", "", "Values in 1/1000 inch. The numbers stay: Convert in the menu changes them"},
    {"frSettingsMill", "", "The units and the spindle of the mill"},
    {"optSettingsVmm", "",
     "Vertical spindle, values in 1/100 mm. The numbers stay: Convert in the menu changes them"},
    {"optSettingsVinch", "",
     "Vertical spindle, values in 1/1000 inch. The numbers stay: Convert in the menu changes them"},
    {"optSettingsHmm", "",
     "Horizontal spindle, values in 1/100 mm. The numbers stay: Convert in the menu changes them"},
    {"optSettingsHinch", "",
     "Horizontal spindle, values in 1/1000 inch. The numbers stay: Convert in the menu changes them"},
    {"lblSettingsFileName", "", "The name of the open file"},
    {"txtSettingsFileName", "Current file", "The name of the open file"},
    {"lblSettingsPathName", "", "The path of the open file"},
    {"txtSettingsPathName", "Current file path", "The path of the open file"},
    {"lblSettingsAppPath", "", "The folder of Brixley"},
    {"txtSettingsAppPathName", "Application path", "The folder of Brixley"},
    {"lblSettingsAppDataFolder", "", "The folder of the settings and the log"},
    {"txtSettingsAppDataFolderName", "Settings path", "The folder of the settings and the log"},
    {"optSettingsMK2", "", "Programs for the lathe with the control MK2; clears the program"},
    {"optSettingsMK4", "", "Programs for the lathe with the control MK4; clears the program"},
    {"optSettingsF1CNC", "", "Programs for the mill; clears the program"},
    {"Image1", "Picture of the lathe", "The lathe Compact 5 CNC"},
    {"Image2", "Picture of the mill", "The mill F1 CNC"},
    {"lblSettingsFont", "", "The font of printed listings"},
    {"cboFontName", "Font of the printer", "The font of printed listings"},
    {"lblSettingsSize", "", "The font size of printed listings"},
    {"cboFontSize", "Font size of the printer", "The font size of printed listings"},
    {"cmdPrinterDialog", "", "Chooses the printer and its paper"},
    {"frComEnable", "", "The serial line to the machine"},
    {"chkEnableCom", "", "Uses the serial line to the machine"},
    {"frTX", "", "How programs are sent"},
    {"optPortTX", "", "The port that sends"},
    {"optBaudTX", "", "Bits per second when sending"},
    {"optParityTX", "", "Parity when sending: none, even, odd"},
    {"optDataBitsTX", "", "Data bits when sending"},
    {"optStopBitsTX", "", "Stop bits when sending"},
    {"chkTXxonxoff", "", "Handshake by characters when sending: has no effect"},
    {"chkTXdtrdsr", "", "Handshake by the lines DTR and DSR when sending: has no effect"},
    {"chkTXrtscts", "", "Handshake by the lines RTS and CTS when sending: has no effect"},
    {"chkTXfilter", "", "Sends only the lines of the program, no notes or comments"},
    {"lblTXstandard", "", "The settings that the machines use"},
    {"cmdTXEmco", "", "Sets what the machines use"},
    {"frRX", "", "How programs are received"},
    {"optPortRX", "", "The port that receives"},
    {"optBaudRX", "", "Bits per second when receiving"},
    {"optParityRX", "", "Parity when receiving: none, even, odd"},
    {"optDataBitsRX", "", "Data bits when receiving"},
    {"optStopBitsRX", "", "Stop bits when receiving"},
    {"chkRXxonxoff", "", "Handshake by characters when receiving: has no effect"},
    {"chkRXdtrdsr", "", "Handshake by the lines DTR and DSR when receiving: has no effect"},
    {"chkRXrtscts", "", "Handshake by the lines RTS and CTS when receiving: has no effect"},
    {"chkRXfilter", "", "Has no effect: a received text is shown whole"},
    {"lblRXstandard", "", "The settings that the machines use"},
    {"cmdRXEmco", "", "Sets what the machines use"},

    // Over the list
    {"lblMessage", "Message of the line", "[CTRL-E] goes to the next line with a message"},
    {"lblHint", "Hint", "What the field with the cursor wants"},
    {"lblTransfer", "Transfer", "Progress of the transfer"},
    {"cmdReceiveLast", "", "Brings back the last received text that was neither saved nor imported"},
    {"frRXcode", "", "What the machine has sent"},
    {"txtRX", "Received code", "What the machine has sent"},
    {"frCmdRX", "Receiving", "What to do with the received code"},
    {"rtfHelp", "Help", "[ESC] closes the help"},
    {"rtfGcodeHelpMK2", "Codes of the MK2", "[ESC] closes the help"},
    {"rtfGcodeHelpMK4", "Codes of the MK4 and the F1", "[ESC] closes the help"},
    {"rtfAbout", "Version history", "[ESC] closes the page"},
    {"txtHelpFind", "Text to find", "Type a text, then [ENTER]; [ESC] closes"},
    {"lstAbout", "About Brixley", "Click to see the version history"},
    {"picZXaxes", "Axes of the lathe", "Click to close the picture"},
    {"picXYaxes", "Axes of the mill", "Click to close the picture"},
    {"cmdReturn", "", "Back to the program: [ESC]"},

    // Menu
    {"mnuFile", "", "Programs, files, printing"},
    {"mnuOpen", "", "Opens a program"},
    {"mnuNew", "", "Starts a new program"},
    {"mnuSave", "", "Saves the program"},
    {"mnuSaveAs", "", "Saves the program under another name"},
    {"mnuFind", "", "Finds a text in the program"},
    {"mnuDraw", "", "Draws the tool path"},
    {"mnuPrint", "", "Prints the program"},
    {"mnuRecent", "", "The files last opened or saved"},
    {"mnuRecentFile", "", "A recently opened or saved file"},
    {"mnuExit", "", "Closes Brixley"},
    {"mnuSettings", "", "Settings of Brixley"},
    {"mnuSettingsShow", "", "Shows or hides the settings"},
    {"mnuReset", "", "Puts all settings back to their defaults and clears the program"},
    {"mnuXfer", "", "Exchanges programs with the machine"},
    {"mnuTX", "", "Sends the program to the machine"},
    {"mnuRX", "", "Receives a program from the machine"},
    {"mnuConvert", "", "Changes the whole program"},
    {"mnuMMtoINCH", "", "Converts the values of the program to inch"},
    {"mnuINCHtoMM", "", "Converts the values of the program to mm"},
    {"mnuCalculator", "", "Starts a calculator"},
    {"mnuDelComments", "", "Deletes the comments of all lines"},
    {"mnuHelp", "", "Help pages"},
    {"mnuHelpText", "", "Shows the help"},
    {"mnuGhelp", "", "Shows the codes of the machine"},
    {"mnuAbout", "", "Shows the version of Brixley"},
    {"mnuRightClick", "Line", "What can be done with the selected line"},
    {"RCmnuDelete", "", "Deletes the selected line"},
    {"RCmnuInsert", "", "Inserts an empty line before the selected one"},
    {"RCmnuTX", "", "Sends the program to the machine"},
    {"RCmnuRX", "", "Receives a program from the machine"},
    {"txtFind", "Text to find", "Type a text, then [ENTER]; [ESC] closes"},
};

/// The drawing window's: some of its records are called as others in the main window are.
constexpr NameRow DrawNames[] = {
    {"frControls", "Controls of the drawing", "Drag any empty part to move the controls"},
    {"cmdAutoFit", "", "Fits the whole tool path into the window"},
    {"cmdZeroPoint", "", "The next click in the drawing sets the zero point"},
    {"cmdRedraw", "", "Draws the program again"},
    {"chkAutoRedraw", "", "The drawing follows every change"},
    {"cboRun", "Run mode", "At once, step by step, or with a pause after each line"},
    {"cboScale", "Scale", "The scale: the mouse wheel changes it too"},
    {"cmdSavePicture", "", "Saves the drawing as a picture: SVG, PNG or PDF"},
    {"cmdPrint", "", "Prints the drawing"},
    {"cmdAbort", "", "Stops drawing: [ESC]"},
    {"cmdEditor", "", "Goes back to the editor; the drawing stays open"},
    {"cmdStep", "", "Draws the next line"},
    {"cmdCloseControls", "Close", "Hides these controls; a click in the drawing brings them back"},
    {"frView", "", "What the drawing shows"},
    {"chkShowRadii", "", "Shows the radii of arcs, dotted"},
    {"chkToolWidth", "", "Draws cuts as wide as the tool"},
    {"chkToolCenter", "", "Draws cuts as the path of the centre of the tool"},
    {"chkFillCycles", "", "Fills the boxes of turning cycles"},
    {"chkProgramWindow", "", "Lists the lines of the program beside the drawing"},
    {"chkGrid", "", "Shows a grid through the zero point"},
    {"chkPrintableBackground", "", "Draws on white, as on paper"},
    {"chkDiameter", "", "Shows X in the title as a diameter"},
    {"frMeasure", "", "A third click in the drawing, or [ESC], ends measuring"},
    {"lblX", "", "The first coordinate"},
    {"lblZ", "", "The second coordinate"},
    {"lbl1", "", "The first point"},
    {"lbl2", "", "The second point"},
    {"txtMeasureX1", "First point, first coordinate",
     "The first point; it can be changed after the second click"},
    {"txtMeasureZ1", "First point, second coordinate",
     "The first point; it can be changed after the second click"},
    {"txtMeasureX2", "Second point, first coordinate",
     "The second point; it can be changed after the second click"},
    {"txtMeasureZ2", "Second point, second coordinate",
     "The second point; it can be changed after the second click"},
    {"lblDelta", "Difference", "The difference between the two points"},
    {"lblMeasureDeltaX", "", "The difference between the two points"},
    {"lblMeasureDeltaZ", "", "The difference between the two points"},
    {"lblDelta2", "Difference in mm or inch", "The difference between the two points in mm or inch"},
    {"lblMeasureDeltaXUnits", "", "The difference between the two points in mm or inch"},
    {"lblMeasureDeltaZUnits", "", "The difference between the two points in mm or inch"},
    {"lblXZ1XZ2", "", "The distance between the two points"},
    {"lblMeasureDistance", "", "The distance between the two points"},
    {"lblMeasureDistanceUnits", "", "The distance between the two points in mm or inch"},
    {"lstCncLines", "Lines of the program", "The line that is being drawn"},
};

const NameRow* RowOf(const Control& control)
{
    const Control* window = &control;
    while (window->In != nullptr) window = window->In;
    const bool ofDrawing = window == &frmDraw.Window || window == &frmProgramWindow.Window;
    const std::span<const NameRow> rows = ofDrawing ? std::span<const NameRow>(DrawNames) : Names;
    for (const NameRow& row : rows) {
        if (row.Control == control.Name) return &row;
    }
    return nullptr;
}

/// The caption without its access mark; two marks stand for an ampersand.
std::string WithoutMarks(const std::string& caption)
{
    std::string text;
    for (size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;
        text += caption[i];
    }
    return text;
}

} // namespace

std::string FullName(const Control& control)
{
    const std::string name = control.Name;
    return control.Element < 0 ? name : name + "(" + std::to_string(control.Element) + ")";
}

std::string AccessibleName(const Control& control)
{
    // The label in front of a field of the entry says what the code wants there.
    const MainWindow& main = frmMain;
    const std::pair<const Control*, const Control*> labelled[] = {{&main.txtXI, &main.lblXI},
                                                                  {&main.txtYJ, &main.lblYJ},
                                                                  {&main.txtZK, &main.lblZK},
                                                                  {&main.txtFKTL, &main.lblFKTL},
                                                                  {&main.txtH, &main.lblH}};
    for (const auto& [box, label] : labelled) {
        if (&control == box && !label->Text.empty()) return label->Text;
    }
    const NameRow* const row = RowOf(control);
    if (row != nullptr && !row->Name.empty()) return Tr(row->Name);
    const std::string caption = control.Is == Kind::TextBox ? "" : WithoutMarks(control.Text);
    return caption.empty() ? TipOf(control) : caption;
}

std::string TipOf(const Control& control)
{
    return control.ToolTip.empty() ? FirstTipOf(control) : control.ToolTip;
}

std::string FirstTipOf(const Control& control)
{
    if (const NameRow* const row = RowOf(control); row != nullptr) return Tr(row->Tip);
    return control.Text.empty() ? FullName(control) : WithoutMarks(control.Text);
}
