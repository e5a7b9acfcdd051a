// A file that is painted on: a picture (PNG), pages (PDF) or a drawing (SVG).
#pragma once

#include "platform/files.h"

#include <QPainter>

#include <functional>
#include <string>

namespace tarvik {

struct PictureSize {
    double width = 0;  ///< mm
    double height = 0; ///< mm
    std::size_t pages = 1;
    double dotsPerInch = 150; ///< of a PNG
};

/// Paints one page; lines stay lines in `vectors`.
using PaintPage =
    std::function<void(QPainter& painter, std::size_t page, double unitsPerMillimetre, bool vectors)>;

/// By the ending of the file's name: .png, .pdf or .svg. Throws a Failure that names the file and the remedy,
/// also when a PNG or an SVG would need more than one page.
void writePicture(const Path& file, const PictureSize& size, const std::string& title,
                  const PaintPage& paint);

/// Whether the file's name asks for pages.
[[nodiscard]] bool hasPages(const Path& file);

} // namespace tarvik
