// How a run samples: by time or by depth, how often, in which direction and unit. The fields, and the way
// from the settings and back; the screens that hold them only lay them out.
#pragma once

#include "app/settings.h"

class QBoxLayout;
class QButtonGroup;
class QLineEdit;

namespace tarvik {

class Field;

/// Where the fields are added, in this order; several may be the same.
struct SamplingPlaces {
    QBoxLayout& method;
    QBoxLayout& interval;
    QBoxLayout& direction;
    QBoxLayout& units;
};

class SamplingFields {
  public:
    explicit SamplingFields(const SamplingPlaces& places);
    SamplingFields(const SamplingFields&) = delete;
    SamplingFields& operator=(const SamplingFields&) = delete;

    void load(const Settings& settings);
    void store(Settings& settings) const;
    /// The one that can be wrong.
    [[nodiscard]] Field* interval() const { return interval_; }

  private:
    void showUnit();
    [[nodiscard]] Sampling sampling() const;
    [[nodiscard]] DepthUnits units() const;

    QButtonGroup* method_;
    QLineEdit* intervalEdit_;
    Field* interval_;
    QButtonGroup* direction_;
    QButtonGroup* units_;
};

} // namespace tarvik
