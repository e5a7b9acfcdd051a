// What `tarvik info` says of a LAS file.
#pragma once

#include "base/review_log.h"
#include "platform/files.h"

namespace tarvik {

/// The members of a run file's description; null where a LAS file says nothing.
void printLasJson(const Path& file, const ReviewLog& log);
void printLasText(const Path& file, const ReviewLog& log);

} // namespace tarvik
