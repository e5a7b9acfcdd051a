// Calibration histories: listed, looked through, exported and appended to.
#include "equipment/calibration_history.h"
#include "fuzz_rig.h"

using namespace tarvik;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Rig rig("Brenna-Calibrations.dat", data, size);
    CalibrationHistory history(rig.errors, rig.files, rig.log, rig.operatorSide, rig.clock, "");
    history.open();
    const CalibrationList list = history.PolyCalibration_loadcalibrationhistorydata({});
    for (const CalibrationRow& row : list.rows) {
        std::ignore = history.PolyCalibration_getselectedpreviouscalibdata(row.record);
        for (const Calibration& calibration : history.calibrationsOf(row.toolCode, row.serialNumber)) {
            std::ignore = evaluateCalibration(calibration.order, calibration.coefficients, 2);
        }
    }
    std::ignore = history.PolyCalibration_getlatestfactorycalibdata({});
    std::ignore = history.ToolWinchData_showhistsensorcalibrations({});
    history.PolyCalibration_exportcalibrationhistorydata({}, "out.txt");
    std::ignore = history.PolyCalibration_savecalibrationhistorydata(blankTool(), {});
    return 0;
}
