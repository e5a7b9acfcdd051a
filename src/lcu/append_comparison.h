// The checks of an append, shown before it is chosen: what the latest run file holds and what the next run
// would write, line by line.
#pragma once

#include "files/run_file_reader.h"

#include <string>
#include <vector>

namespace tarvik {

struct AppendRow {
    std::string what;
    std::string onFile;
    std::string now;
    bool agrees = true;
    bool refuses = true; ///< a difference here refuses the append; else it is only worth knowing
};

/// Rows in the order in which CheckLatestRunSpecs looks at them. It refuses the append exactly when a row
/// that refuses does not agree.
[[nodiscard]] std::vector<AppendRow> appendComparison(const RunHeader& current, const RunFileInfo& latest);

/// The same for a file; one that cannot be read is a single row that refuses and says why.
[[nodiscard]] std::vector<AppendRow> appendComparison(const RunHeader& current, const Files& files,
                                                      const Path& latest);

/// One sentence when the run would go over depths that the file has: the tool stands at `depth`, in the unit
/// of the file. Empty when it goes on beyond them.
[[nodiscard]] std::string overlapWarning(const DepthRange& onFile, double depth, Direction direction);

/// One sentence: what an append would be refused for, or that nothing stands in its way.
[[nodiscard]] std::string appendVerdict(const std::vector<AppendRow>& rows);

} // namespace tarvik
