#include "core/main_window.h"

#include "core/codes.h"

MainWindow frmMain;

MainWindow::MainWindow()
{
#define CONTROL(kind, name, in, text, tabStop)
#define CONTROLS(kind, name, count, in)                                                                      \
    for (Control & element : name) {                                                                         \
        element.Is = Kind::kind;                                                                             \
        element.Name = #name;                                                                                \
        element.In = &in;                                                                                    \
    }
#include "core/main_window.def"
#undef CONTROL
#undef CONTROLS

    // The size of a new window in twips.
    Window.Width = 15000;
    Window.Height = 10000;

    lstMK2Gcodes.Items = MK2Gcodes();
    lstMK4Gcodes.Items = MK4Gcodes();
    lstMK4Mcodes.Items = MK4Mcodes();
    lstF1Gcodes.Items = F1Gcodes();
    lstF1Mcodes.Items = F1Mcodes();

    for (Control* entry : {&mnuRightClick, &tabSettings, &rtfHelp, &rtfGcodeHelpMK2, &rtfGcodeHelpMK4,
                           &rtfAbout, &lstAbout, &picZXaxes, &picXYaxes, &cmdReturn}) {
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
