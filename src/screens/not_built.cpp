#include "screens/not_built.h"

#include "screens/card.h"
#include "screens/icons.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

struct Way {
    const char* words = "";
    const char* command = ""; ///< to be typed at the command line
};

struct Planned {
    std::string_view screen;
    const char* icon;
    const char* title;
    const char* lacking;
    std::array<Way, 3> ways;
};

constexpr std::array planned{
    Planned{
        "frmBatchProcessing",
        "batch",
        "Batch processing",
        "This version cannot work through several files at once.",
        {Way{"One run: open it in Review and press Export as LAS."},
         Way{"All runs of a folder, at the command line:",
             "mkdir las; for f in *_[0-9][0-9].kvx; do tarvik las \"$f\" -o \"las/${f%.kvx}.las\"; done"}}},
    Planned{
        "frmCalibTest",
        "calibtest",
        "Calibration and test",
        "This version cannot calibrate or test a tool on a screen.",
        {Way{"Fit a calibration through points and save it, at the command line:", "tarvik calibrate --help"},
         Way{"See the calibrations on record: Calibrations in Review."},
         Way{"See what the tool sends: Diagnostics console (Ctrl+D)."}}},
};

constexpr Planned unknown{"", "info", "Not built yet", "This screen is not part of this version.", {}};

QLabel* wrapping(const char* role, const char* text) {
    QLabel* const label = roleLabel(role, text);
    label->setWordWrap(true);
    return label;
}

QWidget* waysOf(const Planned& screen) {
    auto* const card = new Card("What you can do instead");
    for (const Way& way : screen.ways) {
        if (*way.words != '\0') card->body()->addWidget(wrapping("", way.words));
        if (*way.command == '\0') continue;
        auto* const command = new QLabel(way.command);
        command->setTextFormat(Qt::PlainText);
        command->setTextInteractionFlags(Qt::TextSelectableByMouse);
        command->setStyleSheet("font-family: monospace;");
        card->body()->addWidget(command);
    }
    return card;
}

} // namespace

NotBuiltScreen::NotBuiltScreen(std::string_view screen, DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmNotBuilt", "Not built yet", memory, parent) {
    const auto* const row = std::ranges::find(planned, screen, &Planned::screen);
    const Planned& shown = row == planned.end() ? unknown : *row;
    auto* const picture = new QLabel;
    picture->setPixmap(icon(shown.icon).pixmap(QSize(32, 32), devicePixelRatioF()));
    auto* const words = new QVBoxLayout;
    words->setSpacing(4);
    words->addWidget(roleLabel("title", shown.title));
    QLabel* const lacking = wrapping("quiet", shown.lacking);
    lacking->setObjectName("lbnotbuilt");
    words->addWidget(lacking);
    auto* const head = new QHBoxLayout;
    head->setSpacing(measure::wide);
    head->addWidget(picture, 0, Qt::AlignTop);
    head->addLayout(words, 1);
    body()->addLayout(head);
    if (&shown != &unknown) body()->addWidget(waysOf(shown));
    body()->addStretch(1);
    connect(addPrimaryButton("comclose", "Close"), &QPushButton::clicked, this, &QDialog::accept);
    setMinimumWidth(600);
}

/// Texts that wrap have their height only for a width.
void NotBuiltScreen::showEvent(QShowEvent* event) {
    resize(width(), layout()->totalHeightForWidth(width()));
    ScreenDialog::showEvent(event); // may bring back the size of another one
    resize(width(), std::max(height(), layout()->totalHeightForWidth(width())));
}

} // namespace tarvik
