#include "screens/icons.h"

#include "screens/theme.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <utility>

static void openResources() {
    Q_INIT_RESOURCE(tarvik_icons);
}

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

/// Draws when it is asked to: in the theme of the moment, as sharp as the display.
class ThemeIcon final : public QIconEngine {
  public:
    ThemeIcon(QByteArray svg, InkRule ink) : svg_(std::move(svg)), ink_(ink) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        QByteArray svg = svg_;
        svg.replace("currentColor", (coloursOf(appliedTheme()).*ink_(mode, state)).name().toUtf8());
        QSvgRenderer(svg).render(painter, rect);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, drawn.rect(), mode, state);
        return drawn;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new ThemeIcon(*this); }

  private:
    QByteArray svg_;
    InkRule ink_;
};

QIcon made(const QString& name, InkRule ink) {
    openResources();
    QFile file(":/icons/" + name + ".svg");
    return file.open(QIODevice::ReadOnly) ? QIcon(new ThemeIcon(file.readAll(), ink)) : QIcon();
}

} // namespace

void openIcons() {
    openResources();
}

QIcon menuIcon(const QString& name) {
    return made(name, inkInMenus);
}

QIcon icon(const QString& name) {
    return made(name, inkOnTools);
}

} // namespace tarvik
