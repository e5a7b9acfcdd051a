// What the operator does with the logs under review: edits and keeps the display, compares, exports, prints.
#pragma once

#include "display/display_place.h"
#include "program/program.h"
#include "screens/desktop_memory.h"
#include "screens/frm_print.h"
#include "screens/intro_screen.h"
#include "screens/review_bar.h"
#include "screens/review_session.h"

#include <functional>
#include <optional>

class QMenu;

namespace tarvik {

/// The dialogs of the toolkit that ask for files; tests answer in their place.
struct ReviewFileDialogs {
    std::function<QString(QWidget*, const QString& suggested, const QString& filter)> save = askForPlotFile;
    std::function<QString(QWidget*, const QString& folder, const QString& filter)> open;
    std::function<bool(QPrinter&, QWidget*)> printer = askForPrinter;
};

class ReviewActions {
  public:
    /// All outlive it.
    ReviewActions(ReviewSession& session, Program& program, IntroScreen& screen, DesktopMemory& memory);
    ~ReviewActions();
    ReviewActions(const ReviewActions&) = delete;
    ReviewActions& operator=(const ReviewActions&) = delete;

    void print();
    void setFileDialogs(ReviewFileDialogs dialogs) { dialogs_ = std::move(dialogs); }

  private:
    void fillDisplayMenu();
    void addAxes();
    void fillCompareMenu();
    void fillExportMenu();
    void showState();
    void edit(const DisplayPlace& place);
    /// To a depth in the log's unit, or a second of it; why it cannot be gone to, else nothing.
    [[nodiscard]] std::string jumpTo(double depth);
    void saveTemplate();
    void chooseTemplate();
    void loadTemplate(const Path& file);
    void compare(Comparison how);
    void endComparison();
    void exportLas();
    void savePicture();
    void savePlan();
    [[nodiscard]] std::function<bool(const LogCurve&)> scaleKeeper() const;
    [[nodiscard]] PrintSubject subject() const;

    ReviewSession& session_;
    Program& program_;
    IntroScreen& screen_;
    DesktopMemory& memory_;
    ReviewFileDialogs dialogs_;
    Path shown_; ///< the file that the bar speaks of
    ReviewBar* bar_;
    QToolButton* undo_;
    QToolButton* redo_;
    QMenu* display_;
};

} // namespace tarvik
