// The operator's side on the desktop: boxes over the main screen, notices in its strip, texts in its status
// bar. Before the main screen exists, boxes stand alone and notices wait for it.
#pragma once

#include "app/operator_side.h"
#include "platform/clock.h"

#include <functional>
#include <string>
#include <vector>

namespace tarvik {

class IntroScreen;

/// What is shown in screens of its own, without blocking.
struct ReportScreens {
    std::function<void(const ErrorReport&, std::string_view dateTime, const ErrorFiling&)> error;
    std::function<void(std::span<const std::string> lines, const ErrorFiling&)> overflow;
};

class ScreenOperator final : public OperatorSide {
  public:
    /// Null when the main screen goes.
    void attach(IntroScreen* screen, const Clock* clock);
    /// The display has gone: from here on nothing is shown, and questions are answered with no.
    void goUnseen();
    void setReports(ReportScreens reports) { reports_ = std::move(reports); }

    void message(std::string_view title, std::string_view text, Icon icon) override;
    Answer ask(std::string_view title, std::string_view text, Icon icon) override;
    void notice(std::string_view title, std::string_view text, Icon icon) override;
    void noticeIsOver(std::string_view title) override;
    void showError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed) override;
    void showOverflow(std::span<const std::string> lines, const ErrorFiling& filed) override;
    void beep() override;
    void statusText(std::string_view text) override;
    void linkPanel(std::string_view text) override;

  private:
    struct Waiting {
        std::string title;
        std::string text;
        Icon icon;
    };

    IntroScreen* screen_ = nullptr;
    const Clock* clock_ = nullptr;
    ReportScreens reports_;
    bool unseen_ = false;
    std::vector<Waiting> waiting_; ///< notices from before the main screen
};

} // namespace tarvik
