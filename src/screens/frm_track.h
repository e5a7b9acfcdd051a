// The tracks of a display: their curves, grids, widths and places, and the depth track between them. What is
// changed is seen behind the dialog at once.
#pragma once

#include "display/log_data.h"
#include "screens/frm_curve.h"

class QListWidget;

namespace tarvik {

class frmTrack final : public ScreenDialog {
  public:
    /// `log` is what the display draws, `usual` the display that nobody has changed.
    frmTrack(LogDisplay display, std::size_t track, const LogData& log, LogDisplay usual,
             DisplayEditModules modules, QWidget* parent = nullptr);

    /// The display as changed, once the dialog was accepted.
    [[nodiscard]] const LogDisplay& display() const { return display_; }

    void accept() override;
    void reject() override;

  private:
    [[nodiscard]] Track& track() { return display_.tracks[track_]; }
    [[nodiscard]] QLayout* buildChoice();
    [[nodiscard]] QWidget* buildCurves();
    void buildAdding(QVBoxLayout& column);
    [[nodiscard]] QWidget* buildGrid();
    [[nodiscard]] QWidget* buildDepthTrack();
    /// Shows the display's state in the controls and behind the dialog.
    void load();
    void loadCurves(int row);
    void showTrack(std::size_t track);
    void takeGrid();
    void editCurve();
    void moveTo(std::size_t row);
    [[nodiscard]] std::optional<std::size_t> selected() const;

    LogDisplay display_;
    std::size_t track_;
    const LogData& data_;
    LogDisplay usual_;
    DisplayEditModules modules_;
    std::vector<Field*> fields_;
    QComboBox* tracks_;
    QListWidget* curves_;
    QComboBox* channels_;
    QButtonGroup* grid_ = nullptr;
    QLineEdit* divisions_;
    QLineEdit* width_;
    QComboBox* numbers_;
    QComboBox* depthPlace_;
    QCheckBox* speedBar_;
    bool loading_ = false;
};

} // namespace tarvik
