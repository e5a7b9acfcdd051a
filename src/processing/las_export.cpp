#include "processing/las_export.h"

#include "base/failure.h"
#include "files/run_file_layout.h"
#include "processing/las_data.h"

namespace tarvik {

namespace {

/// A run is never written over by its own export.
void refuseRunFile(const Files& files, const Path& file) {
    if (!files.exists(file)) return;
    if (asText(files.readPart(file, 0, run_file::tagText.size())) != run_file::tagText) return;
    throw Failure(ErrorNumber::pathFileAccess, file.string() + ": This is a run file. Choose another name.");
}

/// Collects lines and writes them in large pieces; the first one begins the file anew.
class LasFile {
  public:
    LasFile(Files& files, const Path& file) : files_(files), file_(file) { text_.reserve(pieceBytes + 4096); }

    [[nodiscard]] std::string& text() { return text_; }
    /// True when a piece was written.
    bool writeFullPiece() {
        if (text_.size() < pieceBytes) return false;
        write();
        return true;
    }
    void write() {
        if (begun_) {
            files_.append(file_, asBytes(text_));
        } else {
            files_.replace(file_, asBytes(text_));
        }
        begun_ = true;
        text_.clear();
    }

  private:
    static constexpr std::size_t pieceBytes = std::size_t{1} << 20;

    Files& files_;
    const Path& file_;
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
        refuseRunFile(files_, file);
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
        for (std::size_t row = 0; row < data.depth.size(); ++row) {
            appendLasRow(las.text(), data.depth[row], data.columns, row, options.decimals, options.nullText);
            const int percent = static_cast<int>((row + 1) * 100 / data.depth.size());
            if (las.writeFullPiece() && watch && !watch(percent)) {
                files_.remove(file);
                return false;
            }
        }
        las.write();
        return true;
    });
}

} // namespace tarvik
