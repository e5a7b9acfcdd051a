// One page of the setup screen: a title, a sentence that says what it is for, and its content.
//
// A page takes what the settings say when it is shown, and gives it back when it is left. What is wrong is
// said beside its field, and the page stays until it is right or the whole screen is cancelled.
#pragma once

#include <QWidget>

#include <initializer_list>

class QLabel;
class QPushButton;
class QTabWidget;
class QVBoxLayout;

namespace tarvik {

class SetupPage : public QWidget {
  public:
    SetupPage(const QString& objectName, const QString& title, const QString& purpose);

    /// Takes what the settings say.
    virtual void load() {}
    /// Checks, then writes into the settings. False: something is wrong, the cursor stands in its field.
    virtual bool store() { return true; }
    virtual void selectSubPage(int /*subPage*/) {}
    /// Takes back what was changed besides the settings (theme, ports, drives).
    virtual void cancel() {}
    /// Where the cursor stands when the page is opened: its first control that takes it.
    [[nodiscard]] virtual QWidget* firstControl();

  protected:
    [[nodiscard]] QVBoxLayout* body() const { return body_; }

  private:
    QVBoxLayout* body_;
};

/// A label that wraps; `role` as the theme names it ("quiet", "good", "warning", "bad"), or nothing.
[[nodiscard]] QLabel* wrappingLabel(const QString& text, const char* role = "");
/// Gives a label that stands in a layout another text and role; without a text it takes no room.
void tell(QLabel& label, const QString& text, const char* role);
/// A text that can be selected and copied, such as a path.
[[nodiscard]] QLabel* copyableLabel(const QString& objectName);

/// Buttons that stand level with the editor of a field beside them.
[[nodiscard]] QWidget* besideField(std::initializer_list<QPushButton*> buttons);

/// Enter presses `button` while `wanted`, and saves the screen otherwise.
void enterPresses(QPushButton& button, bool wanted);

/// A page of a tab widget with the margins of a card.
[[nodiscard]] QVBoxLayout* addTab(QTabWidget& tabs, const QString& title);
/// Shows the tab; a number that is none shows nothing new.
void showTab(QTabWidget& tabs, int subPage);

} // namespace tarvik
