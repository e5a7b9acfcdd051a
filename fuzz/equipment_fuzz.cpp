// Equipment files, as the maker's and as the user's: listed, chosen, added to, removed from.
#include "equipment/calibration_history.h"
#include "equipment/tool_winch_data.h"
#include "fuzz_rig.h"

using namespace tarvik;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Rig rig("UserTools-Winches.dat", data, size);
    rig.files.copy("UserTools-Winches.dat", "BrennaTools-Winches.dat");
    const CalibrationHistory calibrations(rig.errors, rig.files, rig.log, rig.operatorSide, rig.clock, "");
    ToolWinchData equipment(rig.errors, rig.files, rig.log, rig.operatorSide, calibrations, "");
    equipment.ToolWinchData_getdatabasecriticalversion();
    std::ignore = equipment.ToolWinchData_loadbrennatoollist();
    std::ignore = equipment.ToolWinchData_loadbrennawinchlist();
    std::ignore = equipment.ToolWinchData_loadhistusertoollist();
    std::ignore = equipment.ToolWinchData_loadhistusersensorlist(1);
    const EquipmentFile file = readEquipment(rig.files.read("UserTools-Winches.dat"), "in");
    for (const ToolRecord& tool : file.tools) {
        for (const int mode : {1, 2}) {
            equipment.ToolWinchData_loadcurrentttoolwinch({tool.get(tool::code), {}}, {}, mode);
            equipment.ToolWinchData_updatecurrenttoolscales("CALIB", 20, 0, 1);
        }
    }
    equipment.ToolWinchData_addusertool(1, "SN");
    equipment.ToolWinchData_adduserwinch(1, "SN");
    equipment.ToolWinchData_removeusertool(1);
    equipment.ToolWinchData_removeuserwinch(1);
    equipment.ToolWinchData_updatebrennatoollist();
    equipment.ToolWinchData_updatebrennawinchlist();
    return 0;
}
