// The values of a run under review as a table: a row for each depth step, a column for each channel.
#pragma once

#include "base/review_log.h"

#include <QAbstractTableModel>
#include <QTableView>

namespace tarvik {

class ValueModel final : public QAbstractTableModel {
  public:
    /// Null: no run. The log outlives the model's use of it.
    void setLog(const ReviewLog* log);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const ReviewLog* log_ = nullptr;
};

class ValueTable final : public QTableView {
  public:
    ValueTable();
    void setLog(const ReviewLog* log);

  private:
    ValueModel model_;
};

} // namespace tarvik
