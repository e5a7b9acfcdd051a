// The runs and LAS files of a project folder, as a list to choose from.
#pragma once

#include "platform/files.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvik {

struct RunRow {
    Path file;
    std::string hole;
    std::string tool;    ///< "LAS file" for one
    std::string logged;  ///< "dd-mmm-yyyy hh:mm am/pm", as the header has it
    std::string order;   ///< of `logged` in time, "200603131405"; of a LAS file when it was written; empty
                         ///< where it cannot be read
    std::string depths;  ///< "10.00 to 54.35 m"; empty without scans
    double top = 0;      ///< metres
    std::string problem; ///< why the file cannot be read; empty when it can
};

/// *.kvx (but the hole's own notes, details and lithology) and *.las of a folder, by name.
[[nodiscard]] std::vector<Path> reviewableFiles(const Files& files, const Path& folder);

/// The run files alone.
[[nodiscard]] std::vector<Path> runFiles(const Files& files, const Path& folder);

/// Reads a run's header; of a LAS file only its name.
[[nodiscard]] RunRow describeRun(const Files& files, const Path& file);

} // namespace tarvik
