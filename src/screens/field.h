// One field of a form: its title over it, its unit beside it, and under it a line that says what is expected
// or what is wrong. It is checked when it is left, not when the form is sent.
#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QLineEdit;

namespace tarvik {

class Field final : public QWidget {
  public:
    /// What is wrong with the content, in one sentence; empty when nothing is.
    using Check = std::function<QString()>;

    /// Takes the editor over. Its accessible name becomes the title.
    Field(const QString& title, QWidget* editor, const QString& unit = {}, const QString& hint = {});

    void setTitle(const QString& title);
    void setCheck(Check check);
    void setUnit(const QString& unit);
    void setHint(const QString& hint);
    /// A button that acts on the editor, in line with it.
    void addBeside(QWidget* widget);
    /// Checks now and shows the outcome.
    bool validate();
    [[nodiscard]] QWidget* editor() const { return editor_; }

  private:
    void showWrong(const QString& problem);

    QWidget* editor_;
    QLabel* title_;
    QLabel* unit_;
    QHBoxLayout* row_;
    QLabel* below_;
    QString hint_;
    Check check_;
};

/// All fields of a form; true when every one is right. The cursor goes to the first that is not.
bool validateAll(const std::vector<Field*>& fields);

/// A line edit with an object name and its text.
[[nodiscard]] QLineEdit* lineEdit(const QString& objectName, const QString& text = {});

/// The check for a number in a range; an empty text is right when `mayBeEmpty`.
[[nodiscard]] Field::Check numberBetween(const QLineEdit* edit, double least, double most,
                                         bool mayBeEmpty = false);

} // namespace tarvik
