#include "screens/frm_exit.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvik {

namespace {
constexpr int flashMs = 500;
}

frmExit::frmExit(ExitPrompt prompt, DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmExit", "Exit", memory, parent), prompt_(prompt), label_(new QLabel("Leave Tarvik?")) {
    label_->setObjectName("lbexit");
    label_->setAlignment(Qt::AlignCenter);
    label_->setMinimumSize(360, 64); // the larger of the two sizes fits: nothing jumps
    body()->addWidget(label_);
    auto* const text = new QLabel("A run is open in review. It is on file; nothing is lost by leaving.");
    text->setAlignment(Qt::AlignCenter);
    body()->addWidget(text);
    connect(addButton("comyes", "&Yes"), &QPushButton::clicked, this, [this] { answer(true); });
    connect(addPrimaryButton("comno", "&No"), &QPushButton::clicked, this, [this] { answer(false); });
    connect(this, &QDialog::rejected, this, [this] { prompt_.comno(); });
    connect(&timer_, &QTimer::timeout, this, [this] { flash(); });
    flash();
}

void frmExit::showEvent(QShowEvent* event) {
    ScreenDialog::showEvent(event);
    if (timer_.isActive()) return;
    prompt_.opened();
    timer_.start(flashMs);
}

void frmExit::answer(bool yes) {
    timer_.stop();
    yes ? prompt_.comyes() : prompt_.comno();
    accept();
}

void frmExit::flash() {
    label_->setStyleSheet(QString("font-size: %1pt; font-weight: 600;")
                              .arg(timer_.isActive() ? prompt_.flash() : ExitPrompt::smallPoints));
}

} // namespace tarvik
