#include "screens/review_panel.h"

#include "base/number_picture.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

QString row(const QString& name, const QString& value) {
    return QString("<tr><td style='padding: 2px 12px 2px 0'>%1</td><td style='padding: 2px "
                   "0'><b>%2</b></td></tr>")
        .arg(name, value.toHtmlEscaped());
}

QString depthText(double depth) {
    return qt(formatPicture(depth, "###0.00"));
}

QString factsOf(const ReviewLog& log, const QString& file) {
    const RunHeader& header = log.header;
    QString rows =
        row("File", file) + row("Hole", qt(header.hole.holeId)) +
        (header.tool.name.empty() ? QString() : row("Tool", qt(header.tool.name))) + // of a LAS file
        row("Logged", qt(header.runDate + " " + header.startTime)) +
        row("Scans", QString::number(log.steps()) + (log.truncated ? ", the file holds more" : ""));
    if (log.steps() > 0) {
        rows += row("Depth", depthText(log.extent().from) + " to " + depthText(log.extent().to) + " " +
                                 qt(log.depthUnit()));
    }
    const auto counts =
        std::ranges::count_if(log.channels, [](const ReviewChannel& c) { return !c.calibrated; });
    rows += row("Channels", QString::number(log.channels.size()));
    if (counts > 0) rows += row("Not calibrated", QString("%1 of them").arg(counts));
    return "<table>" + rows + "</table>";
}

QPushButton* button(const QString& name, const QString& text, const std::function<void()>& act) {
    auto* const made = new QPushButton(text);
    made->setObjectName(name);
    QObject::connect(made, &QPushButton::clicked, made, [&act] { act(); });
    return made;
}

} // namespace

ReviewPanel::ReviewPanel(ReviewPanelActions actions)
    : actions_(std::move(actions)),
      heading_(roleLabel("head")),
      facts_(new QLabel),
      details_(button("comdetails", "&Details\u2026", actions_.details)),
      export_(button("comexportlas", "Export as &LAS\u2026", actions_.exportLas)) {
    setProperty("card", true);
    facts_->setObjectName("lbrunfacts");
    facts_->setTextFormat(Qt::RichText);
    facts_->setWordWrap(true);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 16);
    column->setSpacing(12);
    column->addWidget(heading_);
    column->addWidget(facts_);
    column->addWidget(button("comopenrun", "&Open a run or LAS file\u2026", actions_.open));
    auto* const ofTheRun = new QHBoxLayout;
    ofTheRun->setSpacing(8);
    ofTheRun->addWidget(details_);
    ofTheRun->addWidget(export_, 1);
    column->addLayout(ofTheRun);
    column->addStretch(1);
    column->addWidget(button("comcalibrations", "&Calibrations\u2026", actions_.calibrations));
    showRun(nullptr, {});
}

void ReviewPanel::showRun(const ReviewLog* log, const QString& file) {
    details_->setEnabled(log != nullptr);
    export_->setEnabled(log != nullptr);
    heading_->setText(log != nullptr ? "Run under review" : "No run is open");
    facts_->setText(log != nullptr ? factsOf(*log, file)
                                   : "Open a run of this project, or any run or LAS file on this machine.");
}

} // namespace tarvik
