// Status lines go to the viewers only.
#include "app/status_log.h"

namespace tarvik {

StatusLog::StatusLog(ErrorTrap& errors, const Clock& clock, Files& files, Path folder)
    : errors_(errors), clock_(clock), files_(files), folder_(std::move(folder)) {}

void StatusLog::Utilities_logstatus(std::string_view text, Bold, std::string_view colour) {
    for (StatusViewer* viewer : viewers_)
        viewer->showStatusLine(std::string(colour) + " " + std::string(text));
}

} // namespace tarvik
