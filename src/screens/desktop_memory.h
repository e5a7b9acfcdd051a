// What the desktop remembers between two starts besides the settings: where dialogs stood, how wide columns
// were, the theme. Section "Desktop" of the settings store.
#pragma once

#include "platform/settings_store.h"
#include "screens/theme.h"

#include <QString>

class QHeaderView;
class QWidget;

namespace tarvik {

class DesktopMemory {
  public:
    explicit DesktopMemory(SettingsStore& store) : store_(store) {}

    /// By the widget's object name. False when nothing was kept: the widget then stands as it was made.
    bool restoreGeometry(QWidget& widget) const;
    void keepGeometry(const QWidget& widget);
    /// Column widths and the sorting, by `name`.
    bool restoreColumns(QHeaderView& header, const QString& name) const;
    void keepColumns(const QHeaderView& header, const QString& name);

    [[nodiscard]] Theme theme() const;
    void keepTheme(Theme theme);

    /// A text of the desktop's own, such as the page that was shown last; empty when nothing was kept.
    [[nodiscard]] QString text(const QString& name) const;
    void keepText(const QString& name, const QString& text);

  private:
    SettingsStore& store_;
};

} // namespace tarvik
