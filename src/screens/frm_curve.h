// One curve of a display: scale, line, fill, filter, track. What is entered is seen behind the dialog at
// once.
#pragma once

#include "display/display_place.h"
#include "display/log_display.h"
#include "screens/screen_dialog.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLineEdit;

namespace tarvik {

class Field;
class Card;

struct DisplayEditModules {
    DesktopMemory& memory;
    /// Shows a display that is being tried; nothing: what was there before.
    std::function<void(std::optional<LogDisplay>)> preview;
    /// Keeps the curve's scale in the record of the tool; empty when the run's tool is not the current one.
    std::function<bool(const LogCurve&)> keepScale;
};

class frmCurve final : public ScreenDialog {
  public:
    frmCurve(LogDisplay display, std::size_t track, std::size_t curve, DisplayEditModules modules,
             QWidget* parent = nullptr);

    /// The display as changed, once the dialog was accepted.
    [[nodiscard]] const LogDisplay& display() const { return display_; }

    void accept() override;
    void reject() override;

  private:
    [[nodiscard]] LogCurve& curve() { return display_.tracks[track_].curves[curve_]; }
    [[nodiscard]] QWidget* buildScale();
    [[nodiscard]] QWidget* buildLine();
    [[nodiscard]] QWidget* buildUse();
    void fillInks();
    void buildButtons();
    void load();
    void follow();
    void take();
    void swapEnds();

    LogDisplay before_;
    LogDisplay display_;
    std::size_t track_;
    std::size_t curve_;
    DisplayEditModules modules_;
    std::vector<Field*> fields_;
    QButtonGroup* kind_ = nullptr;
    QLineEdit* left_;
    QLineEdit* right_;
    QCheckBox* wrap_;
    QCheckBox* keep_;
    QComboBox* ink_;
    QComboBox* line_;
    QLineEdit* width_;
    QComboBox* fill_;
    QLineEdit* base_;
    QComboBox* filter_;
    QComboBox* inTrack_;
    QCheckBox* shown_;
    bool loading_ = false;
};

} // namespace tarvik
