#include "screens/setup_hole_page.h"

#include "base/text.h"
#include "files/run_file_reader.h"
#include "screens/field.h"
#include "screens/qt_text.h"
#include "screens/theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int narrowList = 200;
constexpr int listWidth = 300;

TableRow tableRow(int key, const HoleRow& row) {
    const CivilTime& at = row.lastRun;
    const int day = at.year * 10000 + at.month * 100 + at.day;
    return {key,
            {{qt(row.name)},
             {QString::number(row.runs), {}, true},
             {qt(formatDate(at, "dd-mmm-yyyy")), QString::number(day)}}};
}

} // namespace

SetupHolePage::SetupHolePage(const SetupModules& modules)
    : SetupPage(
          "pagehole", "Hole",
          "What is entered here goes into the header of every run of the hole. Only the name is needed."),
      modules_(modules),
      projects_(modules.errors, modules.files, modules.log),
      table_(
          new FilterTable({.objectName = "lbholes",
                           .title = "Holes",
                           .heads = {"Hole", "Runs", "Last run"},
                           .empty = "No hole of this project has been logged yet.\nEnter the hole's name at "
                                    "the right."},
                          modules.memory)),
      tabs_(new QTabWidget),
      undo_(new QPushButton("&Undo")) {
    tabs_->setObjectName("lbholetabs");
    for (const auto& [part, title] :
         {std::pair(HolePart::hole, "&Header"), std::pair(HolePart::casingAndFluid, "&Casing and fluid")}) {
        QVBoxLayout* const column = addTab(*tabs_, title);
        auto* const grid = new QGridLayout;
        buildFields(part, *grid);
        column->addLayout(grid);
        column->addStretch(1);
    }
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::margin);
    row->addWidget(buildList(), 1);
    row->addWidget(tabs_, 2);
    body()->addLayout(row, 1);
}

QWidget* SetupHolePage::buildList() {
    auto* const next = new QPushButton("&New hole");
    next->setObjectName("comnewhole");
    next->setToolTip("Begins another hole: company, prospect, area, contractor, operator and datum stay.");
    undo_->setObjectName("comundo");
    undo_->setToolTip("Puts back what stood in the fields before.");
    for (QPushButton* const button : {next, undo_}) button->setAutoDefault(false);
    connect(next, &QPushButton::clicked, this, [this] { beginNext(); });
    connect(undo_, &QPushButton::clicked, this, [this] { undo(); });
    table_->onChosen([this] { takeFromRun(); });

    auto* const list = new QWidget;
    list->setMinimumWidth(narrowList);
    list->setMaximumWidth(listWidth);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(measure::gap);
    buttons->addWidget(next);
    buttons->addWidget(undo_);
    buttons->addStretch(1);
    auto* const column = new QVBoxLayout(list);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::gap);
    column->addWidget(table_, 1);
    column->addWidget(wrappingLabel("Choosing a hole takes its details from its latest run.", "quiet"));
    column->addLayout(buttons);
    return list;
}

void SetupHolePage::buildFields(HolePart part, QGridLayout& grid) {
    constexpr int columns = 2;
    grid.setHorizontalSpacing(measure::margin);
    grid.setVerticalSpacing(measure::gap + 4);
    int place = 0;
    for (const HoleField& field : holeFields()) {
        if (field.part != part) continue;
        auto* const edit = lineEdit("txt" + qt(field.name));
        auto* const shown = new Field(qt(field.title), edit);
        if (field.isDepth) shown->setHint("With its unit: 12.5 m");
        shown->setCheck([this, &field] { return qt(holeFieldProblem(field, entered())); });
        const int width = entries_.empty() ? columns : 1; // the name has the first line to itself
        grid.addWidget(shown, place / columns, place % columns, 1, width, Qt::AlignTop);
        entries_.push_back({&field, edit, shown});
        place += width;
        if (entries_.size() == 1) {
            connect(edit, &QLineEdit::textChanged, this, [this] { sayWhatTheNameMeans(); });
        }
    }
    for (int column = 0; column < columns; ++column) grid.setColumnStretch(column, 1);
}

void SetupHolePage::load() {
    showHoles();
    show(modules_.settings.hole);
    undo_->setEnabled(false);
}

bool SetupHolePage::hasProject() const {
    return !trimmed(modules_.settings.currentProject).empty();
}

void SetupHolePage::showHoles() {
    const Settings& settings = modules_.settings;
    const Path folder =
        modules_.places.projectsFolder(settings.projectDrive) / std::string(trimmed(settings.currentProject));
    rows_ = hasProject() ? projects_.holes(folder) : std::vector<HoleRow>{};
    std::vector<TableRow> rows;
    for (const HoleRow& row : rows_) rows.push_back(tableRow(static_cast<int>(rows.size()), row));
    table_->setRows(rows);
}

void SetupHolePage::show(const HoleDetails& hole) {
    for (const Entry& entry : entries_) {
        entry.edit->setText(qt(trimmed(hole.*entry.field->value)));
        entry.edit->setCursorPosition(0);
    }
    sayWhatTheNameMeans();
    for (const Entry& entry : entries_) entry.shown->validate();
}

void SetupHolePage::sayWhatTheNameMeans() {
    const std::string name(trimmed(plain(entries_.front().edit->text())));
    const auto known = std::ranges::find(rows_, name, &HoleRow::name);
    const bool isKnown = known != rows_.end();
    table_->choose(isKnown ? static_cast<int>(known - rows_.begin()) : FilterTable::none);
    QString hint = "The names of the run files begin with it.";
    if (!hasProject())
        hint = "Choose a project first: its runs need a folder.";
    else if (isKnown)
        hint = "Logged before: further runs are added to this hole.";
    else if (!name.empty())
        hint = "A new hole of this project.";
    entries_.front().shown->setHint(hint);
}

/// What is wrong in the file is reported; the name is right all the same.
void SetupHolePage::takeFromRun() {
    const int key = table_->currentKey();
    if (key == FilterTable::none) return;
    keepForUndo();
    const HoleRow& row = rows_.at(static_cast<std::size_t>(key));
    HoleDetails hole = modules_.errors.runIn("frmSetup", "frmSetup-hole", nextHole(entered()), [&](Level&) {
        return readRunHeader(modules_.files, row.latestRun).header.hole;
    });
    hole.holeId = row.name;
    show(hole);
}

void SetupHolePage::beginNext() {
    keepForUndo();
    show(nextHole(entered()));
    tabs_->setCurrentIndex(0);
    entries_.front().edit->setFocus();
}

void SetupHolePage::keepForUndo() {
    undone_ = entered();
    undo_->setEnabled(true);
}

void SetupHolePage::undo() {
    show(undone_);
    undo_->setEnabled(false);
}

HoleDetails SetupHolePage::entered() const {
    HoleDetails hole = modules_.settings.hole;
    for (const Entry& entry : entries_) hole.*entry.field->value = storedHoleText(plain(entry.edit->text()));
    return hole;
}

QWidget* SetupHolePage::firstControl() {
    return entries_.front().edit;
}

bool SetupHolePage::store() {
    std::vector<Field*> fields;
    for (const Entry& entry : entries_) fields.push_back(entry.shown);
    if (!validateAll(fields)) {
        for (const Entry& entry : entries_) {
            if (entry.edit->property("wrong").toBool()) {
                tabs_->setCurrentIndex(entry.field->part == HolePart::hole ? 0 : 1);
                entry.edit->setFocus();
                break;
            }
        }
        return false;
    }
    modules_.settings.hole = entered();
    return true;
}

void SetupHolePage::selectSubPage(int subPage) {
    showTab(*tabs_, subPage);
}

} // namespace tarvik
