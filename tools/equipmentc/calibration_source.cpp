#include "base/civil_time.h"
#include "base/number_picture.h"
#include "equipment/calibration_fit.h"
#include "equipment/equipment_lists.h"
#include "equipmentc/equipment_source.h"
#include "equipmentc/field_text.h"
#include "equipmentc/source_document.h"

#include <algorithm>
#include <array>
#include <optional>

namespace equipmentc {

using namespace tarvik;

namespace {

const KnownKeys calibrationKeys{{"calibration", {"tool", "serial", "by", "date", "time", "sensor"}}};

class KeptError final : public ErrorReporter {
  public:
    void report(const ErrorReport& error) override { text = error.description; }

    std::string text;
};

/// Takes the entries of one calibration file into records.
class CalibrationCompiler {
  public:
    CalibrationCompiler(std::string_view fileName, std::span<const ToolRecord> tools, std::size_t before)
        : problems_(fileName), tools_(tools), before_(before) {}

    Compiled<std::vector<CalibrationRecord>> compile(std::string_view text) {
        const auto entries = readSource(text, calibrationKeys, "sensor", problems_);
        for (const Entry& entry : entries) takeHead(entry);
        if (tool_.get(tool::code).empty()) problems_.add(1, "no tool; write \"tool = K...\" first");
        if (serial_.empty()) problems_.add(1, "no serial number; write \"serial = ...\"");
        if (!calibrated_) problems_.add(1, "no date; write \"date = yyyy-mm-dd\"");
        if (!problems_.texts().empty()) return {{}, problems_.texts()};
        tool_.set(tool::serialNumber, serial_);
        for (const Entry& entry : entries) {
            if (entry.key == "sensor") takeSensor(entry);
        }
        return {std::move(records_), problems_.texts()};
    }

  private:
    void takeHead(const Entry& entry) {
        CalibrationRecord widths; // texts must fit the fields that they end in
        if (entry.key == "tool") takeTool(entry);
        if (entry.key == "serial") {
            putText(widths, calibration::toolSerialNumber, entry.value, entry.line, problems_);
            serial_ = entry.value;
        }
        if (entry.key == "by") {
            putText(widths, calibration::calibratedBy, entry.value, entry.line, problems_);
            by_ = entry.value;
        }
        if (entry.key == "time") {
            putText(widths, calibration::time, entry.value, entry.line, problems_);
            time_ = entry.value;
        }
        if (entry.key == "date") takeDate(entry);
    }

    void takeTool(const Entry& entry) {
        const auto found = std::ranges::find_if(
            tools_, [&](const ToolRecord& record) { return record.get(tool::code) == entry.value; });
        if (found == tools_.end()) {
            problems_.add(entry.line, "there is no tool \"" + entry.value + "\"; see tools/*.tool");
        } else {
            tool_ = *found;
        }
    }

    void takeDate(const Entry& entry) {
        const auto parts = splitParts(entry.value, '-');
        std::array<long long, 3> numbers{};
        for (std::size_t i = 0; i < numbers.size() && parts.size() == numbers.size(); ++i) {
            numbers[i] = parseInteger(parts[i]).value_or(0);
        }
        const auto [year, month, day] = numbers;
        if (year < 1900 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) {
            problems_.add(entry.line, "\"" + entry.value + "\" is no date; write yyyy-mm-dd");
            return;
        }
        calibrated_ = CivilTime{
            .year = static_cast<int>(year), .month = static_cast<int>(month), .day = static_cast<int>(day)};
    }

    /// "name | order | reading value | reading value ..."
    void takeSensor(const Entry& entry) {
        const auto parts = splitParts(entry.value, '|');
        const auto order = parts.size() > 1 ? parseInteger(parts[1]) : std::nullopt;
        if (!order || *order < 1 || *order > maxCalibrationOrder) {
            problems_.add(entry.line, "after the sensor's name comes \"| order |\", 1 to 7");
            return;
        }
        const auto names = sensorNames(tool_);
        if (std::ranges::find(names, parts[0]) == names.end()) {
            problems_.add(entry.line, "the tool has no sensor \"" + parts[0] + "\"; see its channels");
            return;
        }
        std::vector<FitPoint> points;
        for (std::size_t i = 2; i < parts.size(); ++i) {
            const std::size_t blank = parts[i].find(' ');
            const auto reading = parseNumber(parts[i].substr(0, blank));
            const auto value =
                blank == std::string::npos ? std::nullopt : parseNumber(parts[i].substr(blank));
            if (!reading || !value) {
                problems_.add(entry.line, "\"" + parts[i] + "\" is no point; write \"reading value\"");
                return;
            }
            points.push_back({*reading, *value});
        }
        addRecord(entry, parts[0], static_cast<int>(*order), points);
    }

    void addRecord(const Entry& entry, const std::string& sensor, int order,
                   std::span<const FitPoint> points) {
        KeptError error;
        ErrorTrap errors(error);
        CalibrationFit fit = fitCalibration(errors, order, points);
        if (!fit.ok) {
            problems_.add(entry.line, "no polynomial goes through these points: " + fit.message + error.text);
            return;
        }
        Calibration& made = fit.calibration;
        made.sensorName = sensor;
        made.identifier =
            formatDate(*calibrated_, "ddmmyy") + "-" + formatPicture(before_ + records_.size() + 1, "00000");
        made.date = formatDate(*calibrated_, "dd-mmm-yyyy");
        made.time = time_;
        made.calibratedBy = by_;
        made.kind = "Factory";
        CalibrationRecord record = calibrationRecord(tool_, made);
        record.set(calibration::marked, -1);
        records_.push_back(record);
    }

    Problems problems_;
    std::span<const ToolRecord> tools_;
    std::size_t before_;
    ToolRecord tool_ = blankTool();
    std::string serial_;
    std::string by_ = "Manufacturer";
    std::string time_ = "09:00:00";
    std::optional<CivilTime> calibrated_;
    std::vector<CalibrationRecord> records_;
};

} // namespace

Compiled<std::vector<CalibrationRecord>> compileCalibrations(std::string_view text, std::string_view fileName,
                                                             std::span<const ToolRecord> tools,
                                                             std::size_t before) {
    return CalibrationCompiler(fileName, tools, before).compile(text);
}

} // namespace equipmentc
