// The operator's side of the program: boxes to answer, notices to read, lines to watch. The desktop, the
// command line and the tests each bring their own.
#pragma once

#include "app/error_filing.h"
#include "app/error_trap.h"

#include <span>
#include <string>
#include <string_view>

namespace tarvik {

enum class Icon { none, information, exclamation, question, critical };
enum class Answer { no, yes };

class OperatorSide {
  public:
    virtual ~OperatorSide() = default;

    /// A box that waits to be read. Never called while the winch turns.
    virtual void message(std::string_view title, std::string_view text, Icon icon) = 0;
    virtual Answer ask(std::string_view title, std::string_view text, Icon icon) = 0;

    /// Shown without blocking; the same notice again is counted, not shown twice.
    virtual void notice(std::string_view title, std::string_view text, Icon icon) = 0;
    /// What the notices of this title say is over. Nothing where notices do not stay.
    virtual void noticeIsOver(std::string_view) {}
    /// The error dialog's content.
    virtual void showError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed) = 0;

    /// The buffer-overflow form's content, without blocking; unless shown otherwise, a notice.
    virtual void showOverflow(std::span<const std::string> lines, const ErrorFiling&) {
        std::string text;
        for (const std::string& line : lines) text.append(text.empty() ? 0 : 1, '\n').append(line);
        notice("Buffer overflow", text, Icon::exclamation);
    }

    virtual void beep() = 0;
    /// The short text of what the program is doing ("Searching for LCU"), and the link panel beside it.
    virtual void statusText(std::string_view text) = 0;
    virtual void linkPanel(std::string_view text) = 0;
};

} // namespace tarvik
