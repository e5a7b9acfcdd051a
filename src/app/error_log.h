// The error log: one cumulative file that the operator sends to support, and the error dialog.
//
// Nothing here throws and nothing here calls itself: an error while an error is being filed is dropped. An
// entry that cannot be written is still shown, and the dialog says that the file lacks it.
#pragma once

#include "app/buffer_overflow.h"
#include "app/error_filing.h"
#include "app/error_trap.h"
#include "app/operator_side.h"
#include "app/system_information.h"
#include "app/version.h"
#include "platform/clock.h"
#include "platform/files.h"

#include <string>
#include <string_view>

namespace tarvik {

class ErrorLog final : public ErrorReporter {
  public:
    /// `folder` is the run-history folder; it is created when missing, before each write.
    ErrorLog(OperatorSide& operatorSide, const Clock& clock, Files& files, Path folder, SystemTexts system,
             Version version = programVersion());

    /// Files the error and shows it.
    void report(const ErrorReport& error) override;

    /// Files it without showing it, for faults that must not stop the start-up. False when not written.
    bool file(const ErrorReport& error);

    /// Files the analysis under the routine that met the overflow, and shows it without blocking.
    void reportOverflow(const ErrorPlace& place, const BufferOverflow& overflow);

    [[nodiscard]] Path path() const;

  private:
    /// Held while an entry is on its way.
    class Busy {
      public:
        explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
        ~Busy() { flag_ = false; }
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;

      private:
        bool& flag_;
    };

    ErrorFiling append(std::string_view entry);
    [[nodiscard]] std::string dateTime() const;
    [[nodiscard]] std::string newFileHead() const;
    [[nodiscard]] std::string entryHead(std::string_view dateTime, std::string_view form,
                                        std::string_view routine) const;
    [[nodiscard]] std::string entry(const ErrorReport& error, std::string_view dateTime) const;

    OperatorSide& operator_;
    const Clock& clock_;
    Files& files_;
    Path folder_;
    SystemTexts system_;
    Version version_;
    bool reporting_ = false;
};

} // namespace tarvik
