#include "screens/frm_curve.h"

#include "base/number_picture.h"
#include "base/text.h"
#include "display/display_edits.h"
#include "drawing/canvas.h"
#include "screens/card.h"
#include "screens/field.h"
#include "screens/option_row.h"
#include "screens/qt_text.h"
#include "screens/theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>

#include <utility>

namespace tarvik {

namespace {

QComboBox* list(const char* name, const QStringList& items) {
    auto* const box = new QComboBox;
    box->setObjectName(name);
    box->addItems(items);
    return box;
}

QIcon inkIcon(const QColor& colour) {
    QPixmap picture(28, 14);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.fillRect(0, 5, 28, 4, colour);
    painter.end();
    return QIcon(picture);
}

QString number(double value) {
    return qt(shortestNumber(value));
}

double entered(const QLineEdit* edit) {
    return parseNumber(trimmed(plain(edit->text()))).value_or(0);
}

} // namespace

frmCurve::frmCurve(LogDisplay display, std::size_t track, std::size_t curve, DisplayEditModules modules,
                   QWidget* parent)
    : ScreenDialog("frmCurve", "Curve", modules.memory, parent),
      before_(display),
      display_(std::move(display)),
      track_(track),
      curve_(curve),
      modules_(std::move(modules)),
      left_(lineEdit("txtleft")),
      right_(lineEdit("txtright")),
      wrap_(new QCheckBox("&Wrap round: off-scale values come in again from the other side")),
      keep_(new QCheckBox("&Keep this scale in the record of the tool")),
      ink_(list("lbink", {})),
      line_(list("lbline", {"Solid", "Dashed", "Dotted", "Dash-dot", "Points"})),
      width_(lineEdit("txtwidth")),
      fill_(list("lbfill", {"None", "To the left edge", "To the right edge", "To the base value"})),
      base_(lineEdit("txtbase")),
      filter_(list("lbfilter", {"None", "3", "5", "7", "9", "11", "15", "21"})),
      inTrack_(list("lbintrack", {})),
      shown_(new QCheckBox("&Visible")) {
    setModal(true);
    setWindowTitle("Curve " + qt(this->curve().channel));
    auto* const grid = new QGridLayout;
    grid->setSpacing(measure::wide);
    grid->addWidget(buildScale(), 0, 0, 1, 2);
    grid->addWidget(buildLine(), 1, 0);
    grid->addWidget(buildUse(), 1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    body()->addLayout(grid);
    buildButtons();
    load();
    setMinimumWidth(620);
}

QWidget* frmCurve::buildScale() {
    auto* const card = new Card("Scale");
    kind_ =
        addOptions(*card->body(), "Division", {{"optlinear", "&Linear"}, {"optlogarithmic", "L&ogarithmic"}});
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::wide);
    auto* const left = new Field("L&eft end", left_);
    auto* const right = new Field("&Right end", right_, qt(curve().calibrated ? curve().unit : "counts"));
    const auto kind = [this] { return kind_->checkedId() == 1 ? ScaleKind::logarithmic : ScaleKind::linear; };
    left->setCheck([this, kind] { return qt(scaleEndProblem(kind(), plain(left_->text()))); });
    right->setCheck(
        [this, kind] { return qt(scaleProblem(kind(), plain(left_->text()), plain(right_->text()))); });
    auto* const swap = new QPushButton("Swap e&nds");
    swap->setObjectName("comreverse");
    swap->setAutoDefault(false);
    swap->setToolTip("Change the ends: what rose to the right rises to the left");
    connect(swap, &QPushButton::clicked, this, [this] { swapEnds(); });
    row->addWidget(left, 1, Qt::AlignTop);
    row->addWidget(right, 1, Qt::AlignTop);
    auto* const below = new QVBoxLayout; // level with the edits, not with their titles
    below->addSpacing(QFontMetrics(font()).height() + 5);
    below->addWidget(swap);
    below->addStretch(1);
    row->addLayout(below);
    card->body()->addLayout(row);
    wrap_->setObjectName("optwrap");
    keep_->setObjectName("optkeepscale");
    keep_->setToolTip("Later runs of this tool begin with it");
    keep_->setVisible(static_cast<bool>(modules_.keepScale));
    card->body()->addWidget(wrap_);
    card->body()->addWidget(keep_);
    fields_ = {left, right};
    connect(kind_, &QButtonGroup::idClicked, this, [this] { follow(); });
    connect(wrap_, &QCheckBox::toggled, this, [this] { follow(); });
    for (QLineEdit* const edit : {left_, right_}) {
        edit->setAlignment(Qt::AlignRight);
        connect(edit, &QLineEdit::textChanged, this, [this] { follow(); });
    }
    return card;
}

QWidget* frmCurve::buildLine() {
    auto* const card = new Card("Line");
    auto* const width = new Field("Wi&dth", width_, "mm");
    width->setCheck([this] { return qt(lineWidthProblem(plain(width_->text()))); });
    card->body()->addWidget(new Field("&Ink", ink_));
    card->body()->addWidget(new Field("&Style", line_));
    card->body()->addWidget(width);
    card->body()->addStretch(1);
    fields_.push_back(width);
    connect(ink_, &QComboBox::currentIndexChanged, this, [this] { follow(); });
    connect(line_, &QComboBox::currentIndexChanged, this, [this] { follow(); });
    connect(width_, &QLineEdit::textChanged, this, [this] { follow(); });
    return card;
}

QWidget* frmCurve::buildUse() {
    auto* const card = new Card("Fill, filter and place");
    auto* const base = new Field("&Base value", base_);
    base->setCheck([this] { return qt(scaleEndProblem(ScaleKind::linear, plain(base_->text()))); });
    filter_->setEditable(true);
    filter_->setInsertPolicy(QComboBox::NoInsert);
    auto* const filter = new Field("Fil&ter", filter_, "points");
    filter->setCheck([this] { return qt(filterProblem(plain(filter_->currentText()))); });
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(measure::wide);
    grid->setVerticalSpacing(12);
    grid->addWidget(new Field("&Fill", fill_), 0, 0, Qt::AlignTop);
    grid->addWidget(base, 0, 1, Qt::AlignTop);
    grid->addWidget(filter, 1, 0, Qt::AlignTop);
    grid->addWidget(new Field("In trac&k", inTrack_), 1, 1, Qt::AlignTop);
    card->body()->addLayout(grid);
    shown_->setObjectName("optshown");
    card->body()->addWidget(shown_);
    card->body()->addStretch(1);
    fields_.push_back(base);
    fields_.push_back(filter);
    for (QComboBox* const box : {fill_, inTrack_}) {
        connect(box, &QComboBox::currentIndexChanged, this, [this] { follow(); });
    }
    connect(filter_, &QComboBox::currentTextChanged, this, [this] { follow(); });
    connect(base_, &QLineEdit::textChanged, this, [this] { follow(); });
    connect(shown_, &QCheckBox::toggled, this, [this] { follow(); });
    return card;
}

/// A colour of the template's own stays until an ink is chosen.
void frmCurve::fillInks() {
    const Scheme& scheme = display_.scheme;
    for (std::size_t i = 0; i < inkCount; ++i) {
        QString name = qt(inkName(static_cast<Ink>(i)));
        name[0] = name[0].toUpper();
        ink_->addItem(inkIcon(qColour(scheme.inks[i])), name);
    }
    ink_->setIconSize({28, 14});
    if (curve().style.ownColour) ink_->addItem(inkIcon(qColour(*curve().style.ownColour)), "Its own colour");
}

void frmCurve::buildButtons() {
    auto* const usual = addSideButton("comremovecurve", "Remove &curve");
    connect(usual, &QPushButton::clicked, this, [this] {
        display_ = before_;
        removeCurve(display_.tracks[track_], curve_);
        QDialog::accept();
    });
    connect(addButton("comcancel", "Cancel"), &QPushButton::clicked, this, [this] { reject(); });
    connect(addPrimaryButton("comapply", "&Apply to display"), &QPushButton::clicked, this,
            [this] { accept(); });
}

void frmCurve::load() {
    loading_ = true;
    const LogCurve& now = curve();
    fillInks();
    kind_->button(now.scale.kind == ScaleKind::logarithmic ? 1 : 0)->setChecked(true);
    left_->setText(number(now.scale.left));
    right_->setText(number(now.scale.right));
    wrap_->setChecked(now.offScale == OffScale::wrap);
    ink_->setCurrentIndex(now.style.ownColour ? static_cast<int>(inkCount) : static_cast<int>(now.style.ink));
    line_->setCurrentIndex(static_cast<int>(now.style.line));
    width_->setText(number(now.style.width));
    fill_->setCurrentIndex(static_cast<int>(now.style.fill));
    base_->setText(number(now.base));
    base_->setEnabled(now.style.fill == FillKind::base);
    filter_->setCurrentText(qt(now.filter));
    for (std::size_t i = 0; i < display_.tracks.size(); ++i) inTrack_->addItem(QString::number(i + 1));
    inTrack_->setCurrentIndex(static_cast<int>(track_));
    shown_->setChecked(now.shown);
    loading_ = false;
}

void frmCurve::swapEnds() {
    const QString left = left_->text();
    left_->setText(right_->text());
    right_->setText(left);
}

void frmCurve::follow() {
    if (loading_) return;
    base_->setEnabled(fill_->currentIndex() == static_cast<int>(FillKind::base));
    bool right = true;
    for (Field* const field : fields_) right = field->validate() && right;
    if (!right) return;
    take();
    modules_.preview(display_);
}

void frmCurve::take() {
    display_ = before_;
    LogCurve& now = curve();
    now.scale = {kind_->checkedId() == 1 ? ScaleKind::logarithmic : ScaleKind::linear, entered(left_),
                 entered(right_)};
    now.offScale = wrap_->isChecked() ? OffScale::wrap : OffScale::cut;
    if (ink_->currentIndex() < static_cast<int>(inkCount)) {
        now.style.ink = static_cast<Ink>(ink_->currentIndex());
        now.style.ownColour.reset();
    }
    now.style.line = static_cast<LineKind>(line_->currentIndex());
    now.style.width = entered(width_);
    now.style.fill = static_cast<FillKind>(fill_->currentIndex());
    now.base = entered(base_);
    now.filter = trimmed(plain(filter_->currentText()));
    now.shown = shown_->isChecked();
    moveCurve(display_, track_, curve_, static_cast<std::size_t>(inTrack_->currentIndex()));
}

void frmCurve::accept() {
    if (!validateAll(fields_)) return;
    take();
    if (modules_.keepScale && keep_->isChecked()) {
        const auto& curves = display_.tracks[static_cast<std::size_t>(inTrack_->currentIndex())].curves;
        for (const LogCurve& each : curves) {
            if (each.channel == before_.tracks[track_].curves[curve_].channel) modules_.keepScale(each);
        }
    }
    ScreenDialog::accept();
}

void frmCurve::reject() {
    modules_.preview(std::nullopt);
    ScreenDialog::reject();
}

} // namespace tarvik
