// From the calibration history to the engineering values of a scan: one tool, five calibrated sensors, both
// of its modes. The expected values are worked out by hand from the polynomials.
#include "equipment/calibration_history.h"
#include "equipment/sensor_factors.h"
#include "equipment/tool_calibrations.h"
#include "lcu/scan_bench.h"
#include "platform/memory_files.h"

#include <gtest/gtest.h>

namespace tarvik::test {
namespace {

struct CalibratedTool : LcuBench {
    CalibratedTool() {
        tool.record = blankTool();
        tool.record.set(tool::code, "K900");
        tool.record.set(tool::serialNumber, "7");
        const std::string names[] = {"Rate", "Period", "Level", "Plain", "Cubic"};
        for (int i = 0; i < 5; ++i) {
            tool.record.set(tool::channelName(1, i + 1), names[i]);
            tool.record.set(tool::channelName(2, 5 - i), names[i]); // the second mode has them back to front
        }
        for (const int mode : {1, 2}) tool.record.set(tool::channelCount(mode), 5);
        tool.record.set(tool::sensorFactors(1), "a1,f21,p1,t1,t1");
        tool.record.set(tool::sensorFactors(2), "t1,t1,p1,f21,a1");
        save("Rate", {10, 0.5});
        save("Period", {-100, 0.002, 1e-7});
        save("Level", {1, -0.25});
        save("PLAIN", {0, 0, 0.01});
        save("Cubic", {4, -1}); // a later one takes its place
        save("cubic", {1, 2, 3, 0.5});
    }
    void save(const std::string& sensor, const std::vector<double>& coefficients) {
        Calibration made;
        made.sensorName = sensor;
        made.state = "Calibrated";
        made.kind = "Field";
        made.order = static_cast<int>(coefficients.size()) - 1;
        std::ranges::copy(coefficients, made.coefficients.begin());
        ASSERT_TRUE(history.PolyCalibration_savecalibrationhistorydata(tool.record, made));
    }
    /// The calibrated values of one scan; `words` in the order of the mode.
    std::vector<float> decode(int mode, const std::vector<std::uint16_t>& words, std::uint16_t time) {
        tool.mode = mode;
        applySensorFactors("K900", tool.record.get(tool::sensorFactors(mode)), 5, tool.factors);
        attachCalibrations(tool, history);
        const ScanSetup setup = prepareScans(tool, lcu2Plus, {});
        ScanState state;
        state.scans = 3;
        ScanDecoder(errors, log, setup, state, nullptr).LCU_GetValues(scanData(0, time, words, idle));
        return {&state.current.calibrated[1], &state.current.calibrated[6]};
    }

    MemoryFiles folder;
    CalibrationHistory history{errors, folder, log, operatorSide, clock, "/program"};
    CurrentTool tool;
};

TEST(CalibratedScans, BothModesUseTheSensorsOwnPolynomials) {
    CalibratedTool bench;
    // Rate 60 in 0.4 s: 150 a second, 10 + 75. Period 21,000,000 / 2100 = 10,000: -100 + 20 + 10. Level 3996
    // - 4096 = -100: 1 + 25. Plain 20: 0.01 x 400. Cubic 4: 1 + 8 + 48 + 32.
    EXPECT_EQ(bench.decode(1, {60, 2100, 3996, 20, 4}, 4000), (std::vector<float>{85, -70, 26, 4, 89}));
    EXPECT_EQ(bench.decode(2, {4, 20, 3996, 2100, 60}, 4000), (std::vector<float>{89, 4, 26, -70, 85}));
    // A rate of 0 reads its constant, a period of 0 reads 0 whatever its constant.
    EXPECT_EQ(bench.decode(1, {0, 0, 0, 0, 0}, 4000), (std::vector<float>{10, 0, 1, 0, 1}));
    EXPECT_EQ(bench.decode(2, {4, 20, 3996, 2100, 60}, 0), (std::vector<float>(5, 0.0F)));
}

} // namespace
} // namespace tarvik::test
