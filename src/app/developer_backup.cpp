#include "app/developer_backup.h"

#include "base/failure.h"

#include <utility>

namespace tarvik {

std::string backupFolderName(const CivilTime& day) {
    return "Tarvik-" + formatDate(day, "ddd") + formatDate(day, "-ddmmyy");
}

DeveloperBackup::DeveloperBackup(Frame& frame, const Clock& clock, Files& files, BackupPlan plan)
    : frame_(frame), clock_(clock), files_(files), plan_(std::move(plan)) {}

void DeveloperBackup::run() {
    frame_.errors.run("developer backup", [&](Level& level) {
        for (const BackupPlan::Target& target : plan_.targets) {
            ++level;
            copyTo(target);
        }
    });
}

void DeveloperBackup::copyTo(const BackupPlan::Target& target) {
    const Path folder = frame_.places.drive(target.drive) / backupFolderName(clock_.now());
    if (!files_.exists(folder)) {
        frame_.operatorSide.message("Tarvik", target.notice, Icon::information);
        files_.createFolder(folder);
    }
    const std::string command = "xcopy " + plan_.source + " " + folder.string() + R"(\*.* /E /Y /K)";
    if (!frame_.hooks.startMinimised(command)) {
        throw Failure(ErrorNumber::fileNotFound,
                      "The backup could not be started: " + command + "; copy the folder by hand");
    }
}

} // namespace tarvik
