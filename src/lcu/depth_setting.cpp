#include "lcu/depth_setting.h"

#include "base/number_picture.h"
#include "base/rounding.h"

#include <cmath>

namespace tarvik {

DepthSetting setWinchDepth(LcuCommands& lcu, StatusLog& log, double metres, double winchScaleFactor) {
    constexpr double farthest =
        83886.07; // metres: the depth counter is a signed 24-bit number of centimetres
    const double counted = metres / winchScaleFactor;
    if (!(std::abs(counted) <= farthest)) {
        log.red("Unable to set depth - " + shortestNumber(metres) + " metres is beyond the depth counter");
        return DepthSetting::outOfReach;
    }
    const auto wanted = toInt32(counted * 100);
    const auto reported = lcu.LCU_SetDepth(wanted);
    if (reported != wanted) {
        log.red("Unable to set depth - is winch running ??");
        if (lcu.depthAnswered()) return DepthSetting::otherDepth;
        log.red("No depth came back from the LCU - check its power, the cable and the port");
        return DepthSetting::noAnswer;
    }
    const double set = wanted * winchScaleFactor / 100; // the counter has whole centimetres only
    log.black("Depth successfully set to " + shortestNumber(std::round(set * 1000) / 1000) + " metres");
    return DepthSetting::done;
}

std::string depthSettingRemedy(DepthSetting outcome) {
    switch (outcome) {
    case DepthSetting::outOfReach:
        return "The depth is beyond the depth counter of the LCU. Enter a smaller one.";
    case DepthSetting::otherDepth:
        return "The LCU did not report the depth back. Stop the winch and set the depth again.";
    case DepthSetting::noAnswer:
        return "The LCU did not answer. Check its power, the cable and the port, then set the depth again. "
               "The depth in the LCU is not known until it has been set.";
    case DepthSetting::done:
        break;
    }
    return {};
}

} // namespace tarvik
