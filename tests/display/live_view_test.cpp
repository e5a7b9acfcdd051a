#include "display/live_curves.h"
#include "display/live_view.h"

#include "display/bullseye.h"
#include "display/columns.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarvik {
namespace {

constexpr double body = 500;

/// 1:100 at 254 dots an inch: 100 units a metre, 5 m in the body.
LiveView viewOf(Axis axis, Direction direction, double pixelRatio = 1) {
    LiveView view;
    view.begin(axis, direction, 100, 254);
    view.setArea(800, body, pixelRatio);
    return view;
}

double toolY(const LiveView& view, double position) {
    return view.view().yOf(position);
}

TEST(LiveViews, FollowTheToolDownAndUpByWholePixels) {
    for (const double ratio : {1.0, 1.5, 2.0}) {
        for (const bool up : {false, true}) {
            LiveView view = viewOf(Axis::depth, up ? Direction::up : Direction::down, ratio);
            double top = 0;
            for (int i = 0; i <= 1000; ++i) {
                const double depth = up ? 60 - i * 0.037 : 20 + i * 0.037;
                view.toolAt(depth, up ? Extent{depth, 60} : Extent{20, depth});
                EXPECT_GE(toolY(view, depth), 0);
                EXPECT_LE(toolY(view, depth), body);
                const double moved = (view.view().top - top) * view.view().unitsPer() * ratio;
                ASSERT_TRUE(i == 0 || std::abs(moved - std::round(moved)) < 1e-6) << i;
                top = view.view().top;
            }
            EXPECT_TRUE(view.following());
        }
    }
    LiveView down = viewOf(Axis::depth, Direction::down);
    down.toolAt(20, {20, 20});
    EXPECT_LT(toolY(down, 20), 100) << "the first point stands near the top";
    down.toolAt(15, {15, 20});
    EXPECT_EQ(std::round(toolY(down, 15)), 100) << "pulled up again: room above";
}

TEST(LiveViews, LookBackUntilTheOperatorComesBackToTheTool) {
    LiveView view = viewOf(Axis::depth, Direction::down);
    view.toolAt(10, {10, 10});
    view.scroll(-200);
    EXPECT_TRUE(view.following()) << "everything is in sight";
    view.toolAt(40, {10, 40});
    const double followed = view.view().top;
    view.scroll(-700);
    EXPECT_FALSE(view.following());
    EXPECT_NEAR(view.view().top, followed - 7, 1e-9);
    view.toolAt(50, {10, 50});
    EXPECT_NEAR(view.view().top, followed - 7, 1e-9) << "stays where the operator looks";
    view.toFirst();
    EXPECT_NEAR(view.view().top, 9, 1e-9) << "a fifth of the body above the first point";
    EXPECT_EQ(view.range().at, 0);
    view.scroll(300);
    EXPECT_FALSE(view.following()) << "the tool is not in sight yet";
    view.scrollTo(view.range().most);
    EXPECT_TRUE(view.following());
    view.scroll(-2000);
    view.follow();
    EXPECT_LE(toolY(view, 50), body);
    EXPECT_EQ(view.range().page, 500);
}

TEST(LiveViews, ChangeScaleAndAxisAtTheTool) {
    LiveView view = viewOf(Axis::depth, Direction::down);
    view.toolAt(10, {10, 10});
    view.toolAt(30, {10, 30});
    const double y = toolY(view, 30);
    view.setScale(500);
    EXPECT_NEAR(toolY(view, 30), y, 1e-6);
    EXPECT_NEAR(view.view().perMillimetre, 0.5, 1e-12);
    view.scroll(-100);
    const double middle = view.view().positionAt(body / 2);
    view.toolAt(90, {10, 90});
    view.setScale(200);
    EXPECT_NEAR(view.view().positionAt(body / 2), middle, 1e-6) << "the tool is out of sight";
    view.setAxis(Axis::time);
    EXPECT_TRUE(view.following());
    EXPECT_EQ(view.view().perMillimetre, 1);
    view.toolAt(75, {0, 75});
    EXPECT_NEAR(toolY(view, 75), 400, 1e-6) << "with what came before it in sight";
}

RunHeader headerOf(std::vector<std::string> names) {
    RunHeader header;
    header.channels.push_back({"Speed", "M/min", {}, {}, {}});
    for (std::string& name : names) {
        RunChannel channel{std::move(name), "API", {0, 5000}, {0, 100}, {}};
        channel.calibration.state = "Calibrated";
        header.channels.push_back(channel);
    }
    return header;
}

TEST(LivePages, FollowTheButtonOfTheTool) {
    struct Case {
        const char* tool;
        std::string_view caption;
        LivePage page;
    };
    for (const Case& each :
         {Case{"K417", "Bullseye", LivePage::plan}, Case{"K417", "Magnetics", LivePage::logs},
          Case{"K417", "Deviation", LivePage::logs}, Case{"K306", "Gauges", LivePage::gauges},
          Case{"K307", "Gauges", LivePage::gauges}, Case{"K307", "Logs", LivePage::logs},
          Case{"K215", "Gauges", LivePage::logs}, Case{"K215", "Bullseye", LivePage::logs}}) {
        EXPECT_EQ(livePage(each.tool, each.caption), each.page) << each.tool << ' ' << each.caption;
    }
    EXPECT_EQ(livePage("K417", firstCaption("K417")), LivePage::plan);
    EXPECT_EQ(livePage("K306", firstCaption("K306")), LivePage::gauges);
    EXPECT_EQ(firstCaption("K215"), "");
}

TEST(LiveCurvesOfARun, KeepFiltersByChannelAndTellTheScalesThatHaveChanged) {
    LiveCurves curves;
    curves.begin(headerOf({"Gamma", "Mag X", "Inclination"}), lightScheme());
    EXPECT_FALSE(curves.filtered());
    EXPECT_FALSE(curves.change("Gamma", {5, 5}, "3"));
    EXPECT_FALSE(curves.change("Neutron", {0, 1}, "3"));
    EXPECT_FALSE(curves.filtered());
    EXPECT_TRUE(curves.change("Gamma", {0, 100}, "5"));
    EXPECT_TRUE(curves.rescaled().empty()) << "the scale is as it was";
    EXPECT_TRUE(curves.change("Gamma", {20, 80}, "5"));
    ASSERT_EQ(curves.rescaled().size(), 1U);
    EXPECT_EQ(curves.rescaled()[0].scale.left, 20);
    EXPECT_TRUE(curves.filtered());
    curves.show(magneticsCaption);
    EXPECT_FALSE(curves.filtered()) << "Gamma is not among them";
    ASSERT_EQ(curves.shown().tracks.size(), 1U);
    EXPECT_EQ(curves.shown().tracks[0].curves[0].channel, "Mag X");
    curves.setScheme(darkScheme());
    curves.show({});
    EXPECT_EQ(curves.shown().scheme.name, "dark");

    curves.begin(headerOf({"Gamma"}), lightScheme());
    EXPECT_EQ(curves.find("Gamma")->filter, "5") << "of the operator, for the next run too";
    EXPECT_EQ(curves.find("Gamma")->scale.left, 0) << "of the tool";
    EXPECT_TRUE(curves.rescaled().empty());
}

TEST(LiveCurvesOfARun, AreFoundByTheirHeads) {
    LiveCurves curves;
    curves.begin(headerOf({"Gamma", "Res 8", "Res 16"}), lightScheme());
    DisplayView view = viewAtScale(200, 254); // ten units a millimetre
    view.width = 1000;
    const LogDisplay& display = curves.shown();
    const double head = view.millimetres(headMillimetres(display));
    const Columns columns = columnsOf(display, view);
    const double right = columns.tracks[1].left + 5;
    ASSERT_NE(headCurveAt(display, view, head, right, head - 20), nullptr);
    EXPECT_EQ(headCurveAt(display, view, head, right, head - 20)->channel, "Res 16");
    EXPECT_EQ(headCurveAt(display, view, head, right, head - 105)->channel, "Res 8");
    EXPECT_EQ(headCurveAt(display, view, head, 5, head - 20)->channel, "Gamma");
    EXPECT_EQ(headCurveAt(display, view, head, 5, head - 105), nullptr);
    EXPECT_EQ(headCurveAt(display, view, head, columns.depth.left + 1, head - 20), nullptr);
}

} // namespace
} // namespace tarvik
