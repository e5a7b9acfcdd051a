// The program's own icons, drawn in the text colour of whatever theme is applied.
#pragma once

#include <QIcon>
#include <QString>

namespace tarvik {

/// data/icons/NAME.svg; an empty icon when there is none.
[[nodiscard]] QIcon icon(const QString& name);
/// The same for an entry of a menu, whose ground changes when it is chosen and not when it is checked.
[[nodiscard]] QIcon menuIcon(const QString& name);

} // namespace tarvik
