// The commands of the LCU: short texts ended by a line feed, answered by a few bytes.
//
// Every command first discards waiting bytes. Failures come back as a result other than `good`, never as an
// exception, after their lines in the status log. A command that is called while another waits for its answer
// is refused. The boxes of failed commands wait for the operator unless scans are being acquired
// (LinkState::acquiring); then they are notices.
#pragma once

#include "app/error_trap.h"
#include "app/link_state.h"
#include "app/operator_side.h"
#include "app/status_log.h"
#include "lcu/lcu_port.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvik {

/// How an exchange with the LCU ended. Anything but `good` has been explained in the status log.
enum class LinkResult : std::int32_t {
    busy = -1, ///< refused: another exchange is under way
    failed = 0,
    good = 1,
};

/// Whoever shows the link: the indicators of the main screen and of the calibration screen.
class LinkWatcher {
  public:
    virtual ~LinkWatcher() = default;
    virtual void linkChanged(const LinkState& link) = 0;
};

/// After a power-down that the LCU has not confirmed.
inline constexpr std::string_view toolPowerUnknown =
    "The LCU has not confirmed that it powered the tool down. Switch the LCU off before anyone touches the "
    "tool.";

class LcuCommands {
  public:
    LcuCommands(ErrorTrap& errors, StatusLog& log, OperatorSide& operatorSide, LcuPort& port, LinkState& link)
        : errors_(errors), log_(log), operator_(operatorSide), port_(port), link_(link) {}

    /// Sends the text and asks for the status; `good` when the status is.
    LinkResult LCU_Command(std::string_view text);
    /// On the wire: X Q X Q Q.
    LinkResult LCU_Reset();
    /// Stops the scan stream. On the wire: X Q. It is what one does on leaving: what goes wrong is said
    /// without a box that waits, and to a port that has gone nothing is sent.
    LinkResult stopStream();
    /// Powers the tool down. On the wire: X Q P Q, an LCU4 also ER0 Q, then the Q whose answer counts.
    LinkResult LCU_PowerOFF_Reset();
    /// Asks at most twice. Status and text are left in the link state.
    LinkResult LCU_Status();

    /// Also kept in the link state. Without an answer "".
    std::string LCU_FirmwareVersion();
    /// Without an answer " ??".
    std::string LCU_ToolFirmwareVersion();

    /// Sets the winch depth counter; gives the depth that the LCU reports afterwards. Both in centimetres,
    /// whatever the model.
    std::optional<std::int32_t> LCU_SetDepth(double centimetres);
    /// Centimetres; nothing when the answer is not exactly four bytes.
    std::optional<std::int32_t> LCU_getdepth();
    /// Did any byte come back when a depth was last asked for? Then the line is there, and what came was
    /// wrong.
    [[nodiscard]] bool depthAnswered() const { return depthAnswered_; }

    /// Sends without asking for the status: "V" starts the stream, and an answer would get lost in it.
    LinkResult sendPlain(std::string_view text);

    /// Said by whoever listens to the stream: nothing comes any more, or something comes again.
    void setLost(bool lost);

    /// Told after a reset, after a power-down and when the box is lost or found again. Null: nobody.
    void setWatcher(LinkWatcher* watcher) { watcher_ = watcher; }

  private:
    // The same routines, called while the link is held.
    enum class Complaint { waits, passes }; ///< does its box wait for the operator?
    LinkResult command(std::string_view text, Complaint complaint = Complaint::waits);
    LinkResult reset();
    LinkResult stop();
    LinkResult powerOff();
    LinkResult status();
    std::optional<std::int32_t> depth();

    std::int32_t askForStatus();
    LinkResult noAnswer();
    LinkResult judge(std::int32_t value);
    void complain(std::string_view text, Complaint complaint);
    std::string askForVersion(std::string_view text);
    void showLink();

    template <class Result, class Body>
    Result holdingLink(Result refused, Body&& body);

    ErrorTrap& errors_;
    StatusLog& log_;
    OperatorSide& operator_;
    LcuPort& port_;
    LinkState& link_;
    LinkWatcher* watcher_ = nullptr;
    bool depthAnswered_ = false;
};

} // namespace tarvik
