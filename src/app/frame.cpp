#include "app/frame.h"

#include "base/text.h"

namespace tarvik {

void closeOpenPort(Frame& frame) {
    if (frame.link.open()) frame.hooks.closePort();
    if (frame.link.demo) {
        frame.link.port = 0;
        frame.link.demo = false;
    }
}

void resetPrintButton(Frame& frame) {
    frame.state.exitConfirmation = false;
    frame.view.resetPrintButton();
}

Path projectFolder(const Frame& frame) {
    return frame.places.projectsFolder(frame.settings.projectDrive) / trimmed(frame.settings.currentProject);
}

} // namespace tarvik
