#include "editor/fields.h"

#include "core/codes.h"
#include "core/main_window.h"
#include "core/messages.h"
#include "core/shared_state.h"
#include "core/text.h"
#include "ui/focus.h"
#include "ui/panes.h"

namespace {

/// What a field may hold. LimitTexts and AxisTable say it in numbers.
enum class Limit {
    Hidden,
    None,
    AxisX,
    AxisY,
    AxisZ,
    LatheX,
    LatheZ,
    CenterX,
    CenterY,
    CenterZ,
    Feed,
    Dwell,
    Line,
    Output,
    Pulse,
    Tool,
    Radius,
    Division,
    Grooving,
};

struct Field {
    const char* Caption = "";
    Limit Within = Limit::Hidden;
};

enum class Buttons { Off, Feeds };
enum class For { All, Lathes, Mill };

/// The fields of some codes. Y is shown on the F1 only, H never on MK2.
struct FieldRow {
    std::string_view Codes;
    Field XI, YJ, ZK, FKTL, H;
    Buttons FeedButtons = Buttons::Off;
    For Machines = For::All;
};

constexpr Field X{"X", Limit::AxisX}, Y{"Y", Limit::AxisY}, Z{"Z", Limit::AxisZ};
constexpr Field F{"F", Limit::Feed}, H{"H", Limit::Division}, NoField{};
constexpr Field ToolField{"T", Limit::Tool}, LatheX{"X", Limit::LatheX}, LatheZ{"Z", Limit::LatheZ};
constexpr Field Output{"X", Limit::Output}, OutputY{"Y", Limit::Output}, OutputZ{"Z", Limit::Output};

constexpr FieldRow FieldTable[] = {
    {"G00 G92", X, Y, Z, NoField, NoField},
    {"G01 G02 G03 G72", X, Y, Z, F, NoField, Buttons::Feeds},
    {"G26", X, Y, Z, F, NoField},
    {"G04", {"X", Limit::Dwell}, NoField, NoField, NoField, NoField},
    {"G23", Output, NoField, OutputZ, {"T", Limit::Pulse}, NoField},
    {"G25 G27", NoField, NoField, NoField, {"Line", Limit::Line}, NoField},
    {"G33", NoField, NoField, LatheZ, {"K", Limit::Feed}, NoField},
    {"G73 G81 G82 G83 G85 G89", NoField, NoField, Z, F, NoField, Buttons::Feeds},
    {"G78", LatheX, NoField, LatheZ, {"K", Limit::Feed}, H},
    {"G84 G88", LatheX, NoField, LatheZ, F, H, Buttons::Feeds},
    {"G86", LatheX, NoField, LatheZ, F, {"H", Limit::Grooving}, Buttons::Feeds},
    {"M06", LatheX, NoField, LatheZ, ToolField, NoField, Buttons::Off, For::Lathes},
    {"M06", {"D", Limit::AxisX}, {"S", Limit::AxisY}, Z, ToolField, NoField, Buttons::Off, For::Mill},
    {"M26", NoField, NoField, NoField, NoField, {"H", Limit::None}},
    {"M98", Output, OutputY, OutputZ, NoField, NoField},
    {"M99", {"I", Limit::CenterX}, {"J", Limit::CenterY}, {"K", Limit::CenterZ}, NoField, NoField},
    {"M99R", {"R", Limit::Radius}, NoField, NoField, NoField, NoField},
};

/// Limits that are the same on every machine.
struct LimitText {
    Limit Within;
    std::string_view Metric, Inch;
};
constexpr LimitText LimitTexts[] = {
    {Limit::None, "", ""},
    {Limit::Feed, "2TO499", "2TO199"},
    {Limit::Line, "0TO221", "0TO221"},
    {Limit::Output, "0TO999", "0TO999"},
    {Limit::Pulse, "0TO499", "0TO499"},
    {Limit::Tool, "0TO499", "0TO199"},
    {Limit::Radius, "0TO5999", "0TO1999"},
    {Limit::Division, "0TO999", "0TO999"},
    {Limit::Grooving, "10TO999", "10TO999"},
};

/// How far the slides of a machine go, to both sides.
struct AxisLimits {
    bool Mill, Horizontal, Metric;
    std::string_view X, Y, Z;
};
constexpr AxisLimits AxisTable[] = {
    {false, false, false, "1999", "", "12900"},   {false, false, true, "5999", "", "32760"},
    {true, false, false, "7999", "3999", "7999"}, {true, false, true, "19999", "9999", "19999"},
    {true, true, false, "3999", "7999", "7999"},  {true, true, true, "9999", "19999", "19999"},
};

/// The slides of a lathe, or of the mill with its spindle, in the units in force.
const AxisLimits& Axes(bool mill)
{
    for (const AxisLimits& axes : AxisTable) {
        const bool spindle = !axes.Mill || axes.Horizontal == Shared.Horizontal;
        if (axes.Mill == mill && spindle && axes.Metric == Shared.Metric) return axes;
    }
    return AxisTable[0];
}

/// The limit string of a field, "-5999TO5999".
std::string LimitOf(Limit within)
{
    const AxisLimits& axes = Axes(IsMill());
    const auto both = [](std::string_view high) {
        return "-" + std::string(high) + "TO" + std::string(high);
    };
    switch (within) {
    case Limit::AxisX: return both(axes.X);
    case Limit::AxisY: return both(axes.Y);
    case Limit::AxisZ: return both(axes.Z);
    case Limit::LatheX: return both(Axes(false).X);
    case Limit::LatheZ: return both(Axes(false).Z);
    case Limit::CenterX: return "0TO" + std::string(axes.X);
    case Limit::CenterY: return "0TO" + std::string(axes.Y);
    case Limit::CenterZ: return "0TO" + std::string(axes.Z);
    case Limit::Dwell: return IsMill() ? "0TO19999" : Shared.Metric ? "0TO5999" : "0TO1999";
    default: break;
    }
    for (const LimitText& text : LimitTexts) {
        if (text.Within == within) return std::string(Shared.Metric ? text.Metric : text.Inch);
    }
    return "";
}

void ShowField(const Field& field, Control& label, Control& box)
{
    if (field.Within == Limit::Hidden) return;
    label.Text = Tr(field.Caption);
    label.Tag = field.Caption;
    label.Visible = box.Visible = true;
    box.Tag = LimitOf(field.Within);
    if (!box.Tag.empty()) box.ToolTip = LimitTip(box.Tag);
}

const FieldRow* RowOf(Code code)
{
    for (const FieldRow& row : FieldTable) {
        const bool machine = row.Machines == For::All || (row.Machines == For::Mill) == IsMill();
        if (machine && ListHolds(row.Codes, code)) return &row;
    }
    return nullptr;
}

/// Where the cursor goes first. All other codes have no parameter: the comment.
struct FirstField {
    std::string_view Codes;
    Control MainWindow::*Field;
};
constexpr FirstField FirstFields[] = {
    {"G00 G01 G02 G03 G04 G23 G26 G72 G78 G84 G86 G88 G92 M06 M98 M99 M99R", &MainWindow::txtXI},
    {"G25 G27", &MainWindow::txtFKTL},
    {"G33 G73 G81 G82 G83 G85 G89", &MainWindow::txtZK},
    {"M26", &MainWindow::txtH},
};

Control& FirstFieldOf(Code code)
{
    for (const FirstField& first : FirstFields) {
        if (ListHolds(first.Codes, code)) return frmMain.*first.Field;
    }
    return frmMain.txtComment;
}

/// The code as its cell holds it: a blank in the place of the letter G.
Code CodeOfEntry(std::string_view text)
{
    std::string code(text);
    if (CharacterCount(code) == 2) code += ' ';
    const bool letter = StartsNoCase(code, "G") || StartsNoCase(code, "M");
    if (!letter) code = frmMain.lblGMcode.Text + code;
    if (StartsNoCase(code, "G")) code[0] = ' ';
    return CodeOfCell(code);
}

} // namespace

void SetUpFields(std::string_view code)
{
    const Code wanted = CodeOfEntry(code);
    Shared.FeedButtonsOn = frmMain.cmdFeedA.Enabled = frmMain.cmdFeedB.Enabled = false;
    HideInputFields();
    frmMain.txtZK.Enabled = true;

    const FieldRow* const row = RowOf(wanted);
    if (row == nullptr) return;
    ShowField(row->XI, frmMain.lblXI, frmMain.txtXI);
    if (IsMill()) ShowField(row->YJ, frmMain.lblYJ, frmMain.txtYJ);
    ShowField(row->ZK, frmMain.lblZK, frmMain.txtZK);
    ShowField(row->FKTL, frmMain.lblFKTL, frmMain.txtFKTL);
    if (Shared.Machine != MachineKind::MK2) ShowField(row->H, frmMain.lblH, frmMain.txtH);
    Shared.FeedButtonsOn = row->FeedButtons == Buttons::Feeds;
    frmMain.cmdFeedA.Enabled = frmMain.cmdFeedB.Enabled = Shared.FeedButtonsOn;
    // The pass works out the Z of an MK2 arc.
    const bool arc = wanted == G(2) || wanted == G(3);
    frmMain.txtZK.Enabled = !(arc && Shared.Machine == MachineKind::MK2);
}

void InputFields(std::string_view code)
{
    SetUpFields(code);
    FirstFieldFocus();
}

void FirstFieldFocus()
{
    if (!IsUsable(frmMain.txtComment)) return;
    Control& first = FirstFieldOf(CodeOfEntry(frmMain.txtGMcode.Text));
    first.Visible = true;
    SetFocus(first);
}
