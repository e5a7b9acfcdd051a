// Which device each COM port is, and which folder each drive letter stands for.
#pragma once

#include "app/machine_map.h"
#include "screens/filter_table.h"
#include "screens/setup_modules.h"

#include <array>

class QComboBox;
class QLineEdit;
class QPushButton;

namespace tarvik {

class Field;

class SetupMachine final : public QWidget {
  public:
    explicit SetupMachine(const SetupModules& modules);

    void load();
    bool store();
    /// Puts back what stood in the store when this was made.
    void cancel();

  private:
    [[nodiscard]] QWidget* buildPorts();
    [[nodiscard]] QWidget* buildDrives();
    [[nodiscard]] QWidget* buildDriveEntry();
    [[nodiscard]] MachineMap entered() const;
    void showDrives();
    void showChosenDrive();
    void setDrive();
    void removeDrive();
    void browse();
    void save(const MachineMap& map);
    [[nodiscard]] char chosenLetter() const; ///< 0 when no drive is chosen

    SetupModules modules_;
    MachineMap before_;
    MachineMap map_;
    std::array<QComboBox*, 4> ports_{};
    std::array<Field*, 4> portFields_{};
    FilterTable* drives_ = nullptr;
    QComboBox* letter_;
    QLineEdit* folder_;
    Field* folderField_ = nullptr;
    QPushButton* remove_;
};

} // namespace tarvik
