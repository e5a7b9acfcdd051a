#include "cli/review.h"

#include <string>

namespace tarvik {

namespace {

constexpr std::int64_t longWorkMs = 300; ///< what takes less shows no progress

ProgramOptions reviewOptions(const Arguments& arguments) {
    ProgramOptions options = programOptions(arguments);
    options.onlyReview = true;
    return options;
}

} // namespace

Option tolerantOption() {
    return {"--tolerant", "", "read a LAS file that is refused otherwise, saying each repair"};
}

Review::Review(const Arguments& arguments)
    : tolerant_(arguments.has("--tolerant")),
      program_(reviewOptions(arguments), terminal_.shell()),
      red_(terminal_.lines()) {
    program_.log.addViewer(red_);
}

Review::~Review() {
    program_.log.removeViewer(red_);
}

Progress Review::progress() {
    return [this, start = program_.clock.tickMs()](int percent, std::string_view text) {
        const std::int64_t now = program_.clock.tickMs();
        if (now - start < longWorkMs) return;
        terminal_.lines().progress(std::string(text) + "  " + std::to_string(percent) + " %", now);
    };
}

std::optional<ReviewLog> Review::open(const Path& file) {
    auto log = isLasFile(program_.files, file) ? openLas(file, progress())
                                               : program_.runReader.Tarvikfileopen(file, progress());
    done();
    return log;
}

std::optional<ReviewLog> Review::openLas(const Path& file, const Progress& progress) {
    if (tolerant_) return program_.lasReader.openTolerantly(file, progress);
    LasOpening opening = program_.lasReader.LASfileopen(file, progress);
    if (!opening.complaint.empty())
        terminal_.lines().line("With --tolerant more is read, and each repair is said.");
    return std::move(opening.log);
}

} // namespace tarvik
