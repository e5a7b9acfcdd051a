// A run-time error: where it happened, its number, and the file to send to support. Not modal; the same error
// again is counted.
#pragma once

#include "app/error_filing.h"
#include "app/error_trap.h"
#include "screens/screen_dialog.h"

class QLabel;

namespace tarvik {

class frmERROR final : public ScreenDialog {
  public:
    explicit frmERROR(DesktopMemory& memory, QWidget* parent = nullptr);

    void showError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed);

  private:
    QLabel* what_;
    QLabel* facts_;
    QLabel* file_;
    QLabel* times_;
    QString shown_;
    int count_ = 0;
};

} // namespace tarvik
