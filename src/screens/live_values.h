// What the channels of the tool read while a run goes on: a card for each, in digits to be read from afar.
#pragma once

#include "base/current_scan.h"
#include "base/run_header.h"

#include <QScrollArea>

#include <vector>

class QLabel;
class QGridLayout;

namespace tarvik {

class LiveValues final : public QScrollArea {
  public:
    LiveValues();

    /// One card for each channel of the run but Speed, which the instrument shows.
    void setRun(const RunHeader& header);
    void showScan(const CurrentScan& scan);

  private:
    QGridLayout* cards_;
    std::vector<QLabel*> values_;
};

} // namespace tarvik
