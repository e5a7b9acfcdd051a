// One refresh of the live display in a window of 1920 x 1080 while scans come in at the full speed of the
// line, 24 of them since the refresh before: taken from the ring, drawn, and put on the window. Against
// painting all of the window again. There are ten refreshes a second.
#include "race.h"
#include "screens/live_display.h"
#include "screens/theme.h"
#include "toolkit.h"

#include <cmath>

namespace {

using namespace tarvik;
using namespace tarvik::bench;

constexpr int scansPerRefresh = 24;

struct Toolkit {
    Toolkit() {
        needToolkit();
        applyTheme(*qApp, Theme::light);
    }
};

/// A refresh that nobody sees would cost nothing.
struct PaintCount final : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
    int paints = 0;
};

struct LiveRun {
    explicit LiveRun(int channels) {
        RunHeader header;
        header.tool.code = "K215";
        header.setup.sampling = Sampling::depth;
        header.setup.interval = 1;
        header.channels.push_back({"Speed", "M/min", {}, {}, {}});
        for (int i = 0; i < channels; ++i) {
            header.channels.push_back(
                {"Channel " + std::to_string(i + 1), "U" + std::to_string(i / 4), {0, 400}, {0, 400}, {}});
        }
        display.resize(1920, 1080);
        display.show();
        display.plot().installEventFilter(&count);
        display.begin(header);
        for (int i = 0; i < 2000; ++i) addScan();
        display.follow(ring);
        QCoreApplication::processEvents();
    }
    void addScan() {
        point.depth += 0.01F;
        point.seconds += 1.0 / 240;
        for (std::size_t i = 1; i <= maxChannels; ++i) {
            const double x = point.depth * 2 + static_cast<double>(i);
            point.values[i] = static_cast<float>(200 + 150 * std::sin(x) + 40 * std::sin(x * 37));
        }
        ring.add(point);
    }
    void refresh() {
        display.follow(ring);
        QCoreApplication::processEvents(); // the window is painted
    }

    Toolkit toolkit; // before the first widget
    PaintCount count;
    LiveDisplay display;
    AcquisitionRing ring;
    AcquisitionPoint point;
};

/// Argument: channels.
void liveRefresh(benchmark::State& state) {
    LiveRun run(static_cast<int>(state.range(0)));
    run.count.paints = 0;
    double longest = 0;
    double refreshes = 0;
    for (auto _ : state) {
        for (int i = 0; i < scansPerRefresh; ++i) run.addScan();
        const double seconds = secondsOf([&] { run.refresh(); });
        longest = std::max(longest, seconds);
        refreshes += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["longest_ms"] = longest * 1000;
    state.counters["paints"] = run.count.paints / static_cast<double>(state.iterations());
    state.counters["share_of_time"] = refreshes / static_cast<double>(state.iterations()) * 10;
}
BENCHMARK(liveRefresh)->ArgName("channels")->Arg(7)->Arg(20)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
