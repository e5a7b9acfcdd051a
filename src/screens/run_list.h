// The runs of a folder as a table to choose from, with a field to filter it by. One header a time is read
// while the list is shown: a thousand runs must not hold the screen.
#pragma once

#include "files/run_catalogue.h"
#include "screens/desktop_memory.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QLineEdit;
class QTableWidget;

namespace tarvik {

struct RunListActions {
    std::function<void(bool any)> selected; ///< the selection has changed; is there one?
    std::function<void()> chosen;           ///< a double click on a run
};

class RunList final : public QWidget {
  public:
    /// `memoryName`: under which the column widths are remembered. All references outlive the list.
    RunList(const Files& files, std::vector<Path> runs, DesktopMemory& memory, QString memoryName,
            RunListActions actions);

    [[nodiscard]] std::optional<Path> selected() const;
    /// Selects it once it has been read; until then, or without it, the first is.
    void preselect(Path file) { wanted_ = std::move(file); }
    /// The screen closes: nothing more is read, the widths are kept.
    void finish();

  private:
    void makeTable();
    void readNext();
    void append(const RunRow& row);
    void sort();
    void filter(const QString& text);

    const Files& files_;
    std::vector<Path> unread_; ///< the next one to read is the last
    DesktopMemory& memory_;
    QString memoryName_;
    RunListActions actions_;
    Path wanted_;
    QTimer reading_;
    QLineEdit* filter_;
    QTableWidget* table_;
};

} // namespace tarvik
