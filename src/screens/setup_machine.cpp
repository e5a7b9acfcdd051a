#include "screens/setup_machine.h"

#include "app/machine_checks.h"
#include "base/text.h"
#include "screens/card.h"
#include "screens/field.h"
#include "screens/qt_text.h"
#include "screens/setup_page.h"
#include "screens/theme.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvik {

namespace {

QPushButton* plainButton(const char* name, const QString& text, const QString& tip) {
    auto* const button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

} // namespace

SetupMachine::SetupMachine(const SetupModules& modules)
    : modules_(modules),
      before_(loadMachineMap(modules.store)),
      map_(before_),
      letter_(new QComboBox),
      folder_(lineEdit("txtdrivefolder")),
      remove_(plainButton("comremovedrive", "Re&move", "The letter stands for no folder any more.")) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::wide);
    column->addWidget(buildPorts());
    column->addWidget(buildDrives(), 1);
}

QWidget* SetupMachine::buildPorts() {
    auto* const card = new Card("Ports");
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(measure::margin);
    grid->setVerticalSpacing(measure::gap);
    for (std::size_t i = 0; i < ports_.size(); ++i) {
        const QString name = QString("COM%1").arg(i + 1);
        auto* const list = new QComboBox;
        list->setObjectName("lb" + name.toLower());
        list->setEditable(true);
        list->setInsertPolicy(QComboBox::NoInsert);
        auto* const field = new Field(name, list);
        field->setCheck([this, i] { return qt(portProblem(entered(), i)); });
        connect(list->lineEdit(), &QLineEdit::editingFinished, field, [field] { field->validate(); });
        connect(list, &QComboBox::activated, field, [field] { field->validate(); });
        ports_[i] = list;
        portFields_[i] = field;
        const int place = static_cast<int>(i);
        grid->addWidget(field, place / 2, place % 2, Qt::AlignTop);
    }
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    card->body()->addLayout(grid);
    card->body()->addWidget(wrappingLabel(
        "Leave a port empty to have Tarvik take the devices in their order. Counts from the next search on.",
        "quiet"));
    return card;
}

QWidget* SetupMachine::buildDrives() {
    auto* const card = new Card;
    drives_ = new FilterTable({.objectName = "lbdrivemap",
                               .title = "Drives",
                               .heads = {"Drive", "Folder"},
                               .empty = "No drive has a folder."},
                              modules_.memory);
    drives_->onChosen([this] { showChosenDrive(); });
    card->body()->addWidget(drives_, 1);
    card->body()->addWidget(buildDriveEntry());
    return card;
}

QWidget* SetupMachine::buildDriveEntry() {
    letter_->setObjectName("lbdriveletter");
    for (char letter = 'C'; letter <= 'Z'; ++letter) letter_->addItem(QString(letter));
    letter_->setCurrentText("D");
    auto* const letterField = new Field("Drive", letter_);
    letterField->setFixedWidth(72);
    folderField_ = new Field("Folder", folder_, {}, "For drive C from the next start on.");
    folderField_->setCheck([this]() -> QString {
        if (folder_->text().trimmed().isEmpty()) return {};
        return qt(driveProblem(modules_.places, modules_.files, plain(letter_->currentText()),
                               plain(folder_->text())));
    });
    auto* const browseButton = plainButton("combrowse", "&Browse …", "Choose the folder.");
    auto* const setButton = plainButton("comsetdrive", "Set &drive", "Gives the letter this folder.");
    connect(browseButton, &QPushButton::clicked, this, [this] { browse(); });
    connect(setButton, &QPushButton::clicked, this, [this] { setDrive(); });
    connect(remove_, &QPushButton::clicked, this, [this] { removeDrive(); });

    auto* const entry = new QWidget;
    auto* const row = new QHBoxLayout(entry);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(measure::gap);
    row->addWidget(letterField, 0, Qt::AlignTop);
    row->addWidget(folderField_, 1, Qt::AlignTop);
    row->addWidget(besideField({browseButton, setButton, remove_}), 0, Qt::AlignTop);
    return entry;
}

void SetupMachine::load() {
    map_ = loadMachineMap(modules_.store);
    const auto devices = modules_.serialDevices();
    for (std::size_t i = 0; i < ports_.size(); ++i) {
        QComboBox& list = *ports_[i];
        list.clear();
        for (const Path& device : devices) list.addItem(qt(device.string()));
        list.setEditText(qt(map_.ports[i]));
        list.lineEdit()->setPlaceholderText(i < devices.size() ? "empty: " + qt(devices[i].string())
                                                               : "empty: no further device on this machine");
        if (const auto& named = modules_.portsOfThisStart[i])
            portFields_[i]->setHint("This start: " + qt(*named) + ", by its command line.");
        portFields_[i]->validate();
    }
    folder_->clear();
    showDrives();
}

void SetupMachine::showDrives() {
    std::map<char, std::string> shown = map_.drives;
    shown.try_emplace('C', modules_.places.homeDrive.string());
    std::vector<TableRow> rows;
    for (const auto& [letter, folder] : shown) rows.push_back({letter, {{QString(letter)}, {qt(folder)}}});
    drives_->setRows(rows);
    showChosenDrive();
}

char SetupMachine::chosenLetter() const {
    const int key = drives_->currentKey();
    return key == FilterTable::none ? '\0' : static_cast<char>(key);
}

void SetupMachine::showChosenDrive() {
    const auto found = map_.drives.find(chosenLetter());
    remove_->setEnabled(found != map_.drives.end());
    if (found == map_.drives.end()) return;
    letter_->setCurrentText(QString(found->first));
    folder_->setText(qt(found->second));
}

void SetupMachine::setDrive() {
    const std::string folder(trimmed(plain(folder_->text())));
    if (folder.empty()) {
        folder_->setFocus();
        return;
    }
    if (!validateAll({folderField_})) return;
    const char letter = letter_->currentText().at(0).toLatin1();
    map_.drives[letter] = folder;
    folder_->clear();
    showDrives();
    drives_->choose(letter);
    showChosenDrive();
}

void SetupMachine::removeDrive() {
    map_.drives.erase(chosenLetter());
    folder_->clear();
    showDrives();
}

void SetupMachine::browse() {
    const QString folder = modules_.chooseFolder(this, folder_->text());
    if (folder.isEmpty()) return;
    folder_->setText(folder);
    folderField_->validate();
}

MachineMap SetupMachine::entered() const {
    MachineMap map = map_;
    for (std::size_t i = 0; i < ports_.size(); ++i) {
        map.ports[i] = std::string(trimmed(plain(ports_[i]->currentText())));
    }
    return map;
}

bool SetupMachine::store() {
    if (!validateAll({portFields_.begin(), portFields_.end()})) return false;
    map_ = entered();
    save(map_);
    return true;
}

void SetupMachine::cancel() {
    save(before_);
}

void SetupMachine::save(const MachineMap& map) {
    if (map == loadMachineMap(modules_.store)) return;
    saveMachineMap(modules_.store, map);
    useDrives(modules_.places, map);
    modules_.portsChanged();
}

} // namespace tarvik
