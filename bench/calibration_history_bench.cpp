// A history of 10,000 calibrations: listed for one sensor, and searched when a tool is loaded, against
// reading the same bytes from the disk. Both happen while somebody waits.
#include "large_run.h"
#include "race.h"

#include "app/absent_operator.h"
#include "equipment/calibration_history.h"

namespace {

using namespace tarvik;
using namespace tarvik::bench;

/// Fifty sensors of ten tools, calibrated 200 times each.
struct LongHistory {
    LongHistory() {
        CalibrationFile content{.header = newCalibrationHeader(), .records = {}};
        ToolRecord tool = blankTool();
        tool.set(tool::code, "K240");
        for (int i = 0; i < 10'000; ++i) {
            tool.set(tool::serialNumber, std::to_string(2000 + i % 10));
            Calibration one;
            one.sensorName = "Sensor " + std::to_string(i / 10 % 5);
            content.records.push_back(calibrationRecord(tool, one));
        }
        files.createFolder(folder);
        files.replace(shelf.file(), calibrationBytes(content));
    }
    ~LongHistory() { std::filesystem::remove_all(folder); }
    LongHistory(const LongHistory&) = delete;
    LongHistory& operator=(const LongHistory&) = delete;

    Path folder = std::filesystem::temp_directory_path() / ("tarvik_history_" + std::to_string(::getpid()));
    NoErrors errors;
    ErrorTrap trap{errors};
    VirtualClock clock;
    DiskFiles files;
    StatusLog log{trap, clock, files, folder / "log"};
    test::AbsentOperator nobody;
    CalibrationHistory shelf{trap, files, log, nobody, clock, folder};
};

void listCalibrations(benchmark::State& state) {
    LongHistory history;
    race(
        state,
        [&] {
            const auto list =
                history.shelf.PolyCalibration_loadcalibrationhistorydata({"K240", "2003", "SENSOR 2"});
            if (list.rows.size() != 200) throw std::runtime_error("the list is not whole");
        },
        [&] { benchmark::DoNotOptimize(history.files.read(history.shelf.file())); });
}
BENCHMARK(listCalibrations)->UseManualTime()->Unit(benchmark::kMillisecond);

void searchCalibrations(benchmark::State& state) {
    LongHistory history;
    race(
        state,
        [&] {
            if (history.shelf.calibrationsOf("K240", "2003").size() != 1000)
                throw std::runtime_error("the tool's calibrations are not whole");
        },
        [&] { benchmark::DoNotOptimize(history.files.read(history.shelf.file())); });
}
BENCHMARK(searchCalibrations)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
