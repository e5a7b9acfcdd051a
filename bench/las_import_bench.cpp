// Reading a LAS file into the review arrays, against std::from_chars over the same bytes, which lie in memory
// for it already.
#include "app/absent_operator.h"
#include "files/las_reader.h"
#include "large_run.h"
#include "las_forms.h"
#include "processing/las_export.h"
#include "race.h"

#include <charconv>

namespace {

using namespace tarvik;
using namespace tarvik::bench;

double sumByFromChars(const std::string& text, std::size_t start) {
    double sum = 0;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data() + start; at != end;) {
        double value = 0;
        const auto [stop, error] = std::from_chars(at, end, value);
        sum += value;
        at = error == std::errc() ? stop : at + 1; // blanks and line ends
        while (at != end && *at <= ' ') ++at;
    }
    return sum;
}

void importLas(benchmark::State& state) {
    LargeRun run;
    LasExportOptions options;
    options.decimals = static_cast<int>(state.range(0));
    LasExport(run.trap, run.files).Logprintexport_exportLASfile(run.load(), run.lasFile, options);
    const std::string text = asText(run.files.read(run.lasFile));
    const std::size_t start = text.find('\n', text.find("~A")) + 1;
    test::AbsentOperator operatorSide;
    LasFileReader reader(run.trap, run.log, operatorSide, run.files);
    const bool tolerant = state.range(1) != 0;
    race(
        state,
        [&] {
            const auto log =
                tolerant ? reader.openTolerantly(run.lasFile) : reader.LASfileopen(run.lasFile).log;
            if (!log || log->steps() != maxReviewSteps) throw std::runtime_error("the file did not load");
            benchmark::DoNotOptimize(log->depth.data());
        },
        [&] { benchmark::DoNotOptimize(sumByFromChars(text, start)); });
    state.counters["MB"] = static_cast<double>(text.size()) / 1e6;
}
BENCHMARK(importLas)->ArgNames({"decimals", "tolerant"})->Apply(lasForms);

} // namespace
