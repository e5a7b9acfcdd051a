// The diagnostics console: an engineer talks to the LCU by hand.
//
// Waiting lets the window system run, so whatever the operator orders in the meantime is put in a queue and
// done when the exchange in hand is over, in the order in which it was ordered. While scans are acquired the
// queue is served between two looks at the line. All on one thread; `serve` does the work.
#pragma once

#include "app/operator_side.h"
#include "app/settings.h"
#include "equipment/tool_winch_data.h"
#include "lcu/diagnostics_acquisition.h"
#include "lcu/diagnostics_log.h"
#include "lcu/lcu_commands.h"
#include "platform/clock.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// Whoever shows the console.
class DiagnosticsView {
  public:
    virtual ~DiagnosticsView() = default;
    /// A line of the status list, "hh:mm:ss  \b\0text".
    virtual void statusLine(std::string_view viewerLine) = 0;
    virtual void statusCleared() = 0;
    /// What the data log has grown by.
    virtual void dataAppended(std::string_view text) = 0;
    /// Status bits, depth, winch test, acquisition or the latest scan.
    virtual void changed() = 0;
    /// After each look at the line of a stream, every 20 ms: the moment for a stop.
    virtual void looked() {}
};

/// All outlive the console.
struct DiagnosticsModules {
    ErrorTrap& errors;
    StatusLog& log;
    const Clock& clock;
    SerialPort& serial;
    LinkState& link;
    LcuCommands& lcu;
    ToolWinchData& equipment;
    const Settings& settings;
    std::function<void()> findLcu; ///< the program's search
};

/// "- - - - - - - -" without a valid status (below 1), else the eight bits, bit 7 first: "1 0 0 1 0 0 0 1".
[[nodiscard]] std::string statusBitsText(std::int32_t status);

class DiagnosticsConsole final : private StatusViewer {
  public:
    static constexpr std::int64_t depthEveryMs = 500;
    static constexpr std::size_t statusLinesKept = 5000;

    DiagnosticsConsole(const DiagnosticsModules& modules, DiagnosticsView& view);
    /// Closes it.
    ~DiagnosticsConsole() override;
    DiagnosticsConsole(const DiagnosticsConsole&) = delete;
    DiagnosticsConsole& operator=(const DiagnosticsConsole&) = delete;

    void open();
    /// Stops what goes on. Call it when nothing is being served; `stop` comes first.
    void close();

    /// One command or several, one a line; blank lines are passed over.
    void send(std::string_view commands);
    void cominitdepth(double metres);
    void comwinchtest();
    void comreset();
    void comfindLCU();
    void comclearlog();
    void comclearstatus();
    /// Gives up what is still to be sent, and ends acquisition (stopping the stream) and winch test.
    void stop();

    /// Whoever shows the console calls it a few times a second: due depth readings, orders that had to wait.
    void tick();

    [[nodiscard]] bool serving() const { return serving_; }
    [[nodiscard]] bool acquiring() const { return acquiring_; }
    [[nodiscard]] bool winchTestRuns() const { return winchTest_; }
    [[nodiscard]] std::string_view winchTestCaption() const {
        return winchTest_ ? "STOP Winch test" : "RUN Winch test";
    }
    [[nodiscard]] std::string statusBits() const { return statusBitsText(status_); }
    [[nodiscard]] std::int32_t status() const { return status_; }
    /// The clear-to-send line of the port; nothing without a port, or when the port has no such line.
    [[nodiscard]] std::optional<bool> clearToSend() const { return clearToSend_; }
    [[nodiscard]] std::optional<double> depth() const { return depth_; } ///< metres
    [[nodiscard]] const std::optional<DiagnosticsScan>& latestScan() const { return scan_; }
    [[nodiscard]] long scans() const { return scans_; } ///< since the stream was started
    [[nodiscard]] const DiagnosticsLog& dataLog() const { return data_; }
    [[nodiscard]] const std::vector<std::string>& statusList() const { return statusList_; }

  private:
    void showStatusLine(std::string_view viewerLine) override;
    void order(std::function<void()> act);
    void serve();
    bool trapped(std::string_view routine, const std::function<void()>& act);
    [[nodiscard]] bool portIsOpen();
    void sendOne(const std::string& command);
    void Diag_StartDataAcquisition();
    void acquire();
    void takeScan();
    void stopAcquisition();
    void leaveAcquisition();
    void startWinchTest();
    void stopWinchTest();
    void readDepth();
    void takeState();
    [[nodiscard]] std::optional<bool> readClearToSend();

    DiagnosticsModules modules_;
    DiagnosticsView& view_;
    DiagnosticsAcquisition line_;
    DiagnosticsLog data_;
    std::vector<std::string> statusList_;
    std::deque<std::function<void()>> orders_;

    bool open_ = false;
    bool serving_ = false;
    bool acquiring_ = false;
    bool winchTest_ = false;
    std::int64_t depthTick_ = 0;
    std::int64_t lineTick_ = 0;
    std::optional<bool> clearToSend_;
    std::int32_t status_ = -1;
    std::optional<double> depth_;
    std::optional<DiagnosticsScan> scan_;
    long scans_ = 0;
};

} // namespace tarvik
