// What only a LAS file says of a log: kept with the review arrays, so that the file can be described and
// written again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvik {

constexpr std::size_t maxLasCurves = 50; ///< entries of the curve table

/// Trimmed texts of one line of the curve section.
struct LasCurveEntry {
    std::string mnemonic;
    std::string unit;
    std::string description;

    friend bool operator==(const LasCurveEntry&, const LasCurveEntry&) = default;
};

struct LasFacts {
    double version = 0;
    double start = 0; ///< as the header says, in the file's depth unit
    double stop = 0;
    double step = 0;
    std::string stepText;
    double null = 0;
    std::string nullText;
    bool hasNull = false;              ///< false: the header names no number that stands for "no value"
    std::string depthUnit;             ///< as it stands in the file
    std::vector<LasCurveEntry> curves; ///< the index first
    std::size_t curvesInFile = 0;      ///< can be more than the table holds
    int decimals = 0;                  ///< most decimals of a loaded value
    std::string holeAzimuth;           ///< degrees, as it stands in the file
    std::string holeInclination;
    std::uint64_t dataStart = 0; ///< byte at which the data section begins

    std::size_t droppedRows = 0;
    std::size_t fragmentBytes = 0;     ///< of a torn last line, not read
    std::vector<std::string> findings; ///< a line for each thing dropped, converted or repaired
};

} // namespace tarvik
