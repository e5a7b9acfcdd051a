#include "lcu/run_rescue.h"

#include "base/failure.h"

namespace tarvik {

namespace {

Path freeName(const Path& folder, const Path& taken, const Files& files) {
    const std::string name = "Rescued_" + taken.stem().string();
    Path file = folder / (name + ".kvx");
    for (int again = 2; files.exists(file); ++again)
        file = folder / (name + "_" + std::to_string(again) + ".kvx");
    return file;
}

} // namespace

std::optional<Path> saveHeldElsewhere(RunFileWriter& writer, Files& files, std::span<const Path> folders) {
    for (const Path& folder : folders) {
        try {
            files.createFolder(folder);
            const Path file = freeName(folder, writer.file(), files);
            writer.saveHeldIn(file);
            return file;
        } catch (const Failure&) {
            continue; // the next one may do
        }
    }
    return std::nullopt;
}

} // namespace tarvik
