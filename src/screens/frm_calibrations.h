// The calibration history: every calibration of every sensor, the polynomial and points of the one chosen,
// and the export as text.
#pragma once

#include "equipment/calibration_history.h"
#include "screens/screen_dialog.h"

#include <functional>

class QComboBox;
class QLabel;
class QTableWidget;

namespace tarvik {

class CalibrationPlot;
class FilterTable;

struct CalibrationDetails;
struct CalibrationScreenModules {
    CalibrationHistory& history;
    OperatorSide& operatorSide;
    DesktopMemory& memory;
    Path exportFile; ///< "kvxcalib.txt" on drive C
    /// The unit of a tool's sensor; empty where it is not known.
    std::function<std::string(const CalibrationRow&)> unitOf;
};

class frmCalibrations final : public ScreenDialog {
  public:
    explicit frmCalibrations(const CalibrationScreenModules& modules, QWidget* parent = nullptr);

  private:
    [[nodiscard]] QWidget* buildList();
    [[nodiscard]] QWidget* buildDetails();
    void buildPoints();
    void buildButtons();
    /// Reads the file afresh.
    void load();
    void fillTools(const CalibrationList& list);
    void fillTable();
    void showChosen();
    void showPoints(const CalibrationDetails& details);
    void exportText();
    [[nodiscard]] CalibrationFilter filter() const;

    CalibrationScreenModules modules_;
    CalibrationList list_;
    FilterTable* table_;
    QComboBox* tool_;
    QLabel* summary_;
    QLabel* title_;
    QLabel* fit_;
    QLabel* coefficients_;
    QLabel* largest_;
    QLabel* warning_;
    QTableWidget* points_;
    CalibrationPlot* plot_;
};

} // namespace tarvik
