#include "processing/las_export.h"

#include "base/failure.h"
#include "files/run_file_layout.h"
#include "processing/las_data.h"

namespace tarvik {

namespace {

/// A run is never written over, nor the file that the log came from.
void refuseSource(const Files& files, const Path& file, const Path& source) {
    if (!files.exists(file)) return;
    if (files.same(file, source))
        throw Failure(ErrorNumber::pathFileAccess,
                      file.string() + ": is the file read. Choose another name.");
    if (asText(files.readPart(file, 0, run_file::tagText.size())) != run_file::tagText) return;
    throw Failure(ErrorNumber::pathFileAccess, file.string() + ": This is a run file. Choose another name.");
}

/// Collects lines and writes them in large pieces; the first one begins the file anew. A file of that name is
/// kept aside while there is more than one piece: one piece takes its place whole or not at all.
class LasFile {
  public:
    LasFile(Files& files, const Path& file) : files_(files), file_(file) { text_.reserve(pieceBytes + 4096); }

    [[nodiscard]] std::string& text() { return text_; }
    /// True when a piece was written.
    bool writeFullPiece() {
        if (text_.size() < pieceBytes) return false;
        if (!begun_ && files_.exists(file_)) {
            aside_ = file_.string() + ".before";
            files_.copy(file_, aside_);
        }
        write();
        return true;
    }
    void finish() {
        write();
        if (!aside_.empty()) files_.remove(aside_);
    }
    /// As if nothing had been written.
    void takeBack() {
        if (aside_.empty()) return files_.remove(file_);
        files_.copy(aside_, file_);
        files_.remove(aside_);
    }
    /// Said with an error: where that is which the file held before.
    [[nodiscard]] std::string whatWasBefore() const {
        return aside_.empty() ? std::string() : "; the file as it was before is " + aside_.string();
    }

  private:
    void write() {
        if (begun_) {
            files_.append(file_, asBytes(text_));
        } else {
            files_.replace(file_, asBytes(text_));
        }
        begun_ = true;
        text_.clear();
    }

    static constexpr std::size_t pieceBytes = std::size_t{1} << 20;

    Files& files_;
    const Path& file_;
    Path aside_;
    std::string text_;
    bool begun_ = false;
};

} // namespace

bool LasExport::Logprintexport_exportLASfile(const ReviewLog& log, const Path& file,
                                             const LasExportOptions& options, const ExportList& list,
                                             const ExportWatch& watch) {
    return errors_.run("Logprintexport_exportLASfile", false, [&](Level& level) {
        const LasData data = prepareLasData(log, options, list);
        level = 1; // the header
        refuseSource(files_, file, options.source);
        LasFile las(files_, file);
        las.text() += lasVersionSection();
        las.text() += lasWellSection(data.well, log.header.hole, log.header.runDate);
        las.text() += lasCurveSection(data.well.unit, data.curves);
        las.text() += lasFilterNote(data.curves);
        las.text() += lasParameterSection(options.holeAzimuth, options.holeInclination);
        las.text() += lasColumnLine(data.curves);
        level = 2; // the data
        for (const std::string_view line : {"Write", "data to file"}) {
            if (list) list(line);
        }
        try {
            for (std::size_t row = 0; row < data.depth.size(); ++row) {
                appendLasRow(las.text(), data.depth[row], data.columns, row, options.decimals,
                             options.nullText);
                const int percent = static_cast<int>((row + 1) * 100 / data.depth.size());
                if (las.writeFullPiece() && watch && !watch(percent)) {
                    las.takeBack();
                    return false;
                }
            }
            las.finish();
        } catch (const Failure& failure) {
            throw Failure(failure.number(), failure.what() + las.whatWasBefore());
        }
        return true;
    });
}

} // namespace tarvik
