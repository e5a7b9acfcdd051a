// The run history: one status file per calendar day and one error file for all days, in one folder. Plain
// text, single-byte, CR LF line ends; each entry is one append, so a crash loses at most the entry being
// written.
#pragma once

#include "base/civil_time.h"
#include "platform/files.h"

#include <string>

namespace tarvik {

/// "Mon-13-Mar-2006.txt" in the folder.
[[nodiscard]] Path dailyFile(const Path& folder, const CivilTime& day);

/// "Tarvik_Errors.txt" in the folder.
[[nodiscard]] Path errorFile(const Path& folder);

/// "File created : Monday, 13-Mar-2006", without a line end.
[[nodiscard]] std::string fileCreatedLine(const CivilTime& day);

} // namespace tarvik
