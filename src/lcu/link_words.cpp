#include "lcu/link_words.h"

#include "base/text.h"
#include "lcu/lcu_models.h"
#include "lcu/lcu_port.h"

namespace tarvik {

namespace {

constexpr const char* unknown = "not known";

std::string statusWords(const LinkState& link) {
    if (link.status < 0)
        return link.statusText.empty() ? "not asked yet" : std::string(trimmed(link.statusText));
    if (link.statusText.empty()) return "good (" + std::to_string(link.status) + ")";
    return std::string(trimmed(link.statusText));
}

} // namespace

LinkWords linkWords(const LinkState& link) {
    LinkWords words;
    const LcuModel* const model = modelNamed(link.model);
    words.port = link.demo ? "none: this is the demonstration" : link.open() ? comName(link.port) : "closed";
    words.model = model ? std::string(model->label) : "no LCU found yet";
    if (!link.open() && !link.demo) { // what was there last may be gone
        if (model != nullptr) words.model = "was " + words.model;
        words.speed = words.firmware = unknown;
        words.status = "not asked yet";
        return words;
    }
    words.speed = link.open() && link.baud > 0 ? std::to_string(link.baud) + " baud" : unknown;
    words.firmware = trimmed(link.firmware).empty() ? unknown : link.firmware;
    words.status = statusWords(link);
    words.healthy = link.open() && link.status >= 0 && link.statusText.empty();
    return words;
}

std::string whyNotToAsk(const LinkState& link) {
    if (link.demo) return "This is the demonstration: no LCU is behind its port.";
    if (!link.open()) {
        return "No LCU is connected. Leave this screen and press Acquire or Calib/test: Tarvik then searches "
               "the ports.";
    }
    if (link.acquiring) return "A run is under way: the LCU cannot be asked before it has ended.";
    if (link.busy) return "The LCU is busy with another command. Wait a moment and try again.";
    return {};
}

std::string statusOutcome(LinkResult result, const LinkState& link) {
    switch (result) {
    case LinkResult::good:
        return "The LCU answers and reports no error.";
    case LinkResult::busy:
        return "The LCU is busy with another command. Wait a moment and try again.";
    case LinkResult::failed:
        break;
    }
    if (link.status < 0) return "The LCU does not answer. Check its power, the cable and the port.";
    return "The LCU reports an error (value " + std::to_string(link.status) +
           "). What each error means stands in the event log.";
}

FirmwareWords readFirmware(LcuCommands& lcu) {
    const std::string box(trimmed(lcu.LCU_FirmwareVersion()));
    const std::string tool(trimmed(lcu.LCU_ToolFirmwareVersion()));
    return {.lcu = box.empty() ? "no answer" : box, .tool = tool == "??" ? "no answer" : tool};
}

} // namespace tarvik
