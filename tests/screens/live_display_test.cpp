// The live display on a ring of its own, in a window that nobody sees.
#include "screens/live_display.h"

#include "display/columns.h"
#include "screens/desk.h"
#include "screens/theme.h"

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

namespace tarvik::test {

namespace {

RunHeader headerOf(Sampling sampling, Direction direction = Direction::down) {
    RunHeader header;
    header.tool.code = "K215";
    header.setup.sampling = sampling;
    header.setup.direction = direction;
    header.setup.interval = sampling == Sampling::depth ? 5 : 0.5F;
    header.channels = {{"Speed", "M/min", {}, {}, {}}, {"Gamma", "API", {}, {0, 100}, {}}};
    header.channels[1].calibration.state = "Calibrated";
    header.channels[1].calibration.order = 1;
    return header;
}

struct Watched {
    explicit Watched(const RunHeader& header) {
        applyTheme(*qApp, Theme::light); // whatever a test before has left
        display.resize(1000, 700);
        display.QWidget::show();
        display.begin(header);
    }
    /// Scans every 5 cm down to a depth, of one value.
    void log(double to, float value) {
        while (point.depth < static_cast<float>(to)) {
            point.depth += 0.05F;
            point.seconds += 0.5;
            point.values[1] = value;
            ring.add(point);
        }
        display.follow(ring);
    }
    [[nodiscard]] const LiveView& view() { return display.plot().liveView(); }
    /// Is the curve at that value of its scale, 0 to 100, at that depth? Three pixels either way.
    [[nodiscard]] bool inkAt(double depth, double value) {
        QCoreApplication::processEvents();
        const QImage image = display.plot().grab().toImage();
        const LogDisplay& shown = display.plot().curves().shown();
        const Column track = columnsOf(shown, view().view()).tracks[0];
        const int head = display.plot().height() - static_cast<int>(view().bodyHeight());
        const int x = static_cast<int>(track.left + track.width * value / 100);
        const int y = head + static_cast<int>(view().view().yOf(depth));
        for (int dx = -3; dx <= 3; ++dx) {
            // Grid and ground are grey, however the curve falls between two pixels.
            if (image.pixelColor(x + dx, y).hsvSaturation() > 60) return true;
        }
        return false;
    }

    LiveDisplay display;
    AcquisitionRing ring;
    AcquisitionPoint point{.depth = 10, .seconds = 0, .values = {}};
};

} // namespace

TEST(LiveDisplayTest, RowsOfTheRunStandAtTheirDepthsWhileThePlotFollows) {
    Watched run(headerOf(Sampling::depth));
    run.log(14, 25);
    run.log(18, 75);
    for (const auto& [depth, value, there] : {std::tuple(12.0, 25, true),
                                              {12.0, 75, false},
                                              {16.0, 75, true},
                                              {16.0, 25, false},
                                              {19.0, 75, false}}) {
        EXPECT_EQ(run.inkAt(depth, value), there) << depth << " m, " << value;
    }
    for (double depth = 18.3; depth < 90; depth += 0.3) run.log(depth, 40); // scrolled many times
    EXPECT_TRUE(run.view().following());
    EXPECT_TRUE(run.inkAt(85, 40));
    EXPECT_TRUE(run.inkAt(89, 40));
    EXPECT_FALSE(run.inkAt(89, 75));
    EXPECT_EQ(control<QLabel>(run.display, "lbvalue1").text(), "40.000");
}

TEST(LiveDisplayTest, TheOperatorLooksBackAndReturnsToTheTool) {
    Watched run(headerOf(Sampling::depth));
    run.log(14, 25);
    run.log(90, 60);
    LivePlot& plot = run.display.plot();
    auto& follow = control<QToolButton>(run.display, "comlivefollow");
    EXPECT_EQ(follow.text(), "Following");
    QTest::keyClick(&plot, Qt::Key_Home);
    EXPECT_FALSE(run.view().following());
    EXPECT_EQ(follow.text(), "Follow the tool");
    EXPECT_TRUE(run.inkAt(12, 25));
    const double top = run.view().view().top;
    run.log(95, 60);
    EXPECT_EQ(run.view().view().top, top) << "new scans do not carry the picture away";
    QTest::keyClick(&plot, Qt::Key_End);
    EXPECT_TRUE(run.view().following());
    EXPECT_TRUE(run.inkAt(94, 60));
    QTest::keyClick(&plot, Qt::Key_PageUp);
    auto& bar = control<QScrollBar>(run.display, "livescroll");
    EXPECT_FALSE(run.view().following());
    bar.setValue(bar.maximum());
    EXPECT_TRUE(run.view().following());
    QTest::keyClick(&plot, Qt::Key_PageUp);
    follow.click();
    EXPECT_TRUE(run.inkAt(94, 60));
}

TEST(LiveDisplayTest, ScaleAxisAndFilterChangeThePictureAtOnce) {
    Watched run(headerOf(Sampling::depth));
    double told = 0;
    run.display.whenScaleChosen([&](double scale) { told = scale; });
    run.log(30, 50);
    auto& scales = control<QComboBox>(run.display, "cmblivescale");
    EXPECT_EQ(scales.count(), 10);
    scales.setFocus();
    QTest::keyClick(&scales, Qt::Key_Down);
    EXPECT_EQ(told, 500);
    EXPECT_NEAR(run.view().view().perMillimetre, 0.5, 1e-9);
    EXPECT_TRUE(run.inkAt(28, 50));
    click(run.display, "comlivepaint");
    EXPECT_TRUE(run.inkAt(28, 50));

    run.point.values[1] = 0;
    click(run.display, "comlivecurves");
    control<QLineEdit>(run.display, "txtliveright").setText("0");
    click(run.display, "comlivecurveapply");
    EXPECT_NE(control<QLabel>(run.display, "lblivecurve").text().indexOf("two different numbers"), -1);
    control<QLineEdit>(run.display, "txtliveright").setText("200");
    control<QComboBox>(run.display, "cmblivefilter").setCurrentIndex(2);
    click(run.display, "comlivecurveapply");
    EXPECT_TRUE(run.display.plot().curves().filtered());
    EXPECT_EQ(run.display.rescaled().size(), 1U);
    EXPECT_TRUE(run.inkAt(28, 25)) << "half as far across";
    run.log(30.5, 80);
    EXPECT_EQ(control<QLabel>(run.display, "lbvalue1").text(), "80.000") << "the digits are never smoothed";

    click(run.display, "comlivetime");
    EXPECT_EQ(run.view().view().axis, Axis::time);
    EXPECT_TRUE(run.inkAt(190, 25)) << "seconds";
}

TEST(LiveDisplayTest, GaugesStandInThePlaceOfThePlot) {
    RunHeader header = headerOf(Sampling::time);
    header.tool.code = "K307";
    Watched run(header);
    EXPECT_EQ(run.display.plot().page(), LivePage::gauges);
    EXPECT_TRUE(control<QLabel>(run.display, "lblivenote").isVisible());
    run.display.showDisplay("Logs");
    EXPECT_EQ(run.display.plot().page(), LivePage::logs);
    EXPECT_EQ(run.view().view().axis, Axis::time);
    run.log(30, 50);
    EXPECT_TRUE(run.inkAt(190, 50));
}

} // namespace tarvik::test
