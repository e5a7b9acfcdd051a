#include "screens/review_bar.h"

#include "base/text.h"
#include "screens/field.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>
#include <QToolButton>

#include <utility>

namespace tarvik {

ReviewBar::ReviewBar(std::function<void(double depth)> jump)
    : jump_(std::move(jump)), depth_(lineEdit("txtgotodepth")), scale_(roleLabel("quiet")) {
    setObjectName("reviewbar");
    setStyleSheet("QToolButton { padding: 2px 6px; }");
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 4, 0);
    row->setSpacing(2);
    scale_->setObjectName("lbshownscale");
    scale_->setMinimumWidth(scale_->fontMetrics().horizontalAdvance("1:2000"));
    depth_->setPlaceholderText("Depth");
    depth_->setAccessibleName("Go to depth");
    depth_->setToolTip("A depth of the log, then Enter (Ctrl+G)");
    depth_->setFixedWidth(76); // beside the notes there is no room for more
    depth_->setStyleSheet("QLineEdit { padding: 1px 6px; min-height: 20px; }"); // no higher than the tabs
    row->addWidget(scale_);
    row->addWidget(depth_);
    connect(depth_, &QLineEdit::returnPressed, this, [this] { go(); });
    connect(depth_, &QLineEdit::textEdited, this, [this] { restyle(*depth_, "wrong", false); });
    auto* const keys = new QShortcut(QKeySequence("Ctrl+G"), this);
    connect(keys, &QShortcut::activated, this, [this] {
        depth_->setFocus();
        depth_->selectAll();
    });
}

void ReviewBar::go() {
    const auto depth = parseNumber(trimmed(plain(depth_->text())));
    restyle(*depth_, "wrong", !depth);
    if (depth) jump_(*depth);
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

void ReviewBar::showScale(double scale, const QString& depthUnit) {
    scale_->setText(scaleText(scale));
    const QString unit = depthUnit.toLower();
    depth_->setPlaceholderText("Depth, " + (unit == "metres" ? "m" : unit == "feet" ? "ft" : unit));
}

} // namespace tarvik
