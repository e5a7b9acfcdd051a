#include "drawing/log_painter.h"
#include "easel.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QRegularExpression>
#include <QSvgGenerator>

#include <gtest/gtest.h>

namespace tarvik {
namespace {

/// The texts of a drawing with the boxes that they take.
std::vector<std::pair<QString, QRectF>> textsOf(const QByteArray& svg) {
    std::vector<std::pair<QString, QRectF>> texts;
    static const QRegularExpression pattern(
        "<text[^>]*?x=\"([^\"]+)\" y=\"([^\"]+)\"[^>]*?font-size=\"([^\"]+)\" "
        "font-weight=\"([^\"]+)\"[^>]*>([^<]*)");
    auto matches = pattern.globalMatch(QString::fromUtf8(svg));
    while (matches.hasNext()) {
        const auto match = matches.next();
        QFont font("DejaVu Sans");
        font.setPixelSize(match.captured(3).toInt());
        font.setBold(match.captured(4).toInt() >= 700);
        const QFontMetricsF metrics(font);
        const QString text = match.captured(5).trimmed();
        texts.emplace_back(text, QRectF(match.captured(1).toDouble(),
                                        match.captured(2).toDouble() - metrics.capHeight(),
                                        metrics.horizontalAdvance(text), metrics.capHeight()));
    }
    return texts;
}

TEST(TrackHeads, KeepEveryTextWholeAndApartInAnyWidth) {
    samples::needToolkit();
    ReviewLog log = samples::logOf(10, 1, {"Res 16 inch", "Far time 2"});
    for (ReviewChannel& channel : log.channels) channel.unit = "OHM-M";
    constexpr double perMillimetre = 40;
    for (const double width : {9.0, 11.0, 14.0, 18.0, 25.0, 40.0, 60.0}) {
        LogDisplay display = samples::displayOf({{samples::curveOf("Res 16 inch", -20000, 100000)},
                                                 {samples::curveOf("Far time 2", 0.0001, 0.0002)}});
        for (Track& track : display.tracks) track.curves[0].unit = "OHM-M";
        DisplayView view = viewAtScale(200, perMillimetre * 25.4);
        view.vectors = view.paper = true;
        view.width = (2 * width + display.depthTrack.width) * perMillimetre;
        QBuffer svg;
        QSvgGenerator generator;
        generator.setOutputDevice(&svg);
        generator.setResolution(static_cast<int>(perMillimetre * 25.4));
        QPainter painter(&generator);
        LogPainter().paintHead(painter, display, logDataOf(log), view);
        painter.end();
        const auto texts = textsOf(svg.data());
        QStringList words;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            words += texts[i].first;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(texts[i].second.intersects(texts[j].second))
                    << width << ": " << texts[i].first.toStdString() << ", " << texts[j].first.toStdString();
        }
        EXPECT_EQ(words.count("OHM-M"), 2) << width;
        for (const char* whole : {"-20000", "100000", "0.0001", "0.0002"})
            EXPECT_TRUE(words.contains(whole)) << width << " " << words.join("|").toStdString();
        EXPECT_TRUE(words.join(" ").contains("Res 16 inch")) << width;
        const auto unit = std::ranges::find(texts, QString("OHM-M"), &std::pair<QString, QRectF>::first);
        const auto end = std::ranges::find(texts, QString("100000"), &std::pair<QString, QRectF>::first);
        EXPECT_EQ(std::abs(unit->second.bottom() - end->second.bottom()) < 1, width >= 40)
            << "side by side where there is room, " << width;
    }
}

} // namespace
} // namespace tarvik
