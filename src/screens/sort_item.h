// A cell of a table that is sorted by something else than the text it shows: dates, numbers.
#pragma once

#include <QTableWidgetItem>
#include <QVariant>

namespace tarvik {

class SortItem final : public QTableWidgetItem {
  public:
    /// `order` is a text or a double, the same in all cells of a column.
    SortItem(const QString& text, QVariant order) : QTableWidgetItem(text), order_(std::move(order)) {}

    bool operator<(const QTableWidgetItem& other) const override {
        const QVariant& its = static_cast<const SortItem&>(other).order_;
        if (order_.typeId() == QMetaType::Double) return order_.toDouble() < its.toDouble();
        return order_.toString().compare(its.toString(), Qt::CaseInsensitive) < 0;
    }

  private:
    QVariant order_;
};

} // namespace tarvik
