// Where a value stands across its track: 0 at the left end of the scale, 1 at the right end. Either end may
// be the greater one. Beyond the ends the fraction goes on, so that a curve can come round again from the
// other side (its first backup runs from 1 to 2).
#pragma once

#include <string>

namespace tarvik {

enum class ScaleKind { linear, logarithmic };

struct CurveScale {
    ScaleKind kind = ScaleKind::linear;
    double left = 0;
    double right = 1; ///< differs from left; both above 0 on a logarithmic scale

    friend bool operator==(const CurveScale&, const CurveScale&) = default;
};

[[nodiscard]] bool isUsable(const CurveScale& scale);

/// Maps values of one scale; holds what all of them share. An unusable scale puts everything at the left end.
class ScaleMap {
  public:
    explicit ScaleMap(const CurveScale& scale);

    /// Between -furthest and furthest; what has no logarithm lies at the end where small values are.
    [[nodiscard]] double fraction(double value) const;
    [[nodiscard]] double value(double fraction) const;
    /// Greater values stand further right.
    [[nodiscard]] bool rising() const { return factor_ > 0; }

    static constexpr double furthest = 50;

  private:
    ScaleKind kind_;
    double origin_;
    double factor_;
};

/// The scale of the n-th backup: 0 to 150 continues as 150 to 300.
[[nodiscard]] CurveScale backupOf(const CurveScale& scale, int n);

/// An end of a scale as it stands in a head: "150", "2.95", "0.2".
[[nodiscard]] std::string scaleEndText(double value);

} // namespace tarvik
