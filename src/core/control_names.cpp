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
    {"lblChanged", "Changed since it was saved", "A star means that the program differs from its file"},
    {"frView", "", "What the list shows"},
    {"chkViewToolPos", "", "Columns with the tool position behind each line"},
    {"chkViewLineProperties", "", "Columns with angle, and centre and radius of arcs"},
    {"chkViewMachineTime", "", "A column with the machine time of each line"},
    {"chkViewGcode", "", "Describes each code in its comment"},
    {"chkViewFileNotes", "", "Gives the notes the room of the properties"},
    {"frSetReplace", "", "Two feeds to take over with A and B in the feed's field"},
    {"txtFeedA", "Feed A", "Feed A: [ENTER] also replaces it in the whole program"},
    {"txtFeedB", "Feed B", "Feed B: [ENTER] also replaces it in the whole program"},
    {"cmdFeedA", "Take feed A", "Puts feed A into the line"},
    {"cmdFeedB", "Take feed B", "Puts feed B into the line"},
    {"lvCncProgram", "Program", "Click a line, or press [ENTER] on it, to edit it"},

    // Entry
    {"frEntry", "Entry of a line", "Type a code, its values, a comment; [ENTER] goes on"},
    {"lblCode", "", "The code of the line"},
    {"lblGMcode", "Letter of the code", "The code of the line: [-] changes between G and M"},
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
    {"cmdRun", "", "Begins to go through the program line by line"},
    {"cmdStep", "", "Does the selected line and goes to the next"},
    {"cmdStop", "", "Ends going through the program"},

    // Properties
    {"frAxesProperties", "", "How far the tool travels on each axis"},
    {"lblAxesMin", "", "The smallest value of each axis"},
    {"lblAxesMax", "", "The largest value of each axis"},
    {"lblAxesTravel", "", "The travel of each axis"},
    {"frXAxis", "", "How far the tool travels on X"},
    {"lblXAxisMin", "X-axis, smallest value", "The smallest X"},
    {"lblXAxisMax", "X-axis, largest value", "The largest X"},
    {"lblXAxisTravel", "X-axis, travel", "The travel on X"},
    {"frYaxis", "", "How far the tool travels on Y"},
    {"lblYAxisMin", "Y-axis, smallest value", "The smallest Y"},
    {"lblYAxisMax", "Y-axis, largest value", "The largest Y"},
    {"lblYAxisTravel", "Y-axis, travel", "The travel on Y"},
    {"frZAxis", "", "How far the tool travels on Z"},
    {"lblZAxisMin", "Z-axis, smallest value", "The smallest Z"},
    {"lblZAxisMax", "Z-axis, largest value", "The largest Z"},
    {"lblZAxisTravel", "Z-axis, travel", "The travel on Z"},
    {"frProgramProperties", "", "The program in figures"},
    {"lblPPMachineTypeTXT", "", "The machine that the program is for"},
    {"lblPPMachineType", "Machine type", "The machine that the program is for"},
    {"lblPPUnitsTXT", "", "The units of the program"},
    {"lblPPUnits", "Units of the program", "The units of the program"},
    {"lblPPLinesTXT", "", "How many lines the program has"},
    {"lblPPLines", "Number of lines", "How many lines the program has"},
    {"lblPPLinesExeTXT", "", "How many lines the machine goes through"},
    {"lblPPLinesExe", "Lines executed", "How many lines the machine goes through"},
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
    {"frFileNotes", "", "Notes that stand in front of the program in its file"},
    {"txtFileNotes", "File notes", "Notes that stand in front of the program in its file"},

    // Settings
    {"tabSettings", "Settings", "Settings: [LEFT] and [RIGHT] change the tab"},
    {"chkSettingsAutowidth", "", "The window is made as wide as the columns of the list"},
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
    {"cmdResetAll", "", "Puts all settings back to their first values"},
    {"frSettingsLathe", "", "The units of the lathe"},
    {"optSettingsMm", "", "Values in 1/100 mm"},
    {"optSettingsInch", "", "Values in 1/1000 inch"},
    {"frSettingsMill", "", "The units and the spindle of the mill"},
    {"optSettingsVmm", "", "Vertical spindle, values in 1/100 mm"},
    {"optSettingsVinch", "", "Vertical spindle, values in 1/1000 inch"},
    {"optSettingsHmm", "", "Horizontal spindle, values in 1/100 mm"},
    {"optSettingsHinch", "", "Horizontal spindle, values in 1/1000 inch"},
    {"lblSettingsFileName", "", "The name of the open file"},
    {"txtSettingsFileName", "Current file", "The name of the open file"},
    {"lblSettingsPathName", "", "The path of the open file"},
    {"txtSettingsPathName", "Current file path", "The path of the open file"},
    {"lblSettingsAppPath", "", "The folder of this program"},
    {"txtSettingsAppPathName", "Application path", "The folder of this program"},
    {"lblSettingsAppDataFolder", "", "The folder of settings and log"},
    {"txtSettingsAppDataFolderName", "Settings path", "The folder of settings and log"},
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
    {"optBaudTX", "", "Bits a second when sending"},
    {"optParityTX", "", "Parity when sending: none, even, odd"},
    {"optDataBitsTX", "", "Data bits when sending"},
    {"optStopBitsTX", "", "Stop bits when sending"},
    {"chkTXxonxoff", "", "Handshake by characters when sending"},
    {"chkTXdtrdsr", "", "Handshake by the lines DTR and DSR when sending"},
    {"chkTXrtscts", "", "Handshake by the lines RTS and CTS when sending"},
    {"chkTXfilter", "", "Sends the lines of the program alone"},
    {"lblTXstandard", "", "The settings that the machines have"},
    {"cmdTXEmco", "", "Sets what the machines have"},
    {"frRX", "", "How programs are received"},
    {"optPortRX", "", "The port that receives"},
    {"optBaudRX", "", "Bits a second when receiving"},
    {"optParityRX", "", "Parity when receiving: none, even, odd"},
    {"optDataBitsRX", "", "Data bits when receiving"},
    {"optStopBitsRX", "", "Stop bits when receiving"},
    {"chkRXxonxoff", "", "Handshake by characters when receiving"},
    {"chkRXdtrdsr", "", "Handshake by the lines DTR and DSR when receiving"},
    {"chkRXrtscts", "", "Handshake by the lines RTS and CTS when receiving"},
    {"chkRXfilter", "", "Takes the lines of a program alone"},
    {"lblRXstandard", "", "The settings that the machines have"},
    {"cmdRXEmco", "", "Sets what the machines have"},

    // Over the list
    {"lblMessage", "Message of the line", "[CTRL-E] goes to the next line with a message"},
    {"lblHint", "Hint", "What the field with the cursor wants"},
    {"lblTransfer", "Transfer", "How far the transfer is"},
    {"cmdReceiveLast", "", "Brings back what was received last and neither saved nor imported"},
    {"frRXcode", "", "What the machine has sent"},
    {"txtRX", "Received code", "What the machine has sent"},
    {"frCmdRX", "Reception", "What becomes of the received code"},
    {"rtfHelp", "Help", "[ESC] closes the help"},
    {"rtfGcodeHelpMK2", "Codes of the MK2", "[ESC] closes the help"},
    {"rtfGcodeHelpMK4", "Codes of the MK4 and the F1", "[ESC] closes the help"},
    {"rtfAbout", "History of versions", "[ESC] closes the page"},
    {"txtHelpFind", "Text to find", "A text, then [ENTER]; [ESC] closes"},
    {"lstAbout", "About this program", "Click to see the history of versions"},
    {"picZXaxes", "Axes of the lathe", "Click to close the picture"},
    {"picXYaxes", "Axes of the mill", "Click to close the picture"},
    {"cmdReturn", "", "Back to the program: [ESC]"},

    // Menu
    {"mnuFile", "", "Programs, files, printing"},
    {"mnuOpen", "", "Opens a program"},
    {"mnuNew", "", "Begins a new program"},
    {"mnuSave", "", "Saves the program"},
    {"mnuSaveAs", "", "Saves the program under another name"},
    {"mnuFind", "", "Finds a text in the program"},
    {"mnuDraw", "", "Draws the tool path"},
    {"mnuPrint", "", "Prints the program"},
    {"mnuRecent", "", "The files opened or saved last"},
    {"mnuRecentFile", "", "A file opened or saved lately"},
    {"mnuExit", "", "Leaves the program"},
    {"mnuSettings", "", "Settings of the program"},
    {"mnuSettingsShow", "", "Shows or hides the settings"},
    {"mnuReset", "", "Puts all settings back to their first values"},
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
    {"mnuAbout", "", "Shows the version of the program"},
    {"mnuRightClick", "Line", "What can be done with the selected line"},
    {"RCmnuDelete", "", "Deletes the selected line"},
    {"RCmnuInsert", "", "Inserts an empty line before the selected one"},
    {"RCmnuTX", "", "Sends the program to the machine"},
    {"RCmnuRX", "", "Receives a program from the machine"},
    {"txtFind", "Text to find", "A text, then [ENTER]; [ESC] closes"},
};

/// The drawing window's: some of its records are called as others in the main window are.
constexpr NameRow DrawNames[] = {
    {"frControls", "Controls of the drawing", "Drag the controls by any free place"},
    {"cmdAutoFit", "", "Fits scale and zero point to the program"},
    {"cmdZeroPoint", "", "The next click in the picture sets the zero point"},
    {"cmdRedraw", "", "Draws the program anew"},
    {"chkAutoRedraw", "", "The picture follows each change"},
    {"cboRun", "Run mode", "At once, step by step, or with a pause after each line"},
    {"cboScale", "Scale", "The scale: the mouse wheel changes it too"},
    {"cmdSavePicture", "", "Saves the picture as SVG, PNG or PDF"},
    {"cmdPrint", "", "Prints the picture"},
    {"cmdAbort", "", "Ends the drawing: [ESC]"},
    {"cmdEditor", "", "Goes back to the editor; the drawing stays open"},
    {"cmdStep", "", "Draws the next line"},
    {"cmdCloseControls", "Close", "Hides these controls; a click in the picture brings them back"},
    {"frView", "", "What the picture shows"},
    {"chkShowRadii", "", "Shows the radii of arcs, dotted"},
    {"chkToolWidth", "", "Draws cuts as wide as the tool"},
    {"chkToolCenter", "", "Draws cuts as the path of the tool's centre"},
    {"chkFillCycles", "", "Fills what the turning cycles take off"},
    {"chkProgramWindow", "", "Lists the lines of the program beside the picture"},
    {"chkGrid", "", "Shows a grid through the zero point"},
    {"chkPrintableBackground", "", "Draws on white, as on paper"},
    {"chkDiameter", "", "Shows X in the title as a diameter"},
    {"frMeasure", "", "A third click in the picture ends measuring, also [ESC]"},
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
    {"lblDelta", "Difference", "The difference of the two points"},
    {"lblMeasureDeltaX", "", "The difference of the two points"},
    {"lblMeasureDeltaZ", "", "The difference of the two points"},
    {"lblDelta2", "Difference in mm or inch", "The difference of the two points in mm or inch"},
    {"lblMeasureDeltaXUnits", "", "The difference of the two points in mm or inch"},
    {"lblMeasureDeltaZUnits", "", "The difference of the two points in mm or inch"},
    {"lblXZ1XZ2", "", "The distance of the two points"},
    {"lblMeasureDistance", "", "The distance of the two points"},
    {"lblMeasureDistanceUnits", "", "The distance of the two points in mm or inch"},
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
