#include "screens/frm_details.h"

#include "base/text.h"
#include "equipment/calibration_words.h"
#include "files/run_details.h"
#include "screens/detail_grid.h"
#include "screens/filter_table.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tarvik {

namespace {

/// A page of the tabs; long ones scroll.
QWidget* scrolling(QWidget* content) {
    auto* const page = new QWidget;
    auto* const column = new QVBoxLayout(page);
    column->setContentsMargins(measure::wide, measure::wide, measure::wide, measure::wide);
    column->addWidget(content);
    column->addStretch(1);
    auto* const scrolled = new QScrollArea;
    scrolled->setAccessibleName("Details");
    scrolled->setWidget(page);
    scrolled->setWidgetResizable(true);
    scrolled->setFrameShape(QFrame::NoFrame);
    return scrolled;
}

QWidget* gridOf(const std::vector<DetailRow>& rows, const QString& whenEmpty) {
    if (rows.empty()) return roleLabel("quiet", whenEmpty);
    auto* const grid = new DetailGrid;
    grid->setRows(rows);
    return grid;
}

/// What stands in the header of a channel that was never calibrated is no one's calibration.
/// A LAS file does not say where its values come from.
TableRow channelRow(int key, const ChannelDetails& channel, bool imported) {
    const Calibration& one = channel.calibration;
    const bool made = statusOf(one) == CalibrationStatus::calibrated;
    const auto said = [made](const std::string& text) { return TableCell{made ? qt(text) : QString()}; };
    return {.key = key,
            .cells = {{qt(channel.name)},
                      {qt(channel.unit)},
                      {channel.calibrated ? QString("values") : QString("\u25b2 counts")},
                      {made       ? qt(one.fitName)
                       : imported ? QString("not said")
                                  : QString("not calibrated")},
                      said(one.date),
                      said(one.calibratedBy),
                      said(one.kind),
                      {imported ? QString() : qt(calibrationLines(one).polynomial)}},
            .bold = false};
}

QWidget* readOnlyText(const char* objectName, const char* title, const QString& content) {
    auto* const text = new QPlainTextEdit(content);
    text->setObjectName(objectName);
    text->setAccessibleName(title);
    text->setReadOnly(true);
    text->setFrameShape(QFrame::NoFrame);
    return text;
}

QString importTitle(const LasFacts& las) {
    return las.findings.empty() ? QString("&Import") : QString("&Import (%1)").arg(las.findings.size());
}

} // namespace

frmDetails::frmDetails(const ReviewLog& log, const Path& file, DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmDetails", "Run details", memory, parent), tabs_(new QTabWidget) {
    setModal(true);
    auto* const title = roleLabel("title", qt(file.filename().string()));
    title->setObjectName("lbfile");
    body()->addWidget(title);
    tabs_->setObjectName("details");
    tabs_->addTab(runPage(log, file), "&Run");
    tabs_->addTab(holePage(log), "&Hole");
    tabs_->addTab(channelsPage(log), "Cha&nnels");
    tabs_->addTab(notesPage(log), "N&otes");
    if (log.las) tabs_->addTab(importPage(log), importTitle(*log.las));
    body()->addWidget(tabs_, 1);
    connect(addSideButton("comcopydetails", "&Copy as text"), &QPushButton::clicked, this,
            [text = qt(runDetailsText(log, file) + importText(log))] {
                QGuiApplication::clipboard()->setText(text);
            });
    connect(addPrimaryButton("comclose", "Close"), &QPushButton::clicked, this, [this] { accept(); });
    setMinimumSize(640, 420);
    resize(1080, 580);
}

QWidget* frmDetails::runPage(const ReviewLog& log, const Path& file) {
    return scrolling(gridOf(runRows(log, file), {}));
}

QWidget* frmDetails::holePage(const ReviewLog& log) {
    return scrolling(gridOf(holeRows(log.header.hole), "The file says nothing of the hole."));
}

QWidget* frmDetails::channelsPage(const ReviewLog& log) {
    auto* const page = new QWidget;
    auto* const column = new QVBoxLayout(page);
    column->setContentsMargins(measure::wide, measure::wide, measure::wide, measure::wide);
    auto* const table = new FilterTable(
        {.objectName = "channels",
         .title = "Recorded channels",
         .heads = {"Channel", "Unit", "Recorded as", "Fit", "Date", "Calibrated by", "Kind", "Polynomial"},
         .empty = "The file holds no channels."},
        memory());
    std::vector<TableRow> rows;
    for (const ChannelDetails& channel : channelDetails(log)) {
        rows.push_back(channelRow(static_cast<int>(rows.size()), channel, log.las.has_value()));
    }
    table->setRows(rows);
    column->addWidget(table);
    return page;
}

QWidget* frmDetails::importPage(const ReviewLog& log) {
    const QString found = qt(importText(log));
    if (found.isEmpty())
        return scrolling(roleLabel("quiet", "Nothing was dropped, converted or repaired while loading."));
    return readOnlyText("txtfindings", "Dropped, converted or repaired while loading", found);
}

QWidget* frmDetails::notesPage(const ReviewLog& log) {
    const std::string_view notes = trimmed(log.header.notes);
    if (notes.empty()) return scrolling(roleLabel("quiet", "The file holds no notes."));
    return readOnlyText("txtnotes", "Notes", qt(notes));
}

} // namespace tarvik
