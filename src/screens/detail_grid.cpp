#include "screens/detail_grid.h"

#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QGridLayout>
#include <QLabel>

namespace tarvik {

DetailGrid::DetailGrid() : grid_(new QGridLayout(this)) {
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setHorizontalSpacing(measure::wide);
    grid_->setVerticalSpacing(measure::gap);
    grid_->setColumnStretch(1, 1);
}

void DetailGrid::setRows(const std::vector<DetailRow>& rows) {
    while (QLayoutItem* const item = grid_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (const DetailRow& row : rows) addLine({}, qt(row.title))->setText(qt(row.value));
}

QLabel* DetailGrid::addLine(const QString& objectName, const QString& title) {
    auto* const value = new QLabel;
    value->setObjectName(objectName);
    value->setAccessibleName(title);
    value->setWordWrap(true);
    value->setTextFormat(Qt::PlainText);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setMinimumWidth(120);
    const int row = grid_->rowCount();
    grid_->addWidget(roleLabel("quiet", title), row, 0, Qt::AlignTop);
    grid_->addWidget(value, row, 1);
    return value;
}

} // namespace tarvik
