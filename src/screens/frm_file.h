// Which finished run or LAS file to review: those of the project, or any file of this machine.
#pragma once

#include "screens/run_list.h"
#include "screens/screen_dialog.h"

#include <functional>
#include <optional>

namespace tarvik {

/// Asks for a file of this machine; nothing when the operator cancels.
using FileChooser = std::function<std::optional<Path>(QWidget* parent)>;
[[nodiscard]] FileChooser anyRunOrLasFile(Path startFolder);
[[nodiscard]] FileChooser anyRunFile(Path startFolder);

class frmFile final : public ScreenDialog {
  public:
    frmFile(const Files& files, const Path& projectFolder, FileChooser chooser, DesktopMemory& memory,
            QWidget* parent = nullptr);

    /// The file chosen, once the dialog was accepted.
    [[nodiscard]] const Path& chosen() const { return chosen_; }

    void done(int result) override;

  private:
    void choose(const std::optional<Path>& file);

    FileChooser chooser_;
    Path chosen_;
    RunList* list_;
};

} // namespace tarvik
