// Walks over the scans of a run file, read in pieces that stay in the processor's cache until they are used.
#pragma once

#include "files/run_header_codec.h"
#include "platform/files.h"

#include <algorithm>

namespace tarvik {

constexpr std::size_t scansPerPiece = 2000;

/// Calls `use(piece, position)` for every piece, whole records that begin at byte `position` of the file,
/// until it returns false. Scans appended since the shape was read are left out.
template <class Use>
void forEachScanPiece(const Files& files, const Path& file, const RunFileShape& shape, Use&& use) {
    for (std::size_t scan = 0; scan < shape.scans; scan += scansPerPiece) {
        const std::size_t count = std::min(scansPerPiece, shape.scans - scan);
        const std::size_t position = shape.firstScan + scan * shape.recordLength;
        if (!use(files.readPart(file, position, count * shape.recordLength), position)) return;
    }
}

} // namespace tarvik
