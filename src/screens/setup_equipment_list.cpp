#include "screens/setup_equipment_list.h"

#include "base/text.h"
#include "screens/field.h"
#include "screens/qt_text.h"
#include "screens/setup_page.h"
#include "screens/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

QHBoxLayout* rowOf(std::initializer_list<QWidget*> widgets) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::gap);
    for (QWidget* const widget : widgets) row->addWidget(widget);
    row->addStretch(1);
    return row;
}

QPushButton* plainButton(const QString& name, const QString& text) {
    auto* const button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

} // namespace

SetupEquipmentList::SetupEquipmentList(EquipmentSort sort, const SetupModules& modules,
                                       std::function<void()> changed)
    : modules_(modules),
      isTool_(sort == EquipmentSort::tool),
      word_(isTool_ ? "tool" : "winch"),
      changed_(std::move(changed)),
      banner_(wrappingLabel({}, "quiet")),
      count_(wrappingLabel({}, "quiet")),
      add_(plainButton("comadd" + word_, "&Add to yours")),
      remove_(plainButton("comremove" + word_, "&Remove …")),
      undo_(plainButton("comundo" + word_, "&Undo")) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(measure::margin);
    row->addWidget(buildUsers(), 4);
    row->addWidget(buildMakers(), 5); // whole names
    connect(add_, &QPushButton::clicked, this, [this] { add(); });
    connect(remove_, &QPushButton::clicked, this, [this] { remove(); });
    connect(undo_, &QPushButton::clicked, this, [this] { takeBack(); });
    userTable_->onChosen([this] { enable(); });
    makerTable_->onChosen([this] { enable(); });
    undo_->setEnabled(false);
}

QString SetupEquipmentList::named(const char* stem) const {
    return QString(stem).arg(word_);
}

QWidget* SetupEquipmentList::buildUsers() {
    const QString many = isTool_ ? "tools" : "winches";
    userTable_ =
        new FilterTable({.objectName = named("user%1list"),
                         .title = "Your " + many,
                         .heads = {"Code", "Name and serial number"},
                         .empty = "You have no " + many +
                                  " yet.\nChoose a model at the right, enter the serial number\nthat is "
                                  "stamped on yours, and add it."},
                        modules_.memory);
    undo_->setToolTip("Adds what was removed last again. Display scales of your own are not kept.");
    auto* const side = new QWidget;
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::gap);
    column->addWidget(userTable_, 1);
    column->addLayout(rowOf({remove_, undo_}));
    column->addWidget(count_);
    return side;
}

QWidget* SetupEquipmentList::buildMakers() {
    makerTable_ = new FilterTable(
        {.objectName = named("param%1list"),
         .title = "&Models of the maker",
         .heads = {"Code", "Name", "Yours"},
         .empty = "The maker's database is missing:\n" + qt(modules_.equipment.makerFile().string()),
         .wideColumn = 1},
        modules_.memory);
    auto* const edit = lineEdit(named("%1serialnumber"));
    edit->setMaxLength(static_cast<int>(tool::serialNumber.width));
    serial_ = new Field("S&erial number", edit);
    serial_->setCheck([this] { return serialProblem(); });
    connect(edit, &QLineEdit::textChanged, this, [this](const QString& text) {
        enable();
        enterPresses(*add_, !text.trimmed().isEmpty());
    });
    add_->setToolTip("Adds the chosen model with this serial number to your equipment.");

    auto* const entry = new QHBoxLayout;
    entry->setSpacing(measure::gap);
    entry->addWidget(serial_, 1, Qt::AlignTop);
    entry->addWidget(besideField({add_}), 0, Qt::AlignTop);
    auto* const side = new QWidget;
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::gap);
    column->addWidget(makerTable_, 1);
    column->addLayout(entry);
    column->addWidget(banner_);
    return side;
}

QString SetupEquipmentList::serialProblem() const {
    const std::string serial(trimmed(plain(static_cast<QLineEdit*>(serial_->editor())->text())));
    if (fromAnsi(toAnsi(serial)) != serial)
        return "A letter here cannot be kept in the file of your equipment.";
    if (serial.empty() || modules_.equipment.ToolWinchData_checkserialnumber(serial)) return {};
    return modules_.equipment.userFileReads()
               ? "One of your tools or winches has this serial number already."
               : "The file of your equipment cannot be read, so nothing can be added to it.";
}

void SetupEquipmentList::load() {
    if (isTool_)
        modules_.equipment.ToolWinchData_updatebrennatoollist();
    else
        modules_.equipment.ToolWinchData_updatebrennawinchlist();
    const MakerList maker = isTool_ ? modules_.equipment.ToolWinchData_loadbrennatoollist()
                                    : modules_.equipment.ToolWinchData_loadbrennawinchlist();
    const UserList user = isTool_ ? modules_.equipment.ToolWinchData_loadusertoollist()
                                  : modules_.equipment.ToolWinchData_loaduserwinchlist();
    makers_ = maker.rows;
    users_ = user.rows;
    std::vector<TableRow> rows;
    for (const MakerRow& row : makers_) {
        rows.push_back({static_cast<int>(rows.size()), {{qt(row.code)}, {qt(row.name)}, {qt(row.selected)}}});
    }
    makerTable_->setRows(rows);
    rows.clear();
    for (const UserRow& row : users_) {
        rows.push_back({static_cast<int>(rows.size()), {{qt(row.code)}, {qt(row.text())}}});
    }
    userTable_->setRows(rows);
    banner_->setText(qt(maker.banner));
    // Without a user file the user's list has no count of its own; the maker's says the same.
    count_->setText(qt(user.countMessage.value_or(maker.countMessage)));
    enable();
}

void SetupEquipmentList::enable() {
    const auto* const edit = static_cast<QLineEdit*>(serial_->editor());
    add_->setEnabled(makerTable_->currentKey() != FilterTable::none && !edit->text().trimmed().isEmpty());
    remove_->setEnabled(userTable_->currentKey() != FilterTable::none);
    serial_->setHint(makerTable_->currentKey() == FilterTable::none ? "Choose a model in the list first."
                                                                    : "");
}

bool SetupEquipmentList::isUnfinished() {
    auto* const edit = static_cast<QLineEdit*>(serial_->editor());
    if (edit->text().trimmed().isEmpty()) return false;
    serial_->setHint(add_->isEnabled() ? "Press \"Add to yours\", or clear the serial number."
                                       : "Choose a model in the list, or clear the serial number.");
    edit->setFocus();
    return true;
}

void SetupEquipmentList::add() {
    auto* const edit = static_cast<QLineEdit*>(serial_->editor());
    const int model = makerTable_->currentKey();
    if (model == FilterTable::none || !validateAll({serial_})) return;
    if (!addModel(makers_.at(static_cast<std::size_t>(model)).code, plain(edit->text()))) return;
    edit->clear();
    refresh();
    userTable_->choose(static_cast<int>(users_.size()) - 1);
    enable();
}

bool SetupEquipmentList::addModel(const std::string& code, const std::string& serialNumber) {
    const auto found = std::ranges::find(makers_, code, &MakerRow::code);
    if (found == makers_.end()) return false;
    const int index = static_cast<int>(found - makers_.begin()) + 1;
    return isTool_ ? modules_.equipment.ToolWinchData_addusertool(index, serialNumber)
                   : modules_.equipment.ToolWinchData_adduserwinch(index, serialNumber);
}

void SetupEquipmentList::remove() {
    const int key = userTable_->currentKey();
    if (key == FilterTable::none) return;
    const UserRow row = users_.at(static_cast<std::size_t>(key));
    const std::string question = "Remove " + row.code + "  " + row.text() + " from your " +
                                 (isTool_ ? "tools" : "winches") + "?\r\nIts calibrations and runs stay.";
    const std::string title = isTool_ ? "Remove tool" : "Remove winch";
    if (modules_.operatorSide.ask(title, question, Icon::question) != Answer::yes) return;
    load(); // another program may have changed the file since
    if (static_cast<std::size_t>(key) >= users_.size() ||
        users_[static_cast<std::size_t>(key)].text() != row.text()) {
        modules_.operatorSide.message(title, "Your equipment has changed since it was listed: look again.",
                                      Icon::exclamation);
        return refresh();
    }
    const bool done = isTool_ ? modules_.equipment.ToolWinchData_removeusertool(key + 1)
                              : modules_.equipment.ToolWinchData_removeuserwinch(key + 1);
    if (!done) return;
    removed_ = row;
    undo_->setEnabled(true);
    refresh();
}

void SetupEquipmentList::takeBack() {
    if (!addModel(removed_.code, removed_.serialNumber)) return;
    undo_->setEnabled(false);
    refresh();
}

void SetupEquipmentList::refresh() {
    load();
    changed_();
}

} // namespace tarvik
