// The main screen: bars, side frame, the logs, notices, status bar. It only lays them out and hands them on.
#pragma once

#include "screens/live_display.h"
#include "screens/log_area.h"
#include "screens/log_picture.h"
#include "screens/main_bars.h"
#include "screens/notes_panel.h"
#include "screens/notice_strip.h"
#include "screens/side_frame.h"
#include "screens/status_panels.h"
#include "screens/value_table.h"

#include <QMainWindow>

#include <functional>

class QTabWidget;

namespace tarvik {

struct IntroScreenActions {
    std::function<void(std::string_view key)> toolClick;
    std::function<void()> closeRequested; ///< the window's own close button; the program decides
    std::function<void()> cancelSearch;
    RunPanelActions run;
    DemoPanelActions demo;
    ReviewPanelActions review;
};

class IntroScreen final : public QMainWindow {
  public:
    /// `files` outlives the screen.
    IntroScreen(IntroScreenActions actions, const Files& files);

    [[nodiscard]] MainBars& bars() { return bars_; }
    [[nodiscard]] SideFrame& side() { return *side_; }
    [[nodiscard]] LogArea& logs() { return *logs_; }
    [[nodiscard]] NoticeStrip& notices() { return *notices_; }
    [[nodiscard]] StatusPanels& status() { return status_; }
    [[nodiscard]] QTabWidget& reviewPages() { return *review_; }
    [[nodiscard]] LogPicture& picture() { return *picture_; }
    [[nodiscard]] ValueTable& values() { return *values_; }
    [[nodiscard]] LiveDisplay& live() { return *live_; }
    [[nodiscard]] NotesPanel& notes() { return *notes_; }

    /// Beside the logs; in a narrow window in their place, but never in that of a run that is logged.
    void showNotes(bool shown);
    /// The keyboard goes to what is shown, unless the operator works elsewhere. Where the widget that had it
    /// has gone, the toolkit gives it to the scale list: one turn of the wheel would change the scale.
    void handFocusOn();
    /// Lets the window go for good.
    void unload();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void shareRoom();

    IntroScreenActions actions_;
    MainBars bars_;
    StatusPanels status_;
    SideFrame* side_;
    NoticeStrip* notices_;
    LogArea* logs_;
    QTabWidget* review_; ///< logs and values of the run under review
    LogPicture* picture_;
    ValueTable* values_;
    LiveDisplay* live_; ///< the run that is being logged
    NotesPanel* notes_;
    bool notesShown_ = false;
    bool unloading_ = false;
};

} // namespace tarvik
