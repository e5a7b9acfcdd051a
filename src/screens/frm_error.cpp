#include "screens/frm_error.h"

#include "screens/card.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>

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
    body()->addWidget(what_);
    auto* const card = new Card("Where it happened");
    card->body()->addWidget(facts_);
    body()->addWidget(card);
    body()->addWidget(file_);
    body()->addWidget(times_);
    connect(addSideButton("comcopy", "&Copy"), &QPushButton::clicked, this, [this] {
        QApplication::clipboard()->setText(what_->text() + "\n" + facts_->text() + "\n" + file_->text());
    });
    connect(addPrimaryButton("comclose", "Close"), &QPushButton::clicked, this, [this] {
        count_ = 0;
        accept();
    });
}

void frmERROR::showError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed) {
    const QString facts = "Form : " + qt(error.form) + "\nRoutine : " + qt(error.routine) +
                          "\nError number : " + QString::number(error.number) +
                          "\nLevel : " + QString::number(error.level);
    count_ = facts == shown_ && isVisible() ? count_ + 1 : 1;
    shown_ = facts;
    what_->setText(qt(error.description));
    facts_->setText(facts + "\n" + qt(dateTime));
    file_->setText(qt(errorFileAdvice(filed)));
    times_->setText(count_ > 1 ? QString("%1 times").arg(count_) : QString());
    times_->setVisible(count_ > 1);
    show();
}

} // namespace tarvik
