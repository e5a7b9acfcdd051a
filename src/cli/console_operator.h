// The operator's side at a terminal: everything goes to standard error, nothing waits for a key.
#pragma once

#include "app/operator_side.h"

#include <functional>
#include <map>
#include <string>
#include <utility>

namespace tarvik {

class ConsoleOperator final : public OperatorSide {
  public:
    using Asker = std::function<Answer(std::string_view question)>;

    /// The answer to every question: what the command line asked for has been thought about.
    explicit ConsoleOperator(Answer answer = Answer::no) : answer_(answer) {}
    /// Who is asked instead.
    explicit ConsoleOperator(Asker asker) : asker_(std::move(asker)) {}

    void message(std::string_view title, std::string_view text, Icon icon) override;
    Answer ask(std::string_view title, std::string_view text, Icon icon) override;
    void notice(std::string_view title, std::string_view text, Icon icon) override;
    void showError(const ErrorReport& error, std::string_view dateTime, std::string_view errorFile) override;
    void beep() override {}
    void statusText(std::string_view text) override;
    void linkPanel(std::string_view text) override;

  private:
    Answer answer_ = Answer::no;
    Asker asker_;
    std::map<std::string, int> notices_;
};

} // namespace tarvik
