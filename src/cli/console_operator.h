// The operator's side at a terminal: everything goes to standard error, nothing waits for a key.
#pragma once

#include "app/operator_side.h"
#include "app/status_log.h"
#include "cli/console_lines.h"

#include <functional>
#include <set>
#include <string>
#include <utility>

namespace tarvik {

class ConsoleOperator final : public OperatorSide {
  public:
    using Asker = std::function<Answer(std::string_view question)>;

    /// `answer` goes to every question: what the command line asked for has been thought about.
    explicit ConsoleOperator(ConsoleLines& lines, Answer answer = Answer::no)
        : lines_(lines), answer_(answer) {}
    /// `asker` is asked instead.
    ConsoleOperator(ConsoleLines& lines, Asker asker) : lines_(lines), asker_(std::move(asker)) {}

    void message(std::string_view title, std::string_view text, Icon icon) override;
    Answer ask(std::string_view title, std::string_view text, Icon icon) override;
    void notice(std::string_view title, std::string_view text, Icon icon) override;
    void showError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed) override;
    void showOverflow(std::span<const std::string> lines, const ErrorFiling& filed) override;
    void beep() override {}
    void statusText(std::string_view text) override;
    void linkPanel(std::string_view text) override;

    /// Whatever else went well, not everything did.
    [[nodiscard]] bool hasShownErrors() const { return errorShown_; }

  private:
    ConsoleLines& lines_;
    Answer answer_ = Answer::no;
    Asker asker_;
    std::set<std::string> notices_; ///< said once
    bool errorShown_ = false;
};

/// The red lines of the status log, each text once: why the ports of a search cannot be opened, what is
/// damaged in an equipment file.
class RedLines final : public StatusViewer {
  public:
    explicit RedLines(ConsoleLines& lines) : lines_(lines) {}

    void showStatusLine(std::string_view viewerLine) override;

  private:
    ConsoleLines& lines_;
    std::set<std::string, std::less<>> shown_;
};

} // namespace tarvik
