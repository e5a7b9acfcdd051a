// What this program is, its version and the machine it runs on.
#pragma once

#include "app/system_information.h"
#include "app/version.h"
#include "screens/screen_dialog.h"

namespace tarvik {

class frmAbout final : public ScreenDialog {
  public:
    frmAbout(const Version& version, const SystemTexts& system, const QString& programFolder,
             DesktopMemory& memory, QWidget* parent = nullptr);
};

} // namespace tarvik
