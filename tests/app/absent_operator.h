// The operator's side with nobody there: nothing is kept, every question gets a no.
#pragma once

#include "app/operator_side.h"

namespace tarvik::test {

class AbsentOperator : public OperatorSide {
  public:
    void message(std::string_view, std::string_view, Icon) override {}
    Answer ask(std::string_view, std::string_view, Icon) override { return Answer::no; }
    void notice(std::string_view, std::string_view, Icon) override {}
    void showError(const ErrorReport&, std::string_view, const ErrorFiling&) override {}
    void beep() override {}
    void statusText(std::string_view) override {}
    void linkPanel(std::string_view) override {}
};

} // namespace tarvik::test
