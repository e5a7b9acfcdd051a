#include "screens/icons.h"

#include "screens/theme.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

static void openResources() {
    Q_INIT_RESOURCE(tarvik_icons);
}

namespace tarvik {

namespace {

constexpr int iconPixels = 24;

QPixmap drawn(QByteArray svg, const QColor& colour, int scale) {
    svg.replace("currentColor", colour.name().toUtf8());
    QSvgRenderer renderer(svg);
    QPixmap pixmap(iconPixels * scale, iconPixels * scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

QByteArray svgOf(const QString& name) {
    openResources();
    QFile file(":/icons/" + name + ".svg");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void openIcons() {
    openResources();
}

QIcon menuIcon(const QString& name) {
    const QByteArray svg = svgOf(name);
    if (svg.isEmpty()) return {};
    const ThemeColours& colours = coloursOf(appliedTheme());
    QIcon result;
    for (const int scale : {1, 2}) {
        for (const QIcon::State state : {QIcon::Off, QIcon::On}) {
            result.addPixmap(drawn(svg, colours.text, scale), QIcon::Normal, state);
            result.addPixmap(drawn(svg, colours.onAccent, scale), QIcon::Active, state);
            result.addPixmap(drawn(svg, colours.faded, scale), QIcon::Disabled, state);
        }
    }
    return result;
}

QIcon icon(const QString& name) {
    const QByteArray svg = svgOf(name);
    if (svg.isEmpty()) return {};
    const ThemeColours& colours = coloursOf(appliedTheme());
    QIcon result;
    for (const int scale : {1, 2}) {
        result.addPixmap(drawn(svg, colours.text, scale), QIcon::Normal, QIcon::Off);
        result.addPixmap(drawn(svg, colours.onAccent, scale), QIcon::Normal, QIcon::On);
        result.addPixmap(drawn(svg, colours.onAccent, scale), QIcon::Selected, QIcon::Off);
        result.addPixmap(drawn(svg, colours.faded, scale), QIcon::Disabled, QIcon::Off);
        result.addPixmap(drawn(svg, colours.text, scale), QIcon::Disabled, QIcon::On); // as its caption
    }
    return result;
}

} // namespace tarvik
