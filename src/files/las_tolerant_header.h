// The header of a LAS file that the plain reader refuses: read line by line, keys in any order and of any
// length, with every repair said.
#pragma once

#include "files/las_header.h"
#include "files/las_lines.h"

namespace tarvik {

/// How a file's bytes become text, told by its first bytes.
struct LasText {
    TextEncoding encoding = TextEncoding::bytes;
    std::size_t start = 0; ///< bytes of a byte-order mark
};
[[nodiscard]] LasText detectLasText(const Files& files, const Path& file, LasFindings& findings);

/// Reads up to and with the line that begins the data section. Throws LasRefusal for LAS 3.0, for what is no
/// LAS file and for a file without curves or data.
[[nodiscard]] LasHeader readTolerantLasHeader(LasLines& lines, LasFindings& findings);

} // namespace tarvik
