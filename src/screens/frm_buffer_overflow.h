// What a buffer overflow was made of, as the error file has it. Shown while a run goes on, so it never waits
// to be read: a further overflow replaces the text and is counted.
#pragma once

#include "app/error_filing.h"
#include "app/repeat_count.h"
#include "screens/screen_dialog.h"

#include <span>
#include <string>

class QLabel;
class QPlainTextEdit;

namespace tarvik {

class frmBufferOverflow final : public ScreenDialog {
  public:
    explicit frmBufferOverflow(DesktopMemory& memory, QWidget* parent = nullptr);

    /// Shows the form without blocking.
    void showOverflow(std::span<const std::string> lines, const ErrorFiling& filed, const CivilTime& now);

    /// Once it is closed the count begins afresh.
    void done(int result) override;

  private:
    RepeatCount count_;
    QLabel* when_;
    QPlainTextEdit* analysis_;
    QLabel* file_;
};

} // namespace tarvik
