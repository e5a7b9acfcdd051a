#include "screens/run_list.h"

#include "screens/qt_text.h"
#include "screens/sort_item.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

enum Column { fileColumn, holeColumn, toolColumn, loggedColumn, depthColumn, columns };

} // namespace

RunList::RunList(const Files& files, std::vector<Path> runs, DesktopMemory& memory, QString memoryName,
                 RunListActions actions)
    : files_(files),
      unread_(std::move(runs)),
      memory_(memory),
      memoryName_(std::move(memoryName)),
      actions_(std::move(actions)),
      filter_(new QLineEdit),
      table_(new QTableWidget(0, columns)) {
    std::ranges::reverse(unread_);
    filter_->setObjectName("txtfilter");
    filter_->setPlaceholderText("Filter by file, hole or tool");
    filter_->setAccessibleName("Filter");
    filter_->setClearButtonEnabled(true);
    connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) { filter(text); });
    makeTable();
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::wide);
    column->addWidget(filter_);
    column->addWidget(table_, 1);
    setFocusProxy(table_);
    connect(&reading_, &QTimer::timeout, this, [this] { readNext(); });
    reading_.start(0);
}

void RunList::makeTable() {
    table_->setObjectName("lbruns");
    table_->setAccessibleName("Runs of the project");
    table_->setHorizontalHeaderLabels({"File", "Hole", "Tool", "Logged", "Depth"});
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setShowGrid(false);
    table_->setAlternatingRowColors(true);
    table_->setTabKeyNavigation(false);
    table_->setStyleSheet("QHeaderView::section { padding: 6px 4px; }"); // heads begin where cells begin
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const int widths[]{230, 110, 250, 180};
    for (int i = 0; i < 4; ++i) table_->setColumnWidth(i, widths[i]);
    table_->horizontalHeader()->setStretchLastSection(true);
    memory_.restoreColumns(*table_->horizontalHeader(), memoryName_);
    connect(table_, &QTableWidget::itemSelectionChanged, this,
            [this] { actions_.selected(selected().has_value()); });
    connect(table_, &QTableWidget::cellDoubleClicked, this, [this] { actions_.chosen(); });
}

void RunList::readNext() {
    if (unread_.empty()) {
        reading_.stop();
        return sort();
    }
    append(describeRun(files_, unread_.back()));
    unread_.pop_back();
}

void RunList::append(const RunRow& row) {
    const int at = table_->rowCount();
    table_->insertRow(at);
    const QString texts[]{qt(row.file.filename().string()), qt(row.hole), qt(row.tool), qt(row.logged),
                          row.problem.empty() ? qt(row.depths) : QString("cannot be read")};
    const QVariant orders[]{texts[fileColumn], texts[holeColumn], texts[toolColumn], qt(row.order), row.top};
    for (int i = 0; i < columns; ++i) {
        auto* const item = new SortItem(texts[i], orders[i]);
        item->setToolTip(row.problem.empty() ? qt(row.file.string()) : qt(row.problem));
        table_->setItem(at, i, item);
    }
    table_->item(at, fileColumn)->setData(Qt::UserRole, qt(row.file.string()));
    filter(filter_->text());
    if (row.file == wanted_) table_->selectRow(at);
}

/// As the crew left it, at first the newest on top: it is the one that is wanted after logging.
void RunList::sort() {
    const bool unchosen = wanted_.empty() && filter_->text().isEmpty() && table_->currentRow() <= 0;
    QHeaderView& head = *table_->horizontalHeader();
    if (!head.isSortIndicatorShown()) head.setSortIndicator(loggedColumn, Qt::DescendingOrder);
    table_->setSortingEnabled(true);
    if (unchosen) table_->selectRow(0);
    if (table_->currentItem() != nullptr) table_->scrollToItem(table_->currentItem());
}

/// A run that is filtered out is not the one that the primary button means; the first that is left is.
void RunList::filter(const QString& text) {
    for (int row = 0; row < table_->rowCount(); ++row) {
        bool found = text.isEmpty();
        for (int i = 0; i < columns && !found; ++i)
            found = table_->item(row, i)->text().contains(text, Qt::CaseInsensitive);
        table_->setRowHidden(row, !found);
    }
    if (selected()) return;
    for (int row = 0; row < table_->rowCount(); ++row) {
        if (!table_->isRowHidden(row)) return table_->selectRow(row);
    }
    table_->setCurrentItem(nullptr);
}

std::optional<Path> RunList::selected() const {
    const int row = table_->currentRow();
    if (row < 0 || table_->isRowHidden(row) || table_->selectedItems().isEmpty()) return std::nullopt;
    return Path(plain(table_->item(row, fileColumn)->data(Qt::UserRole).toString()));
}

void RunList::finish() {
    reading_.stop();
    memory_.keepColumns(*table_->horizontalHeader(), memoryName_);
}

} // namespace tarvik
