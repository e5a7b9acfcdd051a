// How the paces of a demonstration are called.
#pragma once

#include "lcu/playback_time.h"

#include <array>

namespace tarvik {

struct PaceWords {
    PlaybackPace pace;
    const char* objectName; ///< of its option
    const char* text;
};

/// In the order of the choices.
inline constexpr std::array paceWords{
    PaceWords{PlaybackPace::original, "optoriginal", "As it was logged"},
    PaceWords{PlaybackPace::twice, "opttwice", "2 \u00d7"},
    PaceWords{PlaybackPace::tenfold, "opttenfold", "10 \u00d7"},
    PaceWords{PlaybackPace::fastest, "optfastest", "As fast as possible"},
};

/// Its place among them.
[[nodiscard]] constexpr int placeOf(PlaybackPace pace) {
    for (int i = 0; i < static_cast<int>(paceWords.size()); ++i) {
        if (paceWords[static_cast<std::size_t>(i)].pace == pace) return i;
    }
    return 0;
}
/// Any other number is the pace of the log.
[[nodiscard]] constexpr PlaybackPace paceAt(int place) {
    const bool known = place >= 0 && place < static_cast<int>(paceWords.size());
    return known ? paceWords[static_cast<std::size_t>(place)].pace : PlaybackPace::original;
}

} // namespace tarvik
