// The setup screen: project, hole, winch and tool, lithology, log display, system test, firmware.
//
// What a page changes is written to the settings and saved when the page is left or the screen accepted.
// Cancel puts back what the settings were when the screen was opened; tools and winches that were added or
// removed meanwhile stay as they are, because they are the equipment's, not the settings'.
#pragma once

#include "screens/screen_dialog.h"
#include "screens/setup_modules.h"
#include "screens/setup_page.h"

#include <array>

class QListWidget;
class QStackedWidget;

namespace tarvik {

class frmSetup final : public ScreenDialog { // NOLINT(readability-identifier-naming): the screen's name
  public:
    static constexpr int pageCount = 7;

    frmSetup(const SetupModules& modules, QWidget* parent = nullptr);

    /// Leaves the page shown, if it lets itself be left, and shows another one. A sub-page of -1 is the one
    /// shown last; a page out of 0 to 6 is page 0.
    void selectPage(int page, int subPage = -1);
    [[nodiscard]] int page() const { return page_; }

    void accept() override;
    void reject() override;

  protected:
    /// Puts the cursor into the page. Ctrl with page up or down changes the page from anywhere.
    void showEvent(QShowEvent* event) override;

  private:
    void buildList();
    void buildPages();
    [[nodiscard]] SetupPage& shown() const { return *pages_[static_cast<std::size_t>(page_)]; }
    /// Checks and saves the page shown.
    bool leave();
    void save();

    SetupModules modules_;
    Settings before_;
    QListWidget* list_;
    QStackedWidget* stack_;
    std::array<SetupPage*, pageCount> pages_{};
    int page_ = 0;
};

} // namespace tarvik
