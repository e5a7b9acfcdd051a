#include "screens/log_area.h"

#include "screens/styles.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <utility>

namespace tarvik {

LogArea::LogArea()
    : pages_(new QStackedLayout),
      headline_(roleLabel("title")),
      text_(roleLabel("quiet")),
      steps_(new QVBoxLayout),
      line_(roleLabel("warning")) {
    setObjectName("logarea");
    setProperty("card", true);
    headline_->setAlignment(Qt::AlignCenter);
    headline_->setObjectName("lbemptyheadline");
    text_->setAlignment(Qt::AlignCenter);
    text_->setWordWrap(true);
    text_->setMinimumWidth(280);
    text_->setMaximumWidth(520);
    steps_->setSpacing(8);

    auto* const empty = new QWidget;
    auto* const column = new QVBoxLayout(empty);
    column->setSpacing(16);
    column->addStretch(2);
    column->addWidget(headline_);
    auto* const textRow = new QHBoxLayout; // an alignment would cost the label its height for the width
    textRow->addStretch(1);
    textRow->addWidget(text_, 100);
    textRow->addStretch(1);
    column->addLayout(textRow);
    column->addLayout(steps_);
    column->addStretch(3);
    pages_->addWidget(empty);

    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(2, 2, 2, 2);
    whole->addLayout(pages_, 1);
    whole->addWidget(line_);
    line_->setVisible(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        const QWidget* const page = pages_->currentWidget();
        restyle(*this, "focused", now != nullptr && now == page->focusProxy());
    });
}

void LogArea::addPage(QWidget* page) {
    pages_->addWidget(page);
}

void LogArea::showPage(QWidget* page) {
    pages_->setCurrentWidget(page);
}

void LogArea::whenTurned(std::function<void()> act) {
    connect(pages_, &QStackedLayout::currentChanged, this, [act = std::move(act)] { act(); });
}

void LogArea::showEmpty(const QString& headline, const QString& text, std::vector<NextStep> steps) {
    headline_->setText(headline);
    text_->setText(text);
    while (QLayoutItem* const item = steps_->takeAt(0)) {
        if (QWidget* const old = item->widget()) {
            old->hide();
            old->deleteLater();
        }
        delete item;
    }
    for (NextStep& step : steps) {
        auto* const button = new QPushButton(step.text);
        button->setMinimumWidth(280);
        connect(new QShortcut(Qt::Key_Return, button, nullptr, nullptr, Qt::WidgetShortcut),
                &QShortcut::activated, button, [button] { button->animateClick(); });
        connect(button, &QPushButton::clicked, button, [act = std::move(step.act)] { act(); });
        steps_->addWidget(button, 0, Qt::AlignHCenter);
    }
    pages_->setCurrentIndex(0);
}

void LogArea::takeFocus() {
    if (pages_->currentIndex() > 0) return pages_->currentWidget()->setFocus();
    if (steps_->count() == 0) return;
    QWidget* const first = steps_->itemAt(0)->widget();
    first->show(); // one that is just made is not yet
    first->setFocus();
}

void LogArea::printLine(const QString& text) {
    line_->setText(text);
    line_->setVisible(!text.isEmpty());
}

} // namespace tarvik
