#include "app/developer_backup.h"

#include "base/failure.h"

#include <utility>

namespace tarvik {

std::string backupFolderName(const CivilTime& day) {
    return "Tarvik-" + formatDate(day, "ddd") + formatDate(day, "-ddmmyy");
}

DeveloperBackup::DeveloperBackup(Frame& frame, const Clock& clock, Files& files, BackupPlan plan)
    : frame_(frame), clock_(clock), files_(files), plan_(std::move(plan)) {}

/// One copy that cannot be made does not cost the other.
void DeveloperBackup::run() {
    for (const BackupPlan::Target& target : plan_.targets) {
        frame_.errors.run("developer backup", [&](Level&) { copyTo(target); });
    }
}

/// Without its folder a letter would mean drive C.
Path DeveloperBackup::mappedDrive(const std::string& letter) const {
    if (frame_.places.drives.contains(letter.front())) return frame_.places.drive(letter);
    throw Failure(ErrorNumber::pathNotFound, "Drive " + letter +
                                                 " has no folder on this machine. Name one under Setup, "
                                                 "System test, then make the backup again");
}

void DeveloperBackup::copyTo(const BackupPlan::Target& target) {
    const Path source = mappedDrive(plan_.sourceDrive) / plan_.sourceFolder;
    const Path folder = mappedDrive(target.drive) / backupFolderName(clock_.now());
    if (!files_.exists(source))
        throw Failure(ErrorNumber::pathNotFound, source.string() + ": there is no such folder to back up");
    if (!files_.exists(folder)) {
        frame_.operatorSide.message("Tarvik", target.notice, Icon::information);
        files_.createFolder(folder);
    }
    if (frame_.hooks.startCopying(source, folder)) {
        frame_.log.black("Backup to " + folder.string() + " started");
        return;
    }
    throw Failure(ErrorNumber::fileNotFound, "The backup could not be started; copy " + source.string() +
                                                 " to " + folder.string() + " by hand");
}

void DeveloperBackup::reportEnded() {
    for (const auto& [folder, whole] : frame_.hooks.copiesEnded()) {
        if (whole) {
            frame_.log.black("Backup to " + folder.string() + " complete");
            continue;
        }
        const std::string words = "The backup to " + folder.string() +
                                  " is not complete: not every file could be copied. Look for room and "
                                  "write access there, then make the backup again";
        frame_.log.red(words);
        frame_.operatorSide.notice("Backup not complete", words, Icon::critical);
    }
}

} // namespace tarvik
