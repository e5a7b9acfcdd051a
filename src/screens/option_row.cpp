#include "screens/option_row.h"

#include "screens/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tarvik {

QButtonGroup* addOptions(QBoxLayout& layout, const QString& title, const std::vector<OptionText>& options) {
    auto* const column = new QVBoxLayout;
    column->setSpacing(4);
    column->addWidget(new QLabel(title));
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::margin);
    column->addLayout(row);
    layout.addLayout(column);

    auto* const group = new QButtonGroup(layout.parentWidget());
    for (const OptionText& option : options) {
        auto* const button = new QRadioButton(option.text);
        button->setObjectName(option.objectName);
        button->setAccessibleDescription(title);
        group->addButton(button, static_cast<int>(group->buttons().size()));
        row->addWidget(button);
    }
    row->addStretch(1);
    return group;
}

} // namespace tarvik
