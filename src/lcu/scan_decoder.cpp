#include "lcu/scan_decoder.h"

#include "base/rounding.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace tarvik {

namespace {

/// The box needs two scans to settle after the stream has started.
constexpr std::int32_t scansWithoutValues = 2;

/// 12 bits with a sign. 2048 itself stays positive; the raw decoder's rule is another one, on purpose.
constexpr int signed12(int word) {
    return word > 2048 ? word - 4096 : word;
}

constexpr int signed16(int word) {
    return word > 32767 ? word - 65536 : word;
}

float wholeNumber(double value) {
    return static_cast<float>(roundHalfEven(value));
}

double offsets(const RunSetup& run) {
    return (double{run.offset1} + double{run.offset2}) * 0.01;
}

std::size_t channelIndex(int channel) {
    return static_cast<std::size_t>(std::clamp(channel, 0, maxChannels));
}

// The conversion types of a channel: counts to channel value. Nothing: the channel reads 0, calibrated too.

using Conversion = std::optional<float> (*)(int counts, float periodConstant, std::int32_t scanTime);

std::optional<float> noChannel(int, float, std::int32_t) {
    return std::nullopt;
}
std::optional<float> countRate(int counts, float, std::int32_t scanTime) {
    return wholeNumber(counts * 10000.0 / scanTime);
}
std::optional<float> period(int counts, float periodConstant, std::int32_t) {
    if (counts == 0) return std::nullopt;
    return static_cast<float>(double{periodConstant} * 1'000'000.0 / counts);
}
std::optional<float> signedLevel(int counts, float, std::int32_t) {
    return static_cast<float>(signed12(counts));
}
std::optional<float> plainLevel(int counts, float, std::int32_t) {
    return static_cast<float>(counts);
}

constexpr std::array<Conversion, 6> conversions{noChannel,   countRate,  period,
                                                signedLevel, plainLevel, plainLevel};

Conversion conversionOf(std::int16_t kind) {
    const bool known = kind >= 0 && static_cast<std::size_t>(kind) < conversions.size();
    return known ? conversions[static_cast<std::size_t>(kind)] : noChannel;
}

} // namespace

float scanDepth(const ScanBytes& scan, const RunSetup& run) {
    std::int32_t count = scan.depthCount();
    // 0x800000 itself stays positive; the raw decoder's rule is another one, on purpose.
    if (count > 0x800000) count -= 0x1000000;
    return static_cast<float>(count * 0.01 * run.winchDepthFactor * run.depthScaleFactor);
}

bool isNearRange(double depth, const RunSetup& run) {
    return depth >= run.topDepth - 100 && depth <= run.bottomDepth + 1000;
}

void ScanDecoder::LCU_GetValues(std::span<const std::uint8_t> bytes) {
    errors_.run("LCUFunctions-LCU_GetValues", [&](Level& level) {
        CurrentScan& current = state_.current;
        state_.flags = {};
        std::fill_n(current.channels.begin() + 1, channelIndex(current.channelCount), 0.0F);
        if (state_.scans <= scansWithoutValues) return;
        if (bytes.empty()) return decodeEmpty();
        const ScanBytes scan(bytes);
        level = 1;
        decodeTrailer(scan);
        level = 2;
        current.depth = scanDepth(scan, setup_.run);
        judgeDepth();
        level = 3;
        decodeTime(scan);
        level = 4;
        decodeChannels(scan);
        level = 5;
        deriveChannels();
    });
}

void ScanDecoder::decodeEmpty() {
    log_.red("Problems deciphering data from LCU");
    CurrentScan& current = state_.current;
    current.status = -1;
    current.toolCurrent = 0;
    current.toolVoltage = 0;
    current.auxiliaryWord = 0;
    current.depth = 0;
    current.channelCount = 0;
    state_.carriedChannels = 0;
    std::fill_n(current.channels.begin() + 1, 10, 0.0F);
}

void ScanDecoder::decodeTrailer(const ScanBytes& scan) {
    CurrentScan& current = state_.current;
    if (setup_.model == lcu4) {
        current.status = scan.byteFromEnd(6);
        current.toolCurrent = wholeNumber(std::abs(signed12(scan.wordFromEnd(1))) * 0.55);
        current.toolVoltage = wholeNumber(std::abs(signed12(scan.wordFromEnd(3))) * 0.0485);
        current.auxiliaryWord = scan.wordFromEnd(5);
    } else if (setup_.model == lcu2Plus) {
        current.status = scan.byteFromEnd(1);
        current.toolCurrent = static_cast<float>(scan.byteFromEnd(0));
        current.toolVoltage = 0;
        current.auxiliaryWord = 0;
    }
    if (setup_.model) state_.carriedChannels = scan.channels(*setup_.model);
}

/// Whether the scan lies in the logged interval, is a sample, and is the last one.
void ScanDecoder::judgeDepth() {
    const RunSetup& run = setup_.run;
    ScanFlags& flags = state_.flags;
    const double depth = state_.current.depth;
    // The offsets count against the bottom only.
    flags.inRange = run.limitsOverride || (depth + offsets(run) <= run.bottomDepth && depth >= run.topDepth);
    flags.nearRange = isNearRange(depth, run);

    if (flags.inRange && state_.lastSampledDepth == noDepthSampled) {
        state_.lastSampledDepth = state_.current.depth;
        return;
    }
    flags.advance = advances();
    if (!flags.advance) return;
    if (run.sampling == Sampling::depth) state_.lastSampledDepth = state_.current.depth;
    flags.endReached = !run.limitsOverride && distanceLeft() < run.endDistance;
}

/// By depth: the tool has moved on, by less than a metre (more is a jump, and no sample is taken from then
/// on until the depth comes back). By time every scan in range counts.
bool ScanDecoder::advances() const {
    const RunSetup& run = setup_.run;
    if (run.sampling == Sampling::time) return state_.flags.inRange;
    const double down = double{state_.current.depth} - double{state_.lastSampledDepth};
    const double moved = run.direction == Direction::up ? -down : down;
    return moved > 0 && moved < 1;
}

/// To the end of the logged interval. The offsets count on the way down only.
double ScanDecoder::distanceLeft() const {
    const RunSetup& run = setup_.run;
    const double depth = state_.current.depth;
    if (run.direction == Direction::up) return depth - run.topDepth;
    return run.bottomDepth - offsets(run) - depth;
}

void ScanDecoder::decodeTime(const ScanBytes& scan) {
    CurrentScan& current = state_.current;
    current.scanTime = scan.timeCount();
    // The sum is full after 59 hours and stays there.
    const std::int32_t room = std::numeric_limits<std::int32_t>::max() - current.elapsedTime;
    current.elapsedTime += std::min(current.scanTime, room);
}

void ScanDecoder::decodeChannels(const ScanBytes& scan) {
    if (state_.current.scanTime == 0) {
        state_.current.channels.fill(0);
        state_.current.calibrated.fill(0);
        return;
    }
    for (int channel = 1; channel <= setup_.channels; ++channel) {
        const int word = scan.channelWord(channel);
        convertChannel(channelIndex(channel), channel >= rule_.signedFrom ? signed16(word) : word);
    }
}

void ScanDecoder::convertChannel(std::size_t channel, int counts) {
    CurrentScan& current = state_.current;
    const SensorFactor& sensor = setup_.factors[channel];
    const auto value = conversionOf(sensor.kind)(counts, sensor.factor, current.scanTime);
    current.channels[channel] = value.value_or(0.0F);
    current.calibrated[channel] = 0;
    if (value) calibrate(channel);
}

void ScanDecoder::deriveChannels() {
    CurrentScan& current = state_.current;
    const int carried = state_.carriedChannels;
    const int last = std::min(carried + rule_.derivedChannels, maxChannels);
    current.channelCount = toInt16(std::max(carried, last));
    if (rule_.derivedChannels == 0 || current.scanTime == 0) return;

    const int first = std::max(rule_.firstDerived != 0 ? rule_.firstDerived : carried + 1, 1);
    for (int channel = first; channel <= std::max(last, rule_.zeroUpTo); ++channel) {
        current.channels[channelIndex(channel)] = 0;
    }
    if (rule_.constantChannel != 0) current.channels[channelIndex(rule_.constantChannel)] = rule_.constant;
    // A scan with another number of channels is none of this tool's: it must not lengthen the way of the
    // hole.
    if (rule_.deviation && deviation_ && carried == setup_.channels) deviation_->derive(current);
    for (int channel = first; channel <= last; ++channel) {
        calibrate(channelIndex(channel));
    }
}

void ScanDecoder::ConvertToCalibData(std::int16_t channel) {
    errors_.run("LCUFunctions-ConvertToCalibData", [&](Level&) {
        if (channel < 1 || channel > maxChannels) {
            throw Failure(ErrorNumber::subscriptOutOfRange, "There is no channel " + std::to_string(channel));
        }
        calibrate(static_cast<std::size_t>(channel));
    });
}

void ScanDecoder::calibrate(std::size_t channel) {
    const ScanSetup::Polynomial& polynomial = setup_.polynomials[channel];
    state_.current.calibrated[channel] =
        evaluateCalibration(polynomial.order, polynomial.coefficients, state_.current.channels[channel]);
}

} // namespace tarvik
