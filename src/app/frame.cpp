#include "app/frame.h"

#include "base/text.h"

namespace tarvik {

LinkFacts currentLink(const Frame& frame) {
    return frame.state.demoLink ? *frame.state.demoLink : frame.hooks.link();
}

void closeOpenPort(Frame& frame) {
    frame.state.demoLink.reset();
    if (frame.hooks.link().port > 0) frame.hooks.closePort();
}

void resetPrintButton(Frame& frame) {
    frame.state.exitConfirmation = false;
    frame.view.resetPrintButton();
}

Path projectFolder(const Frame& frame) {
    return frame.places.projectsFolder(frame.settings.projectDrive) / trimmed(frame.settings.currentProject);
}

} // namespace tarvik
