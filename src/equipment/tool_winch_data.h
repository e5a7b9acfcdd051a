// The tool and winch database: the maker's models, the user's own tools and winches, and the tool and winch
// chosen for the run.
//
// Both files are read when asked for and lie in the program folder. Of the maker's file only the selected
// flags are ever written, in place; the user's file is rewritten whole (through a temporary) when a record
// comes or goes. A damaged user file is copied aside before it is rewritten. Damage found while reading is
// said in the status log, once for each text. Records are counted from 1.
#pragma once

#include "app/error_trap.h"
#include "app/operator_side.h"
#include "app/status_log.h"
#include "base/current_equipment.h"
#include "equipment/calibration_source.h"
#include "equipment/equipment_lists.h"
#include "equipment/sensor_factors.h"
#include "platform/files.h"

#include <set>

namespace tarvik {

struct DatabaseVersions {
    double maker = 0;
    double makerCritical = 0;
    std::string makerDate;
    double user = 0; ///< 1000 when there is no user file
};

/// A tool or winch of the user, as the settings name it.
struct EquipmentChoice {
    std::string code;
    std::string serialNumber; ///< empty: the first of the user's file with the code
};

class ToolWinchData {
  public:
    ToolWinchData(ErrorTrap& errors, Files& files, StatusLog& log, OperatorSide& operatorSide,
                  const CalibrationSource& calibrations, const Path& programFolder);

    /// Reads both headers into versions(). Without the maker's file the operator is told and the versions
    /// stay.
    void ToolWinchData_getdatabasecriticalversion();

    /// Empty in all its parts without the maker's file.
    [[nodiscard]] MakerList ToolWinchData_loadbrennatoollist();
    [[nodiscard]] MakerList ToolWinchData_loadbrennawinchlist();
    [[nodiscard]] UserList ToolWinchData_loadusertoollist();
    [[nodiscard]] UserList ToolWinchData_loaduserwinchlist();
    [[nodiscard]] std::vector<UserRow> ToolWinchData_loadhistusertoollist();
    [[nodiscard]] std::vector<std::string> ToolWinchData_loadhistusersensorlist(int userTool);

    /// True when the user's file has changed; false after an error, which is reported.
    bool ToolWinchData_addusertool(int makerTool, std::string_view serialNumber);
    bool ToolWinchData_adduserwinch(int makerWinch, std::string_view serialNumber);
    bool ToolWinchData_removeusertool(int userTool);
    bool ToolWinchData_removeuserwinch(int userWinch);

    /// True when no tool and no winch of the user carries the serial number yet. False after an error, too.
    [[nodiscard]] bool ToolWinchData_checkserialnumber(std::string_view serialNumber);
    /// False when the user's file is there and cannot be read. Reports nothing.
    [[nodiscard]] bool userFileReads();

    /// Sets the maker's selected flags from the user's file.
    void ToolWinchData_updatebrennatoollist();
    void ToolWinchData_updatebrennawinchlist();

    /// Makes the user's tool and winch the current ones, in tool mode 1 or 2, with sensor factors and
    /// calibrations; what is not found becomes blank. Returns "Current winch : " with its name or
    /// "-- none selected --".
    std::string ToolWinchData_loadcurrentttoolwinch(const EquipmentChoice& tool, const EquipmentChoice& winch,
                                                    int toolMode);

    /// One of the user's tools with its calibrations, for a screen that offers it; blank when there is none.
    /// The current tool stays what it is.
    [[nodiscard]] CurrentTool userTool(const EquipmentChoice& choice, int toolMode);

    /// Scale kind "UNCAL" or "CALIB", channel 1 to 20 of the current mode. Written into the user's file too
    /// when the current tool is (still) there.
    void ToolWinchData_updatecurrenttoolscales(std::string_view scaleKind, int channel, float left,
                                               float right);

    /// Works the factors of the current tool and mode out afresh.
    const SensorFactors& ToolWinchData_getcurrentsensorfactors();

    [[nodiscard]] CurrentTool& currentTool() { return tool_; }
    [[nodiscard]] const CurrentTool& currentTool() const { return tool_; }
    [[nodiscard]] const CurrentWinch& currentWinch() const { return winch_; }
    [[nodiscard]] const DatabaseVersions& versions() const { return versions_; }
    [[nodiscard]] const Path& makerFile() const { return makerFile_; }
    [[nodiscard]] const Path& userFile() const { return userFile_; }

  private:
    [[nodiscard]] EquipmentFile load(const Path& file);
    void rewriteUser(EquipmentFile& user);
    void writeCurrentTool();

    template <class Record>
    MakerList loadMakerList(const EquipmentKind<Record>& kind);
    template <class Record>
    UserList loadUserList(const EquipmentKind<Record>& kind);
    template <class Record>
    void add(Level& level, const EquipmentKind<Record>& kind, int makerIndex, std::string_view serialNumber);
    template <class Record>
    void remove(Level& level, const EquipmentKind<Record>& kind, int userIndex);
    template <class Record>
    void updateSelectedFlags(const EquipmentKind<Record>& kind);

    ErrorTrap& errors_;
    Files& files_;
    StatusLog& log_;
    OperatorSide& operatorSide_;
    const CalibrationSource& calibrations_;
    Path makerFile_;
    Path userFile_;

    CurrentTool tool_;
    CurrentWinch winch_;
    DatabaseVersions versions_;
    std::set<std::string> said_; ///< damage that stands in the log already
};

} // namespace tarvik
