// Where the logs are drawn. With nothing to draw it says what can be done next, with buttons that do it.
#pragma once

#include <QFrame>

#include <functional>
#include <vector>

class QLabel;
class QStackedLayout;
class QVBoxLayout;

namespace tarvik {

struct NextStep {
    QString text;
    std::function<void()> act;
};

class LogArea final : public QFrame {
  public:
    LogArea();

    /// One of several pages: the logs of a run, the values that come in. Takes the widget over.
    void addPage(QWidget* page);
    void showPage(QWidget* page);
    [[nodiscard]] bool shows(const QWidget* page) const { return pages_->currentWidget() == page; }
    /// Told when another page is shown.
    void whenTurned(std::function<void()> act);
    void showEmpty(const QString& headline, const QString& text, std::vector<NextStep> steps);
    /// The keyboard goes to the logs, or to the first step while there are none.
    void takeFocus();
    /// A line at the foot, such as that errors are not trapped.
    void printLine(const QString& text);

  private:
    QStackedLayout* pages_;
    QLabel* headline_;
    QLabel* text_;
    QVBoxLayout* steps_;
    QLabel* line_;
};

} // namespace tarvik
