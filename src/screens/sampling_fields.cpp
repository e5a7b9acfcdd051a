#include "screens/sampling_fields.h"

#include "app/sampling_checks.h"
#include "base/text.h"
#include "screens/field.h"
#include "screens/option_row.h"
#include "screens/qt_text.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QLineEdit>

namespace tarvik {

namespace {

constexpr int first = 0; // of two options: "TIME", "DOWN", metres
constexpr int second = 1;

void check(QButtonGroup& group, bool isSecond) {
    group.button(isSecond ? second : first)->setChecked(true);
}

} // namespace

SamplingFields::SamplingFields(const SamplingPlaces& places)
    : method_(addOptions(places.method, "Sample by", {{"opttime", "&Time"}, {"optdepth", "D&epth"}})),
      intervalEdit_(lineEdit("txtsamplinginterval")),
      interval_(new Field("Sampling inter&val", intervalEdit_, "seconds")) {
    intervalEdit_->setAlignment(Qt::AlignRight);
    interval_->setCheck([this] { return qt(intervalProblem(sampling(), plain(intervalEdit_->text()))); });
    direction_ = addOptions(places.direction, "Logging direction", {{"optdown", "Do&wn"}, {"optup", "U&p"}});
    units_ = addOptions(places.units, "Depth units", {{"optmetres", "&Metres"}, {"optfeet", "&Feet"}});
    places.interval.addWidget(
        interval_); // where the Tab key comes to it in both screens that have the fields
    for (QButtonGroup* const group : {method_, units_}) {
        QObject::connect(group, &QButtonGroup::idClicked, interval_, [this] {
            showUnit();
            interval_->validate(); // seconds are seldom good centimetres
        });
    }
    QObject::connect(intervalEdit_, &QLineEdit::textChanged, interval_, [this] { showUnit(); });
}

void SamplingFields::load(const Settings& settings) {
    check(*method_, settings.sampling() == Sampling::depth);
    check(*direction_, settings.direction() == Direction::up);
    check(*units_, settings.units() == DepthUnits::feet);
    intervalEdit_->setText(qt(settings.samplingInterval.text()));
    showUnit();
}

void SamplingFields::store(Settings& settings) const {
    settings.samplingMethod = samplingText(sampling());
    settings.logDirection =
        directionText(direction_->checkedId() == second ? Direction::up : Direction::down);
    settings.setUnits(units());
    settings.samplingInterval = NumberText(trimmed(plain(intervalEdit_->text())));
}

/// The unit beside the interval follows the method and the depth unit.
void SamplingFields::showUnit() {
    interval_->setUnit(qt(intervalUnitLabel(samplingText(sampling()), units())));
    const QString words = qt(intervalInWords(sampling(), units(), plain(intervalEdit_->text())));
    interval_->setHint(words.isEmpty() ? QString() : "Counts cable: " + words + ".");
}

Sampling SamplingFields::sampling() const {
    return method_->checkedId() == second ? Sampling::depth : Sampling::time;
}

DepthUnits SamplingFields::units() const {
    return units_->checkedId() == second ? DepthUnits::feet : DepthUnits::metres;
}

} // namespace tarvik
