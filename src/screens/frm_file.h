// Which finished run or LAS file to review: those of the project, or any file of this machine.
#pragma once

#include "files/run_catalogue.h"
#include "screens/screen_dialog.h"

#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QTableWidget;

namespace tarvik {

/// Asks for a file of this machine; nothing when the operator cancels.
using FileChooser = std::function<std::optional<Path>(QWidget* parent)>;
[[nodiscard]] FileChooser anyRunOrLasFile(Path startFolder);

class frmFile final : public ScreenDialog {
  public:
    frmFile(const Files& files, const Path& projectFolder, FileChooser chooser, DesktopMemory& memory,
            QWidget* parent = nullptr);

    /// The file chosen, once the dialog was accepted.
    [[nodiscard]] const Path& chosen() const { return chosen_; }

    void done(int result) override;

  private:
    void makeTable();
    void readNext();
    void show(const RunRow& row);
    void filter(const QString& text);
    void openSelected();
    void browse();

    const Files& files_;
    FileChooser chooser_;
    std::vector<Path> unread_; ///< the next one to read is the last
    QTimer reading_;
    Path chosen_;
    QLineEdit* filter_;
    QTableWidget* table_;
    QLabel* remark_;
    QPushButton* open_;
};

} // namespace tarvik
