// Which run to play as if it were being logged, and how fast.
#pragma once

#include "lcu/playback_time.h"
#include "screens/frm_file.h"
#include "screens/run_list.h"
#include "screens/screen_dialog.h"

class QButtonGroup;

namespace tarvik {

class frmDemo final : public ScreenDialog {
  public:
    struct Choice {
        Path file;
        PlaybackPace pace = PlaybackPace::original;
    };

    /// `before` is what was played last; the list starts with it.
    frmDemo(const Files& files, const Path& projectFolder, FileChooser chooser, const Choice& before,
            DesktopMemory& memory, QWidget* parent = nullptr);

    /// What to play, once the dialog was accepted.
    [[nodiscard]] const Choice& choice() const { return choice_; }

    void done(int result) override;

  private:
    void choose(const std::optional<Path>& file);

    FileChooser chooser_;
    Choice choice_;
    RunList* list_;
    QButtonGroup* pace_;
};

} // namespace tarvik
