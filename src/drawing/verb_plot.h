// tarvik plot: the picture of a run, without a window.
#pragma once

#include "cli/verb.h"

namespace tarvik {

[[nodiscard]] Verb plotVerb();

} // namespace tarvik
