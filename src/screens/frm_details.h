// What the run in review says of itself: run, hole, channels with their calibration, notes.
#pragma once

#include "base/review_log.h"
#include "platform/files.h"
#include "screens/screen_dialog.h"

class QTabWidget;

namespace tarvik {

class frmDetails final : public ScreenDialog {
  public:
    frmDetails(const ReviewLog& log, const Path& file, DesktopMemory& memory, QWidget* parent = nullptr);

  private:
    [[nodiscard]] QWidget* runPage(const ReviewLog& log, const Path& file);
    [[nodiscard]] QWidget* holePage(const ReviewLog& log);
    [[nodiscard]] QWidget* channelsPage(const ReviewLog& log);
    [[nodiscard]] QWidget* importPage(const ReviewLog& log);
    [[nodiscard]] QWidget* notesPage(const ReviewLog& log);

    QTabWidget* tabs_;
};

} // namespace tarvik
