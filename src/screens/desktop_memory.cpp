#include "screens/desktop_memory.h"

#include "base/failure.h"
#include "screens/qt_text.h"

#include <QHeaderView>
#include <QWidget>

namespace tarvik {

namespace {

constexpr std::string_view section = "Desktop";

QByteArray bytesOf(const QString& text) {
    return QByteArray::fromBase64(text.toLatin1());
}

QString textOf(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toBase64());
}

} // namespace

bool DesktopMemory::restoreGeometry(QWidget& widget) const {
    return widget.restoreGeometry(bytesOf(text(widget.objectName() + " geometry")));
}

void DesktopMemory::keepGeometry(const QWidget& widget) {
    keepText(widget.objectName() + " geometry", textOf(widget.saveGeometry()));
}

bool DesktopMemory::restoreColumns(QHeaderView& header, const QString& name) const {
    return header.restoreState(bytesOf(text(name + " columns")));
}

void DesktopMemory::keepColumns(const QHeaderView& header, const QString& name) {
    keepText(name + " columns", textOf(header.saveState()));
}

Theme DesktopMemory::theme() const {
    return themeNamed(plain(text("Theme")));
}

void DesktopMemory::keepTheme(Theme theme) {
    keepText("Theme", qt(themeName(theme)));
}

QString DesktopMemory::text(const QString& name) const {
    return qt(store_.get(section, plain(name)).value_or(""));
}

/// Losing the place of a dialog is no reason to disturb the operator.
void DesktopMemory::keepText(const QString& name, const QString& text) {
    try {
        store_.set(section, plain(name), plain(text));
        store_.commit();
    } catch (const Failure&) {
    }
}

} // namespace tarvik
