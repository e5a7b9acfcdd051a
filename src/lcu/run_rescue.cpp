#include "lcu/run_rescue.h"

#include "base/failure.h"
#include "lcu/run_names.h"

#include <algorithm>

namespace tarvik {

namespace {

Path freeName(const Path& folder, const Path& taken, Files& files, const RunOrder& order,
              std::string_view toolCode) {
    const int next = CheckLoggingRuns(files, folder, order.hole, toolCode).next();
    const int own = runNumber(taken.filename().string(), order.hole, toolCode).value_or(0);
    return folder /
           runFileName(order.hole, toolCode, std::max(next, own + 1)); // a run that has gone may come back
}

} // namespace

std::optional<Path> saveHeldElsewhere(RunFileWriter& writer, Files& files, const RunOrder& order,
                                      std::string_view toolCode) {
    for (const Path& folder : order.rescueFolders) {
        try {
            files.createFolder(folder);
            const Path file = freeName(folder, writer.file(), files, order, toolCode);
            writer.saveHeldIn(file);
            return file;
        } catch (const Failure&) {
            continue; // the next one may do
        }
    }
    return std::nullopt;
}

} // namespace tarvik
