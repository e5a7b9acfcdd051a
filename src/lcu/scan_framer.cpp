#include "lcu/scan_framer.h"

namespace tarvik {

FrameVerdict ScanFramer::begin(std::uint8_t length) {
    expected_ = length - 1;
    received_ = 0;
    looked_ = false;
    if (length == 0) return FrameVerdict::overflow1;
    return expected_ == 0 ? FrameVerdict::scan : FrameVerdict::needMore;
}

} // namespace tarvik
