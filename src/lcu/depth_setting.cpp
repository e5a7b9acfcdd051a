#include "lcu/depth_setting.h"

#include "base/number_picture.h"
#include "base/rounding.h"

#include <cmath>

namespace tarvik {

bool setWinchDepth(LcuCommands& lcu, StatusLog& log, double metres) {
    constexpr double farthest =
        83886.07; // metres: the depth counter is a signed 24-bit number of centimetres
    if (!(std::abs(metres) <= farthest)) {
        log.red("Unable to set depth - " + shortestNumber(metres) + " metres is beyond the depth counter");
        return false;
    }
    const auto wanted = toInt32(metres * 100);
    const auto reported = lcu.LCU_SetDepth(wanted);
    if (reported != wanted) {
        log.red("Unable to set depth - is winch running ??");
        return false;
    }
    log.black("Depth successfully set to " + shortestNumber(metres) + " metres");
    return true;
}

} // namespace tarvik
