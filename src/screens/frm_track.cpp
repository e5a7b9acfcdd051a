#include "screens/frm_track.h"

#include "base/number_picture.h"
#include "base/text.h"
#include "display/display_edits.h"
#include "screens/card.h"
#include "screens/field.h"
#include "screens/option_row.h"
#include "screens/qt_text.h"
#include "screens/theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

QString curveText(const LogCurve& curve) {
    QString text = qt(curve.channel) + "    " + qt(shortestNumber(curve.scale.left)) + " to " +
                   qt(shortestNumber(curve.scale.right)) + " " + qt(curve.calibrated ? curve.unit : "counts");
    return curve.shown ? text : text + "    (hidden)";
}

QString trackText(const LogDisplay& display, std::size_t track) {
    QStringList names;
    for (const LogCurve& curve : display.tracks[track].curves) names.append(qt(curve.channel));
    return QString("Track %1: ").arg(track + 1) + (names.isEmpty() ? "no curves" : names.join(", "));
}

QPushButton* smallButton(const char* name, const QString& text) {
    auto* const button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

} // namespace

frmTrack::frmTrack(LogDisplay display, std::size_t track, const LogData& log, LogDisplay usual,
                   DisplayEditModules modules, QWidget* parent)
    : ScreenDialog("frmTrack", "Tracks and curves", modules.memory, parent),
      display_(std::move(display)),
      track_(std::min(track, display_.tracks.size() - 1)),
      data_(log),
      usual_(std::move(usual)),
      modules_(std::move(modules)),
      tracks_(new QComboBox),
      curves_(new QListWidget),
      channels_(new QComboBox),
      divisions_(lineEdit("txtdivisions")),
      width_(lineEdit("txttrackwidth")),
      numbers_(new QComboBox),
      depthPlace_(new QComboBox),
      speedBar_(new QCheckBox("&Winch speed as a bar")) {
    setModal(true);
    body()->addLayout(buildChoice());
    auto* const grid = new QGridLayout;
    grid->setSpacing(measure::wide);
    grid->addWidget(buildCurves(), 0, 0, 2, 1);
    grid->addWidget(buildGrid(), 0, 1);
    grid->addWidget(buildDepthTrack(), 1, 1);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    body()->addLayout(grid, 1);
    connect(addButton("comcancel", "Cancel"), &QPushButton::clicked, this, [this] { reject(); });
    connect(addPrimaryButton("comapply", "Apply to &display"), &QPushButton::clicked, this,
            [this] { accept(); });
    setMinimumSize(800, 600);
    load();
}

QLayout* frmTrack::buildChoice() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::gap);
    tracks_->setObjectName("lbtracks");
    tracks_->setAccessibleName("Track");
    row->addWidget(tracks_, 1);
    connect(tracks_, &QComboBox::activated, this,
            [this](int chosen) { showTrack(static_cast<std::size_t>(chosen)); });
    auto* const add = smallButton("comaddtrack", "&New track beside it");
    auto* const remove = smallButton("comremovetrack", "Remove &track");
    connect(add, &QPushButton::clicked, this, [this] { showTrack(addTrack(display_, track_)); });
    connect(remove, &QPushButton::clicked, this, [this] {
        removeTrack(display_, track_);
        showTrack(std::min(track_, display_.tracks.size() - 1));
    });
    row->addWidget(add);
    row->addWidget(remove);
    return row;
}

QWidget* frmTrack::buildCurves() {
    auto* const card = new Card("Curves");
    curves_->setObjectName("lbcurves");
    curves_->setAccessibleName("Curves of the track");
    curves_->setMinimumHeight(150);
    connect(curves_, &QListWidget::itemActivated, this, [this] { editCurve(); });
    card->body()->addWidget(curves_, 1);
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::gap);
    const auto tool = [&](const char* name, const QString& text, auto act) {
        auto* const button = smallButton(name, text);
        connect(button, &QPushButton::clicked, this, act);
        row->addWidget(button);
    };
    tool("comeditcurve", "&Edit\u2026", [this] { editCurve(); });
    tool("comraise", "&Up", [this] {
        if (const auto at = selected()) moveTo(raiseCurve(track(), *at));
    });
    tool("comlower", "D&own", [this] {
        if (const auto at = selected()) moveTo(lowerCurve(track(), *at));
    });
    tool("comremove", "&Remove", [this] {
        if (const auto at = selected()) removeCurve(track(), *at);
        load();
    });
    row->addStretch(1);
    card->body()->addLayout(row);
    buildAdding(*card->body());
    return card;
}

void frmTrack::buildAdding(QVBoxLayout& column) {
    channels_->setObjectName("lbchannels");
    for (const std::string& name : channelNames(data_)) channels_->addItem(qt(name));
    auto* const add = smallButton("comaddcurve", "&Add");
    add->setEnabled(channels_->count() > 0);
    connect(add, &QPushButton::clicked, this, [this] {
        const ChannelData* const channel = data_.find(plain(channels_->currentText()));
        if (channel == nullptr) return;
        track().curves.push_back(curveOfChannel(*channel, usual_));
        moveTo(track().curves.size() - 1);
    });
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::gap);
    row->addWidget(new Field("&Channel to add", channels_), 1);
    row->addWidget(add, 0, Qt::AlignBottom);
    column.addLayout(row);
}

QWidget* frmTrack::buildGrid() {
    auto* const card = new Card("Grid");
    grid_ = addOptions(*card->body(), "Division",
                       {{"optgridlinear", "&Linear"}, {"optgridlogarithmic", "Lo&garithmic"}});
    auto* const divisions = new Field("Parts of a l&inear grid", divisions_);
    divisions->setToolTip("A logarithmic grid has the decades of its first logarithmic curve");
    divisions->setCheck([this] { return qt(divisionsProblem(plain(divisions_->text()))); });
    auto* const width = new Field("Widt&h", width_, "share");
    width->setToolTip("Its share beside the other tracks");
    width->setCheck([this] { return qt(trackWidthProblem(plain(width_->text()))); });
    card->body()->addWidget(divisions);
    card->body()->addWidget(width);
    card->body()->addStretch(1);
    fields_ = {divisions, width};
    connect(grid_, &QButtonGroup::idClicked, this, [this] { takeGrid(); });
    for (QLineEdit* const edit : {divisions_, width_}) {
        connect(edit, &QLineEdit::textChanged, this, [this] { takeGrid(); });
    }
    return card;
}

QWidget* frmTrack::buildDepthTrack() {
    auto* const card = new Card("Depth track");
    numbers_->setObjectName("lbdepthnumbers");
    numbers_->addItems({"Metres", "Feet", "Metres and feet"});
    depthPlace_->setObjectName("lbdepthplace");
    speedBar_->setObjectName("optspeedbar");
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::wide);
    row->addWidget(new Field("Nu&mbers", numbers_), 1);
    row->addWidget(new Field("&Place", depthPlace_), 1);
    card->body()->addLayout(row);
    card->body()->addWidget(speedBar_);
    card->body()->addStretch(1);
    for (QComboBox* const box : {numbers_, depthPlace_}) {
        connect(box, &QComboBox::currentIndexChanged, this, [this] { takeGrid(); });
    }
    connect(speedBar_, &QCheckBox::toggled, this, [this] { takeGrid(); });
    return card;
}

void frmTrack::load() {
    const bool first = tracks_->count() == 0;
    loading_ = true;
    tracks_->clear();
    depthPlace_->clear();
    depthPlace_->addItem("At the left");
    for (std::size_t i = 0; i < display_.tracks.size(); ++i) {
        tracks_->addItem(trackText(display_, i));
        depthPlace_->addItem(QString("Right of track %1").arg(i + 1));
    }
    tracks_->setCurrentIndex(static_cast<int>(track_));
    depthPlace_->setCurrentIndex(static_cast<int>(display_.depthPlace));
    findChild<QPushButton*>("comremovetrack")->setEnabled(display_.tracks.size() > 1);
    loadCurves(curves_->currentRow());
    grid_->button(track().grid == ScaleKind::logarithmic ? 1 : 0)->setChecked(true);
    divisions_->setText(QString::number(track().divisions));
    width_->setText(qt(shortestNumber(track().width)));
    numbers_->setCurrentIndex(static_cast<int>(display_.depthTrack.numbers));
    speedBar_->setChecked(display_.depthTrack.speedBar);
    loading_ = false;
    if (!first) modules_.preview(display_);
}

void frmTrack::loadCurves(int row) {
    curves_->clear();
    for (const LogCurve& curve : track().curves) curves_->addItem(curveText(curve));
    curves_->setCurrentRow(std::clamp(row, 0, std::max(0, curves_->count() - 1)));
    for (const char* name : {"comeditcurve", "comraise", "comlower", "comremove"}) {
        findChild<QPushButton*>(name)->setEnabled(curves_->count() > 0);
    }
}

void frmTrack::showTrack(std::size_t track) {
    track_ = track;
    load();
}

void frmTrack::moveTo(std::size_t row) {
    load();
    curves_->setCurrentRow(static_cast<int>(row));
}

std::optional<std::size_t> frmTrack::selected() const {
    if (curves_->currentRow() < 0) return std::nullopt;
    return static_cast<std::size_t>(curves_->currentRow());
}

void frmTrack::takeGrid() {
    if (loading_) return;
    bool right = true;
    for (Field* const field : fields_) right = field->validate() && right;
    if (!right) return;
    track().grid = grid_->checkedId() == 1 ? ScaleKind::logarithmic : ScaleKind::linear;
    track().divisions = divisions_->text().trimmed().toInt();
    track().width = parseNumber(trimmed(plain(width_->text()))).value_or(track().width);
    display_.depthTrack.numbers = static_cast<DepthNumbers>(numbers_->currentIndex());
    display_.depthTrack.speedBar = speedBar_->isChecked();
    placeDepthTrack(display_, static_cast<std::size_t>(depthPlace_->currentIndex()));
    modules_.preview(display_);
}

void frmTrack::editCurve() {
    const auto at = selected();
    if (!at) return;
    DisplayEditModules inner = modules_;
    inner.preview = [this](const std::optional<LogDisplay>& tried) {
        modules_.preview(tried ? *tried : display_);
    };
    frmCurve dialog(display_, track_, *at, inner, this);
    if (dialog.exec() != QDialog::Accepted) return;
    display_ = dialog.display();
    load();
}

void frmTrack::accept() {
    if (validateAll(fields_)) ScreenDialog::accept();
}

void frmTrack::reject() {
    modules_.preview(std::nullopt);
    ScreenDialog::reject();
}

} // namespace tarvik
