// What all dialogs share: the mandated object name, a body over a row of buttons, Escape that cancels, Enter
// that does the primary act, and a place on the screen that is remembered. On a screen that is too small for
// it the body scrolls; the buttons stay in reach.
#pragma once

#include "screens/desktop_memory.h"

#include <QDialog>

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace tarvik {

class ScreenDialog : public QDialog {
  public:
    /// `memory` outlives the dialog.
    ScreenDialog(const QString& objectName, const QString& title, DesktopMemory& memory,
                 QWidget* parent = nullptr);

    /// Keeps the geometry.
    void done(int result) override;

  protected:
    [[nodiscard]] QVBoxLayout* body() const { return body_; }

    /// Buttons stand at the lower right, in the order in which they are added; the primary one is the
    /// default.
    QPushButton* addButton(const QString& objectName, const QString& text);
    QPushButton* addPrimaryButton(const QString& objectName, const QString& text);
    /// At the lower left, away from the others.
    QPushButton* addSideButton(const QString& objectName, const QString& text);

    [[nodiscard]] DesktopMemory& memory() const { return memory_; }
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void fitScreen();
    void centre();
    void buttonsLast();
    void scrollBody();

    DesktopMemory& memory_;
    QVBoxLayout* body_;
    QWidget* footer_; ///< holds the buttons
    QHBoxLayout* buttons_;
    bool placed_ = false;
};

} // namespace tarvik
