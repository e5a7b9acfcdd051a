// The console against the simulated box; acquisition is stopped after so much time or so many scans.
#pragma once

#include "lcu/diagnostics_text.h"
#include "lcu/run_rig.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

namespace tarvik::test {

struct ConsoleView final : DiagnosticsView {
    void statusLine(std::string_view line) override { status.emplace_back(line); }
    void statusCleared() override { status.clear(); }
    void dataAppended(std::string_view text) override { data += text; }
    void changed() override {
        if (whenChanged) whenChanged();
    }
    void looked() override {
        if (std::exchange(failsOnce, false)) throw Failure(ErrorNumber::diskFull, "no room");
    }
    bool failsOnce = false;
    Lines status;
    std::string data;
    std::function<void()> whenChanged;
};

struct ConsoleRig : RunRig {
    explicit ConsoleRig(const RigOptions& box = {}) : RunRig(box) {
        console.open();
        serial.whileWaiting([this] {
            console.tick();
            if (console.acquiring() && (clock.tickMs() >= stopAt || console.scans() >= stopAfterScans))
                console.stop();
            if (whileWaiting) whileWaiting();
        });
        lines.take();
        truth.clear();
    }
    void acquire(std::int64_t ms, const std::string& commands = "V") {
        stopAt = clock.tickMs() + ms;
        console.send(commands);
    }
    /// How often the log has the line.
    [[nodiscard]] long count(const std::string& line) const { return std::ranges::count(lines.lines, line); }

    Settings settings;
    ConsoleView shown;
    std::int64_t stopAt = 0;
    long stopAfterScans = 1'000'000;
    int searches = 0;
    std::function<void()> whileWaiting;
    DiagnosticsConsole console{{.errors = errors,
                                .log = log,
                                .clock = clock,
                                .serial = serial,
                                .link = link,
                                .lcu = lcu,
                                .equipment = equipment,
                                .settings = settings,
                                .findLcu =
                                    [this] {
                                        ++searches;
                                        search.LCU_Locate(1);
                                    }},
                               shown};
};

inline constexpr auto bothModels = {lcusim::LcuModel::lcu2Plus, lcusim::LcuModel::lcu4};

} // namespace tarvik::test
