#include "screens/value_table.h"

#include "base/number_picture.h"
#include "screens/qt_text.h"
#include "screens/theme.h"

#include <QBrush>
#include <QHeaderView>

namespace tarvik {

void ValueModel::setLog(const ReviewLog* log) {
    beginResetModel();
    log_ = log;
    endResetModel();
}

int ValueModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || log_ == nullptr ? 0 : static_cast<int>(log_->steps());
}

int ValueModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || log_ == nullptr ? 0 : static_cast<int>(log_->channels.size()) + 1;
}

QVariant ValueModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole || log_ == nullptr) return {};
    const auto row = static_cast<std::size_t>(index.row());
    if (index.column() == 0) return qt(formatPicture(log_->depth[row], "###0.00"));
    const float value = log_->channels[static_cast<std::size_t>(index.column() - 1)].values[row];
    return isNoValue(value) ? QString("\u2013") : qt(formatPicture(value, "####0.000"));
}

QVariant ValueModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical || log_ == nullptr) return {};
    const ReviewChannel* const channel =
        section == 0 ? nullptr : &log_->channels[static_cast<std::size_t>(section - 1)];
    const bool counts = channel != nullptr && !channel->calibrated;
    if (role == Qt::DisplayRole) {
        if (channel == nullptr) return "Depth\n" + qt(log_->depthUnit());
        return qt(channel->name) + "\n" + (counts ? QString("counts, not calibrated") : qt(channel->unit));
    }
    if (role == Qt::ForegroundRole && counts) return QBrush(coloursOf(appliedTheme()).warning);
    return {};
}

ValueTable::ValueTable() {
    setObjectName("tblvalues");
    setAccessibleName("Values of the run, by depth");
    setModel(&model_);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(26);
    horizontalHeader()->setMinimumSectionSize(72);
    horizontalHeader()->setResizeContentsPrecision(100);
    horizontalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter); // over their numbers
    setFrameShape(QFrame::NoFrame);
}

void ValueTable::setLog(const ReviewLog* log) {
    model_.setLog(log);
    horizontalHeader()->resizeSections(QHeaderView::ResizeToContents);
    scrollToTop();
}

} // namespace tarvik
