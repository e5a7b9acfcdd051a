#include "screens/help_key.h"

#include "screens/help_window.h"

#include <QApplication>
#include <QKeyEvent>

namespace tarvik {

HelpKey::HelpKey(DesktopMemory& memory) : memory_(memory) {
    qApp->installEventFilter(this);
}

/// A window that belongs to a dialog is not shut out by it.
bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1) return false;
    auto* help = dialog->findChild<HelpWindow*>(QString(), Qt::FindDirectChildrenOnly);
    if (help == nullptr) {
        help = new HelpWindow(memory_, dialog);
        help->showPage(helpPageOf(dialog->objectName()));
    }
    help->show();
    help->raise();
    help->activateWindow();
    return true;
}

} // namespace tarvik
