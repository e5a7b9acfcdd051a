// Run-time errors: where each happened, its number, and the file to send to support. Not modal: errors that
// have not been read wait in the order in which they came, the same one again is counted.
#pragma once

#include "app/error_filing.h"
#include "app/error_trap.h"
#include "screens/screen_dialog.h"

#include <vector>

class QLabel;
class QPushButton;

namespace tarvik {

class frmERROR final : public ScreenDialog {
  public:
    explicit frmERROR(DesktopMemory& memory, QWidget* parent = nullptr);

    /// Among the unread ones; a form that is not open stays so.
    void keepError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed);
    /// Over the dialog that is open, if any: the form can be read and closed before it. Nothing without an
    /// unread error.
    void showUnread();
    /// All of them are read then.
    void done(int result) override;

  private:
    struct Unread {
        QString what;
        QString facts; ///< form, routine, number and level
        QString dateTime;
        QString advice;
        int times = 1;

        /// The same error, whenever it came.
        [[nodiscard]] bool sameAs(const Unread& other) const {
            return what == other.what && facts == other.facts;
        }
    };

    void showCurrent();
    void showNext();
    void comeForward();
    void makeRoom();

    std::vector<Unread> unread_;
    std::size_t current_ = 0;
    QLabel* what_;
    QLabel* facts_;
    QLabel* file_;
    QLabel* times_;
    QPushButton* next_;
};

} // namespace tarvik
