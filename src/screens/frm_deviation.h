// The magnetic declination of the deviation tool, and which north its azimuths are counted from.
#pragma once

#include "app/stored_settings.h"
#include "screens/screen_dialog.h"

class QButtonGroup;
class QLabel;
class QLineEdit;

namespace tarvik {

class Field;

class frmDeviation final : public ScreenDialog {
  public:
    frmDeviation(Settings& settings, StoredSettings& store, DesktopMemory& memory, QWidget* parent = nullptr);

  private:
    enum North { magneticNorth, trueNorth, userNorth };

    void buildNorth();
    void load();
    void save();
    void showMeaning();
    [[nodiscard]] North north() const;

    Settings& settings_;
    StoredSettings& store_;
    QButtonGroup* north_ = nullptr;
    QLineEdit* edit_;
    Field* declination_;
    QLabel* meaning_;
    QLabel* lost_;
};

} // namespace tarvik
