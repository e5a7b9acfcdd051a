#include "screens/frm_error.h"

#include "screens/card.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace tarvik {

frmERROR::frmERROR(DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmERROR", "Error", memory, parent),
      what_(roleLabel("bad")),
      facts_(new QLabel),
      file_(new QLabel),
      times_(roleLabel("quiet")) {
    what_->setObjectName("lbwhat");
    what_->setWordWrap(true);
    what_->setMinimumWidth(460);
    facts_->setObjectName("lbfacts");
    facts_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    file_->setObjectName("lbfile");
    file_->setWordWrap(true);
    file_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    times_->setObjectName("lbtimes");
    body()->addWidget(what_);
    auto* const card = new Card("Where it happened");
    card->body()->addWidget(facts_);
    body()->addWidget(card);
    body()->addWidget(file_);
    body()->addWidget(times_);
    connect(addSideButton("comcopy", "&Copy"), &QPushButton::clicked, this, [this] {
        QApplication::clipboard()->setText(what_->text() + "\n" + facts_->text() + "\n" + file_->text());
    });
    next_ = addButton("comnext", "&Next error");
    connect(next_, &QPushButton::clicked, this, [this] { showNext(); });
    connect(addPrimaryButton("comclose", "Close"), &QPushButton::clicked, this, [this] { accept(); });
}

void frmERROR::keepError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed) {
    Unread come{.what = qt(error.description),
                .facts = "Form : " + qt(error.form) + "\nRoutine : " + qt(error.routine) +
                         "\nError number : " + QString::number(error.number) +
                         "\nLevel : " + QString::number(error.level),
                .dateTime = qt(dateTime),
                .advice = qt(errorFileAdvice(filed))};
    const auto known = std::ranges::find_if(unread_, [&](const Unread& each) { return each.sameAs(come); });
    if (known == unread_.end()) {
        unread_.push_back(std::move(come));
    } else {
        come.times = known->times + 1;
        *known = std::move(come);
    }
    if (isVisible()) showCurrent();
}

void frmERROR::showUnread() {
    if (unread_.empty()) return;
    showCurrent();
    comeForward();
}

void frmERROR::done(int result) {
    unread_.clear();
    current_ = 0;
    ScreenDialog::done(result);
}

void frmERROR::showCurrent() {
    const Unread& shown = unread_[current_];
    what_->setText(shown.what);
    facts_->setText(shown.facts + "\n" + shown.dateTime);
    file_->setText(shown.advice);
    QStringList counts;
    if (unread_.size() > 1) counts += QString("Error %1 of %2").arg(current_ + 1).arg(unread_.size());
    if (shown.times > 1) counts += QString("%1 times").arg(shown.times);
    times_->setText(counts.join(", "));
    next_->setVisible(unread_.size() > 1);
    makeRoom();
}

void frmERROR::showNext() {
    current_ = (current_ + 1) % unread_.size();
    showCurrent();
}

/// Behind a dialog that waits to be answered it could neither be seen nor closed.
void frmERROR::comeForward() {
    const QWidget* const waiting = QApplication::activeModalWidget();
    if (waiting != nullptr && waiting != this) {
        hide(); // a window that is shown keeps its modality
        setModal(true);
        winId(); // makes the window
        windowHandle()->setTransientParent(waiting->window()->windowHandle());
    } else if (!isVisible()) {
        setModal(false);
    }
    show();
    raise();
    makeRoom();
}

/// A longer text than the one before makes the window taller; it never cuts.
void frmERROR::makeRoom() {
    layout()->activate();
    resize(width(), std::max({height(), layout()->totalHeightForWidth(width()), sizeHint().height()}));
}

} // namespace tarvik
