#include "simulator/faults.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace lcusim {

namespace {

constexpr auto scanSite = FaultSite::scan;
constexpr auto replySite = FaultSite::reply;
constexpr auto eitherSite = FaultSite::either;

constexpr std::array<FaultRule, 20> rules{{
    {"short-scan", FaultKind::shortScan, scanSite, 0,
     "cut after VALUE bytes (0: half), then 300 ms of nothing"},
    {"zero-length", FaultKind::zeroLength, scanSite, 0, "the length byte is 0"},
    {"extra-bytes", FaultKind::extraBytes, scanSite, 7,
     "VALUE bytes too many, in one burst with the second half"},
    {"slow-scan", FaultKind::slowScan, scanSite, 250, "a pause of VALUE ms in the middle"},
    {"garbage", FaultKind::garbage, scanSite, 20, "VALUE random bytes before the scan"},
    {"empty-scan", FaultKind::emptyScan, scanSite, 0, "a whole scan of VALUE data bytes only"},
    {"wrong-channels", FaultKind::wrongChannels, scanSite, 1, "VALUE channels more (or, negative, fewer)"},
    {"over-current", FaultKind::overCurrent, scanSite, 0,
     "tool current VALUE mA (0: a tenth above the maximum)"},
    {"status-bits", FaultKind::statusBits, eitherSite, 2, "bit VALUE of the status byte set"},
    {"zero-scan-time", FaultKind::zeroScanTime, scanSite, 0, "time count 0"},
    {"depth-jump", FaultKind::depthJump, scanSite, 1000, "the depth counter jumps by VALUE cm"},
    {"stall", FaultKind::stall, eitherSite, 5000, "the winch stands for VALUE ms (0: for ever)"},
    {"silence", FaultKind::silence, eitherSite, 3000, "sends and hears nothing for VALUE ms (0: for ever)"},
    {"hang-up", FaultKind::hangUp, eitherSite, 2000, "the device goes for VALUE ms (0: for ever)"},
    {"power-cut", FaultKind::powerCut, eitherSite, 2000, "as silence; then the box is as just switched on"},
    {"late-reply", FaultKind::lateReply, replySite, 500, "the answer comes VALUE ms late"},
    {"no-reply", FaultKind::noReply, replySite, 0, "no answer"},
    {"short-reply", FaultKind::shortReply, replySite, 1, "the last VALUE bytes of the answer are missing"},
    {"long-reply", FaultKind::longReply, replySite, 1, "VALUE random bytes after the answer"},
    {"wrong-echo", FaultKind::wrongEcho, replySite, 0, "the first byte of the answer is VALUE"},
}};

/// Takes a number off the front of the text.
template <typename Number>
bool takeNumber(std::string_view& text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{}) return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

bool takeCharacter(std::string_view& text, char character) {
    if (text.empty() || text.front() != character) return false;
    text.remove_prefix(1);
    return true;
}

ParsedFault refused(std::string_view text, std::string_view why) {
    std::string problem = "fault \"";
    problem += text;
    problem += "\": ";
    problem += why;
    return {{}, std::move(problem)};
}

} // namespace

std::span<const FaultRule> faultRules() {
    return rules;
}

ParsedFault parseFault(std::string_view text) {
    const std::size_t at = text.find('@');
    if (at == std::string_view::npos) return refused(text, "write it as NAME@SCAN, NAME@cCOMMAND");
    const auto rule = std::ranges::find(rules, text.substr(0, at), &FaultRule::name);
    if (rule == rules.end()) return refused(text, "no fault has this name, --help lists them");

    std::string_view rest = text.substr(at + 1);
    Fault fault{.kind = rule->kind, .value = rule->value};
    fault.byCommand = takeCharacter(rest, 'c');
    if (!takeNumber(rest, fault.at) || fault.at < 1) return refused(text, "a number from 1 follows the @");
    if (takeCharacter(rest, 'x') && (!takeNumber(rest, fault.count) || fault.count < 1))
        return refused(text, "a count from 1 follows the x");
    if (takeCharacter(rest, '=') && !takeNumber(rest, fault.value))
        return refused(text, "a number follows the equals sign");
    if (!rest.empty()) return refused(text, "something is left over behind it");

    if (rule->site == scanSite && fault.byCommand) return refused(text, "strikes scans, not commands");
    if (rule->site == replySite) fault.byCommand = true;
    return {fault, {}};
}

FaultPlan::FaultPlan(std::vector<Fault> faults) : faults_(std::move(faults)) {}

std::optional<double> FaultPlan::forScan(FaultKind kind, std::int64_t scan) const {
    const auto due = std::ranges::find_if(faults_, [&](const Fault& fault) {
        return fault.kind == kind && !fault.byCommand && scan >= fault.at && scan < fault.at + fault.count;
    });
    if (due == faults_.end()) return {};
    return due->value;
}

std::optional<double> FaultPlan::takeForCommand(FaultKind kind, std::int64_t commandsHeard) {
    const auto due = std::ranges::find_if(faults_, [&](const Fault& fault) {
        return fault.kind == kind && fault.byCommand && commandsHeard >= fault.at && fault.count > 0;
    });
    if (due == faults_.end()) return {};
    --due->count;
    return due->value;
}

} // namespace lcusim
