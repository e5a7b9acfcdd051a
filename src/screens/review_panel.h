// The side frame in review: which run is shown, and what can be done with it.
#pragma once

#include "base/review_log.h"

#include <QFrame>

#include <functional>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tarvik {

struct ReviewPanelActions {
    std::function<void()> open;
    std::function<void()> details;
    std::function<void()> exportLas;
    std::function<void()> calibrations;
};

class ReviewPanel final : public QFrame {
  public:
    explicit ReviewPanel(ReviewPanelActions actions);

    /// Null: no run is open.
    void showRun(const ReviewLog* log, const QString& file);

  private:
    ReviewPanelActions actions_;
    QLabel* heading_;
    QLabel* facts_;
    QPushButton* details_;
    QPushButton* export_;
};

} // namespace tarvik
