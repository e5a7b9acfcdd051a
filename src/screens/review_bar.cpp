#include "screens/review_bar.h"

#include "base/text.h"
#include "screens/field.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace tarvik {

ReviewBar::ReviewBar(QTabWidget& pages, Jump jump)
    : pages_(pages), jump_(std::move(jump)), depth_(lineEdit("txtgotodepth")) {
    setObjectName("reviewbar");
    setStyleSheet("QToolButton { padding: 2px 5px; }");
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 2, 0);
    row->setSpacing(2);
    depth_->setAccessibleName("Go to depth");
    depth_->setToolTip("A depth of the log, then Enter (Ctrl+G)");
    depth_->setStyleSheet("QLineEdit { padding: 1px 6px; min-height: 20px; }"); // no higher than the tabs
    showUnit("Depth", {});
    pages.installEventFilter(this);
    row->addWidget(depth_);
    connect(depth_, &QLineEdit::returnPressed, this, [this] { go(); });
    connect(depth_, &QLineEdit::textEdited, this, [this] { showWrong({}); });
    auto* const keys = new QShortcut(QKeySequence("Ctrl+G"), this);
    connect(keys, &QShortcut::activated, this, [this] {
        depth_->setFocus();
        depth_->selectAll();
    });
}

void ReviewBar::go() {
    const auto depth = parseNumber(trimmed(plain(depth_->text())));
    showWrong(depth ? qt(jump_(*depth)) : QString("A depth, such as 120.5."));
}

void ReviewBar::showWrong(const QString& why) {
    if (why.isEmpty() && depth_->accessibleDescription().isEmpty()) return;
    restyle(*depth_, "wrong", !why.isEmpty());
    depth_->setAccessibleDescription(why);
    if (why.isEmpty()) return QToolTip::hideText();
    QToolTip::showText(depth_->mapToGlobal(QPoint(0, depth_->height())), why, depth_);
}

QToolButton* ReviewBar::addButton(const char* name, const QString& text, const QString& tip,
                                  const QKeySequence& keys, std::function<void()> act) {
    auto* const button = new QToolButton;
    button->setObjectName(name);
    button->setText(text);
    button->setAccessibleName(tip);
    button->setToolTip(tip + " (" + keys.toString() + ")");
    button->setMinimumSize(30, 24);
    layout()->addWidget(button);
    buttons_.push_back(button);
    connect(button, &QToolButton::clicked, this, [act] { act(); });
    auto* const shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, [act = std::move(act)] { act(); });
    return button;
}

QMenu* ReviewBar::addMenu(const char* name, const QString& title, const QString& tip) {
    auto* const button = new QToolButton;
    auto* const menu = new QMenu(button);
    menu->setObjectName(name);
    button->setText(title + " \u25be");
    button->setAccessibleName(title);
    button->setToolTip(tip);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setStyleSheet("QToolButton::menu-indicator { image: none; }");
    button->setMinimumHeight(24);
    button->setMenu(menu);
    layout()->addWidget(button);
    return menu;
}

void ReviewBar::follow(QWidget* before) {
    for (int i = 0; i < layout()->count(); ++i) {
        QWidget* const one = layout()->itemAt(i)->widget();
        if ((one->focusPolicy() & Qt::TabFocus) == 0) continue;
        setTabOrder(before, one);
        before = one;
    }
}

void ReviewBar::showUnit(const QString& what, const QString& longUnit) {
    if (!depth_->hasFocus()) showWrong({}); // another run may have the depth
    const QString unit = longUnit.toLower();
    const QString sign = unit == "metres" ? "m" : unit == "feet" ? "ft" : unit;
    const QString words = sign.isEmpty() || sign.size() > 4 ? what : what + ", " + sign;
    constexpr int frame = 24; // padding, border, margins and cursor
    const QFontMetrics font = depth_->fontMetrics();
    depth_->setPlaceholderText(words);
    depth_->setFixedWidth(std::max(font.horizontalAdvance(words), font.horizontalAdvance("-0000.00")) +
                          frame);
}

void ReviewBar::clear() {
    depth_->clear();
    showWrong({});
}

/// Before the pages lay themselves out.
bool ReviewBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) fit(pages_.width() - pages_.tabBar()->sizeHint().width());
    return QWidget::eventFilter(watched, event);
}

void ReviewBar::fit(int room) {
    for (QToolButton* const button : buttons_) button->show();
    const bool all = QWidget::minimumSizeHint().width() <= room;
    for (QToolButton* const button : buttons_) button->setVisible(all);
}

QSize ReviewBar::minimumSizeHint() const {
    QSize least = QWidget::minimumSizeHint();
    for (const QToolButton* const button : buttons_) {
        if (button->isHidden()) continue;
        const int width = button->minimumSizeHint().expandedTo(button->minimumSize()).width();
        least.rwidth() -= width + layout()->spacing();
    }
    return least;
}

} // namespace tarvik
