#include "display/tool_scales.h"

#include "base/text.h"

namespace tarvik {

bool keepToolScale(ToolWinchData& equipment, const LogCurve& curve) {
    const CurrentTool& current = equipment.currentTool();
    for (int channel = 1; channel <= current.channels(); ++channel) {
        const std::string name = current.record.get(tool::channelName(current.mode, channel));
        if (trimmed(name) != trimmed(curve.channel)) continue;
        equipment.ToolWinchData_updatecurrenttoolscales(curve.calibrated ? "CALIB" : "UNCAL", channel,
                                                        static_cast<float>(curve.scale.left),
                                                        static_cast<float>(curve.scale.right));
        return true;
    }
    return false;
}

} // namespace tarvik
