// Run files: opened for review, asked for their depth range, cut before an append, exported.
#include "files/run_file_reader.h"
#include "fuzz_rig.h"
#include "processing/las_export.h"

using namespace tarvik;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Rig rig("in.kvx", data, size);
    RunFileReader reader(rig.errors, rig.log, rig.files);
    std::ignore = reader.Utilities_checkfiledepthrange("in.kvx");
    if (const auto log = reader.Tarvikfileopen("in.kvx")) {
        LasExport(rig.errors, rig.files).Logprintexport_exportLASfile(*log, "out.las", {});
    }
    rig.errors.run("cutTornTail", [&](Level&) { cutTornTail(rig.files, "in.kvx"); });
    return 0;
}
