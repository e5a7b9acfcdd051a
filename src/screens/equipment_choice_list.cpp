#include "screens/equipment_choice_list.h"

#include "base/text.h"
#include "screens/qt_text.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace tarvik {

namespace {

QString modeKey(const EquipmentChoice& tool) {
    return "Tool mode " + qt(trimmed(tool.code)) + " " + qt(trimmed(tool.serialNumber));
}

} // namespace

/// "K215  Natural gamma  SN-12"; the data are code and serial number.
void fillChoices(QComboBox& list, const std::vector<UserRow>& rows, const EquipmentChoice& chosen) {
    const QSignalBlocker quiet(&list);
    constexpr int widthInLetters = 24; // whatever the length of the names
    list.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list.setMinimumContentsLength(widthInLetters);
    list.clear();
    list.addItem("-- none selected --", QStringList{"", ""});
    for (const UserRow& row : rows) {
        list.addItem(qt(row.code) + "  " + qt(row.text()), QStringList{qt(row.code), qt(row.serialNumber)});
        const bool sameCode = row.code == trimmed(chosen.code);
        const bool sameSerial = chosen.serialNumber.empty() || row.serialNumber == chosen.serialNumber;
        if (sameCode && sameSerial && list.currentIndex() == 0) list.setCurrentIndex(list.count() - 1);
    }
}

EquipmentChoice choiceIn(const QComboBox& list) {
    const QStringList data = list.currentData().toStringList();
    return {plain(data.value(0)), plain(data.value(1))};
}

int modeOf(const DesktopMemory& memory, const EquipmentChoice& tool) {
    return memory.text(modeKey(tool)) == "2" ? 2 : 1;
}

void keepMode(DesktopMemory& memory, const EquipmentChoice& tool, int mode) {
    memory.keepText(modeKey(tool), QString::number(mode));
}

} // namespace tarvik
