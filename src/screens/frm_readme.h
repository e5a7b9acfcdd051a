// The release notes.
#pragma once

#include "screens/screen_dialog.h"

namespace tarvik {

class frmReadme final : public ScreenDialog {
  public:
    explicit frmReadme(DesktopMemory& memory, QWidget* parent = nullptr);
};

} // namespace tarvik
