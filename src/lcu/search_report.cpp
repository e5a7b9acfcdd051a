#include "lcu/search_report.h"

#include "lcu/lcu_port.h"
#include "platform/serial_port.h"

namespace tarvik {

namespace {

struct OutcomeWords {
    const char* what;
    const char* remedy; ///< unless the port itself says one
};

OutcomeWords wordsOf(PortOutcome outcome) {
    switch (outcome) {
    case PortOutcome::notThere:
        return {"no such device", "Plug the adapter in, or name another device in the set-up."};
    case PortOutcome::notPermitted:
        return {"no permission to open it", "Ask the administrator for the right to read and write it."};
    case PortOutcome::inUse:
        return {"in use by another program", "Close that program, then search again."};
    case PortOutcome::cannotOpen:
        return {"cannot be opened", "Unplug the adapter, plug it in again, and search again."};
    case PortOutcome::silent:
        return {"opened, but nothing answered",
                "Is the LCU switched on, and its cable plugged in at both ends? Is this the adapter that it "
                "hangs on?"};
    case PortOutcome::otherAnswer:
        break;
    }
    return {"something answered that is no healthy LCU",
            "Switch the LCU off and on again. If it is another instrument, name another port in the set-up."};
}

PortReport inWords(const PortTry& farthest) {
    const OutcomeWords words = wordsOf(farthest.outcome);
    return {comName(farthest.port) + ": " + words.what,
            farthest.problem.empty() ? words.remedy : farthest.problem};
}

} // namespace

PortOutcome outcomeOfOpening(std::int32_t code) {
    switch (code) {
    case portMissing:
        return PortOutcome::notThere;
    case portBusy:
        return PortOutcome::inUse;
    case portNotPermitted:
        return PortOutcome::notPermitted;
    default:
        return PortOutcome::cannotOpen;
    }
}

std::vector<PortReport> reportOf(std::span<const PortTry> tries) {
    std::vector<PortReport> reports;
    for (std::size_t i = 0; i < tries.size();) {
        const PortTry* farthest = &tries[i];
        std::size_t next = i + 1;
        for (; next < tries.size() && tries[next].port == tries[i].port; ++next) {
            if (tries[next].outcome > farthest->outcome) farthest = &tries[next];
        }
        reports.push_back(inWords(*farthest));
        i = next;
    }
    return reports;
}

} // namespace tarvik
