#include "screens/screen_opener.h"

#include <algorithm>
#include <array>

namespace tarvik {

struct ScreenOpener::Screen {
    std::string_view name;
    void (ScreenOpener::*open)(const ScreenRequest&);
};

void ScreenOpener::open(const ScreenRequest& request) {
    program_.frame.operatorSide.message("Tarvik", std::string(request.screen) + " is not built yet.",
                                        Icon::information);
}

RunChoice ScreenOpener::chooseRun(const LoggingRuns&, std::string_view) {
    return RunChoice::newRun;
}

} // namespace tarvik
