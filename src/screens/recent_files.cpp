#include "screens/recent_files.h"

namespace tarvik {

namespace {

QString key(const QString& name, int place) {
    return name + QString::number(place + 1);
}

void keepAll(DesktopMemory& memory, const QString& name, const QStringList& files) {
    for (int i = 0; i < mostRecentFiles; ++i) memory.keepText(key(name, i), files.value(i));
}

} // namespace

QStringList recentFiles(const DesktopMemory& memory, const QString& name) {
    QStringList files;
    for (int i = 0; i < mostRecentFiles; ++i) files.append(memory.text(key(name, i)));
    files.removeAll(QString());
    return files;
}

void keepRecentFile(DesktopMemory& memory, const QString& name, const QString& file) {
    QStringList files = recentFiles(memory, name);
    files.removeAll(file);
    files.prepend(file);
    keepAll(memory, name, files);
}

void forgetRecentFile(DesktopMemory& memory, const QString& name, const QString& file) {
    QStringList files = recentFiles(memory, name);
    files.removeAll(file);
    keepAll(memory, name, files);
}

} // namespace tarvik
