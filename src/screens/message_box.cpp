#include "screens/message_box.h"

#include "screens/icons.h"

namespace tarvik {

namespace {

constexpr int pictureSize = 40;

const char* pictureOf(Icon icon) {
    switch (icon) {
    case Icon::information:
        return "info";
    case Icon::exclamation:
        return "warning";
    case Icon::question:
        return "help";
    case Icon::critical:
        return "error";
    case Icon::none:
        break;
    }
    return nullptr;
}

} // namespace

std::unique_ptr<QMessageBox> makeMessageBox(Icon icon, const QString& title, const QString& text,
                                            QWidget* parent) {
    auto box = std::make_unique<QMessageBox>(parent);
    box->setWindowTitle(title);
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    if (const char* const picture = pictureOf(icon))
        box->setIconPixmap(
            tarvik::icon(picture).pixmap(QSize(pictureSize, pictureSize), box->devicePixelRatioF()));
    return box;
}

} // namespace tarvik
