#include "screens/live_curve_panel.h"

#include "screens/field.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

namespace tarvik {

namespace {

constexpr int panelWidth = 300;
constexpr const char* explanation =
    "The scale is kept with the tool when the run has ended. The filter smooths "
    "the picture only, never the file.";

QLabel* title(const QString& text, QWidget* buddy) {
    auto* const label = roleLabel("quiet", text);
    label->setBuddy(buddy);
    return label;
}

} // namespace

LiveCurvePanel::LiveCurvePanel(QWidget* parent, Change change)
    : QFrame(parent),
      change_(std::move(change)),
      curve_(new QComboBox),
      left_(lineEdit("txtliveleft")),
      right_(lineEdit("txtliveright")),
      filter_(new QComboBox),
      said_(roleLabel("quiet", explanation)) {
    setObjectName("livecurvepanel");
    setProperty("card", true);
    setAutoFillBackground(true);
    setFixedWidth(panelWidth);
    curve_->setObjectName("cmblivecurve");
    filter_->setObjectName("cmblivefilter");
    for (const std::string_view filter : liveFilters())
        filter_->addItem(filter == "None" ? qt(filter) : qt(filter) + " points", qt(filter));
    layOut();
    connect(curve_, &QComboBox::currentIndexChanged, this, [this] { showCurve(); });
    connect(left_, &QLineEdit::returnPressed, this, [this] { apply(); });
    connect(right_, &QLineEdit::returnPressed, this, [this] { apply(); });
    hide();
}

void LiveCurvePanel::layOut() {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(16, 12, 16, 16);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    grid->addWidget(title("&Curve", curve_), 0, 0, 1, 2);
    grid->addWidget(curve_, 1, 0, 1, 2);
    grid->addWidget(title("&Left end", left_), 2, 0);
    grid->addWidget(title("&Right end", right_), 2, 1);
    grid->addWidget(left_, 3, 0);
    grid->addWidget(right_, 3, 1);
    grid->addWidget(title("F&ilter of the picture", filter_), 4, 0, 1, 2);
    grid->addWidget(filter_, 5, 0, 1, 2);
    said_->setWordWrap(true);
    said_->setObjectName("lblivecurve");
    grid->addWidget(said_, 6, 0, 1, 2);
    auto* const buttons = new QHBoxLayout;
    auto* const close = new QPushButton("Close");
    close->setObjectName("comlivecurveclose");
    auto* const show = new QPushButton("&Apply");
    show->setObjectName("comlivecurveapply");
    show->setProperty("primary", true);
    connect(close, &QPushButton::clicked, this, [this] { hide(); });
    connect(show, &QPushButton::clicked, this, [this] { apply(); });
    buttons->setSpacing(8);
    buttons->addStretch(1);
    buttons->addWidget(close);
    buttons->addWidget(show);
    grid->setRowMinimumHeight(7, 8);
    grid->addLayout(buttons, 8, 0, 1, 2);
}

void LiveCurvePanel::open(const LiveCurves& curves, const std::string& channel) {
    curves_ = &curves;
    const QSignalBlocker quiet(curve_);
    curve_->clear();
    for (const Track& track : curves.shown().tracks)
        for (const LogCurve* const curve : shownCurves(track)) curve_->addItem(qt(curve->channel));
    if (!channel.empty()) curve_->setCurrentText(qt(channel));
    showCurve();
    adjustSize();
    show();
    raise();
    left_->setFocus();
    left_->selectAll();
}

void LiveCurvePanel::showCurve() {
    const LogCurve* const curve = curves_ == nullptr ? nullptr : curves_->find(plain(curve_->currentText()));
    if (curve == nullptr) return;
    left_->setText(QString::number(curve->scale.left, 'g', 7));
    right_->setText(QString::number(curve->scale.right, 'g', 7));
    filter_->setCurrentIndex(std::max(0, filter_->findData(qt(curve->filter))));
    setRole(*said_, "quiet");
    said_->setText(explanation);
}

void LiveCurvePanel::apply() {
    bool leftIsNumber = false;
    bool rightIsNumber = false;
    const float left = left_->text().toFloat(&leftIsNumber);
    const float right = right_->text().toFloat(&rightIsNumber);
    const bool done =
        leftIsNumber && rightIsNumber &&
        change_(plain(curve_->currentText()), {left, right}, plain(filter_->currentData().toString()));
    if (done) return hide();
    setRole(*said_, "bad");
    said_->setText("Give two different numbers; on a logarithmic scale both greater than 0.");
}

void LiveCurvePanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QFrame::keyPressEvent(event);
    hide();
    if (parentWidget() != nullptr) parentWidget()->setFocus();
}

} // namespace tarvik
