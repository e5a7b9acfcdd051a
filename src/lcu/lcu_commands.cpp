#include "lcu/lcu_commands.h"

#include "base/rounding.h"
#include "base/text.h"
#include "lcu/lcu_models.h"
#include "lcu/link_claim.h"

#include <array>
#include <tuple>
#include <utility>

namespace tarvik {

namespace {

constexpr std::int32_t commandWaitMs = 250;
constexpr std::int32_t statusWaitMs = 300;
constexpr std::int32_t versionWaitMs = 100;
constexpr std::int32_t depthWaitMs = 20;
constexpr std::int32_t resetPauseMs = 50;

struct StatusBit {
    int bit;
    std::string_view message;
};

constexpr std::array<StatusBit, 4> statusBits{{
    {1, "....Error - LCU has not got block"},
    {2, "....Error - LCU receiver has timed out"},
    {3, "....Error - LCU Data Check sum error"},
    {6, "....Error - LCU Command error"},
}};

LinkResult resultOf(std::int32_t portCode) {
    return portCode == 1 ? LinkResult::good : LinkResult::failed;
}

} // namespace

// ---- The public routines: each holds the link from its first byte to its last answer.

template <class Result, class Body>
Result LcuCommands::holdingLink(Result refused, Body&& body) {
    if (link_.demo) return refused; // no device is behind the port number
    const LinkClaim claim(link_);
    if (claim) return body();
    log_.red("The LCU is busy with another command - please try again");
    return refused;
}

LinkResult LcuCommands::LCU_Command(std::string_view text) {
    return holdingLink(LinkResult::busy, [&] { return command(text); });
}

LinkResult LcuCommands::LCU_Reset() {
    return holdingLink(LinkResult::busy, [&] { return reset(); });
}

LinkResult LcuCommands::stopStream() {
    return holdingLink(LinkResult::busy, [&] { return stop(); });
}

LinkResult LcuCommands::LCU_PowerOFF_Reset() {
    return holdingLink(LinkResult::busy, [&] { return powerOff(); });
}

LinkResult LcuCommands::LCU_Status() {
    return holdingLink(LinkResult::busy, [&] { return status(); });
}

std::string LcuCommands::LCU_FirmwareVersion() {
    return holdingLink(std::string(), [&] {
        return errors_.run("LCUFunctions-LCU_FirmwareVersion", std::string(), [&](Level&) {
            link_.firmware = askForVersion("Y");
            return link_.firmware;
        });
    });
}

std::string LcuCommands::LCU_ToolFirmwareVersion() {
    const std::string unknown = " ??";
    return holdingLink(unknown, [&] {
        return errors_.run("LCUFunctions-LCU_ToolFirmwareVersion", unknown, [&](Level&) {
            const std::string version = askForVersion("y");
            return version.empty() ? unknown : version;
        });
    });
}

std::optional<std::int32_t> LcuCommands::LCU_SetDepth(double centimetres) {
    using Depth = std::optional<std::int32_t>;
    return holdingLink(Depth(), [&] {
        return errors_.run("LCUFunctions-LCU_SetDepth", Depth(), [&](Level& level) {
            const std::string text = "D" + std::to_string(toInt32(centimetres));
            level = 1;
            port_.send(text);
            port_.wait(depthWaitMs);
            return depth();
        });
    });
}

std::optional<std::int32_t> LcuCommands::LCU_getdepth() {
    return holdingLink(std::optional<std::int32_t>(), [&] { return depth(); });
}

LinkResult LcuCommands::sendPlain(std::string_view text) {
    return holdingLink(LinkResult::busy, [&] { return resultOf(port_.send(text)); });
}

// ---- The routines themselves.

LinkResult LcuCommands::command(std::string_view text, Complaint complaint) {
    return errors_.run("LCUFunctions-LCU_Command", LinkResult::failed, [&](Level& level) {
        port_.send(text);
        port_.wait(commandWaitMs);
        level = 1; // checking
        const LinkResult result = status();
        level = 2; // telling
        const std::string sent(text);
        if (result != LinkResult::good) {
            complain("Problems sending this command to LCU > " + sent + "\r\n" + link_.statusText, complaint);
            log_.black("Above problems occurred after sending " + sent + " to " + link_.model);
        } else if (!link_.diagnosticsOpen) {
            log_.black("Command " + sent + " sent to " + link_.model + " OK.");
        }
        return result;
    });
}

LinkResult LcuCommands::reset() {
    return errors_.run("LCUFunctions-LCU_Reset", LinkResult::failed, [&](Level& level) {
        command("X");
        port_.wait(resetPauseMs);
        command("X");
        level = 1;
        const LinkResult result = status();
        if (result == LinkResult::good) {
            log_.black("LCU reset OK");
        } else {
            log_.red("LCU reset error");
        }
        showLink();
        return result;
    });
}

LinkResult LcuCommands::stop() {
    return errors_.run("LCUFunctions-LCU_StopDataStream", LinkResult::failed, [&](Level&) {
        const bool gone = port_.waiting() < 0;
        const LinkResult result = gone ? LinkResult::failed : command("X", Complaint::passes);
        if (result == LinkResult::good) {
            log_.black("LCU data stream stopped OK");
        } else {
            log_.red("LCU data stream stop error");
        }
        return result;
    });
}

LinkResult LcuCommands::powerOff() {
    return errors_.run("LCUFunctions-LCU_PowerOFF_Reset", LinkResult::failed, [&](Level& level) {
        command("X");
        command("P");
        const LcuModel* model = modelNamed(link_.model);
        if (model && model->powerDownEndsWithEr0) command("ER0");
        level = 1;
        const LinkResult result = status();
        if (result == LinkResult::good) {
            log_.black("LCU powered down OK");
        } else {
            log_.red("Problems powering down LCU");
        }
        link_.toolPower = false;
        link_.powerDoubtful = result != LinkResult::good;
        showLink();
        return result;
    });
}

LinkResult LcuCommands::status() {
    return errors_.run("LCUFunctions-LCU_Status", LinkResult::failed, [&](Level& level) {
        link_.status = -1;
        link_.statusText.clear();
        level = 1; // asking, at most twice
        std::int32_t count = askForStatus();
        if (count == 0 || count == 1) {
            log_.black("LCU Status: LCU did not respond to status request");
            log_.red("STATUS : Trying a second time for LCU status");
            count = askForStatus();
        }
        if (count < 0) log_.black("LCU Status : Expected characters not rec'd");
        if (count < 2) return noAnswer();
        level = 2;                  // reading
        std::ignore = port_.next(); // echo of the command
        return judge(port_.next());
    });
}

/// Bytes waiting after the full wait. The status is the second of two: fewer are no answer.
std::int32_t LcuCommands::askForStatus() {
    if (const std::int32_t code = port_.send("Q"); code != 1) {
        log_.red("LCU Status : Problem with sending chars to port " + std::to_string(code));
    }
    if (const std::int32_t code = port_.wait(statusWaitMs); code != 1) {
        log_.black("LCU Status : Problem with comms port wait " + std::to_string(code));
    }
    return port_.waiting();
}

LinkResult LcuCommands::noAnswer() {
    link_.statusText = "  No chars recd from LCU ";
    log_.red("LCU Status: LCU did not respond to status request");
    return LinkResult::failed;
}

LinkResult LcuCommands::judge(std::int32_t value) {
    link_.status = value;
    setLost(false);
    if (const LcuModel* model = modelWithStatus(value)) {
        // Only an LCU2Plus names itself with every status; an LCU4 is named by the search alone.
        if (model == lcu2Plus) setModel(link_, model);
        return LinkResult::good;
    }
    link_.statusText = "Error : " + std::to_string(value);
    log_.red("LCU Status error - value " + std::to_string(value));
    for (const StatusBit& error : statusBits) {
        if ((value >> error.bit & 1) != 0) log_.red(error.message);
    }
    return LinkResult::failed;
}

std::optional<std::int32_t> LcuCommands::depth() {
    using Depth = std::optional<std::int32_t>;
    return errors_.run("LCUFunctions-LCU_getdepth", Depth(), [&](Level& level) {
        Depth result;
        const std::int32_t came = port_.ask("D", depthWaitMs);
        depthAnswered_ = came >= 4; // a torn answer tells no depth, as none does
        if (came == 4) {
            level = 1;
            std::ignore = port_.next(); // echo of the command
            const std::int32_t high = port_.next();
            const std::int32_t middle = port_.next();
            const std::int32_t low = port_.next();
            const std::int32_t count = high * 65536 + middle * 256 + low;
            result = count >= 8'388'608 ? count - 16'777'216 : count;
        }
        port_.discard();
        return result;
    });
}

/// The characters behind the first byte, which is an echo of the command; "" without an answer.
std::string LcuCommands::askForVersion(std::string_view text) {
    const std::int32_t count = port_.ask(text, versionWaitMs);
    std::string version;
    if (count >= 2) {
        std::ignore = port_.next();
        for (std::int32_t i = 1; i < count; ++i) {
            if (const std::int32_t byte = port_.next(); byte >= 0) version += static_cast<char>(byte);
        }
    }
    port_.wait(versionWaitMs);
    port_.discard();
    return fromAnsi(version);
}

void LcuCommands::complain(std::string_view text, Complaint complaint) {
    constexpr std::string_view title = "Communications error";
    if (link_.acquiring || complaint == Complaint::passes) {
        operator_.notice(title, text, Icon::critical);
    } else {
        operator_.message(title, text, Icon::critical);
    }
}

void LcuCommands::setLost(bool lost) {
    if (std::exchange(link_.lost, lost) != lost) showLink();
}

void LcuCommands::showLink() {
    if (watcher_) watcher_->linkChanged(link_);
}

} // namespace tarvik
