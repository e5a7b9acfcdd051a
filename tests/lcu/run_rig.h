// A whole logging run against the simulated box: the program's own modules, files in memory, a clock that
// moves only while something waits. Beside it the box's own record of what it heard and sent.
#pragma once

#include "app/error_log.h"
#include "equipment/equipment_file.h"
#include "lcu/lcu_bench.h"
#include "lcu/logging_run.h"
#include "simulator/simulated_port.h"
#include "simulator/tool_file.h"

#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
#include <set>

#include <gtest/gtest.h>

namespace tarvik::test {

/// Keeps what it is shown; ends the run after so many kept scans or so much time.
class RigView final : public RunView {
  public:
    explicit RigView(const VirtualClock& clock) : clock_(clock) {}

    RunChoice chooseRun(const LoggingRuns& runs, const std::optional<DepthRange>& onFile) override {
        asked = loggingRunsText(runs) + "|" + depthRangeText(onFile);
        return choice;
    }
    bool stopRequested() override {
        if (!started) return clock_.tickMs() >= stopBeforeStreamMs;
        if (atPass) atPass();
        return kept >= stopAfterKept || clock_.tickMs() - startTick_ >= stopAfterMs;
    }
    bool recording() override { return record; }
    void setRecording(bool on) override { record = on; }
    void setEnabled(bool on) override { enabled = on; }
    void winchPrompt(std::string_view first, std::string_view second) override {
        prompts.push_back(std::string(first) + "|" + std::string(second));
    }
    void toolButton(std::string_view key, std::string_view caption, bool on) override {
        buttons.push_back(std::string(key) + (on ? " on " : " off ") + std::string(caption));
    }
    void runStarted(const RunHeader&, const Path&) override {
        started = true;
        startTick_ = clock_.tickMs();
    }
    void LCU_ShowLCUCurrent(float, std::optional<float>) override { ++currentsShown; }
    void LCU_ShowDepthSpeed(double, double) override { ++depthsShown; }
    void LCU_ShowLoggingProgress(const RunProgress& progress) override { ended = progress.ended; }
    void scanKept(const KeptScanView& scan) override { kept = scan.number; }
    void keepingState(KeepingState state, std::string_view) override { states.push_back(state); }
    void runEnded(const Path&, long scans) override { written = scans; }

    long stopAfterKept = 12;
    std::int64_t stopAfterMs = 120'000;
    std::int64_t stopBeforeStreamMs = std::numeric_limits<std::int64_t>::max();
    RunChoice choice = RunChoice::newRun;
    bool record = true;
    std::function<void()> atPass;

    std::string asked;
    Lines prompts, buttons;
    std::vector<KeepingState> states;
    bool enabled = true, started = false, ended = false;
    long kept = 0, written = -1, currentsShown = 0, depthsShown = 0;

  private:
    const VirtualClock& clock_;
    std::int64_t startTick_ = 0;
};

struct RigOptions {
    lcusim::LcuModel model = lcusim::LcuModel::lcu2Plus;
    std::string tool = "K215";
    int mode = 1;
    std::vector<std::string> faults = {};
    double startDepth = 50;
    int winchDirection = 0; ///< 0: as the sampling command says
};

/// At most one sensor is calibrated.
struct OneCalibration final : CalibrationSource {
    [[nodiscard]] std::vector<Calibration> calibrationsOf(std::string_view, std::string_view) const override {
        return one ? std::vector{*one} : std::vector<Calibration>{};
    }
    std::optional<Calibration> one;
};

struct RunRig : LinkBench<lcusim::SimulatedPort> {
    explicit RunRig(const RigOptions& rig = {}) : options(rig), view(clock) {
        order = {.project = "Northern",
                 .projectFolder = "project",
                 .hole = "H1",
                 .holeDetails = {},
                 .setup = {},
                 .screenScale = "1:200"};
        order.setup.sampling = Sampling::depth;
        order.setup.interval = 5;
        chooseEquipment();
        connectBox();
    }

    /// From now on the sensor is calibrated with these coefficients, lowest power first.
    void calibrate(const std::string& sensor, std::initializer_list<double> coefficients) {
        Calibration& made = calibrations.one.emplace();
        made.sensorName = sensor;
        made.state = "Calibrated";
        made.order = static_cast<int>(coefficients.size()) - 1;
        made.coefficients = {};
        std::ranges::copy(coefficients, made.coefficients.begin());
        equipment.ToolWinchData_loadcurrentttoolwinch({options.tool, ""}, {"W110", ""}, options.mode);
    }
    RunResult startLogging() {
        truth.clear();
        lines.take();
        view.kept = 0;
        RunModules modules{errors, errorLog, log,  operatorSide, view,      state,  clock, files,
                           serial, link,     port, lcu,          equipment, reader, writer};
        return LoggingRun(modules).comstartlogging(order);
    }

    [[nodiscard]] Path file(int number = 1) const {
        return order.projectFolder / runFileName(order.hole, options.tool, number);
    }
    [[nodiscard]] Bytes scansOnFile(int number = 1) const {
        const Bytes all = files.read(file(number));
        return {all.begin() + 26188, all.end()};
    }
    /// The log without what every command says.
    [[nodiscard]] Lines runLines() const {
        Lines rest;
        for (const std::string& line : lines.lines) {
            if (!line.starts_with("0Command ") && !line.starts_with("0Buffer returned")) rest.push_back(line);
        }
        return rest;
    }
    /// What went wrong between the start of the stream and its end.
    [[nodiscard]] Lines faultLines() const {
        Lines faults;
        bool streaming = false;
        for (const std::string& line : lines.lines) {
            if (line.starts_with("1Logging run finished")) break;
            if (streaming && line.front() != '0') faults.push_back(line);
            if (line.starts_with("0Tool firmware")) streaming = true;
        }
        return faults;
    }
    [[nodiscard]] std::string heard() const {
        std::string all;
        for (const std::string& text : truth.commandTexts()) all += (all.empty() ? "" : " ") + text;
        return all;
    }

    RigOptions options;
    lcusim::MemoryRecord truth;
    std::optional<lcusim::LcuEngine> engine;
    ErrorLog errorLog{operatorSide, clock, files, "history", {}};
    ProgramState state;
    OneCalibration calibrations;
    ToolWinchData equipment{errors, files, log, operatorSide, calibrations, "program"};
    RunFileReader reader{errors, log, files};
    RunFileWriter writer{errors, files};
    RigView view;
    RunOrder order;

  private:
    /// One tool and one winch of the maker's, as the user's own.
    void chooseEquipment() {
        std::ifstream in(EQUIPMENT_DATABASE, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), {}};
        EquipmentFile user = readEquipment(asBytes(bytes), EQUIPMENT_DATABASE);
        std::erase_if(user.tools, [&](const ToolRecord& t) { return t.get(tool::code) != options.tool; });
        user.winches.resize(1);
        ASSERT_EQ(user.tools.size(), 1U) << options.tool;
        user.tools[0].set(tool::serialNumber, "S-1");
        correctCounts(user);
        files.put("program/UserTools-Winches.dat", asText(equipmentBytes(user)));
        equipment.ToolWinchData_loadcurrentttoolwinch({options.tool, ""}, {"W110", ""}, options.mode);
    }

    void connectBox() {
        const auto source = lcusim::findTool(TARVIK_SOURCE_DIR "/data/tools", options.tool);
        ASSERT_TRUE(source.tool) << source.problem;
        lcusim::SimulatorOptions box{.model = options.model, .mode = options.mode};
        box.winch.startDepth = options.startDepth;
        if (options.winchDirection != 0) box.winch.direction = options.winchDirection;
        for (const std::string& fault : options.faults)
            box.faults.push_back(lcusim::parseFault(fault).fault.value());
        engine.emplace(box, *source.tool, truth);
        serial.connect(1, *engine);
        ASSERT_EQ(search.LCU_Locate(1), SearchResult::found);
    }
};

} // namespace tarvik::test
