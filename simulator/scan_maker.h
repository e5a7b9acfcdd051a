// Makes one scan: what the tool measures, what the box adds, and the faults ordered for it.
#pragma once

#include "simulator/downhole_tool.h"
#include "simulator/faults.h"
#include "simulator/options.h"
#include "simulator/random.h"
#include "simulator/scan_encoder.h"
#include "simulator/transmitter.h"

#include <cstdint>

namespace lcusim {

/// When and where a scan is taken.
struct Sample {
    std::int64_t number = 0;
    Micros at = 0;
    Micros sinceLast = 0;
    double depth = 0; ///< metres
    std::int32_t depthCount = 0;
    bool settling = false; ///< the tool has only just come up: its counts and the time count are rubbish
};

class ScanMaker {
  public:
    ScanMaker(const SimulatorOptions& options, DownholeTool& tool, const FaultPlan& faults);

    [[nodiscard]] ScanFrame make(const Sample& sample);

  private:
    [[nodiscard]] ScanContent content(const Sample& sample, ScanRecord& record);

    LcuModel model_;
    bool gentle_;
    DownholeTool& tool_;
    const FaultPlan& faults_;
    Random random_;
};

} // namespace lcusim
