#include "screens/filter_table.h"

#include "screens/qt_text.h"
#include "screens/sort_item.h"
#include "screens/theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include <utility>

namespace tarvik {

namespace {

constexpr int keyRole = Qt::UserRole;
constexpr int least = 110; ///< pixels in height: the head and two rows

QFont boldFont() {
    QFont font = QApplication::font();
    font.setBold(true);
    return font;
}

SortItem* itemOf(const TableCell& cell) {
    const QVariant order = cell.number               ? QVariant(cell.text.toDouble())
                           : cell.sortText.isEmpty() ? QVariant(cell.text)
                                                     : QVariant(cell.sortText);
    auto* const item = new SortItem(cell.text, order);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setToolTip(cell.text);
    if (cell.number) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

} // namespace

FilterTable::FilterTable(const TableTexts& texts, DesktopMemory& memory)
    : memory_(memory),
      table_(new QTableWidget(0, static_cast<int>(texts.heads.size()))),
      filter_(new QLineEdit),
      emptyText_(new QLabel(texts.empty)),
      stack_(new QStackedWidget),
      whenEmpty_(texts.empty),
      columnsFit_(false) {
    build(texts);
    connect(filter_, &QLineEdit::textChanged, this, [this] { narrow(); });
    connect(table_, &QTableWidget::itemSelectionChanged, this, [this] {
        if (!filling_ && chosen_) chosen_();
    });
}

void FilterTable::build(const TableTexts& texts) {
    table_->setObjectName(texts.objectName);
    table_->setAccessibleName(withoutMnemonic(texts.title));
    table_->setHorizontalHeaderLabels(texts.heads);
    table_->verticalHeader()->hide();
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setAlternatingRowColors(true);
    table_->setShowGrid(false);
    table_->setTabKeyNavigation(false);
    table_->setWordWrap(false);
    table_->setTextElideMode(Qt::ElideMiddle); // the serial number at the end stays
    table_->horizontalHeader()->setHighlightSections(false);
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_->setSortingEnabled(true);
    table_->sortByColumn(0, Qt::AscendingOrder);
    // Heads begin where their cells begin.
    table_->setStyleSheet("QHeaderView::section { padding: 6px 4px; }");
    columnsFit_ = memory_.restoreColumns(*table_->horizontalHeader(), texts.objectName);
    table_->horizontalHeader()->setStretchLastSection(texts.wideColumn < 0);
    if (texts.wideColumn >= 0)
        table_->horizontalHeader()->setSectionResizeMode(texts.wideColumn, QHeaderView::Stretch);

    filter_->setObjectName("txtfilter" + texts.objectName);
    filter_->setPlaceholderText("Filter");
    filter_->setAccessibleName("Filter: " + withoutMnemonic(texts.title));
    filter_->setClearButtonEnabled(true);
    filter_->setMaximumWidth(200);
    emptyText_->setWordWrap(true);
    emptyText_->setAlignment(Qt::AlignCenter);
    emptyText_->setMargin(measure::wide);
    emptyText_->setProperty("role", "quiet");
    emptyText_->setProperty("card", true); // an empty list is a list
    stack_->addWidget(table_);
    stack_->addWidget(emptyText_);
    stack_->setMinimumHeight(least);
    stack_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored); // takes what is left

    setFocusProxy(table_);
    auto* const title = new QLabel(texts.title);
    title->setProperty("role", "head");
    title->setBuddy(table_);
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::gap);
    row->addWidget(title, 1);
    row->addWidget(filter_, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::gap);
    column->addLayout(row);
    column->addWidget(stack_, 1);
}

void FilterTable::setRows(const std::vector<TableRow>& rows) {
    const int before = currentKey();
    filling_ = true;
    table_->setSortingEnabled(false);
    table_->clearContents();
    table_->setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < table_->rowCount(); ++row) {
        const TableRow& content = rows[static_cast<std::size_t>(row)];
        for (int column = 0; column < table_->columnCount(); ++column) {
            auto* const item = itemOf(content.cells.at(static_cast<std::size_t>(column)));
            item->setData(keyRole, content.key);
            if (content.bold) item->setFont(boldFont());
            table_->setItem(row, column, item);
        }
    }
    table_->setSortingEnabled(true);
    filling_ = false;
    choose(before);
    narrow();
    if (!columnsFit_ && !rows.empty()) fitColumns();
}

void FilterTable::fitColumns() {
    constexpr int air = 12;
    constexpr int widest = 320; // one long text does not push the other columns out of sight
    columnsFit_ = true;
    table_->resizeColumnsToContents();
    const bool lastStretches = table_->horizontalHeader()->stretchLastSection();
    for (int column = 0; column < table_->columnCount() - (lastStretches ? 1 : 0); ++column) {
        const bool number = table_->item(0, column)->textAlignment() & Qt::AlignRight;
        table_->horizontalHeaderItem(column)->setTextAlignment((number ? Qt::AlignRight : Qt::AlignLeft) |
                                                               Qt::AlignVCenter);
        table_->setColumnWidth(column, std::min(table_->columnWidth(column) + air, widest));
    }
}

int FilterTable::currentKey() const {
    const auto items = table_->selectedItems();
    return items.isEmpty() ? none : items.front()->data(keyRole).toInt();
}

void FilterTable::choose(int key) {
    filling_ = true;
    table_->clearSelection();
    for (int row = 0; row < table_->rowCount(); ++row) {
        if (table_->item(row, 0)->data(keyRole).toInt() != key) continue;
        table_->setCurrentCell(row, 0);
        table_->selectRow(row);
        table_->scrollToItem(table_->item(row, 0));
    }
    filling_ = false;
}

void FilterTable::narrow() {
    const QString wanted = filter_->text().trimmed();
    bool any = false;
    for (int row = 0; row < table_->rowCount(); ++row) {
        bool shown = wanted.isEmpty();
        for (int column = 0; !shown && column < table_->columnCount(); ++column) {
            shown = table_->item(row, column)->text().contains(wanted, Qt::CaseInsensitive);
        }
        table_->setRowHidden(row, !shown);
        any = any || shown;
    }
    filter_->setEnabled(table_->rowCount() > 0 || !wanted.isEmpty());
    emptyText_->setText(table_->rowCount() == 0 ? whenEmpty_ : "Nothing here matches the filter.");
    stack_->setCurrentIndex(any ? 0 : 1);
}

void FilterTable::onChosen(std::function<void()> act) {
    chosen_ = std::move(act);
}

void FilterTable::onOpened(std::function<void()> act) {
    connect(table_, &QTableWidget::cellDoubleClicked, this, [act = std::move(act)] { act(); });
}

void FilterTable::hideEvent(QHideEvent* event) {
    memory_.keepColumns(*table_->horizontalHeader(), table_->objectName());
    QWidget::hideEvent(event);
}

} // namespace tarvik
