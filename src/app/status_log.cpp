#include "app/status_log.h"

#include "app/run_history.h"
#include "base/text.h"

#include <utility>

namespace tarvik {

namespace {

char colourCode(std::string_view colour) {
    if (colour == "BLU") return '1';
    if (colour == "RED") return '2';
    return '0';
}

/// A rule or a project header: such a block stands apart from what went before.
bool beginsBlock(std::string_view text) {
    return text.find("========") != std::string_view::npos ||
           text.find("Project :") != std::string_view::npos;
}

} // namespace

StatusLog::StatusLog(ErrorTrap& errors, const Clock& clock, Files& files, Path folder)
    : errors_(errors), clock_(clock), files_(files), folder_(std::move(folder)) {}

void StatusLog::Utilities_logstatus(std::string_view text, Bold bold, std::string_view colour) {
    errors_.run("Utilities_logstatus", [&](Level& level) {
        const CivilTime now = clock_.now();
        const std::string time = formatDate(now, "hh:mm:ss");

        std::string viewerLine = time + "  \\";
        viewerLine.append({bold == Bold::yes ? 'B' : 'b', '\\', colourCode(colour)}).append(text);
        for (StatusViewer* const viewer : viewers_) viewer->showStatusLine(viewerLine);

        level = 1; // on disk
        ++unwritten_;
        appendToFile(now, time, text);
        --unwritten_;
    });
}

void StatusLog::appendToFile(const CivilTime& now, std::string_view time, std::string_view text) {
    files_.createFolder(folder_);
    const Path file = dailyFile(folder_, now);
    std::string entry;
    if (!files_.exists(file)) {
        entry = fileCreatedLine(now) + "\r\n\r\n";
    } else if (beginsBlock(text)) {
        entry = "\r\n";
    }
    entry.append(time).append("  ").append(toAnsi(text)).append("\r\n");
    files_.append(file, asBytes(entry));
}

Path StatusLog::todaysFile() const {
    return dailyFile(folder_, clock_.now());
}

} // namespace tarvik
