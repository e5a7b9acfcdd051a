// What the operating system's refusals mean, in words that say what to do.
#pragma once

#include "base/failure.h"
#include "platform/files.h"

namespace tarvik {

enum class DiskAction { look, read, write, cut, remove, makeFolder };

/// "<file>: cannot be written: No space left on device; free some space on the disk, then try again"
/// `error` is an `errno`.
[[nodiscard]] Failure diskFailure(const Path& file, DiskAction action, int error);

} // namespace tarvik
