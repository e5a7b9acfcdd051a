#include "files/las_reader.h"

#include "base/failure.h"
#include "base/text.h"
#include "files/las_data.h"
#include "files/las_tolerant_header.h"
#include "files/las_units.h"
#include "files/run_file_layout.h"

#include <utility>

namespace tarvik {

namespace {

ReviewLog emptyReview(const LasHeader& header) {
    ReviewLog review;
    review.header.hole = header.hole;
    review.header.runDate = header.date;
    review.las = header.facts;
    return review;
}

void refuseUnsaidWrap(const LasLines& lines, const LasHeader& header) {
    if (!rowsLookWrapped(lines, header)) return;
    throw LasRefusal(
        "line " + std::to_string(header.dataLine + 1) +
        ": WRAP is not YES, but no line has all values of a row: the rows take several lines each; "
        "only the tolerant reading joins them");
}

/// Rows of a wrapped file would each give several depths that are none.
void refuseWrapped(const LasHeader& header) {
    if (!header.wrapped) return;
    throw LasRefusal("line " + std::to_string(header.wrapLine) +
                     ": WRAP is YES, the rows take several lines each; only the tolerant reading joins them");
}

} // namespace

template <class Body>
std::string LasFileReader::refusalOf(const Path& file, Body&& body) {
    try {
        body();
        return {};
    } catch (const LasRefusal& reason) {
        std::string refusal = file.filename().string() + ", " + reason.what();
        log_.red(refusal);
        operatorSide_.message("Tarvik", "Problems with LAS file", Icon::exclamation);
        return refusal;
    }
}

LasOpening LasFileReader::LASfileopen(const Path& file, const Progress& progress) {
    return errors_.run("Logdisplay1-LASfileopen", LasOpening(), [&](Level& level) {
        LasOpening opening;
        LasFindings findings;
        LasHeader header;
        opening.complaint = refusalOf(file, [&] { header = readLasKeys(files_, file, findings); });
        if (!opening.complaint.empty()) return opening;
        level = 1; // the curves
        if (!getLAScurvedata(file, header, findings, opening.complaint)) return opening;
        level = 2; // the data
        opening.log = emptyReview(header);
        LasLines lines(files_, file, header.facts.dataStart, header.dataLine);
        LasLine columnNames;
        lines.next(columnNames);
        opening.complaint = refusalOf(file, [&] { refuseUnsaidWrap(lines, header); });
        if (!opening.complaint.empty()) return LasOpening{.log = {}, .complaint = opening.complaint};
        if (!scanLASdatavalues(lines, header, false, *opening.log, findings, progress)) return LasOpening();
        if (opening.log->steps() == 0) {
            opening.complaint = file.filename().string() + ", no row of data was read";
            findings.say(0, "no row of data was read; read tolerantly, the file may show more");
        }
        tell(file, findings, *opening.log);
        return opening;
    });
}

std::optional<ReviewLog> LasFileReader::openTolerantly(const Path& file, const Progress& progress) {
    return errors_.run("Logdisplay1-openTolerantly", std::optional<ReviewLog>(), [&](Level& level) {
        std::optional<ReviewLog> review;
        LasFindings findings;
        LasHeader header;
        const LasText text = detectLasText(files_, file, findings);
        LasLines lines(files_, file, text.start, 1, text.encoding);
        if (!refusalOf(file, [&] { header = readTolerantLasHeader(lines, findings); }).empty()) return review;
        level = 1; // the data
        review = emptyReview(header);
        if (!scanLASdatavalues(lines, header, true, *review, findings, progress)) review.reset();
        if (review && review->steps() == 0) findings.say(0, "no row of data was read");
        if (review) tell(file, findings, *review);
        return review;
    });
}

bool LasFileReader::getLAScurvedata(const Path& file, LasHeader& header, LasFindings& findings,
                                    std::string& refusal) {
    return errors_.run("Logdisplay1-getLAScurvedata", false, [&](Level&) {
        refusal = refusalOf(file, [&] {
            readLasCurves(files_, file, header, findings);
            refuseWrapped(header);
        });
        return refusal.empty();
    });
}

bool LasFileReader::scanLASdatavalues(LasLines& lines, const LasHeader& header, bool tolerant,
                                      ReviewLog& review, LasFindings& findings, const Progress& progress) {
    return errors_.run("Logdisplay1-scanLASdatavalues", false, [&](Level& level) {
        loadLasData(lines, header, tolerant, review, findings, progress);
        level = 1; // the unit of the depths
        settleLasDepthUnit(header, review, findings);
        if (review.truncated) log_.red("Scan LAS data values - too many data points for array");
        return true;
    });
}

void LasFileReader::tell(const Path& file, const LasFindings& findings, ReviewLog& review) {
    review.las->findings = findings.texts(file.filename().string());
    for (const std::string& finding : review.las->findings) log_.red(finding);
}

bool isLasFile(const Files& files, const Path& file) {
    const std::string ending = upperCase(file.extension().string());
    if (ending == ".KVX") return false;
    try {
        return asText(files.readPart(file, 0, run_file::tagText.size())) != run_file::tagText;
    } catch (const Failure&) {
        return ending == ".LAS";
    }
}

} // namespace tarvik
