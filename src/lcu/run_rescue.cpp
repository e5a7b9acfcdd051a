#include "lcu/run_rescue.h"

#include "base/failure.h"
#include "lcu/run_names.h"

namespace tarvik {

namespace {

Path freeName(const Path& folder, const Path& taken, Files& files, const RunOrder& order,
              std::string_view toolCode) {
    const int next = CheckLoggingRuns(files, folder, order.hole, toolCode).next();
    const std::string name = runFileName(order.hole, toolCode, next);
    // A file that has gone may come back.
    return folder / (name == taken.filename() ? runFileName(order.hole, toolCode, next + 1) : name);
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
