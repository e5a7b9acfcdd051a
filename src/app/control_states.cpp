#include "app/control_states.h"

#include <array>

namespace tarvik {

namespace {

enum class When { always, never, loggingAllowed };

struct Control {
    std::string_view key;
    When enabled = When::always;
    Shown shownWhenEnabled = Shown::asItWas;
};

constexpr std::array controls{
    Control{"File"},
    Control{"Setup"},
    Control{"Help"},
    Control{"MB-Paint", When::never},
    Control{"MB-Details", When::never},
    Control{"MB-Acquire", When::loggingAllowed},
    Control{"MB-CalibTest"},
    Control{"MB-Open"},
    Control{"MB-Eventlog"},
    Control{"MB-Notes"},
    Control{"MB-Setup"},
    Control{"Log-scale"},
    Control{"MB-Review"},
    Control{"MB-Exit"},
    Control{"MB-Bullseye", When::always, Shown::no}, // only the run of a deviation tool shows it
    Control{"MB-Fluid", When::always, Shown::no},    // only that of a caliper or fluid sampler
};

bool isEnabled(When when, bool loggingAllowed) {
    return when == When::always || (when == When::loggingAllowed && loggingAllowed);
}

} // namespace

std::vector<ControlState> controlStates(std::string_view argument, bool loggingAllowed) {
    const bool enable = argument == "ENABLE";
    std::vector<ControlState> states;
    if (!enable && argument != "DISABLE") return states;
    for (const Control& control : controls) {
        states.push_back({control.key, enable && isEnabled(control.enabled, loggingAllowed),
                          enable ? control.shownWhenEnabled : Shown::asItWas});
    }
    return states;
}

} // namespace tarvik
