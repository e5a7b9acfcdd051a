#include "equipment/calibration_history.h"

#include "base/number_picture.h"
#include "equipment/calibration_text.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr std::string_view factory = "Factory";
constexpr std::string_view field = "Field";
constexpr std::int16_t markedFlag = -1;

std::string joined(std::initializer_list<std::string> texts) {
    std::string line;
    for (const std::string& text : texts) line.append(line.empty() ? "" : ", ").append(text);
    return line;
}

CalibrationRow rowOf(std::size_t index, const CalibrationRecord& record) {
    return {.record = index,
            .toolCode = record.get(calibration::toolCode),
            .serialNumber = record.get(calibration::toolSerialNumber),
            .sensorName = record.get(calibration::sensorName),
            .text = record.get(calibration::state) + "\t" +
                    joined({record.get(calibration::date), record.get(calibration::calibratedBy),
                            record.get(calibration::kind)}),
            .bold = record.get(calibration::marked) != 0,
            .calibration = calibrationOf(record)};
}

} // namespace

CalibrationHistory::CalibrationHistory(ErrorTrap& errors, Files& files, StatusLog& log,
                                       OperatorSide& operatorSide, const Clock& clock,
                                       const Path& programFolder)
    : errors_(errors),
      files_(files),
      log_(log),
      operatorSide_(operatorSide),
      clock_(clock),
      file_(programFolder / "Brenna-Calibrations.dat") {}

void CalibrationHistory::open() {
    errors_.run("PolyCalibration_loadcalibrationhistorydata", [&](Level&) {
        create();
        std::ignore = load();
    });
}

CalibrationList
CalibrationHistory::PolyCalibration_loadcalibrationhistorydata(const CalibrationFilter& filter) {
    return errors_.run("PolyCalibration_loadcalibrationhistorydata", CalibrationList{}, [&](Level& level) {
        create();
        level = 1; // reading
        const CalibrationFile found = load();
        CalibrationList list{.summary = summaryLine(found), .rows = {}};
        for (std::size_t i = 0; i < found.records.size(); ++i) {
            if (filter.admits(found.records[i])) list.rows.push_back(rowOf(i, found.records[i]));
        }
        return list;
    });
}

std::optional<Calibration>
CalibrationHistory::PolyCalibration_savecalibrationhistorydata(const ToolRecord& tool,
                                                               const Calibration& made) {
    using Saved = std::optional<Calibration>;
    return errors_.run("PolyCalibration_savecalibrationhistorydata", Saved{}, [&](Level& level) -> Saved {
        const bool isFactory =
            made.kind == factory &&
            operatorSide_.ask("Calibration query",
                              "Please confirm that this calibration is a FACTORY calibration",
                              Icon::question) == Answer::yes;
        level = 1; // where it goes
        create();
        const CalibrationFile found = load();
        const CivilTime now = clock_.now();
        Calibration saved = made;
        saved.kind = isFactory ? factory : field;
        saved.identifier = formatDate(now, "ddmmyy") + "-" + formatPicture(found.count + 1, "00000");
        saved.date = formatDate(now, "dd-mmm-yyyy");
        saved.time = formatDate(now, "hh:mm:ss");
        CalibrationRecord record = calibrationRecord(tool, saved);
        if (isFactory) record.set(calibration::marked, markedFlag);
        level = 2; // writing
        makeRoom(found);
        files_.append(file_, record.bytes());
        saved = calibrationOf(record);
        log_.black("Calibration " + saved.identifier + " of " + record.get(calibration::toolCode) + " SN-" +
                   saved.serialNumber + " " + saved.sensorName + " saved : " + saved.fitName + ", " +
                   saved.kind);
        return saved;
    });
}

/// Leaves the file as long as the new record's place says.
void CalibrationHistory::makeRoom(const CalibrationFile& found) {
    if (!found.headerTorn && found.tornBytes == 0) return;
    const Path aside = file_.string() + ".damaged";
    files_.copy(file_, aside);
    log_.red("The damaged calibration history was kept as " + aside.string());
    if (found.headerTorn) return files_.replace(file_, newCalibrationHeader().bytes());
    files_.truncate(file_, calibrationOffset(found.records.size()));
    if (found.count > found.records.size()) files_.append(file_, blankCalibrationRecord().bytes());
}

std::optional<Calibration>
CalibrationHistory::PolyCalibration_getselectedpreviouscalibdata(std::size_t record) {
    using Selected = std::optional<Calibration>;
    return errors_.run("PolyCalibration_getselectedpreviouscalibdata", Selected{}, [&](Level&) -> Selected {
        const auto records = load().records;
        if (record >= records.size()) {
            throw Failure(ErrorNumber::subscriptOutOfRange, file_.string() + ": there is no record " +
                                                                std::to_string(record + 1) + "; it holds " +
                                                                std::to_string(records.size()) +
                                                                ". List the calibrations afresh.");
        }
        return calibrationOf(records[record]);
    });
}

std::optional<Calibration>
CalibrationHistory::PolyCalibration_getlatestfactorycalibdata(const CalibrationFilter& filter) {
    using Latest = std::optional<Calibration>;
    return errors_.run("PolyCalibration_getlatestfactorycalibdata", Latest{}, [&](Level&) -> Latest {
        const auto records = load().records;
        const auto latest = std::find_if(records.rbegin(), records.rend(), [&](const auto& record) {
            return record.get(calibration::kind) == factory && filter.admits(record);
        });
        if (latest == records.rend()) return std::nullopt;
        return calibrationOf(*latest);
    });
}

std::vector<std::string>
CalibrationHistory::ToolWinchData_showhistsensorcalibrations(const CalibrationFilter& filter) {
    using Lines = std::vector<std::string>;
    return errors_.run("ToolWinchData_showhistsensorcalibrations", Lines{}, [&](Level&) {
        Lines lines;
        for (const CalibrationRecord& record : select(filter)) {
            const Calibration one = calibrationOf(record);
            lines.push_back(joined(
                {one.state, one.fitName, one.identifier, one.date, one.time, one.calibratedBy, one.kind}));
        }
        return lines;
    });
}

bool CalibrationHistory::PolyCalibration_exportcalibrationhistorydata(const CalibrationFilter& filter,
                                                                      const Path& textFile) {
    return errors_.run("PolyCalibration_exportcalibrationhistorydata", false, [&](Level& level) {
        const auto records = select(filter);
        level = 1; // writing
        files_.createFolder(textFile.parent_path());
        files_.replace(textFile, asBytes(toAnsi(calibrationsText(records))));
        return true;
    });
}

std::vector<Calibration> CalibrationHistory::calibrationsOf(std::string_view toolCode,
                                                            std::string_view serialNumber) const {
    using Calibrations = std::vector<Calibration>;
    // An error is filed under the routine that loads the tool.
    return errors_.run(errors_.place().routine, Calibrations{}, [&](Level&) {
        Calibrations calibrations;
        if (!files_.exists(file_)) return calibrations;
        const CalibrationFilter filter{std::string(toolCode), std::string(serialNumber), {}};
        const CalibrationFile found = readCalibrations(files_.read(file_));
        for (std::size_t i = 0; i < found.records.size(); ++i) {
            if (!filter.admits(found.records[i])) continue;
            Calibration one = calibrationOf(found.records[i]);
            if (canBeEvaluated(one)) {
                calibrations.push_back(std::move(one));
            } else {
                log_.red(file_.string() + ": record " + std::to_string(i + 1) + " (" + one.sensorName + ", " +
                         one.date + ") holds no polynomial and is not used; calibrate the sensor again");
            }
        }
        return calibrations;
    });
}

void CalibrationHistory::create() {
    if (!files_.exists(file_)) files_.replace(file_, newCalibrationHeader().bytes());
}

CalibrationFile CalibrationHistory::load() {
    if (!files_.exists(file_)) return {};
    CalibrationFile found = readCalibrations(files_.read(file_));
    sayDamage(found);
    return found;
}

std::vector<CalibrationRecord> CalibrationHistory::select(const CalibrationFilter& filter) {
    auto records = load().records;
    std::erase_if(records, [&](const CalibrationRecord& record) { return !filter.admits(record); });
    return records;
}

void CalibrationHistory::sayDamage(const CalibrationFile& found) {
    std::string damage;
    if (found.headerTorn) {
        damage = file_.string() + ": is shorter than its header of 128 bytes and holds no calibration; "
                                  "the next save begins it anew, or bring a copy back";
    } else if (found.tornBytes > 0) {
        damage = file_.string() + ": the last record is torn (" + std::to_string(found.tornBytes) +
                 " of 600 bytes) and is not used; if a calibration is missing, make it again";
    }
    if (!damage.empty() && said_.insert(damage).second) log_.red(damage);
}

} // namespace tarvik
