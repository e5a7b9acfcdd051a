// The search for an LCU: which of the serial ports that the settings name has one, at which speed, and which
// model it is.
#pragma once

#include "app/error_trap.h"
#include "app/link_state.h"
#include "app/operator_side.h"
#include "app/status_log.h"
#include "lcu/lcu_commands.h"
#include "lcu/lcu_port.h"
#include "lcu/search_report.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tarvik {

enum class SearchResult {
    found,     ///< the port is open, the link state says which model and firmware
    notFound,  ///< no port is open, the model is empty
    cancelled, ///< likewise
    busy,      ///< nothing was done: an exchange is under way
};

class LcuSearch {
  public:
    LcuSearch(ErrorTrap& errors, StatusLog& log, OperatorSide& operatorSide, LcuPort& port,
              LcuCommands& commands, LinkState& link)
        : errors_(errors),
          log_(log),
          operator_(operatorSide),
          port_(port),
          commands_(commands),
          link_(link) {}

    /// `lcuComms`: 12 tries COM1 and COM2, 34 COM3 and COM4, 1 to 4 that port alone; anything else is 12.
    /// Each port is tried at 9600 and at 115200 baud, one try each. A port that is open is closed first.
    /// `cancelled` is asked after every wait; when it says true the search ends.
    SearchResult LCU_Locate(std::int32_t lcuComms, const std::function<bool()>& cancelled = {});

    /// What the last search met on the ports where it found no LCU; empty before the first.
    [[nodiscard]] std::vector<PortReport> report() const { return reportOf(tries_); }
    /// The operator ended the last search.
    [[nodiscard]] bool cancelled() const { return cancelled_; }

  private:
    enum class Answer { lcu, other, cancelled };

    SearchResult tryPorts(std::int32_t lcuComms, const std::function<bool()>& cancelled);
    Answer tryPort(std::int32_t port, std::int32_t baud, const std::function<bool()>& cancelled);
    std::int32_t readStatus();
    void announce();

    ErrorTrap& errors_;
    StatusLog& log_;
    OperatorSide& operator_;
    LcuPort& port_;
    LcuCommands& commands_;
    LinkState& link_;
    std::vector<PortTry> tries_;
    bool cancelled_ = false;
};

} // namespace tarvik
