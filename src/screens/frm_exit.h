// The exit confirmation: a flashing question, "Yes" and "No".
#pragma once

#include "app/exit_prompt.h"
#include "screens/screen_dialog.h"

#include <QTimer>

class QLabel;

namespace tarvik {

class frmExit final : public ScreenDialog {
  public:
    frmExit(ExitPrompt prompt, DesktopMemory& memory, QWidget* parent = nullptr);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void answer(bool yes);
    void flash();

    ExitPrompt prompt_;
    QLabel* label_;
    QTimer timer_;
};

} // namespace tarvik
