// Two copies of the development folder, on two drives, in folders named by the day.
#pragma once

#include "app/frame.h"
#include "platform/clock.h"
#include "platform/files.h"

#include <array>
#include <string>
#include <string_view>

namespace tarvik {

struct BackupPlan {
    struct Target {
        std::string drive;       ///< drive letter
        std::string_view notice; ///< when the day's folder is created
    };

    std::string sourceDrive = "D";
    std::string sourceFolder = "Software Development/Tarvik";
    std::array<Target, 2> targets{{{"F", "Daily backup directory being created"},
                                   {"G", "Second daily backup directory being created"}}};
};

/// "Tarvik-Mon-130306"
[[nodiscard]] std::string backupFolderName(const CivilTime& day);

class DeveloperBackup {
  public:
    DeveloperBackup(Frame& frame, const Clock& clock, Files& files, BackupPlan plan = {});

    /// "Help-backup": creates the day's folders where missing and starts the copying, without waiting for it.
    void run();
    /// Says of the copies that have ended since the last call whether they are whole.
    void reportEnded();

  private:
    [[nodiscard]] Path mappedDrive(const std::string& letter) const;
    void copyTo(const BackupPlan::Target& target);

    Frame& frame_;
    const Clock& clock_;
    Files& files_;
    BackupPlan plan_;
};

} // namespace tarvik
