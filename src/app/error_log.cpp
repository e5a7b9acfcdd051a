#include "app/error_log.h"

#include "app/run_history.h"
#include "base/text.h"

#include <exception>
#include <utility>

namespace tarvik {

namespace {

constexpr std::string_view lineEnd = "\r\n";

} // namespace

ErrorLog::ErrorLog(OperatorSide& operatorSide, const Clock& clock, Files& files, Path folder,
                   SystemTexts system, Version version)
    : operator_(operatorSide),
      clock_(clock),
      files_(files),
      folder_(std::move(folder)),
      system_(std::move(system)),
      version_(version) {}

void ErrorLog::report(const ErrorReport& error) {
    if (reporting_) return;
    const Busy busy(reporting_);
    try {
        const std::string when = dateTime();
        operator_.showError(error, when, append(entry(error, when)));
    } catch (...) { // the dialog failed: the error has nobody left to go to
    }
}

bool ErrorLog::file(const ErrorReport& error) {
    if (reporting_) return false;
    const Busy busy(reporting_);
    try {
        return append(entry(error, dateTime())).problem.empty();
    } catch (...) { // no memory for the entry
        return false;
    }
}

void ErrorLog::reportOverflow(const ErrorPlace& place, const BufferOverflow& overflow) {
    if (reporting_) return;
    const Busy busy(reporting_);
    try {
        std::string text = entryHead(dateTime(), place.form, place.routine);
        for (const std::string& line : overflowAnalysis(overflow)) text.append(line).append(lineEnd);
        const ErrorFiling filed = append(text);
        operator_.showOverflow(overflowFormLines(overflow), filed);
    } catch (...) { // the form failed
    }
}

Path ErrorLog::path() const {
    return errorFile(folder_);
}

std::string ErrorLog::dateTime() const {
    return formatDate(clock_.now(), "dddd dd-mmm-yy hh:mm:ss");
}

std::string ErrorLog::newFileHead() const {
    std::string head = fileCreatedLine(clock_.now());
    head.append(lineEnd).append("Operating system : ").append(trimmed(system_.operatingSystem));
    head.append(lineEnd).append(trimmed(system_.memory)).append(lineEnd).append(lineEnd);
    return head;
}

std::string ErrorLog::entryHead(std::string_view dateTime, std::string_view form,
                                std::string_view routine) const {
    std::string head(dateTime);
    head.append("  Tarvik - Version ").append(versionText(version_)).append(" ");
    head.append(" (build ").append(std::to_string(version_.revision)).append(")").append(lineEnd);
    head.append("   Form : ").append(form).append("  Routine : ").append(routine).append(lineEnd);
    return head;
}

std::string ErrorLog::entry(const ErrorReport& error, std::string_view dateTime) const {
    std::string text = entryHead(dateTime, error.form, error.routine);
    text.append("   Error : ").append(std::to_string(error.number)).append("  ").append(error.description);
    text.append("  (Level=").append(std::to_string(error.level)).append(")");
    text.append(lineEnd).append(lineEnd);
    return text;
}

ErrorFiling ErrorLog::append(std::string_view entry) {
    ErrorFiling filed{path().string(), {}};
    try {
        files_.createFolder(folder_);
        std::string text = files_.exists(path()) ? std::string() : newFileHead();
        text.append(entry);
        files_.append(path(), asBytes(toAnsi(text)));
    } catch (const std::exception& problem) {
        filed.problem = problem.what();
    }
    return filed;
}

} // namespace tarvik
