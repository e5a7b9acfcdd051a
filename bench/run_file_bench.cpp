// Reading a run file into the review arrays, against reading the same bytes from the disk.
#include "large_run.h"
#include "race.h"

namespace {

using namespace tarvik;
using namespace tarvik::bench;

void readRunFile(benchmark::State& state) {
    LargeRun run;
    race(
        state, [&] { benchmark::DoNotOptimize(run.load()); },
        [&] { benchmark::DoNotOptimize(run.files.read(run.file)); });
}
BENCHMARK(readRunFile)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
