#include "drawing/plot_file.h"

#include "base/failure.h"
#include "base/text.h"

#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <cmath>

namespace tarvik {

namespace {

constexpr double pdfDotsPerInch = 1200;
constexpr double svgDotsPerInch = 254; // ten units to the millimetre
constexpr int longestImage = 32'000;   // rows; the toolkit's painters go no further

[[noreturn]] void fail(const Path& file, const std::string& why) {
    throw Failure(ErrorNumber::badFile, file.string() + ": " + why);
}

QString name(const Path& file) {
    return QString::fromStdString(file.string());
}

void writePicture(const LogSheet& sheet, const PlotTarget& target) {
    const PagePlan plan = planOf(sheet, {target.paper.width, 0, target.paper.margin});
    const double perMillimetre = target.dotsPerInch / millimetresPerInch;
    const double height = std::ceil(plan.height * perMillimetre);
    if (plan.pages.size() > 1 || height > longestImage) {
        fail(target.file, "the picture would be too long; take a PDF, a smaller scale or a part of the log");
    }
    QImage image(static_cast<int>(std::ceil(plan.width * perMillimetre)), static_cast<int>(height),
                 QImage::Format_RGB32);
    if (image.isNull()) fail(target.file, "not enough memory for the picture; take fewer dots to the inch");
    image.setDotsPerMeterX(static_cast<int>(std::lround(perMillimetre * 1000)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    image.fill(qColour(sheet.display.scheme.surface));
    QPainter painter(&image);
    PagePainter().paint(painter, sheet, plan, 0, perMillimetre, false);
    painter.end();
    if (!image.save(name(target.file), "PNG"))
        fail(target.file, "cannot be written; is there such a folder?");
}

void writePages(const LogSheet& sheet, const PlotTarget& target) {
    const PagePlan plan = planOf(sheet, target.paper);
    QPdfWriter writer(name(target.file));
    writer.setCreator(QStringLiteral("Tarvik"));
    writer.setTitle(qText(sheet.heading.hole + " " + sheet.heading.title));
    writer.setResolution(static_cast<int>(pdfDotsPerInch));
    writer.setPageSize(
        QPageSize(QSizeF(plan.width, plan.height), QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&writer)) fail(target.file, "cannot be written; is there such a folder?");
    PagePainter pages;
    for (std::size_t i = 0; i < plan.pages.size(); ++i) {
        if (i > 0) writer.newPage();
        pages.paint(painter, sheet, plan, i, pdfDotsPerInch / millimetresPerInch, true);
    }
    if (!painter.end()) fail(target.file, "was not written whole; is the disk full?");
}

void writeDrawing(const LogSheet& sheet, const PlotTarget& target) {
    const PagePlan plan = planOf(sheet, {target.paper.width, 0, target.paper.margin});
    if (plan.pages.size() > 1) {
        fail(target.file, "the drawing would be too long; take a PDF, a smaller scale or a part of the log");
    }
    const double perMillimetre = svgDotsPerInch / millimetresPerInch;
    const QSize size(static_cast<int>(std::ceil(plan.width * perMillimetre)),
                     static_cast<int>(std::ceil(plan.height * perMillimetre)));
    QSvgGenerator generator;
    generator.setFileName(name(target.file));
    generator.setResolution(static_cast<int>(svgDotsPerInch));
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    generator.setTitle(qText(sheet.heading.hole + " " + sheet.heading.title));
    QPainter painter;
    if (!painter.begin(&generator)) fail(target.file, "cannot be written; is there such a folder?");
    PagePainter().paint(painter, sheet, plan, 0, perMillimetre, true);
    if (!painter.end()) fail(target.file, "was not written whole; is the disk full?");
}

} // namespace

void writePlot(const LogSheet& sheet, const PlotTarget& target) {
    const std::string ending = upperCase(target.file.extension().string());
    if (ending == ".PNG") return writePicture(sheet, target);
    if (ending == ".PDF") return writePages(sheet, target);
    if (ending == ".SVG") return writeDrawing(sheet, target);
    fail(target.file, "a plot is a .png, a .pdf or an .svg file");
}

} // namespace tarvik
