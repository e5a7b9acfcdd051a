#include "lcu/run_keeping.h"

#include "base/text.h"

namespace tarvik {

void Utilities_updatefilenotestext(Files& files, const Path& projectFolder, std::string_view hole,
                                   std::string_view line) {
    const Path notes = projectFolder / (std::string(hole) + "_notes.kvx");
    files.append(notes, asBytes(toAnsi(line) + "\r\n"));
}

Path backupOf(const Path& runFile) {
    return runFile.parent_path() / "Backup" / runFile.filename();
}

Path Utilities_backuploggingrun(Files& files, const Path& runFile) {
    const Path copy = backupOf(runFile);
    files.createFolder(copy.parent_path());
    files.copy(runFile, copy);
    return copy;
}

} // namespace tarvik
