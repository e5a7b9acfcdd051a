// What the next run will be logged with: tool and its mode, winch, sampling. Opened on entering "ACQUIRE";
// the operator confirms or chooses.
#pragma once

#include "app/stored_settings.h"
#include "equipment/tool_winch_data.h"
#include "files/run_file_reader.h"
#include "platform/places.h"
#include "screens/sampling_fields.h"
#include "screens/screen_dialog.h"

#include <functional>
#include <memory>

class QBoxLayout;
class QButtonGroup;
class QComboBox;
class QLabel;
class QTableWidget;

namespace tarvik {

class Field;

struct EquipmentModules {
    Settings& settings;
    StoredSettings& store;
    ToolWinchData& equipment;
    const Files& files;
    RunFileReader& reader;
    const Places& places;
    DesktopMemory& memory;
    std::function<void()> addTool;      ///< opens the set-up screen on the user's equipment
    std::function<void()> setDeviation; ///< opens `frmDeviation`
};

class frmEquipment final : public ScreenDialog {
  public:
    explicit frmEquipment(const EquipmentModules& modules, QWidget* parent = nullptr);

  private:
    [[nodiscard]] QWidget* buildEquipment();
    [[nodiscard]] QWidget* buildSampling();
    [[nodiscard]] QWidget* buildChannels();
    [[nodiscard]] QWidget* buildHole();
    void buildDeviation(QBoxLayout& layout);
    void buildButtons();
    void load();
    void fillLists(const EquipmentChoice& tool, const EquipmentChoice& winch);
    void addToolClicked();
    void recallMode();
    void toolChosen();
    void showChannels(const CurrentTool& tool);
    void fitRows();
    void showRuns(const CurrentTool& tool);
    void showDeclination();
    void use();
    [[nodiscard]] int mode() const;

    EquipmentModules modules_;
    QComboBox* tool_;
    QComboBox* winch_;
    Field* toolField_;
    Field* winchField_;
    QButtonGroup* mode_ = nullptr;
    std::unique_ptr<SamplingFields> sampling_;
    QWidget* deviation_;
    QLabel* declination_;
    QTableWidget* channels_;
    QLabel* channelsVerdict_;
    QLabel* runs_;
    QLabel* range_;
};

} // namespace tarvik
