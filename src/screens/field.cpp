#include "screens/field.h"

#include "base/number_picture.h"
#include "base/text.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <utility>

namespace tarvik {

Field::Field(const QString& title, QWidget* editor, const QString& unit, const QString& hint)
    : editor_(editor),
      title_(new QLabel),
      unit_(new QLabel(unit)),
      row_(new QHBoxLayout),
      below_(new QLabel),
      hint_(hint) {
    title_->setBuddy(editor);
    setTitle(title);
    unit_->setProperty("role", "quiet");
    unit_->setVisible(!unit.isEmpty());
    below_->setWordWrap(true);

    row_->setSpacing(measure::gap);
    row_->addWidget(editor, 1);
    row_->addWidget(unit_);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(title_);
    column->addLayout(row_);
    column->addWidget(below_);
    showWrong({});

    if (auto* const edit = qobject_cast<QLineEdit*>(editor)) {
        connect(edit, &QLineEdit::editingFinished, this, [this] { validate(); });
    }
}

void Field::setTitle(const QString& title) {
    title_->setText(title);
    editor_->setAccessibleName(withoutMnemonic(title));
}

void Field::setCheck(Check check) {
    check_ = std::move(check);
}

void Field::setUnit(const QString& unit) {
    unit_->setText(unit);
    unit_->setVisible(!unit.isEmpty());
}

void Field::setHint(const QString& hint) {
    hint_ = hint;
    showWrong({});
}

void Field::addBeside(QWidget* widget) {
    row_->addWidget(widget);
}

bool Field::validate() {
    const QString problem = check_ ? check_() : QString();
    showWrong(problem);
    return problem.isEmpty();
}

void Field::showWrong(const QString& problem) {
    const bool wrong = !problem.isEmpty();
    below_->setText(wrong ? problem : hint_);
    below_->setVisible(!below_->text().isEmpty());
    setRole(*below_, wrong ? "bad" : "quiet");
    restyle(*editor_, "wrong", wrong);
    editor_->setAccessibleDescription(below_->text());
}

bool validateAll(const std::vector<Field*>& fields) {
    Field* first = nullptr;
    for (Field* const field : fields) {
        if (!field->validate() && first == nullptr) first = field;
    }
    if (first != nullptr) first->editor()->setFocus();
    return first == nullptr;
}

QLineEdit* lineEdit(const QString& objectName, const QString& text) {
    auto* const edit = new QLineEdit(text);
    edit->setObjectName(objectName);
    return edit;
}

Field::Check numberBetween(const QLineEdit* edit, double least, double most, bool mayBeEmpty) {
    return [=]() -> QString {
        const std::string text = plain(edit->text());
        if (mayBeEmpty && trimmed(text).empty()) return {};
        const auto number = parseNumber(text);
        if (number && *number >= least && *number <= most) return {};
        const QString withPoint = edit->text().trimmed().replace(',', '.');
        if (!number && parseNumber(plain(withPoint))) return "Decimals follow a point: " + withPoint;
        return "A number from " + qt(shortestNumber(least)) + " to " + qt(shortestNumber(most)) + ".";
    };
}

} // namespace tarvik
