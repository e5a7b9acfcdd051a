// Paper is measured: the lines of depth in the files themselves, against the scale.
#include "cli/verb.h"
#include "display/bullseye.h"
#include "display/gauges.h"
#include "drawing/bullseye_painter.h"
#include "drawing/gauge_painter.h"
#include "drawing/plot_file.h"
#include "drawing/print_sheet.h"
#include "drawing/verb_plot.h"
#include "easel.h"
#include "files/run_file_writer.h"
#include "files/scan_record.h"
#include "platform/disk_files.h"
#include "platform/temporary_folder.h"

#include <QBuffer>
#include <QSvgGenerator>

#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>

#include <sys/resource.h>

namespace tarvik {
namespace {

using ::testing::HasSubstr;

std::string contentOf(const Path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream all;
    all << in.rdbuf();
    return all.str();
}

/// The page descriptions of a PDF, unpacked.
std::vector<std::string> pagesOf(const std::string& pdf) {
    std::vector<std::string> pages;
    for (std::size_t at = pdf.find("stream\n"); at != std::string::npos;
         at = pdf.find("\nstream\n", at + 1)) {
        const std::size_t start = pdf.find('\n', at + 1) == at + 7 ? at + 8 : at + 7;
        const std::size_t end = pdf.find("endstream", start);
        if (end == std::string::npos) break;
        if (pdf[start] != 'x') continue; // not packed
        QByteArray packed("\0\0\x10\0", 4);
        packed.append(pdf.data() + start, static_cast<qsizetype>(end - start));
        const QByteArray page = qUncompress(packed);
        if (page.contains(" l\n")) pages.push_back(page.toStdString());
    }
    return pages;
}

/// Heights of the horizontal lines across the first track, in units of the drawing.
std::set<double> trackLines(const std::string& text, const std::regex& pattern, double width) {
    std::set<double> heights;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), none; match != none; ++match) {
        const double x1 = std::stod((*match)[1]);
        const double y1 = std::stod((*match)[2]);
        const double x2 = std::stod((*match)[3]);
        const double y2 = std::stod((*match)[4]);
        if (y1 == y2 && std::abs(x1) < 1e-6 && std::abs(x2 - width) < 0.01) heights.insert(y1);
    }
    return heights;
}

/// Every line stands a whole number of metres (5 mm at 1:200) from the first, and none is missing.
void expectOneEveryFiveMillimetres(const std::set<double>& lines, double unitsPerMillimetre) {
    ASSERT_GT(lines.size(), 20U);
    double metre = 0;
    for (const double y : lines) {
        EXPECT_NEAR((y - *lines.begin()) / unitsPerMillimetre, 5 * metre, 0.01);
        metre += 1;
    }
}

LogSheet sheetOf(const ReviewLog& log) {
    samples::needToolkit();
    LogSheet sheet;
    sheet.display =
        samples::displayOf({{samples::curveOf("Gamma", 0, 100)}, {samples::curveOf("Gamma", 0, 100)}});
    sheet.data = logDataOf(log);
    sheet.heading.hole = std::string(300, 'H');
    sheet.heading.scale = "1:200";
    sheet.view = viewAtScale(200, 25.4);
    sheet.from = 0.3;
    sheet.to = 60;
    return sheet;
}

TEST(Paper, DepthLinesAreToScaleOnEveryPaperInPdfAndSvg) {
    const ReviewLog log = samples::logOf(700, 0.1, {"Gamma"});
    const LogSheet sheet = sheetOf(log);
    const TemporaryFolder folder;
    for (const char* name : {"A4", "Letter", "Continuous"}) {
        const Paper paper = *paperNamed(name);
        const auto firstTrack = [&](double unitsPerMillimetre) {
            DisplayView view = sheet.view;
            view.unitsPerMillimetre = unitsPerMillimetre;
            view.width = (paper.width - 2 * paper.margin) * unitsPerMillimetre;
            return columnsOf(sheet.display, view).tracks[0].width;
        };
        const PlotTarget pdf{folder / (std::string(name) + ".pdf"), paper, 0};
        writePlot(sheet, pdf);
        const auto pages = pagesOf(contentOf(pdf.file));
        EXPECT_EQ(pages.size(), planOf(sheet, paper).pages.size());
        const std::regex line(R"(([-0-9.]+) ([-0-9.]+) m\n([-0-9.]+) ([-0-9.]+) l\n)");
        ASSERT_FALSE(pages.empty());
        // The drawing's units: 1200 to the inch, which the first matrix of a page makes points of.
        EXPECT_THAT(pages[0], HasSubstr("0.060000000 0 0 -0.060000000 0"));
        expectOneEveryFiveMillimetres(trackLines(pages[0], line, firstTrack(1200 / 25.4)), 1200 / 25.4);

        const PlotTarget svg{folder / (std::string(name) + ".svg"), paper, 0};
        writePlot(sheet, svg);
        const std::string text = contentOf(svg.file);
        std::smatch size;
        ASSERT_TRUE(std::regex_search(
            text, size, std::regex(R"(<svg width="([0-9.]+)mm"[\s\S]*?viewBox="0 0 ([0-9.]+))")));
        const double units = std::stod(size[2]) / std::stod(size[1]);
        EXPECT_NEAR(units, 10, 0.001);
        const std::regex polyline(R"re(points="([-0-9.]+),([-0-9.]+) ([-0-9.]+),([-0-9.]+) ")re");
        expectOneEveryFiveMillimetres(trackLines(text, polyline, firstTrack(10)), units);
    }
}

TEST(Paper, ADrawingKeepsCurvesWithinTheirTracksWithoutAClip) {
    ReviewLog log = samples::logOf(700, 0.1, {"Gamma"});
    for (std::size_t i = 0; i < log.steps(); ++i) log.channels[0].values[i] = i % 9 == 0 ? 5000 : 50;
    LogSheet sheet = sheetOf(log);
    sheet.from = 10;
    sheet.to = 20;
    sheet.withHeading = false;
    for (Track& track : sheet.display.tracks) track.curves[0].style.ownColour = samples::loud;
    const TemporaryFolder folder;
    const PlotTarget target{folder / "a.svg", {100, 0, 5}, 0};
    writePlot(sheet, target);
    const std::string text = contentOf(target.file);
    const std::regex curve(R"re(stroke="#ff00ff"[\s\S]*?</g>)re");
    const std::regex point(R"(([-0-9.]+),([-0-9.]+) )");
    std::size_t points = 0;
    for (std::sregex_iterator group(text.begin(), text.end(), curve), none; group != none; ++group) {
        const std::string part = group->str();
        const std::regex lines(R"re(points="([^"]*)")re");
        for (std::sregex_iterator each(part.begin(), part.end(), lines); each != none; ++each) {
            const std::string list = (*each)[1];
            for (std::sregex_iterator at(list.begin(), list.end(), point); at != none; ++at) {
                ++points;
                EXPECT_GE(std::stod((*at)[2]), -1e-6);
                EXPECT_LE(std::stod((*at)[2]), 500 + 1e-6);
                EXPECT_LE(std::stod((*at)[1]), 900 + 1e-6);
            }
        }
    }
    EXPECT_GT(points, 100U);
}

TEST(Paper, AllPagesNumberTheSameDepths) {
    const ReviewLog log = samples::logOf(700, 0.1, {"Gamma"});
    LogSheet sheet = sheetOf(log);
    sheet.from = 10.2;
    sheet.to = 64;
    const PagePlan plan = planOf(sheet, *paperNamed("A4"));
    ASSERT_EQ(plan.pages.size(), 2U);
    for (std::size_t page = 0; page < 2; ++page) {
        QByteArray drawing;
        QBuffer device(&drawing);
        QSvgGenerator svg;
        svg.setOutputDevice(&device);
        QPainter painter(&svg);
        PagePainter().paint(painter, sheet, plan, page, 10, true);
        painter.end();
        EXPECT_EQ(drawing.contains(">15<"), page == 0);
        EXPECT_EQ(drawing.contains(">60<"), page == 1);
        EXPECT_FALSE(drawing.contains(">14<") || drawing.contains(">61<")) << page;
    }
}

/// A spike of the first run at 5 m, one of the second at 15 m: each stands at its depth in its own place.
TEST(Paper, TwoRunsArePrintedToOneScale) {
    const auto spikeAt = [](std::size_t metre) {
        ReviewLog log = samples::logOf(200, 0.1, {"Gamma"});
        log.channels[0].values.assign(log.steps(), 10);
        log.channels[0].values[metre * 10] = 90;
        return log;
    };
    const ReviewLog log = spikeAt(5);
    ReviewLog other = spikeAt(15);
    other.header.hole.holeId = "H-2";
    LogSheet sheet = sheetOf(log);
    sheet.display = samples::displayOf({{samples::loudCurve("Gamma", 0, 100)}});
    sheet.withHeading = false;
    sheet.from = 0;
    sheet.to = 20;
    const Paper paper = *paperNamed("Continuous");
    const PagePlan plan = planOf(sheet, paper);
    constexpr double units = 4;
    DisplayView view = sheet.view;
    view.unitsPerMillimetre = units;
    view.width = plan.contentWidth() * units;
    const auto spikeRow = [&](double metre) {
        return static_cast<int>((plan.pages[0].bodyTop + metre * 5) * units);
    };
    for (const Comparison how : {Comparison::over, Comparison::beside}) {
        compareOnSheet(sheet, log, other, how);
        EXPECT_THAT(sheet.legend, HasSubstr("H-2"));
        QImage image(static_cast<int>(plan.width * units), static_cast<int>(plan.height * units),
                     QImage::Format_RGB32);
        QPainter painter(&image);
        PagePainter().paint(painter, sheet, plan, 0, units, false);
        painter.end();
        image = image.copy(0, 0, image.width(), spikeRow(20)); // the heads below the log are loud too
        const DisplayView pane = paneOf(view, how);
        const Column track = columnsOf(sheet.display, pane).tracks[0];
        const auto spikes = [&](double start) { // rows whose value is between 70 and 85
            const int left = static_cast<int>(plan.margin * units + start + track.left + track.width * 0.7);
            return samples::loudRows(image, spikeRow(0), left, left + static_cast<int>(track.width * 0.15));
        };
        const auto near = [&](double metre) {
            return testing::AllOf(testing::Ge(spikeRow(metre) - 3), testing::Le(spikeRow(metre) + 3));
        };
        if (how == Comparison::over) {
            EXPECT_THAT(spikes(0), testing::Contains(near(5)));
            EXPECT_THAT(spikes(0), testing::Contains(near(15)));
            continue;
        }
        EXPECT_LT(2 * pane.width, view.width);
        EXPECT_THAT(spikes(0), testing::AllOf(testing::SizeIs(testing::Gt(0U)), testing::Each(near(5))));
        EXPECT_THAT(spikes(pane.width + paneGap(view)),
                    testing::AllOf(testing::SizeIs(testing::Gt(0U)), testing::Each(near(15))));
    }
}

TEST(Bullseye, IsToTrueScaleInAnyBox) {
    samples::needToolkit();
    Bullseye plan;
    plan.ringStep = 2;
    plan.rings = 5;
    plan.way = {{0, 0}, {6, -4}};
    plan.current = plan.way.back();
    Scheme scheme = paperScheme();
    scheme.inks[static_cast<std::size_t>(Ink::vermilion)] = samples::loud;
    for (const QSize size : {QSize(500, 500), QSize(900, 400), QSize(300, 700)}) {
        QImage image(size, QImage::Format_RGB32);
        QPainter painter(&image);
        paintBullseye(painter, plan, scheme, QRectF(QPointF(0, 0), QSizeF(size)), 4);
        painter.end();
        double x = 0;
        double y = 0;
        double count = 0;
        double left = size.width();
        double right = 0;
        for (int row = 0; row < size.height(); ++row) {
            for (int column = 0; column < size.width(); ++column) {
                const QRgb pixel = image.pixel(column, row);
                if (row == size.height() / 2 && pixel != qRgb(255, 255, 255)) {
                    left = std::min<double>(left, column);
                    right = std::max<double>(right, column);
                }
                if (!samples::isLoud(pixel)) continue;
                x += column;
                y += row;
                count += 1;
            }
        }
        ASSERT_GT(count, 0);
        // West and east letters end the middle row; the rings lie centred between them.
        const double centre = (left + right) / 2;
        const double east = x / count - centre;
        const double south = y / count - size.height() / 2.0;
        EXPECT_GT(south, 0);
        EXPECT_NEAR(east / south, 6.0 / 4.0, 0.08) << size.width();
    }
}

TEST(GaugeFaces, FillInProportion) {
    samples::needToolkit();
    Scheme scheme = paperScheme();
    scheme.inks[static_cast<std::size_t>(Ink::blue)] = samples::loud;
    const auto loudPixels = [&](double value) {
        Gauge gauge;
        gauge.name = "Chamber";
        gauge.scale = {ScaleKind::linear, 0, 100};
        gauge.value = value;
        QImage image(300, 300, QImage::Format_RGB32);
        QPainter painter(&image);
        paintGauges(painter, {&gauge, 1}, scheme, QRectF(0, 0, 300, 300), 4);
        painter.end();
        int count = 0;
        for (int y = 0; y < 300; ++y) {
            for (int x = 0; x < 300; ++x) count += samples::isLoud(image.pixel(x, y));
        }
        return count;
    };
    const int full = loudPixels(100);
    EXPECT_GT(full, 2000);
    EXPECT_NEAR(loudPixels(50), full / 2, full / 25);
    EXPECT_EQ(loudPixels(0), 0);
}

struct Done {
    int code;
    std::string out, err;
};

Done tarvik(std::vector<std::string> words) {
    samples::needToolkit();
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const std::vector<std::string_view> views(words.begin(), words.end());
    const int code = runCommandLine(views, {plotVerb()});
    std::string out = ::testing::internal::GetCapturedStdout();
    return {code, std::move(out), ::testing::internal::GetCapturedStderr()};
}

/// By time the tool hangs at 30 m.
Path runFileIn(const TemporaryFolder& folder, Sampling sampling = Sampling::depth) {
    RunHeader header;
    header.setup.sampling = sampling;
    header.hole.holeId = "H-1";
    header.channels = {speedChannel(header.setup.units), {"Gamma", "API", {0, 300}, {0, 300}, {}}};
    Bytes bytes = encodeRunHeader(header);
    std::array<std::uint8_t, run_file::scanLength(1)> record{};
    for (int i = 0; i < 200; ++i) {
        const float value[]{static_cast<float>(i)};
        encodeScan(record,
                   {.depth = sampling == Sampling::depth ? 10 + i * 0.1 : 30,
                    .scanTime = 500,
                    .speed = 6,
                    .channels = value,
                    .toolCurrent = 40},
                   header.setup.units);
        bytes.insert(bytes.end(), record.begin(), record.end());
    }
    DiskFiles().replace(folder / "H-1_K201_01.kvx", bytes);
    return folder / "H-1_K201_01.kvx";
}

TEST(PlotVerb, DrawsARunAndItsTemplateReadsBack) {
    const TemporaryFolder folder;
    const std::string run = runFileIn(folder).string();
    const std::string home = (folder / "home").string();
    const std::string picture = (folder / "a.png").string();
    const std::string saved = (folder / "a.tpr").string();
    const Done done = tarvik({"plot", run, "-o", picture, "--home", home, "--save-template", saved, "--dpi",
                              "100", "--no-heading", "--filter", "Gamma=5", "--from", "12", "--to", "22"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out, picture + "\n");
    QImage image;
    ASSERT_TRUE(image.load(QString::fromStdString(picture)));
    EXPECT_NEAR(image.width(), 210 / 25.4 * 100, 1);
    EXPECT_EQ(image.dotsPerMeterX(), 3937);
    EXPECT_THAT(contentOf(saved), HasSubstr("filter = 5"));
    const std::string again = (folder / "b.png").string();
    EXPECT_EQ(tarvik({"plot", run, "-o", again, "--home", home, "--template", saved, "--dpi", "100",
                      "--no-heading", "--from", "12", "--to", "22"})
                  .code,
              0);
    EXPECT_EQ(contentOf(again), contentOf(picture));
}

TEST(PlotVerb, DrawsALasFileAndReadsAnOddOneWhenAsked) {
    const TemporaryFolder folder;
    const std::string las = (folder / "a.las").string();
    const std::string picture = (folder / "a.svg").string();
    const std::string text =
        "~V\r\nVERS. 2.0:\r\nWRAP. NO:\r\n~W\r\nSTRT.M 10:\r\nSTOP.M 10.3:\r\n"
        "STEP.M 0.1:\r\nNULL. -999.25:\r\nWELL. Old One : WELL\r\n~C\r\nDEPT.M :\r\nGR.API :\r\n"
        "~A\r\n10 50\r\n10.1 60\r\n10.2 -999.25\r\n10.3 70\r\n";
    DiskFiles().replace(las, asBytes(text));
    std::vector<std::string> words{"plot", las, "-o", picture, "--home", (folder / "home").string()};
    const Done refused = tarvik(words);
    words.emplace_back("--tolerant");
    const Done drawn = tarvik(words);
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.err, HasSubstr("--tolerant"));
    EXPECT_EQ(drawn.code, 0) << drawn.err;
    EXPECT_THAT(contentOf(picture),
                testing::AllOf(HasSubstr("Old One"), HasSubstr(">GR<"), testing::Not(HasSubstr("by depth")),
                               testing::Not(HasSubstr("Coefficients"))));
}

TEST(PlotVerb, AnIndexInAnotherUnitIsHeadedByItsOwn) {
    const TemporaryFolder folder;
    const std::string las = (folder / "t.las").string();
    const std::string picture = (folder / "t.svg").string();
    DiskFiles().replace(
        las, asBytes(std::string_view("~V\nVERS. 2.0:\nWRAP. NO:\n~W\nSTRT.S 10:\nSTOP.S 12:\nSTEP.S 1:\n"
                                      "NULL. -999.25:\nWELL. Old One : WELL\n~C\nTIME.S :\nGR.API :\n"
                                      "~A\n10 50\n11 60\n12 70\n")));
    const Done drawn =
        tarvik({"plot", las, "-o", picture, "--tolerant", "--home", (folder / "home").string()});
    EXPECT_EQ(drawn.code, 0) << drawn.err;
    EXPECT_THAT(contentOf(picture),
                testing::AllOf(HasSubstr(">Index<"), HasSubstr(">S<"), HasSubstr("10.00 to 12.00 S"),
                               HasSubstr("counts each as a metre"), testing::Not(HasSubstr(">metres<"))));
}

TEST(PlotVerb, ComparesTwoRunsOverTheExtentOfBoth) {
    const TemporaryFolder folder;
    const std::string run = runFileIn(folder).string(); // 10 to 29.9 m
    const std::string las = (folder / "deep.las").string();
    DiskFiles().replace(
        las, asBytes(std::string_view("~V\nVERS. 2.0:\nWRAP. NO:\n~W\nSTRT.F 120:\nSTOP.F 131.25:\n"
                                      "STEP.F 3.75:\nNULL. -999.25:\nWELL. Deep One : WELL\n~C\nDEPT.F :\n"
                                      "Gamma.API :\n~A\n120 50\n123.75 60\n127.5 70\n131.25 80\n")));
    const std::string picture = (folder / "both.svg").string();
    const Done drawn = tarvik({"plot", run, "-o", picture, "--with", las, "--beside", "--tolerant", "--home",
                               (folder / "home").string()});
    EXPECT_EQ(drawn.code, 0) << drawn.err;
    EXPECT_THAT(contentOf(picture), testing::AllOf(HasSubstr("Left: H-1"), HasSubstr("Right: Deep One"),
                                                   HasSubstr(">15<"), HasSubstr(">40<")));
    EXPECT_THAT(contentOf(picture), testing::Not(HasSubstr("per 100 ft")));
    const std::string feet = (folder / "feet.svg").string();
    tarvik({"plot", las, "-o", feet, "--tolerant", "--scale", "1:240", "--home", (folder / "home").string()});
    EXPECT_THAT(contentOf(feet), testing::AllOf(HasSubstr(">1:240<"), HasSubstr(">5 in per 100 ft<")));
    EXPECT_EQ(tarvik({"plot", run, "-o", picture, "--beside"}).code, 2);
    EXPECT_EQ(tarvik({"plot", run, "-o", picture, "--with", (folder / "none.las").string(), "--home",
                      (folder / "home").string()})
                  .code,
              1);
}

TEST(PlotVerb, ARunOfAToolThatHangsStillIsDrawnByTime) {
    const TemporaryFolder folder;
    const std::string run = runFileIn(folder, Sampling::time).string();
    const std::string home = (folder / "home").string();
    const std::string picture = (folder / "t.svg").string();
    EXPECT_EQ(tarvik({"plot", run, "-o", picture, "--home", home, "--from", "2"}).code, 0);
    EXPECT_THAT(contentOf(picture),
                testing::AllOf(HasSubstr(">Time<"), HasSubstr(">Time scale<"), HasSubstr(">1 s/mm<"),
                               testing::Not(HasSubstr(">Depth<"))));
    const Done byDepth = tarvik({"plot", run, "-o", picture, "--home", home, "--by", "depth"});
    EXPECT_EQ(byDepth.code, 1);
    EXPECT_THAT(byDepth.err, HasSubstr("one depth only, 30.00"));
}

TEST(PlotVerb, ALogOfOneDepthSaysSo) {
    const TemporaryFolder folder;
    const std::string las = (folder / "one.las").string();
    DiskFiles().replace(las,
                        asBytes(std::string_view("~V\nVERS. 2.0:\nWRAP. NO:\n~W\nSTRT.M 10:\nSTOP.M 10:\n"
                                                 "STEP.M 1:\nNULL. -999.25:\n~C\nDEPT.M :\nGR.API :\n"
                                                 "~A\n10 50\n")));
    const Done done = tarvik({"plot", las, "-o", (folder / "one.svg").string(), "--tolerant", "--home",
                              (folder / "home").string()});
    EXPECT_EQ(done.code, 1);
    EXPECT_THAT(done.err, HasSubstr("the log has one depth only, 10.00"));
    EXPECT_EQ(tarvik({"plot", las, "-o", "x.svg", "--tolerant", "--by", "time", "--home",
                      (folder / "home").string()})
                  .code,
              2);
}

TEST(PlotVerb, SaysWhatIsWrong) {
    const TemporaryFolder folder;
    const std::string run = runFileIn(folder).string();
    struct Case {
        std::vector<std::string> words;
        int code;
        std::string said;
    };
    const std::string out = (folder / "a.png").string();
    const std::vector<Case> cases{
        {{}, 2, "-o OUT.png, OUT.pdf or OUT.svg is missing"},
        {{"-o", "a.jpg"}, 1, "a plot is a .png, a .pdf or an .svg file"},
        {{"-o", (folder / "no/a.png").string()}, 1, "is there such a folder"},
        {{"-o", (folder / "no/a.pdf").string()}, 1, "is there such a folder"},
        {{"-o", out, "--scale", "1:none"}, 2, "--scale expects 1:N"},
        {{"-o", out, "--from", "50", "--to", "20"}, 2, "there is no log between"},
        {{"-o", out, "--from", "5000", "--to", "5020"}, 2, "it runs from"},
        {{"-o", out, "--deviation", "Magnetics"}, 2, "none of its curves"},
        {{"-o", out, "--deviation", "Bullseye"}, 2, "no East and North"},
        {{"-o", out, "--filter", "Salt=3"}, 2, "no curve \"Salt\""},
        {{"-o", out, "--scale", "1:1", "--dpi", "300"}, 1, "too long for one picture"},
        {{"-o", out, "--template", run}, 1, "line 1"},
        {{"-o", out, "--paper", "A9"}, 2, "--paper expects"},
    };
    for (const Case& each : cases) {
        std::vector<std::string> words{"plot", run, "--home", (folder / "home").string()};
        words.insert(words.end(), each.words.begin(), each.words.end());
        const Done done = tarvik(words);
        EXPECT_EQ(done.code, each.code) << each.said;
        EXPECT_THAT(done.err, HasSubstr(each.said));
        EXPECT_EQ(done.out, "");
    }
}

/// No file may grow longer while this lives, as on a full disk.
class FullDisk {
  public:
    FullDisk() {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{2000, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
};

TEST(PlotVerb, OnAFullDiskThePlotBeforeStaysAsItWas) {
    const TemporaryFolder folder;
    const std::string run = runFileIn(folder).string();
    const std::string home = (folder / "home").string();
    ASSERT_EQ(tarvik({"plot", run, "-o", (folder / "first.svg").string(), "--home", home}).code, 0)
        << "what a first start writes is there then";
    for (const char* name : {"a.png", "a.pdf", "a.svg"}) {
        const std::string file = (folder / name).string();
        DiskFiles().replace(file, asBytes(std::string_view("before")));
        const FullDisk full;
        const Done done = tarvik({"plot", run, "-o", file, "--home", home});
        EXPECT_EQ(done.code, 1) << name;
        EXPECT_THAT(done.err, HasSubstr("is the disk full?"));
        EXPECT_EQ(contentOf(file), "before");
    }
}

} // namespace
} // namespace tarvik
