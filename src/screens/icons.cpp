#include "screens/icons.h"

#include "screens/theme.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <utility>

namespace tarvik {

namespace {

/// Which colour of the theme an icon has where.
using Ink = QColor ThemeColours::*;
using InkRule = Ink (*)(QIcon::Mode mode, QIcon::State state);

Ink inkOnTools(QIcon::Mode mode, QIcon::State state) {
    if (mode == QIcon::Disabled) return state == QIcon::On ? &ThemeColours::text : &ThemeColours::faded;
    return mode == QIcon::Selected || state == QIcon::On ? &ThemeColours::onAccent : &ThemeColours::text;
}

Ink inkInMenus(QIcon::Mode mode, QIcon::State) {
    if (mode == QIcon::Disabled) return &ThemeColours::faded;
    return mode == QIcon::Active ? &ThemeColours::onAccent : &ThemeColours::text;
}

/// Drawn when it is asked for: in the theme of the moment, as sharp as the display; and kept by the toolkit.
class ThemeIcon final : public QIconEngine {
  public:
    ThemeIcon(QString name, QByteArray svg, InkRule ink)
        : name_(std::move(name)), svg_(std::move(svg)), ink_(ink) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap drawn = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        drawn.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect.topLeft(), drawn);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const QString ink = (coloursOf(appliedTheme()).*ink_(mode, state)).name();
        const QString key = QString("icon %1 %2 %3x%4").arg(name_, ink).arg(size.width()).arg(size.height());
        QPixmap drawn;
        if (QPixmapCache::find(key, &drawn)) return drawn;
        drawn = QPixmap(size);
        drawn.fill(Qt::transparent);
        QByteArray svg = svg_;
        svg.replace("currentColor", ink.toUtf8());
        QPainter painter(&drawn);
        QSvgRenderer(svg).render(&painter, drawn.rect());
        painter.end();
        QPixmapCache::insert(key, drawn);
        return drawn;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new ThemeIcon(*this); }

  private:
    QString name_;
    QByteArray svg_;
    InkRule ink_;
};

QIcon made(const QString& name, InkRule ink) {
    openIconResources();
    QFile file(":/icons/" + name + ".svg");
    return file.open(QIODevice::ReadOnly) ? QIcon(new ThemeIcon(name, file.readAll(), ink)) : QIcon();
}

} // namespace

QIcon menuIcon(const QString& name) {
    return made(name, inkInMenus);
}

QIcon icon(const QString& name) {
    return made(name, inkOnTools);
}

} // namespace tarvik
