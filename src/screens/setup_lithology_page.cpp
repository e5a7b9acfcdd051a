#include "screens/setup_lithology_page.h"

#include "base/text.h"
#include "screens/card.h"
#include "screens/qt_text.h"

namespace tarvik {

SetupLithologyPage::SetupLithologyPage(const SetupModules& modules)
    : SetupPage("pagelithology", "Lithology", "The rocks beside the logs: patterns, names and depths."),
      modules_(modules),
      folder_(copyableLabel("lblithologyfolder")) {
    auto* const card = new Card("Tarvik cannot do this yet");
    card->body()->addWidget(wrappingLabel("There is no entry of lithology in this version, and none is drawn "
                                          "beside the logs. Nothing that you log is missing because of it."));
    card->body()->addWidget(wrappingLabel(
        "Until it is there, keep the geologist's description as a file of its own beside the runs. "
        "Tarvik leaves files that are not its own untouched. The project's folder is:"));
    card->body()->addWidget(folder_);
    body()->addWidget(card);
    body()->addStretch(1);
}

void SetupLithologyPage::load() {
    const Settings& settings = modules_.settings;
    const std::string project(trimmed(settings.currentProject));
    folder_->setText(project.empty()
                         ? "No project is chosen yet."
                         : qt((modules_.places.projectsFolder(settings.projectDrive) / project).string()));
}

} // namespace tarvik
