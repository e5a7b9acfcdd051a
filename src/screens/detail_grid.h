// Titles and their texts in two columns; the texts can be marked and copied.
#pragma once

#include "files/run_details.h"

#include <QWidget>

#include <vector>

class QGridLayout;
class QLabel;

namespace tarvik {

class DetailGrid final : public QWidget {
  public:
    DetailGrid();

    void setRows(const std::vector<DetailRow>& rows);
    /// A line whose text is filled in later.
    QLabel* addLine(const QString& objectName, const QString& title);

  private:
    QGridLayout* grid_;
};

} // namespace tarvik
