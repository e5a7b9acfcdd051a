// The header of a LAS file, as values, whichever reader took it apart.
#pragma once

#include "base/las_facts.h"
#include "base/run_header.h"
#include "files/las_findings.h"
#include "platform/files.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace tarvik {

struct LasHeader {
    LasFacts facts;
    HoleDetails hole; ///< company, holeId, prospect (FLD), coordinates (LOC), area (PROV), contractor (SRVC)
    std::string date;
    bool wrapped = false;
    std::size_t startLine = 0; ///< of STRT
    std::size_t wrapLine = 0;
    std::size_t curvesAt = 0; ///< byte at which the curve section begins
    std::size_t curvesLine = 0;
    std::size_t indexLine = 0;                        ///< of the first curve
    std::size_t dataLine = 0;                         ///< of the line that begins the data section
    std::vector<RunChannel> names;                    ///< name and unit of each entry of the curve table
    std::vector<std::pair<std::string, int>> filters; ///< channel and points, as an export noted them
};

/// The file cannot be opened as LAS; the text says the line and the reason.
class LasRefusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

constexpr std::size_t lasHeaderBlock = 20000; ///< characters in which the plain reader looks for the keys

/// The plain reader's keys, in their fixed order within the first 20,000 characters. Throws LasRefusal saying
/// which one is missing or out of place, and at which line.
[[nodiscard]] LasHeader readLasKeys(const Files& files, const Path& file, LasFindings& findings);

/// The curve section and where the data begin; then what else the header says. Throws LasRefusal.
void readLasCurves(const Files& files, const Path& file, LasHeader& header, LasFindings& findings);

} // namespace tarvik
