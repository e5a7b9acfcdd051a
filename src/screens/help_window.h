// The handbook: pages at the left, the text at the right. Not modal; it can stay open beside the work.
#pragma once

#include "screens/screen_dialog.h"

class QListWidget;
class QTextBrowser;

namespace tarvik {

class HelpWindow final : public ScreenDialog {
  public:
    explicit HelpWindow(DesktopMemory& memory, QWidget* parent = nullptr);

    /// A page by the name of its file in data/help, without the ending.
    void showPage(const QString& name);

  private:
    QListWidget* pages_;
    QTextBrowser* text_;
};

/// The page about a screen, by the name of the screen or of the program's mode; empty when none is its own.
[[nodiscard]] QString helpPageOf(const QString& screen);

/// The text of a page; empty when there is none.
[[nodiscard]] QString helpText(const QString& page);

} // namespace tarvik
