#include "lcu/lcu_search.h"

#include "lcu/lcu_models.h"
#include "lcu/link_claim.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <tuple>

namespace tarvik {

namespace {

constexpr std::array<std::int32_t, 2> speeds{9600, 115200};

/// What is sent to find out whether an LCU listens: twice a stop, should it be streaming, then the question.
struct Probe {
    std::string_view text;
    std::int32_t waitMs;
};
constexpr std::array<Probe, 3> probes{{{"X", 100}, {"X", 100}, {"Q", 300}}};

/// Which ports a value of the setting names, and how the log names them when nothing was found there.
struct PortChoice {
    std::int32_t setting;
    std::int32_t firstPort;
    std::int32_t ports;
    std::string_view text;
};
constexpr std::array<PortChoice, 6> portChoices{{
    {12, 1, 2, "COM1 or COM2"},
    {34, 3, 2, "COM3 or COM4"},
    {1, 1, 1, "COM1"},
    {2, 2, 1, "COM2"},
    {3, 3, 1, "COM3"},
    {4, 4, 1, "COM4"},
}};

const PortChoice& choiceFor(std::int32_t lcuComms) {
    const auto* found = std::ranges::find(portChoices, lcuComms, &PortChoice::setting);
    return found == portChoices.end() ? portChoices.front() : *found;
}

} // namespace

SearchResult LcuSearch::LCU_Locate(std::int32_t lcuComms, const std::function<bool()>& cancelled) {
    return errors_.run("LCUFunctions-LCU_Locate", SearchResult::notFound, [&](Level& level) {
        const SearchResult result = tryPorts(lcuComms, cancelled);
        level = 1;
        if (result == SearchResult::found) announce();
        return result;
    });
}

SearchResult LcuSearch::tryPorts(std::int32_t lcuComms, const std::function<bool()>& cancelled) {
    const LinkClaim claim(link_);
    if (!claim) return SearchResult::busy;
    tries_.clear();
    cancelled_ = false;
    port_.close();
    link_.port = 0;
    link_.demo = false;
    setModel(link_, nullptr);
    link_.firmware.clear();
    link_.status = -1;
    link_.statusText.clear();

    operator_.statusText("Searching for LCU");
    const PortChoice& choice = choiceFor(lcuComms);
    for (std::int32_t port = choice.firstPort; port < choice.firstPort + choice.ports; ++port) {
        for (const std::int32_t baud : speeds) {
            const bool first = port == choice.firstPort && baud == speeds.front();
            if (!first) operator_.linkPanel("  standby ..");
            const Answer answer = tryPort(port, baud, cancelled);
            if (answer == Answer::lcu) return SearchResult::found;
            if (answer == Answer::cancelled) {
                cancelled_ = true;
                log_.black(" LCU search cancelled by user");
                return SearchResult::cancelled;
            }
        }
    }
    log_.black("No LCU device found on " + std::string(choice.text));
    return SearchResult::notFound;
}

LcuSearch::Answer LcuSearch::tryPort(std::int32_t port, std::int32_t baud,
                                     const std::function<bool()>& cancelled) {
    operator_.linkPanel(" Checking port " + comName(port));
    if (!port_.open(port, baud)) {
        tries_.push_back({port, outcomeOfOpening(port_.openingCode()), port_.openingProblem()});
        return Answer::other;
    }
    const auto giveUp = [&](Answer answer) {
        log_.black("Closing comms port " + comName(port));
        port_.close();
        return answer;
    };
    for (const Probe& probe : probes) {
        port_.ask(probe.text, probe.waitMs);
        if (cancelled && cancelled()) return giveUp(Answer::cancelled);
    }
    const std::int32_t status = readStatus();
    const LcuModel* model = modelWithStatus(status);
    if (!model) {
        tries_.push_back({port, status == -1 ? PortOutcome::silent : PortOutcome::otherAnswer});
        return giveUp(Answer::other);
    }
    setModel(link_, model);
    link_.status = status;
    return Answer::lcu;
}

/// The second of two bytes; -1 when fewer came.
std::int32_t LcuSearch::readStatus() {
    const std::int32_t count = std::max(port_.waiting(), 0);
    log_.black("Buffer returned " + std::to_string(count) + " characters");
    std::int32_t status = -1;
    if (count >= 2) {
        std::ignore = port_.next(); // echo of the command
        status = port_.next();
    }
    log_.black("Status value " + std::to_string(status));
    return status;
}

void LcuSearch::announce() {
    const std::string version = commands_.LCU_FirmwareVersion();
    log_.black(link_.model + " activated on " + comName(link_.port));
    operator_.linkPanel(" " + link_.model + " on " + comName(link_.port) + "   (Firmware " + version + ")");
}

} // namespace tarvik
