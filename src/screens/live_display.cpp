#include "screens/live_display.h"

#include "app/start_up.h"
#include "base/number_picture.h"
#include "screens/live_curve_panel.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

constexpr const char* gaugesNote = "The monitor of the sampler's valves and motor is not built. Gauges and "
                                   "logs show what its channels read.";

QToolButton* button(const char* objectName, const QString& text, const QString& tip, bool checkable) {
    auto* const made = new QToolButton;
    made->setObjectName(objectName);
    made->setText(text);
    made->setToolTip(tip);
    made->setCheckable(checkable);
    made->setFocusPolicy(Qt::TabFocus);
    made->setMinimumHeight(28);
    return made;
}

constexpr int roomyBar = 780;     // pixels
constexpr int wideDisplay = 1300; // pixels: room for larger digits

/// The words of the bar, and the short ones of a narrow window.
struct BarWords {
    const char* spaced;
    const char* follow;
    const char* following;
};
constexpr BarWords wideWords{"Equally spaced", "Follow the tool", "Following"};
constexpr BarWords narrowWords{"Spaced", "Follow", "Follow"};

double scaleOf(const QString& text) {
    return text.section(':', 1).toDouble();
}

/// What the scale means: "1 mm is 0.2 m".
QString scaleWords(const LiveView& view) {
    const bool byTime = view.view().axis == Axis::time;
    const double one = perMillimetreAt(view.scale(), view.view().axis);
    return "1 mm is " + qt(shortestNumber(static_cast<float>(one))) + (byTime ? " s" : " m");
}

} // namespace

LiveDisplay::LiveDisplay()
    : plot_(new LivePlot),
      values_(new LiveValues),
      strip_(new ReadingsStrip),
      panel_(new LiveCurvePanel(
          this, [this](const std::string& channel, const ScalePair& scale,
                       const std::string& filter) { return plot_->change(channel, scale, filter); })),
      depth_(button("comlivedepth", "Depth", "Draw the run by depth", true)),
      time_(button("comlivetime", "Time", "Draw the run by time", true)),
      scales_(new QComboBox),
      scaleWords_(roleLabel("quiet")),
      paint_(button("comlivepaint", "Equally spaced", "Each curve in a track of its own", true)),
      curves_(button("comlivecurves", "Curves\u2026", "Scale and filter of a curve; or double-click its head",
                     false)),
      follow_(button("comlivefollow", "Follow the tool", "Back to where the tool is (End)", true)),
      note_(roleLabel("quiet", gaugesNote)) {
    setObjectName("livedisplay");
    bar_ = makeBar();
    writeBar(false);
    paint_->hide();
    narrowestBar_ = bar_->minimumSizeHint().width();
    paint_->show();
    writeBar(true);
    note_->setObjectName("lblivenote");
    note_->setContentsMargins(12, 4, 12, 4);
    note_->setWordWrap(true);
    note_->setVisible(false);
    auto* const left = new QVBoxLayout;
    left->setSpacing(0);
    left->addWidget(bar_);
    left->addWidget(plot_, 1);
    left->addWidget(note_);
    // Up to its height before the plot; in a low window it gives way and scrolls.
    left->addWidget(strip_, 100);
    strip_->setObjectName("livestrip");
    strip_->setMinimumHeight(QFontMetrics(strip_->font()).height() + 12);
    strip_->setAccessibleName("Latest values");
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addLayout(left, 1);
    row->addWidget(values_);
    plot_->whenMoved([this] { showState(); });
    plot_->whenCurveChosen([this](const std::string& channel) { openCurves(channel); });
    showState();
}

QWidget* LiveDisplay::makeBar() {
    for (const std::string_view scale : logScales) scales_->addItem(qt(scale));
    scales_->setObjectName("cmblivescale");
    scales_->setAccessibleName("Scale of the live plot");
    auto* const bar = new QWidget;
    bar->setStyleSheet("QToolButton { border: 1px solid palette(mid); padding: 4px 8px; }");
    auto* const row = new QHBoxLayout(bar);
    row->setContentsMargins(4, 6, 4, 6);
    row->setSpacing(4);
    row->addWidget(depth_);
    row->addWidget(time_);
    row->addSpacing(4);
    row->addWidget(scales_);
    scaleWords_->setMinimumWidth(1); // the first to give way in a narrow window
    row->addWidget(scaleWords_);
    row->addWidget(paint_);
    row->addWidget(curves_);
    row->addStretch(1);
    row->addWidget(follow_);
    connect(depth_, &QToolButton::clicked, this, [this] { setAxis(Axis::depth); });
    connect(time_, &QToolButton::clicked, this, [this] { setAxis(Axis::time); });
    connect(paint_, &QToolButton::clicked, this, [this](bool on) { setEquallySpaced(on); });
    connect(curves_, &QToolButton::clicked, this, [this] { openCurves({}); });
    connect(follow_, &QToolButton::clicked, this, [this] { plot_->followTool(); });
    connect(scales_, &QComboBox::textActivated, this, [this](const QString& text) {
        setScale(scaleOf(text));
        if (scaleChosen_) scaleChosen_(scaleOf(text));
    });
    return bar;
}

void LiveDisplay::begin(const RunHeader& header) {
    panel_->hide();
    header_ = header;
    values_->setRun(header);
    strip_->showReadings({}, {});
    plot_->begin(header);
    values_->setColours(plot_->curves().shown());
    plot_->setFocus();
    showState();
}

void LiveDisplay::follow(const AcquisitionRing& ring) {
    plot_->follow(ring);
    if (ring.size() == 0) return;
    const AcquisitionPoint& latest = ring.fromOldest(ring.size() - 1);
    values_->showPoint(latest);
    if (strip_->isVisible()) showInStrip(latest);
}

void LiveDisplay::showInStrip(const AcquisitionPoint& point) {
    CursorReading reading{.depth = point.depth, .time = point.seconds, .curves = {}};
    for (std::size_t i = 1; i < header_.channels.size() && i < point.values.size(); ++i)
        reading.curves.push_back({.channel = header_.channels[i].name, .unit = {}, .value = point.values[i]});
    strip_->showReadings(reading, {});
}

void LiveDisplay::showReadingsAsLatest(bool latest) {
    values_->setEnabled(latest);
    strip_->setEnabled(latest);
}

void LiveDisplay::showDisplay(std::string_view caption) {
    panel_->hide();
    plot_->showDisplay(caption);
    values_->setColours(plot_->curves().shown());
    showState();
}

void LiveDisplay::setScale(double scale) {
    plot_->setScale(scale);
    showState();
}

void LiveDisplay::setAxis(Axis axis) {
    plot_->setAxis(axis);
    showState();
}

void LiveDisplay::setEquallySpaced(bool spaced) {
    plot_->setEquallySpaced(spaced);
    showState();
}

void LiveDisplay::openCurves(const std::string& channel) {
    panel_->open(plot_->curves(), channel);
    placePanel();
}

/// The controls as the plot is now.
void LiveDisplay::showState() {
    const LiveView& view = plot_->liveView();
    const bool logs = plot_->page() == LivePage::logs;
    bar_->setVisible(logs);
    note_->setVisible(plot_->page() == LivePage::gauges);
    showDigits();
    depth_->setChecked(view.view().axis == Axis::depth);
    time_->setChecked(view.view().axis == Axis::time);
    paint_->setChecked(view.view().equallySpaced);
    follow_->setChecked(view.following());
    writeBar(wideBar_);
    scales_->setCurrentText(scaleText(view.scale()));
    scaleWords_->setText(scaleWords(view));
    scales_->setToolTip("Scale of the plot: " + scaleWords(view));
}

/// With the words that say more, where they have room.
void LiveDisplay::writeBar(bool wide) {
    wideBar_ = wide;
    const BarWords& words = wide ? wideWords : narrowWords;
    paint_->setText(words.spaced);
    follow_->setText(words.follow);
    follow_->setFixedWidth(follow_->sizeHint().width() + 8); // with either text
    if (plot_->liveView().following()) follow_->setText(words.following);
}

/// Where they leave the bar its room; the gauges show the same.
void LiveDisplay::showDigits() {
    const bool roomy = width() >= bar_->minimumSizeHint().width() + values_->width();
    const bool logs = plot_->page() != LivePage::gauges;
    values_->setVisible(roomy && logs);
    strip_->setVisible(!roomy && logs && !header_.channels.empty());
    if (!strip_->isVisibleTo(this)) return;
    strip_->setDisplay(plot_->curves().shown(), header_.setup.units, plot_->liveView().view().axis);
    strip_->setMaximumHeight(std::min(strip_->heightFor(width()), height() / 4));
}

QSize LiveDisplay::minimumSizeHint() const {
    return {narrowestBar_, QWidget::minimumSizeHint().height()};
}

void LiveDisplay::placePanel() {
    panel_->move(std::max(8, plot_->width() - panel_->width() - 24), bar_->height() + 8);
}

void LiveDisplay::resizeEvent(QResizeEvent*) {
    values_->setColumnWidth(width() > wideDisplay ? 264 : 216);
    paint_->show();
    writeBar(true);
    if (width() < bar_->minimumSizeHint().width()) writeBar(false);
    if (width() < bar_->minimumSizeHint().width()) paint_->hide(); // Paint in the tool bar does the same
    showDigits();
    scaleWords_->setVisible(width() - values_->width() > roomyBar);
    placePanel();
}

void LiveDisplay::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        plot_->takeTheme();
        values_->setColours(plot_->curves().shown());
    }
    QWidget::changeEvent(event);
}

} // namespace tarvik
