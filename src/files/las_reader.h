// Opens LAS files for review: strictly, as LAS 2.0 with its keys in their order, or tolerantly, when the user
// asks for it after a refusal.
//
// Both fill the same review arrays as a run file. Whatever is dropped, converted or repaired is said in red
// in the status log, a line for each kind with the lines of the file, and kept with the log.
#pragma once

#include "app/error_trap.h"
#include "app/operator_side.h"
#include "app/status_log.h"
#include "base/review_log.h"
#include "files/las_header.h"
#include "files/las_lines.h"
#include "files/progress.h"
#include "platform/files.h"

#include <optional>

namespace tarvik {

/// What the plain reading of a file brought.
struct LasOpening {
    std::optional<ReviewLog> log;
    /// Where and why the file was refused for its form, or that no row of it could be read: the tolerant
    /// reading may do better. Empty when it would not.
    std::string complaint = {};
};

class LasFileReader {
  public:
    LasFileReader(ErrorTrap& errors, StatusLog& log, OperatorSide& operatorSide, const Files& files)
        : errors_(errors), log_(log), operatorSide_(operatorSide), files_(files) {}

    /// The file as LAS 2.0. No log when it is refused ("Problems with LAS file" is shown, the log says the
    /// line and the reason) or cannot be read (the error is reported).
    LasOpening LASfileopen(const Path& file, const Progress& progress = {});

    /// The same for files that LASfileopen refuses: keys in any order, long headers, wrapped rows, LAS 1.2,
    /// other encodings. Each repair is said; no value is guessed.
    std::optional<ReviewLog> openTolerantly(const Path& file, const Progress& progress = {});

  private:
    bool getLAScurvedata(const Path& file, LasHeader& header, LasFindings& findings, std::string& refusal);
    bool scanLASdatavalues(LasLines& lines, const LasHeader& header, bool tolerant, ReviewLog& review,
                           LasFindings& findings, const Progress& progress);
    /// Why the body refuses the file, as the operator has been told; empty when it does not.
    template <class Body>
    std::string refusalOf(const Path& file, Body&& body);
    void tell(const Path& file, const LasFindings& findings, ReviewLog& review);

    ErrorTrap& errors_;
    StatusLog& log_;
    OperatorSide& operatorSide_;
    const Files& files_;
};

/// False for what is a run file by its first bytes or its name. A file that cannot be read is LAS by its
/// name: the reader that opens it next says what is wrong, once and under its own name. Throws nothing for
/// it.
[[nodiscard]] bool isLasFile(const Files& files, const Path& file);

} // namespace tarvik
