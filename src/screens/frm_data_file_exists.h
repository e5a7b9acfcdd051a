// The tool has runs in the hole: append to the latest one, or start another? Asked before the stream starts.
#pragma once

#include "lcu/append_comparison.h"
#include "lcu/run_view.h"
#include "screens/screen_dialog.h"

class QLabel;
class QRadioButton;

namespace tarvik {

class FilterTable;

struct LatestRun {
    const LoggingRuns& runs;
    std::string depthRange;            ///< as a line of text; empty without a scan
    std::vector<AppendRow> comparison; ///< what the latest run and the next one have in common
    std::string overlap = {};          ///< a sentence when an append would lie over what is on file
};

class frmDataFileExists final : public ScreenDialog {
  public:
    frmDataFileExists(const LatestRun& latest, DesktopMemory& memory, QWidget* parent = nullptr);

    /// After the dialog was closed; cancel unless the primary button closed it.
    [[nodiscard]] RunChoice choice() const;

  private:
    void buildRuns(const LatestRun& latest);
    void buildChoice(const LatestRun& latest);
    void buildAdvanced(const std::vector<AppendRow>& comparison);
    void showAdvanced(bool shown);

    QRadioButton* append_;
    QRadioButton* newRun_;
    QLabel* verdict_;
    QPushButton* advanced_;
    FilterTable* table_ = nullptr;
};

} // namespace tarvik
