// Which part of a run that is being logged the window shows: it follows the tool up and down the hole until
// the operator looks back, and follows again when he asks for it or comes back to the tool.
//
// Positions are metres, or seconds where the run is shown by time. The view moves by whole pixels only, so
// that what is on the screen can be scrolled instead of drawn.
#pragma once

#include "base/run_setup.h"
#include "display/display_view.h"
#include "display/review_tools.h"

#include <optional>

namespace tarvik {

/// A scroll bar, in painter units.
struct ScrollRange {
    long most = 0; ///< the bar runs from 0
    long page = 1;
    long at = 0;
};

class LiveView {
  public:
    /// Another run, of which nothing has come yet.
    void begin(Axis axis, Direction direction, double scale, double dotsPerInch);

    /// Painter units, and the pixels to each.
    void setArea(double width, double bodyHeight, double pixelRatio);
    void setEquallySpaced(bool spaced) { view_.equallySpaced = spaced; }
    /// 1:`scale`; the tool stays where it is in the window, or the middle does.
    void setScale(double scale);
    /// The same run by depth or by time, at the tool.
    void setAxis(Axis axis);

    /// What the run covers so far and where the tool is.
    void toolAt(double position, const Extent& run);

    /// By painter units, positive further down the log: the operator looks back. Moved towards the tool until
    /// it is in sight, the view follows again.
    void scroll(double units);
    void scrollTo(long barValue);
    /// The start of what is held, wherever the tool is.
    void toFirst();
    void follow();

    [[nodiscard]] const DisplayView& view() const { return view_; }
    [[nodiscard]] double bodyHeight() const { return bodyHeight_; }
    [[nodiscard]] double scale() const { return scale_; }
    [[nodiscard]] bool following() const { return following_; }
    /// Below the upper edge of the body; nothing before the first point.
    [[nodiscard]] std::optional<double> toolHeight() const {
        return tool_ ? std::optional(view_.yOf(*tool_)) : std::nullopt;
    }
    [[nodiscard]] ScrollRange range() const;

  private:
    [[nodiscard]] bool upwards() const { return view_.axis == Axis::depth && upwards_; }
    [[nodiscard]] Extent tops() const;
    void moveBy(double units);
    void keepToolInSight();
    void placeRun();

    DisplayView view_;
    double scale_ = 200;
    double bodyHeight_ = 0;
    double pixel_ = 1; ///< painter units
    bool upwards_ = false;
    bool following_ = true;
    std::optional<double> tool_;
    Extent run_;
};

} // namespace tarvik
