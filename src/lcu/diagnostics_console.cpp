#include "lcu/diagnostics_console.h"

#include "base/text.h"
#include "lcu/depth_setting.h"
#include "lcu/link_claim.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr double metresPerCentimetre = 0.01;

/// A powered-down or stopped box sends no scans.
bool endsTheStream(std::string_view command) {
    return command == "X" || command == "P";
}

} // namespace

std::string statusBitsText(std::int32_t status) {
    if (status < 1) return "- - - - - - - -";
    std::string text;
    for (int bit = 7; bit >= 0; --bit) {
        text += (status >> bit & 1) != 0 ? '1' : '0';
        if (bit > 0) text += ' ';
    }
    return text;
}

DiagnosticsConsole::DiagnosticsConsole(const DiagnosticsModules& modules, DiagnosticsView& view)
    : modules_(modules), view_(view), line_(modules.serial, modules.log, modules.link) {}

DiagnosticsConsole::~DiagnosticsConsole() {
    close();
}

// ---- Opening and closing

void DiagnosticsConsole::open() {
    if (open_) return;
    open_ = true;
    modules_.log.addViewer(*this);
    modules_.link.diagnosticsOpen = true;
    modules_.log.blue("Diagnostics mode activated");
    takeState();
    view_.changed();
}

void DiagnosticsConsole::close() {
    if (!open_) return;
    orders_.clear();
    stopAcquisition();
    stopWinchTest();
    open_ = false;
    modules_.link.diagnosticsOpen = false;
    modules_.log.blue("Diagnostics mode closed");
    modules_.log.removeViewer(*this);
}

void DiagnosticsConsole::showStatusLine(std::string_view viewerLine) {
    statusList_.emplace_back(viewerLine);
    if (statusList_.size() > statusLinesKept) statusList_.erase(statusList_.begin());
    view_.statusLine(viewerLine);
}

// ---- Orders of the operator

void DiagnosticsConsole::order(std::function<void()> act) {
    orders_.push_back(std::move(act));
    serve();
}

void DiagnosticsConsole::serve() {
    if (serving_ || !open_ || modules_.link.busy) return;
    serving_ = true;
    while (!orders_.empty() || acquiring_) {
        if (orders_.empty()) {
            if (!trapped("Diag_StartDataAcquisition", [this] { acquire(); })) leaveAcquisition();
            continue;
        }
        const auto act = std::move(orders_.front());
        orders_.pop_front();
        trapped("comsend_Click", act);
        line_.resume(); // an exchange tears the stream
        takeState();
        view_.changed();
    }
    serving_ = false;
    view_.changed();
}

/// What fails ends with its report; the console stays open.
bool DiagnosticsConsole::trapped(std::string_view routine, const std::function<void()>& act) {
    return modules_.errors.runIn("frmDiagnostics", routine, false, [&](Level&) {
        act();
        return true;
    });
}

void DiagnosticsConsole::tick() {
    const bool due = winchTest_ && modules_.clock.tickMs() - depthTick_ >= depthEveryMs;
    if (due && !serving_ && !modules_.link.busy) {
        depthTick_ = modules_.clock.tickMs();
        orders_.emplace_back([this] { readDepth(); });
    }
    if (!orders_.empty()) serve();
    if (serving_ || modules_.link.busy || modules_.clock.tickMs() - lineTick_ < depthEveryMs) return;
    lineTick_ = modules_.clock.tickMs();
    if (const auto now = readClearToSend(); now != clearToSend_) {
        clearToSend_ = now;
        view_.changed();
    }
}

void DiagnosticsConsole::stop() {
    orders_.clear();
    if (serving_ || acquiring_ || winchTest_) { // the order in hand may be about to start a stream
        order([this] {
            stopAcquisition();
            stopWinchTest();
        });
    }
}

void DiagnosticsConsole::send(std::string_view commands) {
    while (!commands.empty()) {
        const std::size_t end = std::min(commands.find('\n'), commands.size());
        std::string_view line = commands.substr(0, end);
        commands.remove_prefix(std::min(end + 1, commands.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        line = trimmed(line);
        if (line.empty()) continue;
        orders_.emplace_back([this, command = std::string(line)] { sendOne(command); });
    }
    serve();
}

bool DiagnosticsConsole::portIsOpen() {
    if (!modules_.link.open()) modules_.log.red("No port is open - find the LCU first");
    return modules_.link.open();
}

void DiagnosticsConsole::sendOne(const std::string& command) {
    if (!portIsOpen()) return;
    if (command == "Q") {
        modules_.log.black("Sent status command");
        modules_.lcu.LCU_Status();
        return;
    }
    // With the stream wanted no box may wait for the operator.
    if (command == "V") modules_.link.acquiring = true;
    modules_.lcu.LCU_Command(command);
    if (command == "V") {
        modules_.log.blue("Data acquisition started");
        Diag_StartDataAcquisition();
    } else if (endsTheStream(command)) {
        leaveAcquisition();
    }
}

void DiagnosticsConsole::cominitdepth(double metres) {
    order([this, metres] {
        if (!portIsOpen()) return;
        if (setWinchDepth(modules_.lcu, modules_.log, metres) == DepthSetting::done) depth_ = metres;
    });
}

void DiagnosticsConsole::comreset() {
    order([this] {
        if (!portIsOpen()) return;
        modules_.lcu.LCU_Reset();
        leaveAcquisition();
    });
}

void DiagnosticsConsole::comfindLCU() {
    order([this] {
        leaveAcquisition();
        modules_.findLcu();
    });
}

void DiagnosticsConsole::comclearlog() {
    data_.clear();
}

void DiagnosticsConsole::comclearstatus() {
    statusList_.clear();
    view_.statusCleared();
    showStatusLine(formatDate(modules_.clock.now(), "hh:mm:ss") + " \\B\\1 Status list cleared");
}

void DiagnosticsConsole::takeState() {
    status_ = modules_.link.status;
    clearToSend_ = readClearToSend();
}

std::optional<bool> DiagnosticsConsole::readClearToSend() {
    if (!modules_.link.open()) return std::nullopt;
    const std::int32_t state = modules_.serial.ComGetCTSStatus(modules_.link.port);
    return state < 0 ? std::nullopt : std::optional(state != 0);
}

// ---- Winch test

void DiagnosticsConsole::comwinchtest() {
    if (winchTest_) {
        stopWinchTest();
    } else if (portIsOpen()) {
        startWinchTest();
    }
    view_.changed();
}

void DiagnosticsConsole::startWinchTest() {
    winchTest_ = true;
    depthTick_ = modules_.clock.tickMs();
    modules_.log.blue("Winch test started");
}

void DiagnosticsConsole::stopWinchTest() {
    if (!winchTest_) return;
    winchTest_ = false;
    modules_.log.blue("Winch test stopped");
}

void DiagnosticsConsole::readDepth() {
    if (!winchTest_) return; // stopped while the order waited
    if (const auto centimetres = modules_.lcu.LCU_getdepth()) {
        depth_ = *centimetres * metresPerCentimetre;
    } else {
        modules_.log.red("Obtaining depth - failed !");
    }
}

// ---- Data acquisition

void DiagnosticsConsole::Diag_StartDataAcquisition() {
    scans_ = 0;
    acquiring_ = true;
    modules_.link.acquiring = true;
    line_.start();
}

void DiagnosticsConsole::acquire() {
    using Look = DiagnosticsAcquisition::Look;
    const int pollsBefore = line_.polls();
    Look look = Look::nothing;
    {
        const LinkClaim claim(modules_.link);
        if (!claim) {
            modules_.serial.ComSleepMS(modules_.link.port, DiagnosticsAcquisition::pollMs);
            return;
        }
        look = line_.look();
    }
    if (look == Look::scan) takeScan();
    if (look == Look::gone) {
        modules_.log.red("The serial port has gone - check the cable, then find the LCU again");
        leaveAcquisition();
        modules_.link.status = -1;
        takeState();
    }
    if (look != Look::nothing || line_.polls() < pollsBefore) view_.changed();
    view_.looked();
}

void DiagnosticsConsole::takeScan() {
    const DiagnosticsDecoding decoding{.errors = modules_.errors,
                                       .log = modules_.log,
                                       .tool = modules_.equipment.currentTool(),
                                       .model = modules_.link.model,
                                       .winchScaleFactor = modules_.settings.winchScaleFactor.value()};
    DiagnosticsScan scan;
    if (!Diag_Getvalues(decoding, line_.bytes(), scan)) {
        modules_.log.red("Problems deciphering data from LCU");
        line_.resume(); // it may have begun in the middle of another
        status_ = -1;
        return;
    }
    ++scans_;
    scan_ = scan;
    status_ = scan.status;
    depth_ = scan.depth;
    if (const std::string appended = data_.diag_logdata(scan); !appended.empty())
        view_.dataAppended(appended);
}

/// The operator's stop: the box is told, too.
void DiagnosticsConsole::stopAcquisition() {
    if (!acquiring_) return;
    modules_.lcu.stopStream();
    leaveAcquisition();
}

void DiagnosticsConsole::leaveAcquisition() {
    if (!acquiring_) return;
    acquiring_ = false;
    modules_.link.acquiring = false;
    modules_.log.black("Data acquisition STOPPED");
}

} // namespace tarvik
