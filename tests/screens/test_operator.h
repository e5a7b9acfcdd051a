// The operator's side in tests: keeps what is shown, answers as told.
#pragma once

#include "app/operator_side.h"

#include <string>
#include <vector>

namespace tarvik::test {

class TestOperator final : public OperatorSide {
  public:
    void message(std::string_view title, std::string_view text, Icon) override { keep("!", title, text); }
    Answer ask(std::string_view title, std::string_view text, Icon) override {
        keep("*", title, text);
        return answer;
    }
    void notice(std::string_view title, std::string_view text, Icon) override { keep("?", title, text); }
    void showError(const ErrorReport& error, std::string_view, const ErrorFiling&) override {
        keep("E", error.routine, error.description);
    }
    void beep() override { ++beeps; }
    void statusText(std::string_view) override {}
    void linkPanel(std::string_view) override {}

    std::vector<std::string> shown; ///< "!" box, "*" question, "?" notice, "E" error; then "title: text"
    Answer answer = Answer::yes;
    int beeps = 0;

  private:
    void keep(std::string kind, std::string_view title, std::string_view text) {
        shown.push_back(kind.append(title).append(": ").append(text));
    }
};

} // namespace tarvik::test
