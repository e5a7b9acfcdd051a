#include "screens/frm_about.h"

#include "base/text.h"
#include "screens/card.h"
#include "screens/icons.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tarvik {

frmAbout::frmAbout(const Version& version, const SystemTexts& system, const QString& programFolder,
                   DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmAbout", "About Tarvik", memory, parent) {
    auto* const head = new QHBoxLayout;
    head->setSpacing(16);
    auto* const picture = new QLabel;
    picture->setPixmap(icon("app").pixmap(QSize(48, 48), devicePixelRatioF()));
    head->addWidget(picture, 0, Qt::AlignTop);
    auto* const names = new QVBoxLayout;
    names->addWidget(roleLabel("title", "Tarvik"));
    names->addWidget(new QLabel("Borehole geophysical logging"));
    head->addLayout(names, 1);
    body()->addLayout(head);

    auto* const card = new Card;
    auto* const facts =
        new QLabel(QString("Version %1 (build %2)\n%3\n%4\nProgram folder %5")
                       .arg(qt(versionText(version)))
                       .arg(version.revision)
                       .arg(qt(trimmed(system.operatingSystem)), qt(trimmed(system.memory)), programFolder));
    facts->setObjectName("lbfacts");
    facts->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    facts->setMinimumWidth(420);
    facts->setWordWrap(true);
    card->body()->addWidget(facts);
    body()->addWidget(card);
    connect(addPrimaryButton("comclose", "Close"), &QPushButton::clicked, this, &QDialog::accept);
}

} // namespace tarvik
