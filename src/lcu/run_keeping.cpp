#include "lcu/run_keeping.h"

#include "base/text.h"

namespace tarvik {

void Utilities_updatefilenotestext(Files& files, const Path& projectFolder, std::string_view hole,
                                   std::string_view line) {
    const Path notes = projectFolder / (std::string(hole) + "_notes.kvx");
    files.append(notes, asBytes(toAnsi(line) + "\r\n"));
}

Path Utilities_backuploggingrun(Files& files, const Path& runFile) {
    const Path folder = runFile.parent_path() / "Backup";
    files.createFolder(folder);
    const Path copy = folder / runFile.filename();
    files.copy(runFile, copy);
    return copy;
}

} // namespace tarvik
