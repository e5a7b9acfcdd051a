// Writing a LAS file, against std::to_chars of the same numbers written to the disk in pieces of the same
// size.
#include "large_run.h"
#include "las_forms.h"
#include "processing/las_export.h"
#include "race.h"

#include <charconv>

namespace {

using namespace tarvik;
using namespace tarvik::bench;

constexpr std::size_t pieceBytes = std::size_t{1} << 20;

template <class Real>
void addNumber(std::string& text, Real value, int decimals) {
    std::array<char, 64> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals)
            .ptr;
    text.append(digits.data(), end);
}

void writeByToChars(Files& files, const Path& file, const ReviewLog& log, int decimals) {
    std::string text;
    text.reserve(pieceBytes + 4096);
    bool begun = false;
    const auto write = [&] {
        begun ? files.append(file, asBytes(text)) : files.replace(file, asBytes(text));
        begun = true;
        text.clear();
    };
    for (std::size_t row = 0; row < log.steps(); ++row) {
        addNumber(text, log.depth[row], 2);
        for (const ReviewChannel& channel : log.channels) {
            text += ' ';
            addNumber(text, channel.values[row], decimals);
        }
        text += "\r\n";
        if (text.size() >= pieceBytes) write();
    }
    write();
}

void exportLas(benchmark::State& state) {
    LargeRun run;
    const ReviewLog log = run.load();
    LasExport las(run.trap, run.files);
    LasExportOptions options;
    options.decimals = static_cast<int>(state.range(0));
    if (state.range(1) != 0) options.step = 0.02;
    race(
        state, [&] { las.Logprintexport_exportLASfile(log, run.lasFile, options); },
        [&] { writeByToChars(run.files, run.lasFile, log, options.decimals); });
}
BENCHMARK(exportLas)->ArgNames({"decimals", "interpolated"})->Apply(lasForms);

} // namespace
