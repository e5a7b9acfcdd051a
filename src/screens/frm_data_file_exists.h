// The tool has runs in the hole: append to the latest one, or start another? Asked before the stream starts.
#pragma once

#include "lcu/append_comparison.h"
#include "lcu/run_view.h"
#include "screens/screen_dialog.h"

class QLabel;
class QRadioButton;

namespace tarvik {

class FilterTable;

class frmDataFileExists final : public ScreenDialog {
  public:
    /// `comparison` is what the latest run and the next one have in common.
    frmDataFileExists(const LoggingRuns& runs, std::string_view depthRangeText,
                      const std::vector<AppendRow>& comparison, DesktopMemory& memory,
                      QWidget* parent = nullptr);

    /// After the dialog was closed; cancel unless the primary button closed it.
    [[nodiscard]] RunChoice choice() const;

  private:
    void buildRuns(const LoggingRuns& runs, std::string_view depthRangeText);
    void buildChoice(const LoggingRuns& runs, const std::vector<AppendRow>& comparison);
    void buildAdvanced(const std::vector<AppendRow>& comparison);
    void showAdvanced(bool shown);

    QRadioButton* append_;
    QRadioButton* newRun_;
    QLabel* verdict_;
    QPushButton* advanced_;
    FilterTable* table_ = nullptr;
};

} // namespace tarvik
