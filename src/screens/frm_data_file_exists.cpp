#include "screens/frm_data_file_exists.h"

#include "screens/card.h"
#include "screens/filter_table.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QPushButton>
#include <QRadioButton>

#include <algorithm>

namespace tarvik {

namespace {

constexpr const char* showText = "Show advanced append options  >>";
constexpr const char* hideText = "Hide advanced append options  <<";

QString markOf(const AppendRow& row) {
    if (row.agrees) return "\u2713 agrees";
    return row.refuses ? "\u2716 differs" : "\u25b2 differs, permitted";
}

bool mayAppend(const std::vector<AppendRow>& rows) {
    return std::ranges::none_of(rows, [](const AppendRow& row) { return row.refuses && !row.agrees; });
}

} // namespace

frmDataFileExists::frmDataFileExists(const LatestRun& latest, DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmDataFileExists", "Append or start a new run", memory, parent),
      append_(new QRadioButton("&Append to the latest run")),
      newRun_(new QRadioButton("Start a &new run")),
      verdict_(new QLabel),
      advanced_(addSideButton("comadvanced", showText)) {
    setModal(true);
    buildRuns(latest);
    buildChoice(latest);
    buildAdvanced(latest.comparison);
    connect(addButton("comcancel", "Cancel"), &QPushButton::clicked, this, [this] { reject(); });
    auto* const go = addPrimaryButton("comcontinue", "Start new run");
    connect(go, &QPushButton::clicked, this, [this] { accept(); });
    connect(append_, &QRadioButton::toggled, go,
            [go](bool on) { go->setText(on ? "Append to run" : "Start new run"); });
    connect(advanced_, &QPushButton::clicked, this, [this] { showAdvanced(table_->isHidden()); });
    showAdvanced(false);
    newRun_->setFocus();
}

void frmDataFileExists::buildRuns(const LatestRun& latest) {
    auto* const card = new Card;
    auto* const text = roleLabel("head", qt(loggingRunsText(latest.runs)));
    text->setObjectName("lbruns");
    text->setWordWrap(true);
    auto* const range = new QLabel(latest.depthRange.empty() ? "The latest run holds no scan with a depth."
                                                             : qt(latest.depthRange));
    range->setObjectName("lbdepthrange");
    auto* const file = roleLabel("quiet", qt(latest.runs.latestFile.string()));
    file->setWordWrap(true);
    for (QLabel* const label : {text, range, file}) card->body()->addWidget(label);
    body()->addWidget(card);
}

void frmDataFileExists::buildChoice(const LatestRun& latest) {
    append_->setObjectName("optappend");
    append_->setToolTip("The scans go on in the file of run " + QString::number(latest.runs.latest) + ".");
    newRun_->setObjectName("optnewrun");
    newRun_->setToolTip("The run gets a file of its own, number " + QString::number(latest.runs.next()) +
                        ".");
    newRun_->setChecked(true);
    verdict_->setObjectName("lbverdict");
    verdict_->setWordWrap(true);
    const bool same = std::ranges::all_of(latest.comparison, &AppendRow::agrees);
    const bool overlaps = mayAppend(latest.comparison) && !latest.overlap.empty();
    QStringList said;
    if (overlaps) said.append(qt(latest.overlap));
    if (!overlaps || !same) said.append(qt(appendVerdict(latest.comparison)));
    const bool good = same && !overlaps;
    verdict_->setText((good ? "\u2713  " : "\u25b2  ") + said.join("\n"));
    setRole(*verdict_, good ? "good" : "warning");
    body()->addWidget(newRun_);
    body()->addWidget(append_);
    body()->addWidget(verdict_);
}

void frmDataFileExists::buildAdvanced(const std::vector<AppendRow>& comparison) {
    table_ = new FilterTable({.objectName = "appendchecks",
                              .title = "What has to agree",
                              .heads = {"Check of", "Outcome", "Now", "Latest run"},
                              .empty = "Nothing could be compared."},
                             memory());
    std::vector<TableRow> rows;
    for (const AppendRow& one : comparison) {
        rows.push_back({.key = static_cast<int>(rows.size()),
                        .cells = {{qt(one.what), QString::number(rows.size())},
                                  {markOf(one)},
                                  {qt(one.now)},
                                  {qt(one.onFile)}},
                        .bold = !one.agrees});
    }
    table_->setRows(rows);
    table_->setMinimumHeight(200);
    body()->addWidget(table_, 1);
}

void frmDataFileExists::showAdvanced(bool shown) {
    table_->setVisible(shown);
    advanced_->setText(shown ? hideText : showText);
    advanced_->setShortcut(QKeySequence("Alt+S"));
    setMinimumWidth(shown ? 760 : 560);
    layout()->activate();
    resize(minimumWidth(), sizeHint().height());
}

RunChoice frmDataFileExists::choice() const {
    if (result() != Accepted) return RunChoice::cancel;
    return append_->isChecked() ? RunChoice::append : RunChoice::newRun;
}

} // namespace tarvik
