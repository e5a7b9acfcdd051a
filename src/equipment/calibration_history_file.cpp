#include "equipment/calibration_history_file.h"

#include "base/rounding.h"
#include "base/text.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr std::string_view newVersion = "201";
constexpr std::string_view newDate = "31-Aug-2002";

std::string recordsText(std::size_t count) {
    if (count == 0) return "  (no records)";
    if (count == 1) return "  (1 record)";
    return "  (" + std::to_string(count) + " records)";
}

bool sameText(const std::optional<std::string>& wanted, const std::string& text) {
    return !wanted || trimmed(*wanted) == text;
}

} // namespace

CalibrationHeader newCalibrationHeader() {
    CalibrationHeader header;
    header.set(calibration_history::version, newVersion);
    header.set(calibration_history::date, newDate);
    header.set(calibration_history::reserved, "");
    return header;
}

std::uint64_t calibrationOffset(std::size_t index) {
    return CalibrationHeader::size + static_cast<std::uint64_t>(index) * CalibrationRecord::size;
}

CalibrationFile readCalibrations(std::span<const std::uint8_t> bytes) {
    CalibrationFile file;
    file.header = CalibrationHeader(bytes);
    file.headerTorn = bytes.size() < CalibrationHeader::size;
    if (file.headerTorn) return file;
    auto rest = bytes.subspan(CalibrationHeader::size);
    file.count = static_cast<std::size_t>(
        roundedQuotient(static_cast<std::int64_t>(rest.size()), CalibrationRecord::size));
    file.tornBytes = rest.size() % CalibrationRecord::size;
    file.records.reserve(rest.size() / CalibrationRecord::size);
    for (; rest.size() >= CalibrationRecord::size; rest = rest.subspan(CalibrationRecord::size)) {
        file.records.emplace_back(rest.first(CalibrationRecord::size));
    }
    return file;
}

std::vector<std::uint8_t> calibrationBytes(const CalibrationFile& file) {
    std::vector<std::uint8_t> bytes(file.header.bytes().begin(), file.header.bytes().end());
    bytes.reserve(calibrationOffset(file.records.size()));
    for (const CalibrationRecord& record : file.records) {
        bytes.insert(bytes.end(), record.bytes().begin(), record.bytes().end());
    }
    return bytes;
}

std::string summaryLine(const CalibrationFile& file) {
    return "File Version : " + file.header.get(calibration_history::version) + "  date " +
           file.header.get(calibration_history::date) + recordsText(file.count);
}

bool CalibrationFilter::admits(const CalibrationRecord& record) const {
    return sameText(toolCode, record.get(calibration::toolCode)) &&
           sameText(serialNumber, record.get(calibration::toolSerialNumber)) &&
           (!sensorName || sameSensor(*sensorName, record.get(calibration::sensorName))) &&
           record != blankCalibrationRecord();
}

} // namespace tarvik
