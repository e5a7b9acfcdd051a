// Files that were used last, the latest first, kept for the next start.
#pragma once

#include "screens/desktop_memory.h"

#include <QStringList>

namespace tarvik {

constexpr int mostRecentFiles = 5;

/// `name` tells one list from another.
[[nodiscard]] QStringList recentFiles(const DesktopMemory& memory, const QString& name);
void keepRecentFile(DesktopMemory& memory, const QString& name, const QString& file);
void forgetRecentFile(DesktopMemory& memory, const QString& name, const QString& file);

} // namespace tarvik
