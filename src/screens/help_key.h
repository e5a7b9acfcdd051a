// F1 while a dialog is open: the handbook comes up over it and can be read beside it. Without a dialog the
// key belongs to the menu.
#pragma once

#include "screens/desktop_memory.h"

#include <QObject>

namespace tarvik {

class HelpKey final : public QObject {
  public:
    /// `memory` outlives it.
    explicit HelpKey(DesktopMemory& memory);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    DesktopMemory& memory_;
};

} // namespace tarvik
