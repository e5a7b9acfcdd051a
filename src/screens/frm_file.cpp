#include "screens/frm_file.h"

#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

enum Column { fileColumn, holeColumn, toolColumn, loggedColumn, depthColumn, columns };

} // namespace

FileChooser anyRunOrLasFile(Path startFolder) {
    return [folder = std::move(startFolder)](QWidget* parent) -> std::optional<Path> {
        const QString file =
            QFileDialog::getOpenFileName(parent, "Open a run or LAS file", qt(folder.string()),
                                         "Runs and LAS files (*.kvx *.KVX *.las *.LAS);;All files (*)");
        if (file.isEmpty()) return std::nullopt;
        return Path(plain(file));
    };
}

frmFile::frmFile(const Files& files, const Path& projectFolder, FileChooser chooser, DesktopMemory& memory,
                 QWidget* parent)
    : ScreenDialog("frmFile", "Open a run", memory, parent),
      files_(files),
      chooser_(std::move(chooser)),
      unread_(reviewableFiles(files, projectFolder)),
      filter_(new QLineEdit),
      table_(new QTableWidget(0, columns)),
      remark_(roleLabel("quiet")) {
    std::ranges::reverse(unread_);
    filter_->setObjectName("txtfilter");
    filter_->setPlaceholderText("Filter by file, hole or tool");
    filter_->setClearButtonEnabled(true);
    connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) { filter(text); });
    body()->addWidget(filter_);
    makeTable();
    body()->addWidget(table_, 1);
    remark_->setText(unread_.empty() ? "No runs yet in " + qt(projectFolder.string()) +
                                           ". Browse for a file, or log a run under Acquire."
                                     : "Project folder " + qt(projectFolder.string()));
    remark_->setWordWrap(true);
    body()->addWidget(remark_);

    auto* const any = addSideButton("combrowse", "&Browse\u2026");
    any->setToolTip("Any run or LAS file of this machine");
    connect(any, &QPushButton::clicked, this, [this] { browse(); });
    connect(addButton("comcancel", "Cancel"), &QPushButton::clicked, this, &QDialog::reject);
    open_ = addPrimaryButton("comopen", "&Open");
    open_->setEnabled(false);
    connect(open_, &QPushButton::clicked, this, [this] { openSelected(); });
    resize(960, 560);

    connect(&reading_, &QTimer::timeout, this, [this] { readNext(); });
    reading_.start(0); // one header a time: a thousand runs must not hold the screen
}

void frmFile::makeTable() {
    table_->setObjectName("lbruns");
    table_->setAccessibleName("Runs of the project");
    table_->setHorizontalHeaderLabels({"File", "Hole", "Tool", "Logged", "Depth"});
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setShowGrid(false);
    table_->setAlternatingRowColors(true);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const int widths[]{230, 110, 250, 180};
    for (int i = 0; i < 4; ++i) table_->setColumnWidth(i, widths[i]);
    table_->horizontalHeader()->setStretchLastSection(true);
    memory().restoreColumns(*table_->horizontalHeader(), "frmFile");
    connect(table_, &QTableWidget::itemSelectionChanged, this,
            [this] { open_->setEnabled(!table_->selectedItems().isEmpty()); });
    connect(table_, &QTableWidget::cellDoubleClicked, this, [this] { openSelected(); });
}

void frmFile::readNext() {
    if (unread_.empty()) {
        reading_.stop();
        table_->setSortingEnabled(true);
        if (table_->currentRow() < 0 && table_->rowCount() > 0) table_->selectRow(0);
        return;
    }
    show(describeRun(files_, unread_.back()));
    unread_.pop_back();
}

void frmFile::show(const RunRow& row) {
    const int at = table_->rowCount();
    table_->insertRow(at);
    const QString texts[]{qt(row.file.filename().string()), qt(row.hole), qt(row.tool), qt(row.logged),
                          row.problem.empty() ? qt(row.depths) : QString("cannot be read")};
    for (int i = 0; i < columns; ++i) {
        auto* const item = new QTableWidgetItem(texts[i]);
        item->setToolTip(row.problem.empty() ? qt(row.file.string()) : qt(row.problem));
        table_->setItem(at, i, item);
    }
    table_->item(at, fileColumn)->setData(Qt::UserRole, qt(row.file.string()));
    filter(filter_->text());
}

void frmFile::filter(const QString& text) {
    for (int row = 0; row < table_->rowCount(); ++row) {
        bool found = text.isEmpty();
        for (int i = 0; i < columns && !found; ++i)
            found = table_->item(row, i)->text().contains(text, Qt::CaseInsensitive);
        table_->setRowHidden(row, !found);
    }
}

void frmFile::openSelected() {
    const int row = table_->currentRow();
    if (row < 0) return;
    chosen_ = plain(table_->item(row, fileColumn)->data(Qt::UserRole).toString());
    accept();
}

void frmFile::browse() {
    const auto file = chooser_(this);
    if (!file) return;
    chosen_ = *file;
    accept();
}

void frmFile::done(int result) {
    reading_.stop();
    memory().keepColumns(*table_->horizontalHeader(), "frmFile");
    ScreenDialog::done(result);
}

} // namespace tarvik
