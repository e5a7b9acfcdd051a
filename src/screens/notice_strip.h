// Notices above the log: lines that stay until they are dismissed and never stop the work. The same notice
// again is counted. The latest is shown whole, those before it by their titles: the log needs the room.
#pragma once

#include "app/operator_side.h"

#include <QFrame>

#include <string>
#include <vector>

class QVBoxLayout;
class QLabel;

namespace tarvik {

class NoticeStrip final : public QFrame {
  public:
    static constexpr std::size_t mostShown = 4; ///< the oldest goes; all of them are in the status log's day

    NoticeStrip();

    /// `time` is "hh:mm".
    void show(std::string_view title, std::string_view text, Icon icon, std::string_view time);
    /// What the notices of this title say is over.
    void over(std::string_view title);
    void clear();
    [[nodiscard]] std::size_t count() const { return notices_.size(); }

  private:
    struct Notice {
        std::string title;
        std::string text;
        std::string since;
        int times = 1;
        QFrame* line = nullptr;
        QLabel* label = nullptr;
    };
    void add(Notice notice, Icon icon);
    void dismiss(QFrame* line);
    void write() const;

    QVBoxLayout* column_;
    std::vector<Notice> notices_;
};

} // namespace tarvik
