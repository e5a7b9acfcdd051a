#include "screens/screen_dialog.h"

#include "screens/theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvik {

namespace {

constexpr QSize titleBar(0, 32); // of the window system; not known before the window is shown

}

ScreenDialog::ScreenDialog(const QString& objectName, const QString& title, DesktopMemory& memory,
                           QWidget* parent)
    : QDialog(parent),
      memory_(memory),
      body_(new QVBoxLayout),
      footer_(new QWidget),
      buttons_(new QHBoxLayout(footer_)) {
    setObjectName(objectName);
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    body_->setSpacing(measure::wide);
    buttons_->setContentsMargins(0, 0, 0, 0);
    buttons_->setSpacing(measure::gap);
    buttons_->addStretch(1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(measure::margin, measure::margin, measure::margin, measure::wide);
    column->setSpacing(measure::wide);
    column->addLayout(body_, 1);
    column->addWidget(footer_);
}

void ScreenDialog::done(int result) {
    if (placed_) memory_.keepGeometry(*this);
    QDialog::done(result);
}

QPushButton* ScreenDialog::addButton(const QString& objectName, const QString& text) {
    auto* const button = new QPushButton(text);
    button->setObjectName(objectName);
    button->setAutoDefault(false);
    buttons_->addWidget(button);
    return button;
}

QPushButton* ScreenDialog::addPrimaryButton(const QString& objectName, const QString& text) {
    QPushButton* const button = addButton(objectName, text);
    button->setProperty("primary", true);
    button->setDefault(true);
    return button;
}

QPushButton* ScreenDialog::addSideButton(const QString& objectName, const QString& text) {
    auto* const button = new QPushButton(text);
    button->setObjectName(objectName);
    button->setAutoDefault(false);
    int leftmost = 0;
    while (buttons_->itemAt(leftmost)->spacerItem() == nullptr) ++leftmost;
    buttons_->insertWidget(leftmost, button);
    return button;
}

void ScreenDialog::showEvent(QShowEvent* event) {
    if (!placed_) {
        placed_ = true;
        const bool known = memory_.restoreGeometry(*this);
        fitScreen();
        if (!known) centre();
        buttonsLast();
    }
    QDialog::showEvent(event);
}

/// A message that comes up below a field gets its room from the screen, not from the fields beside it.
bool ScreenDialog::event(QEvent* event) {
    const bool done = QDialog::event(event);
    if (event->type() != QEvent::LayoutRequest || !isVisible()) return done;
    const int needed = layout()->hasHeightForWidth() ? layout()->totalMinimumHeightForWidth(width())
                                                     : layout()->totalMinimumSize().height();
    const int room = screen()->availableGeometry().height() - titleBar.height();
    if (needed > height()) resize(width(), std::min(needed, std::max(height(), room)));
    return done;
}

/// Return is the default button's, unless another button has the focus: whoever stands on Cancel means it.
void ScreenDialog::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* const button = qobject_cast<QPushButton*>(focusWidget());
    if (enter && button != nullptr && button->isEnabled()) return button->click();
    QDialog::keyPressEvent(event);
}

/// In the middle of the window that it belongs to; left to itself the window system drops it anywhere.
void ScreenDialog::centre() {
    if (parentWidget() == nullptr) return;
    const QRect room = screen()->availableGeometry();
    QRect place(QPoint(), size() + titleBar);
    place.moveCenter(parentWidget()->window()->frameGeometry().center());
    place.moveLeft(
        std::clamp(place.left(), room.left(), std::max(room.left(), room.right() - place.width())));
    place.moveTop(std::clamp(place.top(), room.top(), std::max(room.top(), room.bottom() - place.height())));
    move(place.topLeft());
}

/// The Tab key comes to the buttons at the bottom after the fields, whatever was made first: what gets its
/// parent last comes last.
void ScreenDialog::buttonsLast() {
    layout()->removeWidget(footer_);
    footer_->setParent(nullptr);
    layout()->addWidget(footer_);
    footer_->show();
    QWidget* first = nextInFocusChain();
    while (first != this && ((first->focusPolicy() & Qt::TabFocus) == 0 || !first->isVisibleTo(this)))
        first = first->nextInFocusChain();
    if (!footer_->isAncestorOf(first)) return;
    for (QPushButton* const button : footer_->findChildren<QPushButton*>()) {
        if (button->isDefault()) button->setFocus(); // nothing but buttons: the act is ready
    }
}

void ScreenDialog::fitScreen() {
    const QSize room = screen()->availableGeometry().size() - titleBar;
    setMinimumSize(minimumSize().boundedTo(room));
    const QSize needed = layout()->totalMinimumSize();
    if (needed.width() > room.width() || needed.height() > room.height()) scrollBody();
    resize(size().boundedTo(room));
}

void ScreenDialog::scrollBody() {
    auto* const column = static_cast<QVBoxLayout*>(layout());
    column->removeItem(body_);
    body_->setParent(nullptr);
    body_->setContentsMargins(0, 0, measure::gap, measure::gap);
    auto* const content = new QWidget;
    content->setLayout(body_);
    auto* const scrolled = new QScrollArea;
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setFocusPolicy(Qt::NoFocus); // it follows the focus within
    scrolled->setWidgetResizable(true);
    scrolled->setWidget(content);
    column->insertWidget(0, scrolled, 1);
}

} // namespace tarvik
