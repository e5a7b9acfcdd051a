// The calibrations of all sensors, oldest first, in "Brenna-Calibrations.dat" in the program folder.
//
// The file is read when asked for and only appended to. A torn last record is said in the status log and is
// not used; before a save writes over it the file is copied aside. Records are counted from 0.
#pragma once

#include "app/error_trap.h"
#include "app/operator_side.h"
#include "app/status_log.h"
#include "equipment/calibration_history_file.h"
#include "equipment/calibration_source.h"
#include "platform/clock.h"
#include "platform/files.h"

#include <set>

namespace tarvik {

struct CalibrationRow {
    std::size_t record = 0;
    std::string toolCode;
    std::string serialNumber;
    std::string sensorName;
    std::string text; ///< state, a tab, "date, calibrated by, kind"
    bool bold = false;
    Calibration calibration;
};

struct CalibrationList {
    std::string summary;
    std::vector<CalibrationRow> rows;
};

class CalibrationHistory final : public CalibrationSource {
  public:
    CalibrationHistory(ErrorTrap& errors, Files& files, StatusLog& log, OperatorSide& operatorSide,
                       const Clock& clock, const Path& programFolder);

    /// Creates a missing file, and says in the status log what is damaged in the one that is there.
    void open();

    /// Creates a missing file. Empty in all its parts after an error, which is reported.
    [[nodiscard]] CalibrationList PolyCalibration_loadcalibrationhistorydata(const CalibrationFilter& filter);

    /// Appends a calibration of one of the tool's sensors, under today's date and an identifier of its own.
    /// A factory calibration has to be confirmed; refused, it becomes one of the field. Returns what was
    /// saved; nothing after an error, which is reported.
    std::optional<Calibration> PolyCalibration_savecalibrationhistorydata(const ToolRecord& tool,
                                                                          const Calibration& made);

    /// The calibration of a row of the list.
    [[nodiscard]] std::optional<Calibration> PolyCalibration_getselectedpreviouscalibdata(std::size_t record);

    /// The last one in the file is the latest.
    [[nodiscard]] std::optional<Calibration>
    PolyCalibration_getlatestfactorycalibdata(const CalibrationFilter& filter);

    /// One line for each: state, fit, identifier, date, time, by whom, kind.
    [[nodiscard]] std::vector<std::string>
    ToolWinchData_showhistsensorcalibrations(const CalibrationFilter& filter);

    /// Writes the records as tab-separated text; false after an error, which is reported.
    bool PolyCalibration_exportcalibrationhistorydata(const CalibrationFilter& filter, const Path& textFile);

    /// A history that cannot be read is reported and taken for empty; a record whose polynomial is no
    /// numbers is said in the status log and left out: the run goes on with counts, and says so.
    [[nodiscard]] std::vector<Calibration> calibrationsOf(std::string_view toolCode,
                                                          std::string_view serialNumber) const override;

    [[nodiscard]] const Path& file() const { return file_; }

  private:
    void create();
    [[nodiscard]] CalibrationFile load();
    [[nodiscard]] std::vector<CalibrationRecord> select(const CalibrationFilter& filter);
    void sayDamage(const CalibrationFile& found);
    void makeRoom(const CalibrationFile& found);

    ErrorTrap& errors_;
    Files& files_;
    StatusLog& log_;
    OperatorSide& operatorSide_;
    const Clock& clock_;
    Path file_;
    std::set<std::string> said_; ///< damage that stands in the log already
};

} // namespace tarvik
