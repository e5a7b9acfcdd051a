#include "screens/setup_project_page.h"

#include "base/text.h"
#include "screens/field.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvik {

namespace {

/// Recent projects are kept by drive, one to a line: the same name on another drive is another project.
QString recentName(const std::string& letter) {
    return "Recent projects on " + qt(letter);
}

QString dateText(const ProjectRow& row) {
    if (!row.problem.empty()) return "cannot be read";
    return row.lastRun ? qt(formatDate(*row.lastRun, "dd-mmm-yyyy  hh:mm")) : "no run yet";
}

TableRow tableRow(int key, const ProjectRow& row) {
    const QString sortable = row.lastRun ? QString("%1-%2-%3 %4:%5")
                                               .arg(row.lastRun->year, 4, 10, QChar('0'))
                                               .arg(row.lastRun->month, 2, 10, QChar('0'))
                                               .arg(row.lastRun->day, 2, 10, QChar('0'))
                                               .arg(row.lastRun->hour, 2, 10, QChar('0'))
                                               .arg(row.lastRun->minute, 2, 10, QChar('0'))
                                         : QString("0");
    return {key, {{qt(row.name)}, {QString::number(row.runs), {}, true}, {dateText(row), sortable}}};
}

} // namespace

SetupProjectPage::SetupProjectPage(const SetupModules& modules, std::function<void()> opened)
    : SetupPage("pageproject", "Project", "A project is a folder that holds the runs of its holes."),
      modules_(modules),
      projects_(modules.errors, modules.files, modules.log),
      drive_(new QComboBox),
      recentRow_(new QHBoxLayout),
      table_(new FilterTable({.objectName = "lbprojects",
                              .title = "P&rojects on this drive",
                              .heads = {"Project", "Runs", "Last run"},
                              .empty = "There is no project on this drive yet.\nEnter a name below and press "
                                       "\"Create project\"."},
                             modules.memory)),
      path_(copyableLabel("lbprojectfolder")) {
    body()->addWidget(buildTop());
    body()->addWidget(table_, 1);
    body()->addWidget(buildNew());
    table_->onChosen([this] { showPath(); });
    table_->onOpened(std::move(opened));
    connect(drive_, &QComboBox::currentIndexChanged, this, [this] { showProjects(); });
}

QWidget* SetupProjectPage::buildTop() {
    drive_->setObjectName("lbdrives");
    auto* const field = new Field("Drive", drive_);
    field->setToolTip("Drives are given their folders on the page System test.");
    auto* const recent = new QWidget;
    auto* const column = new QVBoxLayout(recent);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(new QLabel("Recent projects"));
    recentRow_->setSpacing(measure::gap);
    column->addLayout(recentRow_);
    auto* const top = new QWidget;
    auto* const row = new QHBoxLayout(top);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(measure::margin);
    row->addWidget(field, 2);
    row->addWidget(recent, 3);
    return top;
}

QWidget* SetupProjectPage::buildNew() {
    auto* const edit = lineEdit("txtnewproject");
    edit->setPlaceholderText("Name of the new project");
    newName_ = new Field("Ne&w project", edit);
    newName_->setCheck([this, edit]() -> QString {
        if (edit->text().trimmed().isEmpty()) return {};
        return qt(Projects::newNameProblem(rows_, plain(edit->text())));
    });
    create_ = new QPushButton("Create &project");
    create_->setObjectName("comnewproject");
    create_->setEnabled(false);
    create_->setAutoDefault(false);
    connect(edit, &QLineEdit::textChanged, this, [this](const QString& text) {
        create_->setEnabled(!text.trimmed().isEmpty());
        enterPresses(*create_, create_->isEnabled());
    });
    connect(create_, &QPushButton::clicked, this, [this] { create(); });

    auto* const open = new QPushButton("&Open folder");
    open->setObjectName("comopenfolder");
    open->setAutoDefault(false);
    open->setToolTip("Shows the project's folder in the file manager.");
    connect(open, &QPushButton::clicked, this,
            [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(chosenFolder())); });

    auto* const bottom = new QWidget;
    auto* const column = new QVBoxLayout(bottom);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::gap);
    auto* const chosenRow = new QHBoxLayout;
    chosenRow->setSpacing(measure::gap);
    chosenRow->addWidget(path_, 1);
    chosenRow->addWidget(open);
    auto* const newRow = new QHBoxLayout;
    newRow->setSpacing(measure::gap);
    newRow->addWidget(newName_, 1, Qt::AlignTop);
    newRow->addWidget(besideField({create_}), 0, Qt::AlignTop);
    column->addLayout(chosenRow);
    column->addLayout(newRow);
    return bottom;
}

void SetupProjectPage::load() {
    showDrives();
    showProjects();
    chooseProject(qt(trimmed(modules_.settings.currentProject)));
}

void SetupProjectPage::showDrives() {
    const QSignalBlocker quiet(drive_);
    const std::vector<std::string> drives = driveList(modules_.places);
    drive_->clear();
    for (const std::string& drive : drives) drive_->addItem(qt(drive));
    drive_->setCurrentIndex(
        static_cast<int>(driveListIndex(drives, modules_.settings.projectDrive).value_or(0)));
}

void SetupProjectPage::showProjects() {
    rows_ = projects_.list(folder());
    std::vector<TableRow> rows;
    for (const ProjectRow& row : rows_) rows.push_back(tableRow(static_cast<int>(rows.size()), row));
    table_->choose(FilterTable::none);
    table_->setRows(rows);
    showRecent();
    showPath();
}

void SetupProjectPage::showRecent() {
    while (QLayoutItem* const item = recentRow_->takeAt(0)) {
        if (item->widget() != nullptr) item->widget()->deleteLater();
        delete item;
    }
    for (const std::string& name : recent()) {
        if (std::ranges::find(rows_, name, &ProjectRow::name) == rows_.end()) continue;
        auto* const button = new QPushButton(qt(name).replace('&', "&&"));
        button->setObjectName("comrecent");
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, name] { chooseProject(qt(name)); });
        recentRow_->addWidget(button);
    }
    if (recentRow_->count() == 0) recentRow_->addWidget(roleLabel("quiet", "None yet on this drive."));
    recentRow_->addStretch(1);
}

void SetupProjectPage::showPath() {
    const std::string_view inUse = trimmed(modules_.settings.currentProject);
    const bool missing = chosen().isEmpty() && !inUse.empty() &&
                         folder() == modules_.places.projectsFolder(modules_.settings.projectDrive);
    path_->setText(missing ? QString("The project in use, %1, has no folder on this drive.").arg(qt(inUse))
                           : chosenFolder());
}

QString SetupProjectPage::chosenFolder() const {
    return qt((folder() / plain(chosen())).string());
}

void SetupProjectPage::chooseProject(const QString& name) {
    const auto found = std::ranges::find(rows_, plain(name), &ProjectRow::name);
    table_->choose(found == rows_.end() ? FilterTable::none : static_cast<int>(found - rows_.begin()));
    showPath();
}

void SetupProjectPage::create() {
    auto* const edit = static_cast<QLineEdit*>(newName_->editor());
    if (!validateAll({newName_})) return;
    const QString name = edit->text().trimmed();
    if (!projects_.create(folder(), plain(name))) return;
    edit->clear();
    newName_->setHint({});
    showProjects();
    chooseProject(name);
}

bool SetupProjectPage::store() {
    // A name that was typed but not created is as good as nothing: say so rather than lose it.
    auto* const edit = static_cast<QLineEdit*>(newName_->editor());
    if (!edit->text().trimmed().isEmpty()) {
        newName_->setHint("Press \"Create project\", or clear the name.");
        edit->setFocus();
        return false;
    }
    Settings& settings = modules_.settings;
    const bool sameDrive = folder() == modules_.places.projectsFolder(settings.projectDrive);
    if (!sameDrive) settings.projectDrive = letter();
    if (!chosen().isEmpty()) {
        settings.currentProject = plain(chosen());
        QStringList names;
        for (const std::string& name : mostRecentFirst(recent(), settings.currentProject)) names << qt(name);
        modules_.memory.keepText(recentName(letter()), names.join('\n'));
    } else if (!sameDrive) {
        settings.currentProject.clear();
    }
    return true;
}

QWidget* SetupProjectPage::firstControl() {
    return rows_.empty() ? newName_->editor() : table_->focusProxy();
}

std::string SetupProjectPage::letter() const {
    return plain(drive_->currentText().left(1));
}

Path SetupProjectPage::folder() const {
    return modules_.places.projectsFolder(letter());
}

QString SetupProjectPage::chosen() const {
    const int key = table_->currentKey();
    return key == FilterTable::none ? QString() : qt(rows_.at(static_cast<std::size_t>(key)).name);
}

std::vector<std::string> SetupProjectPage::recent() const {
    std::vector<std::string> names;
    const QString kept = modules_.memory.text(recentName(letter()));
    for (const QString& name : kept.split('\n', Qt::SkipEmptyParts)) names.push_back(plain(name));
    return names;
}

} // namespace tarvik
