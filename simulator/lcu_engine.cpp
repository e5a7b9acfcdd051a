#include "simulator/lcu_engine.h"

#include "simulator/command_table.h"
#include "simulator/scan_maker.h"
#include "simulator/timed_line.h"
#include "simulator/transmitter.h"
#include "simulator/winch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

namespace lcusim {

namespace {

constexpr std::size_t longestCommand = 80;
constexpr std::uint8_t commandError = 1U << 6;
constexpr int settlingScans = 2; ///< after the tool has been powered up
constexpr Micros afterShortScan = 300 * millisecond;

// By when an answer is complete, with the line's own time left out; hosts wait 300, 100 and 20 ms.
constexpr Micros statusPromise = 200 * millisecond;
constexpr Micros versionPromise = 70 * millisecond;
constexpr Micros depthPromise = 8 * millisecond;

/// When scans are taken.
struct Sampling {
    bool byDepth = false;
    std::int64_t step = 0; ///< depth counts, above 0
    int direction = 1;     ///< +1 down, -1 up
    Micros period = second / 2;
};

Micros endOf(Micros now, double milliseconds) {
    return milliseconds <= 0 ? never
                             : now + static_cast<Micros>(milliseconds * static_cast<double>(millisecond));
}

} // namespace

class LcuEngine::Box {
  public:
    Box(const SimulatorOptions& options, const ToolProfile& tool, Recorder& recorder)
        : options_(options),
          traits_(traitsOf(options.model)),
          recorder_(recorder),
          tool_(tool, options.mode, options.seed),
          winch_(options.winch, options.gentle, options.seed ^ 0x5769),
          faults_(options.faults),
          scans_(options, tool_, faults_),
          toHost_(options, recorder),
          random_(options.seed ^ 0x426F78) {
        setHostSpeed(9600);
    }

    void setHostSpeed(int baud) {
        hostBaud_ = baud;
        const int own = options_.onlyBaud.value_or(baud);
        fromHost_.setBaud(own);
        toHost_.setBaud(own);
        refresh();
    }

    void hear(std::span<const std::uint8_t> bytes, Micros now) {
        if (!lineUp(now)) return;
        for (const std::uint8_t byte : bytes) {
            if (understandsHost())
                fromHost_.push({.value = byte, .notBefore = now});
            else if (!options_.gentle)
                fromHost_.push({.value = random_.byte(), .notBefore = now});
        }
        refresh();
    }

    void advance(Micros now, ByteSink& host) {
        while (next_ <= now) {
            step(std::max(next_, now_), host);
            refresh();
        }
        now_ = std::max(now_, now);
        winch_.advance(now_);
    }

    [[nodiscard]] Micros nextEvent() const { return next_; }
    [[nodiscard]] bool lineUp() const { return lineUp(now_); }
    [[nodiscard]] bool streaming() const { return streaming_; }
    [[nodiscard]] double depth() const { return winch_.depth(); }
    [[nodiscard]] const HolePath& holePath() const { return tool_.holePath(); }

  private:
    using Handler = void (Box::*)(const Command&);

    [[nodiscard]] bool lineUp(Micros now) const { return now >= downUntil_; }
    [[nodiscard]] bool understandsHost() const { return options_.onlyBaud.value_or(hostBaud_) == hostBaud_; }
    [[nodiscard]] bool silent() const { return now_ < silentUntil_; }

    // The course of time.

    void refresh() {
        next_ = std::min({fromHost_.dueAt(), toHost_.dueAt(), winch_.nextChange(), scanDueAt(), resetAt_});
        if (downUntil_ > now_) next_ = std::min(next_, downUntil_);
    }

    void step(Micros now, ByteSink& host) {
        now_ = now;
        winch_.advance(now);
        if (now >= resetAt_) switchOn();
        if (fromHost_.dueAt() <= now)
            hearByte(fromHost_.pop().value);
        else if (toHost_.dueAt() <= now)
            toHost_.deliver(host, reach(), now);
        else if (scanDueAt() <= now)
            sampleStream();
    }

    [[nodiscard]] Reach reach() const {
        if (!lineUp()) return Reach::nobody;
        return understandsHost() ? Reach::host : Reach::wrongSpeed;
    }

    void switchOn() {
        resetAt_ = never;
        streaming_ = false;
        latched_ = 0;
        command_.clear();
        sampling_ = {};
        settling_ = settlingScans;
    }

    // Scans.

    [[nodiscard]] double countsPerMetre() const { return 100 * traits_.countsPerCentimetre; }
    [[nodiscard]] std::int64_t encoderCount() const {
        return std::llround(winch_.depth() * countsPerMetre());
    }
    [[nodiscard]] std::int64_t triggerCount() const {
        return lastCount_ + sampling_.direction * sampling_.step;
    }

    [[nodiscard]] Micros scanDueAt() const {
        if (!streaming_) return never;
        if (!sampling_.byDepth) return lastScanAt_ + sampling_.period;
        const double trigger = static_cast<double>(triggerCount()) / countsPerMetre();
        const bool beyond = sampling_.direction * (winch_.depth() - trigger) >= 0;
        return beyond ? now_ : winch_.timeToReach(trigger);
    }

    void sampleStream() {
        const std::int64_t trigger = triggerCount();
        const std::int64_t count = encoderCount();
        // The counter stands on the trigger itself when a scan is taken in time.
        const bool inTime = sampling_.byDepth && std::abs(count - trigger) <= 1;
        takeScan(inTime ? trigger : count);
    }

    void takeScan(std::int64_t count) {
        ++scan_;
        strikeScan();
        const Micros sinceLast = now_ - lastScanAt_;
        lastScanAt_ = now_;
        lastCount_ = count;
        ScanFrame frame = scans_.make({.number = scan_,
                                       .at = now_,
                                       .sinceLast = sinceLast,
                                       .depth = winch_.depth(),
                                       .depthCount = static_cast<std::int32_t>(count + counterError_),
                                       .settling = settling_ > 0});
        settling_ = std::max(0, settling_ - 1);
        if (silent() || now_ < quietUntil_) return toHost_.dropScan(frame.record);
        toHost_.sendScan(frame, now_, sinceLast);
        if (faults_.forScan(FaultKind::shortScan, scan_)) quietUntil_ = now_ + afterShortScan;
    }

    // Faults of the box itself. Those of a scan's bytes and of an answer's are with them.

    void strikeScan() {
        for (const auto& [kind, strike] : boxFaults) {
            if (const auto value = faults_.forScan(kind, scan_)) (this->*strike)(*value);
        }
    }
    void strikeCommand() {
        for (const auto& [kind, strike] : boxFaults) {
            if (const auto value = faults_.takeForCommand(kind, heard_)) (this->*strike)(*value);
        }
    }

    void stall(double ms) { winch_.stallUntil(endOf(now_, ms)); }
    void fallSilent(double ms) { silentUntil_ = endOf(now_, ms); }
    void hangUp(double ms) { downUntil_ = endOf(now_, ms); }
    void cutPower(double ms) { resetAt_ = silentUntil_ = endOf(now_, ms); }
    void jump(double centimetres) {
        counterError_ += std::llround(centimetres * traits_.countsPerCentimetre);
    }

    struct BoxFault {
        FaultKind kind;
        void (Box::*strike)(double value);
    };
    static constexpr std::array<BoxFault, 5> boxFaults{{
        {FaultKind::stall, &Box::stall},
        {FaultKind::silence, &Box::fallSilent},
        {FaultKind::hangUp, &Box::hangUp},
        {FaultKind::powerCut, &Box::cutPower},
        {FaultKind::depthJump, &Box::jump},
    }};

    // Commands.

    void hearByte(std::uint8_t byte) {
        if (silent()) return command_.clear();
        if (byte == '\n') {
            obey(parseCommand(options_.model, command_));
            command_.clear();
        } else if (command_.size() <= longestCommand) { // one too many: no command is that long
            command_.push_back(static_cast<char>(byte));
        }
    }

    void obey(const Command& command) {
        ++heard_;
        recorder_.command({heard_, now_, std::string(command.text), command.verb != Verb::unknown});
        strikeCommand();
        if (silent() || !lineUp()) return;
        (this->*handlers[static_cast<std::size_t>(command.verb)])(command);
    }

    void onUnknown(const Command&) { latched_ |= commandError; }
    void onSetUp(const Command& command) { tool_.setSensorFactors(command.text); }

    void onStatus(const Command& command) {
        std::uint8_t status = traits_.healthyStatus | latched_;
        if (const auto bit = faults_.takeForCommand(FaultKind::statusBits, heard_))
            status |= static_cast<std::uint8_t>(1U << (static_cast<unsigned>(*bit) & 7U));
        latched_ = 0;
        reply(command, std::array{static_cast<char>(status)}, statusPromise);
    }

    void onStop(const Command&) {
        streaming_ = false;
        latched_ = 0;
        toHost_.withdrawScans();
        winch_.stop();
    }

    void onStart(const Command&) {
        if (streaming_) return;
        streaming_ = true;
        lastScanAt_ = now_;
        lastCount_ = encoderCount();
        const auto delay = static_cast<Micros>(options_.winch.startDelay * static_cast<double>(second));
        winch_.startAt(now_ + delay, options_.winch.direction.value_or(sampling_.direction));
    }

    void onSingle(const Command&) { takeScan(encoderCount()); }
    void onBoxFirmware(const Command& command) { reply(command, options_.boxFirmware, versionPromise); }

    void onToolFirmware(const Command& command) {
        if (!options_.toolFirmware.empty()) reply(command, options_.toolFirmware, versionPromise);
    }

    void onPowerOff(const Command& command) {
        onStop(command);
        switchOn();
    }

    void onDepth(const Command& command) {
        const double counts = static_cast<double>(encoderCount() + counterError_);
        const auto cm = static_cast<std::uint32_t>(std::llround(counts / traits_.countsPerCentimetre));
        reply(command,
              std::array{static_cast<char>(cm >> 16), static_cast<char>(cm >> 8), static_cast<char>(cm)},
              depthPromise);
    }

    /// A counter that is being driven by the encoder cannot be set.
    void onSetDepth(const Command& command) {
        if (winch_.moving()) return;
        winch_.setDepth(command.number / 100);
        counterError_ = 0;
        lastCount_ = encoderCount();
    }

    void onByDepth(const Command& command) {
        sampling_.byDepth = true;
        sampling_.direction = command.number < 0 ? -1 : 1;
        sampling_.step = std::llround(std::abs(command.number));
    }

    void onByTime(const Command& command) {
        sampling_.byDepth = false;
        sampling_.period = std::max<Micros>(millisecond, std::llround(command.number * 10'000));
    }

    /// In the order of the verbs.
    static constexpr std::array<Handler, verbCount> handlers{
        &Box::onUnknown,     &Box::onStatus,       &Box::onStop,     &Box::onStart, &Box::onSingle,
        &Box::onBoxFirmware, &Box::onToolFirmware, &Box::onPowerOff, &Box::onDepth, &Box::onSetDepth,
        &Box::onByDepth,     &Box::onByTime,       &Box::onSetUp,
    };

    /// An answer opens with a byte that nobody looks at: the command's own first letter, or just noise.
    void reply(const Command& command, std::span<const char> answer, Micros promise) {
        std::string bytes(1, options_.gentle ? command.text.front() : static_cast<char>(random_.byte()));
        bytes.append(answer.begin(), answer.end());
        const auto due = [&](FaultKind kind) { return faults_.takeForCommand(kind, heard_); };
        if (due(FaultKind::noReply)) return;
        if (const auto echo = due(FaultKind::wrongEcho))
            bytes[0] = static_cast<char>(static_cast<int>(*echo));
        if (const auto missing = due(FaultKind::shortReply))
            bytes.resize(bytes.size() - std::min(bytes.size(), static_cast<std::size_t>(*missing)));
        if (const auto more = due(FaultKind::longReply))
            for (int i = 0; i < static_cast<int>(*more); ++i)
                bytes.push_back(static_cast<char>(random_.byte()));
        const double late = due(FaultKind::lateReply).value_or(0);
        const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
        toHost_.sendReply({first, bytes.size()}, now_, static_cast<Micros>(late * 1000), promise);
    }

    SimulatorOptions options_;
    ModelTraits traits_;
    Recorder& recorder_;
    DownholeTool tool_;
    Winch winch_;
    FaultPlan faults_;
    ScanMaker scans_;
    TimedLine fromHost_{4096};
    Transmitter toHost_;
    Random random_;

    int hostBaud_ = 0;
    std::string command_;
    std::int64_t heard_ = 0;
    std::uint8_t latched_ = 0; ///< error bits of the next status answer
    Sampling sampling_;

    bool streaming_ = false;
    std::int64_t scan_ = 0;
    Micros lastScanAt_ = 0;
    std::int64_t lastCount_ = 0;    ///< encoder count of the last scan
    std::int64_t counterError_ = 0; ///< counts by which the counter is off the encoder
    int settling_ = settlingScans;

    Micros silentUntil_ = 0;
    Micros quietUntil_ = 0; ///< takes no scans, hears commands
    Micros downUntil_ = 0;
    Micros resetAt_ = never;

    Micros now_ = 0;
    Micros next_ = never;
};

LcuEngine::LcuEngine(const SimulatorOptions& options, const ToolProfile& tool, Recorder& recorder)
    : box_(std::make_unique<Box>(options, tool, recorder)) {}
LcuEngine::~LcuEngine() = default;

void LcuEngine::setHostSpeed(int baud) {
    box_->setHostSpeed(baud);
}
void LcuEngine::hear(std::span<const std::uint8_t> bytes, Micros now) {
    box_->hear(bytes, now);
}
void LcuEngine::advance(Micros now, ByteSink& host) {
    box_->advance(now, host);
}
Micros LcuEngine::nextEvent() const {
    return box_->nextEvent();
}
bool LcuEngine::lineUp() const {
    return box_->lineUp();
}
bool LcuEngine::streaming() const {
    return box_->streaming();
}
double LcuEngine::depth() const {
    return box_->depth();
}
const HolePath& LcuEngine::holePath() const {
    return box_->holePath();
}

} // namespace lcusim
