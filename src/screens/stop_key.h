// The key that stops what moves works wherever the cursor is: a window that reports an error must not stand
// between the operator and the winch.
#pragma once

#include <QKeySequence>
#include <QPushButton>
#include <QShortcut>

namespace tarvik {

/// Presses the button, while it is shown and enabled, from any window of the program.
inline void pressFromAnywhere(QPushButton& button, Qt::Key key) {
    auto* const shortcut = new QShortcut(QKeySequence(key), &button);
    shortcut->setContext(Qt::ApplicationShortcut);
    QObject::connect(shortcut, &QShortcut::activated, &button, [&button] { button.click(); });
}

} // namespace tarvik
