#include "screens/setup_display_page.h"

#include "screens/card.h"
#include "screens/option_row.h"
#include "screens/theme.h"

#include <QApplication>
#include <QCheckBox>

namespace tarvik {

SetupDisplayPage::SetupDisplayPage(const SetupModules& modules)
    : SetupPage("pagelogdisplay", "Log display", "How the screen looks and how the logs are scaled."),
      modules_(modules),
      before_(modules.memory.theme()),
      inches_(new QCheckBox("Log &inches: scales of logs in feet in inches too")),
      depthTrack_(wrappingLabel({})) {
    auto* const look = new Card("Look");
    theme_ = addOptions(*look->body(), "Theme",
                        {{"optlight", "&Light, for work in the sun"}, {"optdark", "&Dark, for the night"}});
    look->body()->addWidget(wrappingLabel("Applied at once and kept for the next start.", "quiet"));
    auto* const logs = new Card("Logs");
    inches_->setObjectName("optloginches");
    depthTrack_->setObjectName("lbdepthtrack");
    logs->body()->addWidget(inches_);
    logs->body()->addWidget(wrappingLabel("The heading of a print then says 1:240 and 5 in per 100 ft. "
                                          "Holds until Tarvik is closed; the next start begins with what the "
                                          "settings file says.",
                                          "quiet"));
    logs->body()->addWidget(depthTrack_);
    body()->addWidget(look);
    body()->addWidget(logs);
    body()->addStretch(1);
    connect(theme_, &QButtonGroup::idClicked, this,
            [this](int id) { applyTheme(id == 1 ? Theme::dark : Theme::light); });
}

void SetupDisplayPage::load() {
    theme_->button(modules_.memory.theme() == Theme::dark ? 1 : 0)->setChecked(true);
    inches_->setChecked(modules_.settings.logInches != 0);
    depthTrack_->setText(modules_.settings.units() == DepthUnits::metres
                             ? "Depth track: metres. The unit is chosen on the page Winch and tool."
                             : "Depth track: feet. The unit is chosen on the page Winch and tool.");
}

bool SetupDisplayPage::store() {
    std::int16_t& logInches = modules_.settings.logInches;
    if (inches_->isChecked() != (logInches != 0)) logInches = inches_->isChecked() ? 1 : 0;
    return true;
}

void SetupDisplayPage::cancel() {
    if (modules_.memory.theme() != before_) applyTheme(before_);
}

void SetupDisplayPage::applyTheme(Theme theme) {
    modules_.memory.keepTheme(theme);
    tarvik::applyTheme(*qApp, theme);
}

} // namespace tarvik
