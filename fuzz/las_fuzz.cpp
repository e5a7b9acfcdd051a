// LAS files through both readers; what opens is exported, and the export must open again.
#include "files/las_reader.h"
#include "fuzz_rig.h"
#include "processing/las_again.h"

using namespace tarvik;

namespace {

void demand(bool held, const char* what) {
    if (held) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

void exportAgain(fuzz::Rig& rig, const ReviewLog& log, LasFileReader& reader) {
    demand(log.channels.size() <= maxChannels && log.steps() <= maxReviewSteps, "beyond the limits");
    for (const ReviewChannel& channel : log.channels)
        demand(channel.values.size() == log.steps(), "a channel of another length");
    LasExport lasExport(rig.errors, rig.files);
    if (!lasExport.Logprintexport_exportLASfile(log, "out.las", lasOptionsFor(log))) return;
    const auto again = reader.openTolerantly("out.las");
    demand(again && again->steps() == log.steps(), "the export does not open with its rows");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Rig rig("in.las", data, size);
    LasFileReader reader(rig.errors, rig.log, rig.operatorSide, rig.files);
    if (const auto log = reader.LASfileopen("in.las").log) exportAgain(rig, *log, reader);
    if (const auto log = reader.openTolerantly("in.las")) exportAgain(rig, *log, reader);
    return 0;
}
