// What every screen owes its operator, looked for in one that is shown: keys that mean one thing, names for
// who does not see it, no text cut, an order of the Tab key that the eye can follow.
#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>

#include <string>
#include <vector>

namespace tarvik::test {

class Inspection {
  public:
    Inspection(QWidget& screen, QString place) : screen_(screen), place_(std::move(place)) {
        mnemonics();
        names();
        cutTexts();
        tabOrder();
    }
    [[nodiscard]] const std::vector<std::string>& faults() const { return faults_; }

  private:
    void fault(const QWidget& widget, const QString& what) {
        faults_.push_back(
            (place_ + ", " + widget.metaObject()->className() + " " + widget.objectName() + ": " + what)
                .toStdString());
    }
    template <class Widget>
    [[nodiscard]] std::vector<Widget*> shown() const {
        std::vector<Widget*> all;
        for (Widget* const widget : screen_.findChildren<Widget*>()) {
            if (widget->isVisible() && widget->window() == &screen_) all.push_back(widget);
        }
        return all;
    }
    [[nodiscard]] QRect placeOf(const QWidget& widget) const {
        return {widget.mapTo(&screen_, QPoint()), widget.size()};
    }

    void key(const QWidget& of, const QString& text) {
        const QKeySequence keys = QKeySequence::mnemonic(text);
        if (keys.isEmpty()) return;
        if (keys_.contains(keys)) fault(of, keys.toString() + " is also of " + keys_[keys]);
        keys_[keys] = text;
    }
    void mnemonics() {
        for (const auto* const button : shown<QAbstractButton>()) key(*button, button->text());
        for (const auto* const label : shown<QLabel>()) {
            if (label->buddy() != nullptr) key(*label, label->text());
        }
        for (const auto* const bar : shown<QTabBar>()) {
            for (int i = 0; i < bar->count(); ++i) key(*bar, bar->tabText(i));
        }
    }

    void names() {
        for (QWidget* const widget : shown<QWidget>()) {
            if ((widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy() != nullptr) continue;
            if (qobject_cast<QComboBox*>(widget->parentWidget()) != nullptr) continue;
            const QAccessibleInterface* const side = QAccessible::queryAccessibleInterface(widget);
            if (side != nullptr && side->text(QAccessible::Name).isEmpty()) fault(*widget, "has no name");
        }
    }

    void cutTexts() {
        for (const auto* const label : shown<QLabel>()) {
            if (label->text().isEmpty()) continue;
            const bool wraps = label->wordWrap();
            const int height = wraps ? label->heightForWidth(label->width()) : label->sizeHint().height();
            if (height > label->height() || (!wraps && label->sizeHint().width() > label->width()))
                fault(*label, "cut: " + label->text());
        }
        for (const auto* const button : shown<QAbstractButton>()) {
            const QSize needed = button->sizeHint();
            if (needed.width() > button->width() || needed.height() > button->height())
                fault(*button, "cut: " + button->text());
        }
        for (const auto* const bar : shown<QTabBar>()) {
            if (bar->sizeHint().width() > bar->width())
                fault(*bar, QString("tabs are cut by %1").arg(bar->sizeHint().width() - bar->width()));
        }
        for (const auto* const edit : shown<QLineEdit>()) {
            const int room = edit->width() - 12;
            if (edit->fontMetrics().horizontalAdvance(edit->placeholderText()) > room)
                fault(*edit, "cut: " + edit->placeholderText());
        }
        for (auto* const list : shown<QComboBox>()) {
            constexpr int arrowAndFrame = 36;
            if (list->fontMetrics().horizontalAdvance(list->currentText()) + arrowAndFrame > list->width())
                fault(*list, "cut: " + list->currentText());
        }
        for (const auto* const header : shown<QHeaderView>()) headsOf(*header);
    }
    void headsOf(const QHeaderView& header) {
        if (header.orientation() == Qt::Vertical || header.model() == nullptr) return;
        for (int i = 0; i < header.count(); ++i) {
            if (header.sectionSizeHint(i) > header.sectionSize(i))
                fault(header, "head is cut: " + header.model()->headerData(i, Qt::Horizontal).toString());
        }
    }

    /// The next control stands below or at the right, or begins a new column; never back at the left above.
    void tabOrder() {
        QWidget* const first = next(&screen_);
        QWidget* one = first;
        for (int most = 300; one != nullptr && most > 0; --most) {
            QWidget* const two = next(one);
            if (two == first || two == nullptr) return;
            const QRect before = placeOf(*one), after = placeOf(*two);
            if (after.bottom() < before.top() && after.left() < before.right())
                fault(*two, "comes after " + one->objectName() + " that stands below it");
            one = two;
        }
    }
    [[nodiscard]] QWidget* next(QWidget* after) const {
        for (QWidget* one = after->nextInFocusChain(); one != after; one = one->nextInFocusChain()) {
            const bool can = (one->focusPolicy() & Qt::TabFocus) != 0 && one->focusProxy() == nullptr;
            if (can && one->isVisible() && one->isEnabled() && one->window() == &screen_) return one;
        }
        return nullptr;
    }

    QWidget& screen_;
    QString place_;
    QMap<QKeySequence, QString> keys_;
    std::vector<std::string> faults_;
};

} // namespace tarvik::test
