// A screen that is not built yet says so, and what to do meanwhile.
#pragma once

#include "screens/screen_dialog.h"

#include <string_view>

namespace tarvik {

class NotBuiltScreen final : public ScreenDialog {
  public:
    /// The screen by its name, such as "frmBatchProcessing".
    NotBuiltScreen(std::string_view screen, DesktopMemory& memory, QWidget* parent = nullptr);

  protected:
    void showEvent(QShowEvent* event) override;
};

} // namespace tarvik
