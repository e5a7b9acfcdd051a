// A folder copied by the operating system, beside the program and without waiting for it.
#pragma once

#include "platform/files.h"

namespace tarvik {

/// Everything in `source`, folders within folders, into `target`, over what is there. False when the copying
/// could not be started; how it ends nobody is told.
bool copyInBackground(const Path& source, const Path& target);

} // namespace tarvik
