// The status log of the day: time, a mark for what stands out, and the text in its colour and weight.
#pragma once

#include "app/status_log.h"
#include "screens/screen_dialog.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

#include <deque>
#include <string>

class QCheckBox;
class QLineEdit;
class QTableView;

namespace tarvik {

/// Collects the lines while the program runs; the oldest go.
class EventLogModel final : public QAbstractTableModel, public StatusViewer {
  public:
    static constexpr std::size_t mostLines = 20'000;
    enum Column { timeColumn, markColumn, textColumn, columns };

    void showStatusLine(std::string_view viewerLine) override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Line {
        QString time;
        QString text;
        bool bold = false;
        int colour = 0; ///< 0 black, 1 blue, 2 red
    };
    std::deque<Line> lines_;
};

class frmEventLog final : public ScreenDialog {
  public:
    frmEventLog(EventLogModel& model, const StatusLog& log, DesktopMemory& memory, QWidget* parent = nullptr);

  private:
    class Filter final : public QSortFilterProxyModel {
      public:
        bool onlyFaults = false;
        void refilter() { invalidateFilter(); }

      protected:
        bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    };
    void followNewest();
    void copy();

    Filter filter_;
    QTableView* table_;
};

} // namespace tarvik
