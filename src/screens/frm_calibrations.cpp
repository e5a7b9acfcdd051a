#include "screens/frm_calibrations.h"

#include "equipment/calibration_details.h"
#include "equipment/calibration_words.h"
#include "screens/calibration_plot.h"
#include "screens/card.h"
#include "screens/filter_table.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>

#include <algorithm>
#include <set>

namespace tarvik {

namespace {

constexpr const char* emptyText =
    "No sensor has been calibrated yet.\nCalibrations are made in the mode Calib/test; the maker's come with "
    "the first start.";

QLabel* wrapping(const char* objectName, const char* role) {
    auto* const label = roleLabel(role);
    label->setObjectName(objectName);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

TableRow tableRow(const CalibrationRow& row) {
    const Calibration& one = row.calibration;
    const QString date = qt(sortableDate(one.date) + " " + one.time);
    return {.key = static_cast<int>(row.record),
            .cells = {{qt(one.date), date},
                      {qt(one.time)},
                      {qt(row.toolCode)},
                      {qt(row.serialNumber)},
                      {qt(row.sensorName)},
                      {qt(one.kind)},
                      {qt(one.state)},
                      {QString::number(one.order), {}, true},
                      {qt(one.calibratedBy)}},
            .bold = row.bold};
}

} // namespace

frmCalibrations::frmCalibrations(const CalibrationScreenModules& modules, QWidget* parent)
    : ScreenDialog("frmCalibrations", "Calibration history", modules.memory, parent),
      modules_(modules),
      table_(new FilterTable({.objectName = "calibrations",
                              .title = "Calibrations on record",
                              .heads = {"Date", "Time", "Tool", "Serial no.", "Sensor", "Kind", "State",
                                        "Order", "Calibrated by"},
                              .empty = emptyText},
                             modules.memory)),
      tool_(new QComboBox),
      summary_(wrapping("lbsummary", "quiet")),
      title_(wrapping("lbcalibration", "head")),
      fit_(wrapping("lbfit", "")),
      coefficients_(wrapping("lbcoefficients", "")),
      largest_(wrapping("lblargesterror", "")),
      warning_(wrapping("lbwarning", "warning")),
      points_(new QTableWidget(0, 4)),
      plot_(new CalibrationPlot) {
    setModal(true);
    body()->addWidget(buildList(), 3);
    body()->addWidget(buildDetails(), 2);
    buildButtons();
    setMinimumSize(900, 560);
    resize(1100, 700);
    load();
}

QWidget* frmCalibrations::buildList() {
    auto* const box = new QWidget;
    auto* const column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::gap);
    tool_->setObjectName("lbtools");
    tool_->setAccessibleName("Tool");
    auto* const row = new QHBoxLayout;
    auto* const label = new QLabel("&Tool");
    label->setBuddy(tool_);
    row->setSpacing(measure::gap);
    row->addWidget(label);
    row->addWidget(tool_, 1);
    column->addLayout(row);
    column->addWidget(table_, 1);
    column->addWidget(summary_);
    connect(tool_, &QComboBox::currentIndexChanged, this, [this] { fillTable(); });
    table_->onChosen([this] { showChosen(); });
    return box;
}

QWidget* frmCalibrations::buildDetails() {
    auto* const card = new Card;
    buildPoints();
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(measure::gap);
    for (QLabel* const label : {title_, fit_, coefficients_, largest_, warning_}) texts->addWidget(label);
    texts->addStretch(1);
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::wide);
    row->addLayout(texts, 5);
    row->addWidget(points_, 8);
    row->addWidget(plot_, 6);
    card->body()->addLayout(row, 1);
    return card;
}

void frmCalibrations::buildPoints() {
    points_->setObjectName("points");
    points_->setAccessibleName("Points of the calibration");
    points_->setHorizontalHeaderLabels({"Reading", "Reference", "Value", "Error"});
    points_->verticalHeader()->hide();
    points_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    points_->setSelectionBehavior(QAbstractItemView::SelectRows);
    points_->setShowGrid(false);
    points_->setAlternatingRowColors(true);
    points_->setTabKeyNavigation(false);
    points_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    points_->horizontalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    points_->setStyleSheet("QHeaderView::section { padding: 6px 4px; }"); // heads end where cells end
    points_->setMinimumHeight(110);
}

void frmCalibrations::buildButtons() {
    QPushButton* const write = addSideButton("comexport", "&Export as text");
    write->setToolTip("Writes the calibrations listed for the tool to " + qt(modules_.exportFile.string()));
    connect(write, &QPushButton::clicked, this, [this] { exportText(); });
    connect(addPrimaryButton("comclose", "Close"), &QPushButton::clicked, this, [this] { accept(); });
}

void frmCalibrations::load() {
    list_ = modules_.history.PolyCalibration_loadcalibrationhistorydata({});
    summary_->setText(qt(list_.summary) + ".  Factory calibrations are bold.");
    fillTools(list_);
    fillTable();
}

void frmCalibrations::fillTools(const CalibrationList& list) {
    std::set<std::pair<QString, QString>> tools;
    for (const CalibrationRow& row : list.rows) tools.emplace(qt(row.toolCode), qt(row.serialNumber));
    const QSignalBlocker quiet(tool_);
    tool_->clear();
    tool_->addItem("All tools");
    for (const auto& [code, serial] : tools) {
        tool_->addItem(code + "  SN-" + serial, QStringList{code, serial});
    }
}

CalibrationFilter frmCalibrations::filter() const {
    const QStringList chosen = tool_->currentData().toStringList();
    if (chosen.isEmpty()) return {};
    return {.toolCode = plain(chosen[0]), .serialNumber = plain(chosen[1]), .sensorName = {}};
}

void frmCalibrations::fillTable() {
    const CalibrationFilter wanted = filter();
    std::vector<TableRow> rows;
    for (const CalibrationRow& row : list_.rows) {
        const bool ofTool = !wanted.toolCode ||
                            (row.toolCode == *wanted.toolCode && row.serialNumber == *wanted.serialNumber);
        if (ofTool) rows.push_back(tableRow(row));
    }
    table_->setRows(rows);
    if (table_->currentKey() == FilterTable::none && !rows.empty()) table_->choose(rows.back().key);
    showChosen();
}

void frmCalibrations::showChosen() {
    const int record = table_->currentKey();
    const auto found = std::ranges::find_if(
        list_.rows, [&](const CalibrationRow& row) { return static_cast<int>(row.record) == record; });
    if (found == list_.rows.end()) {
        title_->setText("Choose a calibration to see its polynomial.");
        for (QLabel* const label : {fit_, coefficients_, largest_, warning_}) label->clear();
        points_->setRowCount(0);
        return plot_->clear();
    }
    const CalibrationDetails details = calibrationDetails(found->calibration);
    const QString unit = modules_.unitOf ? qt(modules_.unitOf(*found)) : QString();
    title_->setText(qt(found->toolCode + " SN-" + found->serialNumber + "  " + found->sensorName) +
                    (unit.isEmpty() ? QString() : ", " + unit));
    fit_->setText(qt(details.fit + ", " + found->calibration.identifier));
    QStringList terms;
    for (const std::string& coefficient : details.coefficients) {
        terms.append(QString("c%1 = %2").arg(terms.size() + 1).arg(qt(coefficient)));
    }
    coefficients_->setText(terms.join("\n"));
    largest_->setText(qt(details.largestError));
    warning_->setText(details.warning.empty() ? QString() : "\u25b2  " + qt(details.warning));
    warning_->setVisible(!details.warning.empty());
    showPoints(details);
    plot_->showCalibration(found->calibration, unit);
}

void frmCalibrations::showPoints(const CalibrationDetails& details) {
    points_->setRowCount(static_cast<int>(details.points.size()));
    for (int row = 0; row < points_->rowCount(); ++row) {
        const CalibrationPointRow& point = details.points[static_cast<std::size_t>(row)];
        int column = 0;
        for (const std::string& text : {point.reading, point.reference, point.value, point.difference}) {
            auto* const item = new QTableWidgetItem(qt(text));
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            points_->setItem(row, column++, item);
        }
    }
}

void frmCalibrations::exportText() {
    if (!modules_.history.PolyCalibration_exportcalibrationhistorydata(filter(), modules_.exportFile)) return;
    modules_.operatorSide.message(
        "Calibration history", "The calibrations are in " + modules_.exportFile.string(), Icon::information);
}

} // namespace tarvik
