// What is done with the logs under review, in one row beside their tabs: go to a depth, undo, and the menus
// of the display, of comparing and of exporting. In a narrow window the buttons give way; their keys stay.
#pragma once

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QLineEdit;
class QMenu;
class QTabWidget;
class QToolButton;

namespace tarvik {

class ReviewBar final : public QWidget {
  public:
    /// Goes to a depth in the log's unit (or a second, when it is shown by time); why it cannot, else
    /// nothing.
    using Jump = std::function<std::string(double depth)>;
    /// The corner of `pages`.
    ReviewBar(QTabWidget& pages, Jump jump);

    /// A menu of the row, filled by the caller.
    QMenu* addMenu(const char* name, const QString& title, const QString& tip);
    /// A button of the row with a shortcut of its own.
    QToolButton* addButton(const char* name, const QString& text, const QString& tip,
                           const QKeySequence& keys, std::function<void()> act);
    /// The Tab key comes to the bar after `before`, where the eye does.
    void follow(QWidget* before);
    /// What was written belongs to another log.
    void clear();
    /// What the field takes: "Depth" in "metres".
    void showUnit(const QString& what, const QString& longUnit);
    /// Without the buttons.
    [[nodiscard]] QSize minimumSizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void go();
    /// Beside the field until something else is written; nothing: all is right.
    void showWrong(const QString& why);
    void fit(int room);

    QTabWidget& pages_;
    Jump jump_;
    QLineEdit* depth_;
    std::vector<QToolButton*> buttons_;
};

} // namespace tarvik
