// The current tool and winch, and how a run samples: by time or by depth, how often, in which direction and
// unit.
#pragma once

#include "screens/sampling_fields.h"
#include "screens/setup_modules.h"

#include <QWidget>

#include <memory>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace tarvik {

class Card;
class Field;

class SetupSampling final : public QWidget {
  public:
    explicit SetupSampling(const SetupModules& modules);

    void load();
    /// The user's equipment has changed: what was chosen stays chosen if it is still there.
    void reloadEquipment();
    bool store();
    /// The tool and the winch of the settings are the current ones again.
    void cancel();

  private:
    [[nodiscard]] QWidget* buildEquipment();
    [[nodiscard]] QWidget* buildSampling(QBoxLayout& unitPlace);
    [[nodiscard]] Card* buildDepth();
    [[nodiscard]] Field* numberField(const char* name, const QString& title, const QString& unit,
                                     const QString& hint);
    void fillLists(const EquipmentChoice& tool, const EquipmentChoice& winch);
    void storeEquipment();
    void loadCurrent();

    SetupModules modules_;
    QComboBox* tool_;
    QComboBox* winch_;
    QLabel* currentWinch_;
    std::unique_ptr<SamplingFields> sampling_;
    QCheckBox* allow_;
    Field* scale_;
    Field* marker_;
    Field* declination_;
};

} // namespace tarvik
