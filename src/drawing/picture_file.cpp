#include "drawing/picture_file.h"

#include "base/failure.h"
#include "base/text.h"
#include "display/display_view.h"
#include "drawing/canvas.h"

#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>

#include <cmath>

namespace tarvik {

namespace {

constexpr int pdfDotsPerInch = 1200;
constexpr int svgDotsPerInch = 254;  // ten units to the millimetre
constexpr int longestImage = 32'000; // rows; the toolkit's painters go no further

[[noreturn]] void fail(const Path& file, const std::string& why) {
    throw Failure(ErrorNumber::badFile, file.string() + ": " + why);
}
[[noreturn]] void failToOpen(const Path& file) {
    fail(file, "cannot be written; is there such a folder, and may you write in it?");
}

QString nameOf(const Path& file) {
    return QString::fromStdString(file.string());
}

void needOnePage(const Path& file, bool fits) {
    if (!fits) fail(file, "the log is too long for one picture; take a PDF, a smaller scale or a part of it");
}

/// What is written takes the name only when it is whole: a plot broken off leaves the one before it as it
/// was.
class WholeFile : public QSaveFile {
  public:
    explicit WholeFile(const Path& file) : QSaveFile(nameOf(file)), file_(file) {
        if (!open(QIODevice::WriteOnly)) failToOpen(file);
    }

    /// The painters do not tell of a full disk, the file does.
    void finish(bool painted) {
        if (painted && whole_ && flush() && error() == QFileDevice::NoError && commit()) return;
        fail(file_, "was not written whole; is the disk full?");
    }

  protected:
    /// The last write that a disk takes may be a part of what it was given, and that is no error yet.
    qint64 writeData(const char* data, qint64 length) override {
        const qint64 written = QSaveFile::writeData(data, length);
        whole_ = whole_ && written == length;
        return written;
    }

  private:
    const Path& file_;
    bool whole_ = true;
};

void writePng(const Path& file, const PictureSize& size, const PaintPage& paint) {
    const double perMillimetre = size.dotsPerInch / millimetresPerInch;
    const double height = std::ceil(size.height * perMillimetre);
    needOnePage(file, size.pages == 1 && height <= longestImage);
    QImage image(static_cast<int>(std::ceil(size.width * perMillimetre)), static_cast<int>(height),
                 QImage::Format_RGB32);
    if (image.isNull()) fail(file, "there is not the memory for it; take fewer dots to the inch");
    image.setDotsPerMeterX(static_cast<int>(std::lround(perMillimetre * 1000)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    image.fill(Qt::white);
    QPainter painter(&image);
    paint(painter, 0, perMillimetre, false);
    painter.end();
    WholeFile out(file);
    out.finish(image.save(&out, "PNG"));
}

void writePdf(const Path& file, const PictureSize& size, const std::string& title, const PaintPage& paint) {
    WholeFile out(file);
    QPdfWriter writer(&out);
    writer.setCreator(QStringLiteral("Tarvik"));
    writer.setTitle(qText(title));
    writer.setResolution(pdfDotsPerInch);
    writer.setPageSize(
        QPageSize(QSizeF(size.width, size.height), QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&writer)) failToOpen(file);
    for (std::size_t page = 0; page < size.pages; ++page) {
        if (page > 0) writer.newPage();
        paint(painter, page, pdfDotsPerInch / millimetresPerInch, true);
    }
    out.finish(painter.end());
}

void writeSvg(const Path& file, const PictureSize& size, const std::string& title, const PaintPage& paint) {
    needOnePage(file, size.pages == 1);
    const double perMillimetre = svgDotsPerInch / millimetresPerInch;
    const QSize units(static_cast<int>(std::ceil(size.width * perMillimetre)),
                      static_cast<int>(std::ceil(size.height * perMillimetre)));
    WholeFile out(file);
    QSvgGenerator generator;
    generator.setOutputDevice(&out);
    generator.setResolution(svgDotsPerInch);
    generator.setSize(units);
    generator.setViewBox(QRect(QPoint(0, 0), units));
    generator.setTitle(qText(title));
    QPainter painter;
    if (!painter.begin(&generator)) failToOpen(file);
    paint(painter, 0, perMillimetre, true);
    out.finish(painter.end());
}

std::string ending(const Path& file) {
    return upperCase(file.extension().string());
}

} // namespace

bool hasPages(const Path& file) {
    return ending(file) == ".PDF";
}

void writePicture(const Path& file, const PictureSize& size, const std::string& title,
                  const PaintPage& paint) {
    if (ending(file) == ".PNG") return writePng(file, size, paint);
    if (ending(file) == ".PDF") return writePdf(file, size, title, paint);
    if (ending(file) == ".SVG") return writeSvg(file, size, title, paint);
    fail(file, "a plot is a .png, a .pdf or an .svg file");
}

} // namespace tarvik
