// The limits that every module shares.
#pragma once

#include <cstddef>

namespace tarvik {

constexpr int maxChannels = 20;               ///< channel slots of a tool mode and of a run
constexpr std::size_t maxReviewSteps = 80000; ///< depth steps of a run in review

} // namespace tarvik
