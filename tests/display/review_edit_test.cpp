// What the operator does with a display in review: points at it, changes it, compares, annotates, prints.
#include "display/annotations.h"
#include "display/display_edits.h"
#include "display/display_place.h"
#include "display/print_order.h"
#include "display/second_run.h"
#include "display_logs.h"
#include "platform/disk_files.h"
#include "platform/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tarvik {
namespace {

using samples::curveOf;
using samples::displayOf;
using samples::logOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Part = DisplayPlace::Part;

TEST(DisplayPlaces, AreFoundInHeadsAndBodiesAlsoEquallySpaced) {
    LogDisplay display =
        displayOf({{curveOf("A", 0, 1), curveOf("B", 0, 1), curveOf("C", 0, 1)}, {curveOf("D", 0, 1)}});
    display.tracks[0].curves[1].shown = false;
    DisplayView view = viewAtScale(200, millimetresPerInch); // one unit is a millimetre
    view.width = 136;                                        // tracks of 60 around the 16 of the depths
    view.height = 200;
    struct Case {
        double x;
        double y;
        bool spaced;
        DisplayPlace place;
    };
    const std::vector<Case> cases{{10, 3, false, {Part::curve, 0, 0}},
                                  {10, 14, false, {Part::curve, 0, 2}},
                                  {100, 14, false, {Part::curve, 1, 0}},
                                  {100, 3, false, {Part::track, 1, 0}},
                                  {10, 100, false, {Part::track, 0, 0}},
                                  {68, 100, false, {Part::depthTrack, 0, 0}},
                                  {137, 50, false, {}},
                                  {-1, 50, false, {}},
                                  {10, 100, true, {Part::curve, 0, 0}},
                                  {50, 100, true, {Part::curve, 0, 2}},
                                  {130, 3, true, {Part::curve, 1, 0}}};
    for (const Case& each : cases) {
        view.equallySpaced = each.spaced;
        const DisplayPlace place = placeAt(display, view, each.x, each.y);
        EXPECT_EQ(place, each.place) << each.x << " " << each.y << " gave " << static_cast<int>(place.part)
                                     << " " << place.track << " " << place.curve;
    }
}

TEST(DisplayEdits, MoveCurvesAndTracksAndKeepTheDepthTrackWhereItWas) {
    LogDisplay display = displayOf({{curveOf("A", 0, 1), curveOf("B", 0, 1)}, {curveOf("C", 0, 1)}});
    EXPECT_EQ(moveCurve(display, 0, 0, 1), 1U);
    EXPECT_EQ(display.tracks[1].curves[1].channel, "A");
    EXPECT_EQ(raiseCurve(display.tracks[1], 1), 0U);
    EXPECT_EQ(lowerCurve(display.tracks[1], 1), 1U);
    EXPECT_EQ(display.tracks[1].curves[0].channel, "A");
    display.depthPlace = 2;
    EXPECT_EQ(addTrack(display, 0), 1U);
    EXPECT_EQ(display.depthPlace, 3U);
    EXPECT_TRUE(removeTrack(display, 1));
    EXPECT_TRUE(removeTrack(display, 0));
    EXPECT_EQ(display.depthPlace, 1U);
    EXPECT_FALSE(removeTrack(display, 0));
    placeDepthTrack(display, 9);
    EXPECT_EQ(display.depthPlace, 1U);
    ReviewLog log = logOf(3, 1, {"X"});
    log.channels[0].values = {3.2F, 50, 88};
    const LogData data = logDataOf(log);
    EXPECT_EQ(curveOfChannel(data.channels[0], display).scale.right, 100);
    EXPECT_EQ(curveOfChannel({"A", "", true, {}}, display).scale.right, 1);
}

TEST(DisplayEdits, SayWhatIsWrongWithAnEntry) {
    using Kind = ScaleKind;
    EXPECT_EQ(scaleEndProblem(Kind::linear, " -5 "), "");
    EXPECT_THAT(scaleEndProblem(Kind::linear, "1,5"), HasSubstr("A number"));
    EXPECT_THAT(scaleEndProblem(Kind::linear, "1e31"), HasSubstr("A number"));
    EXPECT_THAT(scaleEndProblem(Kind::logarithmic, "0"), HasSubstr("Above 0"));
    EXPECT_THAT(scaleProblem(Kind::linear, "7.0", "7"), HasSubstr("Another number"));
    EXPECT_EQ(scaleProblem(Kind::logarithmic, "2000", "0.2"), "");
    EXPECT_EQ(filterProblem("None") + filterProblem("5") + trackWidthProblem("5") + divisionsProblem("100") +
                  lineWidthProblem("0.05"),
              "");
    for (const std::string& problem : {filterProblem("wide"), trackWidthProblem("4"), divisionsProblem("2.5"),
                                       divisionsProblem("0"), lineWidthProblem("")}) {
        EXPECT_NE(problem, "");
    }
}

TEST(Annotations, AreLinesThatBeginWithADepthAndNothingElse) {
    const auto marks = annotationsIn("45.2 m: lost circulation\r\n@ 88.5 stuck, freed\n"
                                     "100ft - ledge\nCasing to 12 m\n12-Mar-2006 run 1\n45.2 mud added\n"
                                     "30 m\n@\n1.2.3 m x\n  7 Metres  soft",
                                     DepthUnits::metres);
    std::vector<std::string> texts;
    for (const DepthMark& mark : marks) texts.push_back(mark.text);
    EXPECT_THAT(texts, ElementsAre("lost circulation", "stuck, freed", "ledge", "soft"));
    EXPECT_DOUBLE_EQ(marks[0].depth, 45.2);
    EXPECT_DOUBLE_EQ(marks[1].depth, 88.5);
    EXPECT_DOUBLE_EQ(marks[2].depth, 30.48);
    EXPECT_DOUBLE_EQ(annotationsIn("@100 ledge", DepthUnits::feet)[0].depth, 30.48);
}

TEST(Annotations, OfTheHoleAreThoseWithinTheLogAndComeOnce) {
    const TemporaryFolder folder;
    DiskFiles files;
    ReviewLog log = logOf(100, 0.5, {"Gamma"});
    log.header.hole.holeId = "H1";
    log.header.notes = "10 m ledge";
    EXPECT_TRUE(holeAnnotations(files, folder / "H1_K201_01.kvx", log).empty());
    files.replace(folder / "H1_notes.kvx", asBytes("10 m ledge\r\n20 m soft\r\n60 m below\r\n"));
    LogDisplay display = defaultDisplay(log, lightScheme());
    ASSERT_EQ(display.marks.size(), 1U);
    addMarks(display.marks, holeAnnotations(files, folder / "H1_K201_01.kvx", log));
    ASSERT_EQ(display.marks.size(), 2U);
    EXPECT_EQ(display.marks[1].text, "soft");
}

TEST(SecondRun, IsDrawnOtherwiseInTheSameColumns) {
    const ReviewLog first = logOf(100, 0.5, {"Gamma", "Res"});
    ReviewLog second = logOf(300, 0.5, {"Gamma"});
    const LogData a = logDataOf(first);
    const LogData b = logDataOf(second);
    LogDisplay display = displayOf({{curveOf("Gamma", 0, 150)}, {curveOf("Res", 0, 1)}});
    display.marks = {{5, MarkKind::casing, "Casing"}};
    const LogDisplay over = overlaid(display);
    EXPECT_NE(over.tracks[0].curves[0].style.line, display.tracks[0].curves[0].style.line);
    EXPECT_EQ(over.tracks[0].curves[0].scale, display.tracks[0].curves[0].scale);
    // Equally spaced, "Res" keeps its column: the curves behind it stand below their heads.
    EXPECT_EQ(equallySpaced(over).tracks.size(), equallySpaced(display).tracks.size());
    EXPECT_TRUE(over.marks.empty());
    EXPECT_EQ(missingIn(display, b), "Res");
    EXPECT_EQ(extentOfBoth(a, b, Axis::depth).to, 149.5);
    EXPECT_EQ(extentOfBoth(a, LogData{}, Axis::depth).to, 49.5);
    const SecondRun same = secondRun(second, Comparison::beside, lightScheme());
    EXPECT_EQ(beside(display, a, same).tracks[1].curves.size(), 1U) << "what it lacks keeps its place";

    ReviewLog deviation = logOf(300, 0.5, {"Azimuth", "Gamma"});
    const SecondRun other = secondRun(deviation, Comparison::beside, lightScheme());
    ASSERT_TRUE(isOfAnotherKind(a, other));
    const LogDisplay own = beside(display, a, other);
    EXPECT_EQ(missingIn(own, other.data), "") << "a run of another tool has tracks of its own";
    for (const Track& track : own.tracks) {
        for (const LogCurve& curve : track.curves) {
            if (curve.channel == "Gamma") {
                EXPECT_EQ(curve.scale, display.tracks[0].curves[0].scale);
            }
        }
    }
    EXPECT_EQ(comparisonLegend(display, first, deviation, other).find("Only in"), std::string::npos);
}

TEST(PrintOrders, EndWhereNobodyWouldPrintOn) {
    const PagePlan plan = planPages({*paperNamed("A4"), 0, 20, 0, 1e30, 0.2});
    EXPECT_EQ(plan.pages.size(), mostPages);
    EXPECT_THAT(printSummary({}, plan), HasSubstr("more than 10000 pages; take a smaller scale"));
    const PagePlan crowded = planPages({*paperNamed("A4"), 0, 280, 0, 100, 0.2});
    EXPECT_THAT(planProblem(crowded), HasSubstr("no room"));
    EXPECT_EQ(planProblem(planPages({*paperNamed("Continuous"), 0, 280, 0, 100, 0.2})), "");
}

TEST(Scales, WithoutDistinctEndsAreNotUsable) {
    constexpr double smallest = std::numeric_limits<double>::denorm_min();
    EXPECT_FALSE(isUsable({ScaleKind::linear, 0, smallest}));
    EXPECT_FALSE(isUsable({ScaleKind::logarithmic, smallest, 1}));
    EXPECT_FALSE(isUsable({ScaleKind::logarithmic, 1e20, std::nextafter(1e20, 2e20)}));
    EXPECT_TRUE(isUsable({ScaleKind::logarithmic, 1e-30, 1e30}));
}

TEST(PrintOrders, SayWhatTheyCostAndAreRemembered) {
    PrintOrder order{.scale = 200, .interval = {0, 120}, .paper = "A3", .landscape = true};
    EXPECT_EQ(paperOf(order).width, 420);
    PagePlan plan = planPages({paperOf(order), 0, 20, 0, 120, 0.2});
    EXPECT_THAT(printSummary(order, plan), HasSubstr("pages A3, 0.60 m of paper"));
    order.continuous = true;
    plan = planPages({paperOf(order), 0, 20, 0, 120, 0.2});
    EXPECT_THAT(printSummary(order, plan), HasSubstr("One page, 42.0 cm wide and 0.65 m long"));
    order.heading = false;
    PrintOrder next;
    remember(next, rememberedText(order));
    EXPECT_EQ(rememberedText(next), "A3 landscape continuous plain");
    remember(next, "");
    EXPECT_EQ(rememberedText(next), "A3 portrait pages heading");
    for (const auto& [text, scale] :
         {std::pair{"1:200", 200.0}, {" 50 ", 50.0}, {"1:0.01", 0.0}, {"x", 0.0}}) {
        EXPECT_EQ(scaleFromText(text).value_or(0), scale) << text;
    }
}

TEST(PrintOrders, AnIntervalOutsideTheLogIsSaid) {
    const Extent log{10, 60};
    const auto problem = [&](const char* from, const char* to, DepthUnits units = DepthUnits::metres) {
        return intervalProblem(from, to, log, toMetres(1, units));
    };
    EXPECT_EQ(problem("20", "30"), "");
    EXPECT_EQ(problem("0", "10.5"), "");
    EXPECT_THAT(problem("20", "x"), HasSubstr("Two numbers"));
    EXPECT_THAT(problem("30", "20"), HasSubstr("not above"));
    EXPECT_THAT(problem("61", "70"), HasSubstr("from 10.00 to 60.00"));
    EXPECT_EQ(problem("61", "70", DepthUnits::feet), "");
}

} // namespace
} // namespace tarvik
