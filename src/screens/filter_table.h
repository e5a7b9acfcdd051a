// A table with a field above it that narrows it down. Columns sort, their widths are remembered, and an empty
// table says how it is filled.
#pragma once

#include "screens/desktop_memory.h"

#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QLineEdit;
class QStackedWidget;
class QTableWidget;

namespace tarvik {

struct TableCell {
    QString text;
    QString sortText = {}; ///< what the column sorts by when that is not the text: a date as 2006-03-13 …
    bool number = false;   ///< stands to the right and sorts by its value
};

struct TableRow {
    int key = 0; ///< the caller's own, 0 or more
    std::vector<TableCell> cells;
    bool bold = false;
};

struct TableTexts {
    QString objectName; ///< of the table itself; the filter field's is "txtfilter" and this
    QString title;      ///< over the table, and for screen readers
    QStringList heads;
    QString empty;       ///< shown in place of a table without rows
    int wideColumn = -1; ///< takes the room that the others leave; the last one when not said
};

class FilterTable final : public QWidget {
  public:
    static constexpr int none = -1;

    FilterTable(const TableTexts& texts, DesktopMemory& memory);

    /// The row that was chosen stays chosen when its key is still there.
    void setRows(const std::vector<TableRow>& rows);
    [[nodiscard]] int currentKey() const;
    void choose(int key);

    /// Called when another row, or none, is chosen by hand.
    void onChosen(std::function<void()> act);
    /// A double click on a row.
    void onOpened(std::function<void()> act);

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    void build(const TableTexts& texts);
    void fitColumns();
    void narrow();

    DesktopMemory& memory_;
    QTableWidget* table_;
    QLineEdit* filter_;
    QLabel* emptyText_;
    QStackedWidget* stack_;
    QString whenEmpty_;
    std::function<void()> chosen_;
    bool filling_ = false;
    bool columnsFit_; ///< they were remembered, or fitted to the first rows
};

} // namespace tarvik
