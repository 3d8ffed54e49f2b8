#include "core/main_window.h"

#include "core/codes.h"

MainWindow frmMain;
FindWindow frmFind;

MainWindow::MainWindow()
{
#define CONTROL(kind, name, in, text, tabStop)
#define CONTROLS(kind, name, count, in)                                                                      \
    for (Control & element : name) {                                                                         \
        element.Is = Kind::kind;                                                                             \
        element.Name = #name;                                                                                \
        element.Element = static_cast<int>(&element - name);                                                 \
        element.In = &in;                                                                                    \
    }
#include "core/main_window.def"
#undef CONTROL
#undef CONTROLS

    // The place and size of a new window in twips.
    Window.Left = 6900;
    Window.Top = 2800;
    Window.Width = 15000;
    Window.Height = 10000;

    lstMK2Gcodes.Items = MK2Gcodes();
    lstMK4Gcodes.Items = MK4Gcodes();
    lstMK4Mcodes.Items = MK4Mcodes();
    lstF1Gcodes.Items = F1Gcodes();
    lstF1Mcodes.Items = F1Mcodes();

    tabSettings.Items = {"General", "Units", "Info", "Machine", "Printer", "COM"};
    tabSettings.Index = 0;
    cboFontSize.Items = {"8", "10", "12", "14", "16", "18", "20"};
    const char* const captions[] = {"Open", "Save", "New",  "Print", "Set",
                                    "Axes", "Axes", "Draw", "RX",    "TX"};
    const char* const tips[] = {"Open File", "Save File", "New File",      "Print File",   "Settings",
                                "Show Axes", "Show Axes", "Draw Toolpath", "Receive File", "Transmit File"};
    for (size_t i = 0; i < std::size(cmdTopButtons); ++i) {
        cmdTopButtons[i].Text = captions[i];
        cmdTopButtons[i].ToolTip = tips[i];
    }
    for (Control* label : {&lblGMcode, &lblCode, &txtGMcode}) label->ToolTip = "[-] = M-code";
    txtGMcode.MaxLength = 3;
    txtH.MaxLength = 3;
    txtComment.MaxLength = 44;

    for (Control* entry :
         {&mnuMachine, &mnuUnits, &mnuFont, &mnuComm, &mnuPaths, &mnuRightClick, &tabSettings, &rtfHelp,
          &rtfGcodeHelpMK2, &rtfGcodeHelpMK4, &rtfAbout, &lstAbout, &picZXaxes, &picXYaxes, &cmdReturn}) {
        entry->Visible = false;
    }
    mnuINCHtoMM.Enabled = false;
}

void MainWindow::ForEach(const std::function<void(Control&)>& visit)
{
#define CONTROL(kind, name, in, text, tabStop) visit(name);
#define CONTROLS(kind, name, count, in)                                                                      \
    for (Control & element : name) visit(element);
#include "core/main_window.def"
#undef CONTROL
#undef CONTROLS
}
