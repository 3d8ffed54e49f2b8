#include "cli/state_json.h"

#include "core/failure.h"
#include "core/main_window.h"
#include "core/profile.h"
#include "core/program_list.h"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

constexpr Control MainWindow::*StateLabels[] = {
    &MainWindow::lblPPLines,     &MainWindow::lblPPLinesExe, &MainWindow::lblPPMachineTime,
    &MainWindow::lblPPUnits,     &MainWindow::lblXAxisMin,   &MainWindow::lblXAxisMax,
    &MainWindow::lblXAxisTravel, &MainWindow::lblYAxisMin,   &MainWindow::lblYAxisMax,
    &MainWindow::lblYAxisTravel, &MainWindow::lblZAxisMin,   &MainWindow::lblZAxisMax,
    &MainWindow::lblZAxisTravel,
};

const char* ColorName(LineColor color)
{
    switch (color) {
    case LineColor::Absolute: return "abs";
    case LineColor::Incremental: return "incr";
    case LineColor::None: break;
    }
    return "none";
}

Json Rows()
{
    Json rows = Json::array();
    for (const ProgramLine& row : lvCncProgram.Rows) {
        rows.push_back({{"cells", row.Cells}, {"color", ColorName(row.Color)}});
    }
    return rows;
}

Json LogRecords()
{
    Json records = Json::array();
    for (const LogRecord& record : Log.Records) {
        records.push_back({{"number", record.Number},
                           {"description", record.Description},
                           {"procedure", record.Procedure}});
    }
    return records;
}

} // namespace

std::string StateAsJson()
{
    Json labels;
    for (const auto label : StateLabels) labels[(frmMain.*label).Name] = (frmMain.*label).Text;
    const Json state = {
        {"machine", ActiveProfile().Name},
        {"metric", Shared.Metric},
        {"horizontal", Shared.Horizontal},
        {"path", frmMain.lblPath.Text},
        {"notes", frmMain.txtFileNotes.Text},
        {"changed", Shared.Changed},
        {"selected", lvCncProgram.Selected},
        {"flags",
         {{"ErrorsPresent", Shared.ErrorsPresent},
          {"EndCodeSeen", Shared.EndCodeSeen},
          {"ArcsPresent", Shared.ArcsPresent},
          {"AbsoluteMode", Shared.AbsoluteMode}}},
        {"errorHeader", lvCncProgram.Headers[CellError]},
        {"errorColumnWidth", lvCncProgram.Widths[CellError]},
        {"labels", labels},
        {"rows", Rows()},
        {"widths", lvCncProgram.Widths},
        {"log", LogRecords()},
    };
    return state.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}
