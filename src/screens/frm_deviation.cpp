#include "screens/frm_deviation.h"

#include "base/text.h"
#include "lcu/declination.h"
#include "screens/card.h"
#include "screens/field.h"
#include "screens/option_row.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QButtonGroup>
#include <QLineEdit>
#include <QPushButton>

namespace tarvik {

namespace {

constexpr const char* userNorthKey =
    "frmDeviation user north"; ///< "yes" when the angle is to the user's north

} // namespace

frmDeviation::frmDeviation(Settings& settings, StoredSettings& store, DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmDeviation", "Deviation settings", memory, parent),
      settings_(settings),
      store_(store),
      edit_(lineEdit("txtdeclination")),
      declination_(new Field("Declination", edit_, "degrees")),
      meaning_(new QLabel),
      lost_(roleLabel("warning")) {
    setModal(true);
    edit_->setAlignment(Qt::AlignRight);
    declination_->setCheck(numberBetween(edit_, -largestDeclination, largestDeclination));
    meaning_->setObjectName("lbmeaning");
    lost_->setObjectName("lblostazimuths");
    for (QLabel* const label : {meaning_, lost_}) label->setWordWrap(true);
    buildNorth();
    connect(addButton("comcancel", "Cancel"), &QPushButton::clicked, this, [this] { reject(); });
    connect(addPrimaryButton("comsavedeviation", "Save declination"), &QPushButton::clicked, this,
            [this] { save(); });
    connect(north_, &QButtonGroup::idClicked, this, [this] { showMeaning(); });
    connect(edit_, &QLineEdit::textChanged, this, [this] { showMeaning(); });
    load();
    setMinimumSize(520, 380);
}

void frmDeviation::buildNorth() {
    auto* const card = new Card;
    body()->addWidget(card, 1);
    north_ = addOptions(*card->body(), "Azimuths are counted from",
                        {{"optmagneticnorth", "&Magnetic north"},
                         {"opttruenorth", "&True north"},
                         {"optusernorth", "&User North"}});
    card->body()->addWidget(declination_);
    card->body()->addWidget(meaning_);
    card->body()->addWidget(lost_);
    card->body()->addStretch(1);
}

void frmDeviation::load() {
    const bool none = settings_.declination.value() == 0;
    const bool user = memory().text(userNorthKey) == "yes";
    edit_->setText(qt(settings_.declination.text()));
    north_->button(none ? magneticNorth : user ? userNorth : trueNorth)->setChecked(true);
    showMeaning();
}

frmDeviation::North frmDeviation::north() const {
    return static_cast<North>(north_->checkedId());
}

void frmDeviation::showMeaning() {
    const bool magnetic = north() == magneticNorth;
    declination_->setEnabled(!magnetic);
    declination_->setTitle(north() == userNorth ? "Angle from your north to magnetic north" : "Declination");
    declination_->setHint(north() == userNorth
                              ? "Of a mine or map grid. Positive when magnetic north lies clockwise of it."
                              : "Positive when magnetic north lies east of true north.");
    const auto entered = parseNumber(plain(edit_->text()));
    const double degrees = magnetic ? 0 : entered.value_or(0);
    meaning_->setText(magnetic || entered ? qt(declinationWords(degrees)) : QString());
    lost_->setText(qt(lostAzimuthsWords(degrees)));
}

void frmDeviation::save() {
    const bool magnetic = north() == magneticNorth;
    if (!magnetic && !validateAll({declination_})) return;
    settings_.declination = magnetic ? NumberText(0) : NumberText(trimmed(plain(edit_->text())));
    memory().keepText(userNorthKey, north() == userNorth ? "yes" : "no");
    if (store_.Utilities_saveregsettings(settings_)) accept();
}

} // namespace tarvik
