#include "screens/side_frame.h"

#include "app/program_state.h"
#include "lcu/lcu_models.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <initializer_list>
#include <utility>

namespace tarvik {

namespace {

constexpr int wholeWidth = 320;
constexpr int narrowWidth = 274; // on the narrowest display the logs need the rest
constexpr int wholeOrder = 730;  // pixels of the window
constexpr int wholeInstrument = 640;

/// A lamp is a shape and words besides its colour.
void setLamp(QLabel& lamp, bool on, const QString& words) {
    setRole(lamp, on ? "good" : "quiet");
    lamp.setText(QString("%1 %2").arg(QString::fromUtf8(on ? "\u25cf" : "\u25cb"), words));
}

} // namespace

SideFrame::SideFrame(RunPanelActions runActions, DemoPanelActions demoActions,
                     ReviewPanelActions reviewActions)
    : logo_(new QLabel),
      lamps_(new QFrame),
      boxLamp_(new QLabel),
      powerLamp_(new QLabel),
      instrument_(new InstrumentPanel),
      run_(new RunPanel(std::move(runActions))),
      demo_(new DemoPanel(std::move(demoActions))),
      review_(new ReviewPanel(std::move(reviewActions))) {
    setObjectName("sideframe");
    setMinimumWidth(narrowWidth);
    setMaximumWidth(wholeWidth);
    boxLamp_->setObjectName("lblcuok");
    powerLamp_->setObjectName("lbtoolpower");
    auto* const lamps = new QHBoxLayout(lamps_);
    lamps->setContentsMargins(8, 0, 8, 0);
    lamps->addWidget(boxLamp_);
    lamps->addStretch(1);
    lamps->addWidget(powerLamp_);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(logo_, 0, Qt::AlignHCenter);
    column->addWidget(instrument_);
    column->addWidget(lamps_);
    column->addWidget(run_, 1);
    column->addWidget(demo_, 1);
    column->addWidget(review_, 1);
    logo_->setVisible(false);
    showLink({});
    layOut(programMode::review);
}

QSize SideFrame::sizeHint() const {
    return {wholeWidth, QFrame::sizeHint().height()};
}

void SideFrame::layOut(std::string_view mode) {
    const bool instruments = mode == programMode::acquire || mode == programMode::demo;
    // What goes, goes first: all of them at once would be taller than the screen.
    for (QWidget* const part : std::initializer_list<QWidget*>{instrument_, lamps_, run_, demo_, review_})
        part->hide();
    instrument_->setVisible(instruments);
    lamps_->setVisible(instruments || mode == programMode::calibTest);
    run_->setVisible(mode == programMode::acquire);
    demo_->setVisible(mode == programMode::demo);
    review_->setVisible(!instruments);
}

void SideFrame::fit(int windowHeight) {
    const bool low = low_ = windowHeight < wholeInstrument;
    logo_->setVisible(!low && !logo_->pixmap().isNull());
    instrument_->setLow(low);
    run_->setLow(windowHeight < wholeOrder);
    demo_->setLow(low);
    layout()->setSpacing(low ? 4 : 8);
}

void SideFrame::hideAcquisition() {
    instrument_->setVisible(false);
    run_->setVisible(false);
}

void SideFrame::showLogo(const QPixmap& logo) {
    logo_->setVisible(!low_ && !logo.isNull());
    if (logo.isNull()) return;
    logo_->setPixmap(logo.scaled(wholeWidth - 16, 72, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

void SideFrame::showLink(const LinkState& link) {
    if (link.demo) {
        setLamp(*boxLamp_, false, "Demonstration");
        return setLamp(*powerLamp_, false, "No tool power");
    }
    const LcuModel* const model = modelNamed(link.model);
    if (model != nullptr && link.lost) {
        setRole(*boxLamp_, "bad");
        boxLamp_->setText(QString::fromUtf8("\u2716 ") + qt(link.model) + " lost");
        return setLamp(*powerLamp_, false, "Tool power unknown");
    }
    const bool there = model != nullptr && link.open();
    const bool well = there && link.status == model->healthyStatus;
    setLamp(*boxLamp_, well, !there ? "No LCU" : qt(link.model) + (well ? " ready" : " not ready"));
    if (link.powerDoubtful) return setLamp(*powerLamp_, false, "Tool power unknown");
    setLamp(*powerLamp_, link.toolPower, link.toolPower ? "Tool power on" : "Tool power off");
}

} // namespace tarvik
