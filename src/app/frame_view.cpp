#include "app/frame_view.h"

namespace tarvik {

std::optional<InterfaceDisplay> interfaceDisplay(std::string_view model) {
    if (model == "LCU2Plus") {
        // All four LCU4 indicators go; those of the LCU2+ come back after an LCU4.
        return InterfaceDisplay{.label = "Interface LCU2+",
                                .labelWidthTwips = 855,
                                .lcu4Indicators = Shown::no,
                                .furtherLcu4Indicators = Shown::no,
                                .lcu2PlusIndicators = Shown::yes};
    }
    if (model == "LCU4") {
        return InterfaceDisplay{.label = "Interface LCU4",
                                .labelWidthTwips = 1095,
                                .lcu4Indicators = Shown::yes,
                                .furtherLcu4Indicators = Shown::asItWas,
                                .lcu2PlusIndicators = Shown::no};
    }
    return std::nullopt;
}

} // namespace tarvik
