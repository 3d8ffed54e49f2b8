#include "editor/entry.h"

#include "core/failure.h"
#include "core/main_window.h"
#include "core/numbers.h"
#include "core/profile.h"
#include "core/program_list.h"

#include <cmath>

namespace {

/// A parameter under its plain axis letter keeps its sign; under any other caption the first letter of
/// the caption takes the sign's place. The caption is that of the table of fields, whatever the language.
std::string AxisCell(const Control& label, const Control& box, std::string_view axis, size_t digits,
                     size_t width)
{
    if (!box.Visible) return std::string(width, ' ');
    const double value = Val(box.Text);
    std::string prefix = label.Tag.substr(0, 1);
    if (label.Tag == axis) prefix = value < 0 ? "-" : " ";
    return prefix + RightPad(FormatWhole(std::abs(value), 2), digits);
}

} // namespace

void FormatInputs()
{
    ProgramLine& row = lvCncProgram.Row(lvCncProgram.Selected);
    const Profile& profile = ActiveProfile();
    row[CellN] = RightPad(FormatWhole(lvCncProgram.Selected - 1, 2), 3);
    row[CellX] = AxisCell(frmMain.lblXI, frmMain.txtXI, "X", profile.XDigits, profile.XDigits + 1);
    row[CellY] = AxisCell(frmMain.lblYJ, frmMain.txtYJ, "Y", 4, 5);
    row[CellZ] = AxisCell(frmMain.lblZK, frmMain.txtZK, "Z", 5, 6);

    const Control& fourth = frmMain.txtFKTL;
    row[CellF] = "    ";
    if (fourth.Visible) {
        const std::string prefix = frmMain.lblFKTL.Tag == "F" ? " " : frmMain.lblFKTL.Tag.substr(0, 1);
        row[CellF] = prefix + RightPad(FormatWhole(std::abs(Val(fourth.Text)), 2), 3);
    }

    const bool mill = profile.Machine == MachineKind::F1;
    if (frmMain.txtH.Visible) {
        const std::string pulses = RightPad(FormatWhole(std::abs(Val(frmMain.txtH.Text)), 2), 3);
        // On the mill H has no column of its own; the blank keeps everything behind it in place.
        row[mill ? CellF : CellH] = (mill ? " " : "") + pulses;
    } else {
        row[CellH] = "   ";
    }

    if (frmMain.txtGMcode.Text == "99R") {
        Attempt("FormatInputs", [] { Shared.M99RRadius = ToSingle(Val(frmMain.txtXI.Text)); });
    }
}
