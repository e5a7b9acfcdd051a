// What is done with the logs under review, in one row over them: go to a depth, undo, and the menus of the
// display, of comparing and of exporting.
#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;

namespace tarvik {

class ReviewBar final : public QWidget {
  public:
    /// Told the depth in the log's unit.
    explicit ReviewBar(std::function<void(double depth)> jump);

    /// A menu of the row, filled by the caller.
    QMenu* addMenu(const char* name, const QString& title, const QString& tip);
    /// A button of the row with a shortcut of its own.
    QToolButton* addButton(const char* name, const QString& text, const QString& tip,
                           const QKeySequence& keys, std::function<void()> act);
    /// The Tab key comes to the bar after `before`, where the eye does.
    void follow(QWidget* before);
    void showScale(double scale, const QString& depthUnit);

  private:
    void go();

    std::function<void(double depth)> jump_;
    QLineEdit* depth_;
    QLabel* scale_;
};

} // namespace tarvik
