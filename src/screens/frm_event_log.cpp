#include "screens/frm_event_log.h"

#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFont>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>

namespace tarvik {

namespace {

constexpr int faultRole = Qt::UserRole;
constexpr int red = 2;

QColor colourOf(int code) {
    const ThemeColours& colours = coloursOf(appliedTheme());
    return code == red ? colours.bad : code == 1 ? colours.information : colours.text;
}

/// Tells the colours apart where they cannot be seen.
QString markOf(int code) {
    return code == red ? QString("\u25b2") : code == 1 ? QString("\u25cf") : QString();
}

QString whereKept(const StatusLog& log) {
    const QString file = qt(log.todaysFile().string());
    if (log.unwritten() == 0) return "Kept in " + file;
    return QString("%1 of the lines could not be written to %2 and are only here: copy them.")
        .arg(log.unwritten())
        .arg(file);
}

} // namespace

// ---- The lines.

/// "hh:mm:ss", two blanks, then the codes of weight and colour, then the text.
void EventLogModel::showStatusLine(std::string_view viewerLine) {
    const std::size_t codes = viewerLine.find('\\');
    if (codes == std::string_view::npos || viewerLine.size() < codes + 4) return;
    Line line{.time = qt(viewerLine.substr(0, codes)).trimmed(),
              .text = qt(viewerLine.substr(codes + 4)),
              .bold = viewerLine[codes + 1] == 'B',
              .colour = viewerLine[codes + 3] - '0'};
    if (lines_.size() == mostLines) {
        beginRemoveRows({}, 0, 0);
        lines_.pop_front();
        endRemoveRows();
    }
    const int at = static_cast<int>(lines_.size());
    beginInsertRows({}, at, at);
    lines_.push_back(std::move(line));
    endInsertRows();
}

int EventLogModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int EventLogModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns);
}

QVariant EventLogModel::data(const QModelIndex& index, int role) const {
    const Line& line = lines_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == timeColumn   ? line.time
               : index.column() == markColumn ? markOf(line.colour)
                                              : line.text;
    case Qt::ForegroundRole:
        return colourOf(line.colour);
    case Qt::FontRole: {
        QFont font;
        font.setBold(line.bold);
        return font;
    }
    case faultRole:
        return line.colour == red;
    default:
        return {};
    }
}

QVariant EventLogModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return section == timeColumn ? QString("Time") : section == textColumn ? QString("Event") : QString();
}

// ---- The screen.

bool frmEventLog::Filter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    const QModelIndex text = sourceModel()->index(row, EventLogModel::textColumn, parent);
    if (onlyFaults && !text.data(faultRole).toBool()) return false;
    return QSortFilterProxyModel::filterAcceptsRow(row, parent);
}

frmEventLog::frmEventLog(EventLogModel& model, const StatusLog& log, DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmEventLog", "Event log", memory, parent), table_(new QTableView) {
    filter_.setSourceModel(&model);
    filter_.setFilterKeyColumn(EventLogModel::textColumn);
    filter_.setFilterCaseSensitivity(Qt::CaseInsensitive);
    auto* const search = new QLineEdit;
    search->setObjectName("txtfilter");
    search->setAccessibleName("Filter the events");
    search->setPlaceholderText("Filter the events");
    search->setClearButtonEnabled(true);
    auto* const faults = new QCheckBox("Only &faults");
    faults->setObjectName("chkfaults");
    connect(search, &QLineEdit::textChanged, this,
            [this](const QString& text) { filter_.setFilterFixedString(text); });
    connect(faults, &QCheckBox::toggled, this, [this](bool on) {
        filter_.onlyFaults = on;
        filter_.refilter();
    });
    auto* const row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(search, 1);
    row->addWidget(faults);
    body()->addLayout(row);

    table_->setObjectName("lbevents");
    table_->setAccessibleName("Events of the day");
    table_->setModel(&filter_);
    table_->setShowGrid(false);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(24);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->setColumnWidth(EventLogModel::timeColumn, 90);
    table_->setColumnWidth(EventLogModel::markColumn, 32);
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    body()->addWidget(table_, 1);
    auto* const file = roleLabel(log.unwritten() == 0 ? "quiet" : "warning", whereKept(log));
    file->setWordWrap(true);
    file->setTextInteractionFlags(Qt::TextSelectableByMouse);
    body()->addWidget(file);

    connect(addSideButton("comcopy", "&Copy"), &QPushButton::clicked, this, [this] { copy(); });
    connect(addPrimaryButton("comclose", "Close"), &QPushButton::clicked, this, &QDialog::accept);
    connect(&filter_, &QAbstractItemModel::rowsInserted, this, [this] { followNewest(); });
    resize(860, 560);
    table_->scrollToBottom();
}

/// Unless the reader has scrolled up.
void frmEventLog::followNewest() {
    const QScrollBar* const bar = table_->verticalScrollBar();
    if (bar->value() >= bar->maximum() - 1) table_->scrollToBottom();
}

/// The selected lines, or all that the filter shows.
void frmEventLog::copy() {
    QModelIndexList rows = table_->selectionModel()->selectedRows(EventLogModel::textColumn);
    if (rows.isEmpty()) {
        for (int i = 0; i < filter_.rowCount(); ++i) rows.append(filter_.index(i, EventLogModel::textColumn));
    }
    QString text;
    for (const QModelIndex& row : rows) {
        text += row.siblingAtColumn(EventLogModel::timeColumn).data().toString() + "  " +
                row.data().toString() + "\n";
    }
    QApplication::clipboard()->setText(text);
}

} // namespace tarvik
