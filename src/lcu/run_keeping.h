// What is kept of a finished run beside its file: a line in the hole's notes and a copy in the project's
// backup.
#pragma once

#include "platform/files.h"

#include <string>
#include <string_view>

namespace tarvik {

/// Appends a text line to hole + "_notes.kvx" in the project folder.
void Utilities_updatefilenotestext(Files& files, const Path& projectFolder, std::string_view hole,
                                   std::string_view line);

/// Where the copy of a run file lies, if there is one.
[[nodiscard]] Path backupOf(const Path& runFile);

/// Copies the run file into the project's folder "Backup"; returns the copy.
Path Utilities_backuploggingrun(Files& files, const Path& runFile);

} // namespace tarvik
