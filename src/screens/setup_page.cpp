#include "screens/setup_page.h"

#include "screens/setup_modules.h"
#include "screens/theme.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tarvik {

QString chooseFolder(QWidget* parent, const QString& beginAt) {
    return QFileDialog::getExistingDirectory(parent, "Choose a folder", beginAt);
}

SetupPage::SetupPage(const QString& objectName, const QString& title, const QString& purpose)
    : body_(new QVBoxLayout) {
    setObjectName(objectName);
    auto* const head = new QLabel(title);
    head->setProperty("role", "title");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(head);
    column->addWidget(wrappingLabel(purpose, "quiet"));
    column->addSpacing(measure::gap);
    body_->setSpacing(measure::wide);
    column->addLayout(body_, 1);
}

QWidget* SetupPage::firstControl() {
    for (QWidget* next = nextInFocusChain(); isAncestorOf(next); next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->isVisible() && next->isEnabled()) return next;
    }
    return this;
}

QLabel* wrappingLabel(const QString& text, const char* role) {
    auto* const label = new QLabel(text);
    label->setWordWrap(true);
    label->setProperty("role", role);
    return label;
}

void tell(QLabel& label, const QString& text, const char* role) {
    label.setText(text);
    label.setProperty("role", role);
    label.style()->unpolish(&label);
    label.style()->polish(&label);
    label.setVisible(!text.isEmpty());
}

QLabel* copyableLabel(const QString& objectName) {
    QLabel* const label = wrappingLabel({}, "quiet");
    label->setObjectName(objectName);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setFocusPolicy(Qt::NoFocus);
    return label;
}

QWidget* besideField(std::initializer_list<QPushButton*> buttons) {
    auto* const widget = new QWidget;
    auto* const column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2); // a button is 4 pixels taller than an editor
    column->addWidget(new QLabel(" "));
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::gap);
    for (QPushButton* const button : buttons) row->addWidget(button);
    column->addLayout(row);
    column->addStretch(1);
    return widget;
}

void enterPresses(QPushButton& button, bool wanted) {
    auto* const save = button.window()->findChild<QPushButton*>("comsave");
    if (save != nullptr) (wanted ? &button : save)->setDefault(true);
}

QVBoxLayout* addTab(QTabWidget& tabs, const QString& title) {
    auto* const page = new QWidget;
    auto* const column = new QVBoxLayout(page);
    column->setContentsMargins(measure::wide, measure::wide, measure::wide, measure::wide);
    column->setSpacing(measure::wide);
    tabs.addTab(page, title);
    return column;
}

void showTab(QTabWidget& tabs, int subPage) {
    if (subPage >= 0 && subPage < tabs.count()) tabs.setCurrentIndex(subPage);
}

} // namespace tarvik
