// A run exported, imported and exported again: the second file is the first, to the byte.
#include "app/absent_operator.h"
#include "files/las_reader.h"
#include "platform/memory_files.h"
#include "platform/virtual_clock.h"
#include "processing/las_again.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using namespace tarvik;

namespace {

class Errors final : public ErrorReporter {
  public:
    void report(const ErrorReport& error) override { ADD_FAILURE() << error.description; }
};

class Operator final : public test::AbsentOperator {
  public:
    void message(std::string_view, std::string_view text, Icon) override { ADD_FAILURE() << text; }
};

/// Values of all sizes, some without a value; names and units as tools have them.
ReviewLog run(DepthUnits units, std::size_t steps) {
    ReviewLog log;
    log.header.setup.units = units;
    log.header.hole.company = "Compañía Minera";
    log.header.hole.holeId = "Hole 1";
    log.header.hole.prospect = "North: 4";
    log.header.hole.coordinates = "12 E 34 N";
    log.header.hole.area = "Lapland";
    log.header.hole.contractor = "A name that is longer than its thirty characters";
    log.header.runDate = "13-Mar-2006";
    log.channels = {{"Speed", "M/min", true, {}},
                    {"T.G", "Deg F", false, {}},
                    {"A NAME OF MANY LETTERS", "", true, {}},
                    {"-", "°C", true, {}},
                    {"GAMMA - 5 pt", "CPS", true, {}}};
    for (std::size_t i = 0; i < steps; ++i) {
        const auto x = static_cast<double>(i);
        log.depth.push_back(12.004 + std::round(x * 52.1) / 1000);
        for (std::size_t channel = 0; channel < log.channels.size(); ++channel) {
            const double size = std::pow(10.0, static_cast<double>((i + channel) % 13) - 5);
            const bool gap = (i + channel) % 17 == 3;
            log.channels[channel].values.push_back(
                gap ? noValue()
                    : static_cast<float>(size * std::sin(x * 1.7 + static_cast<double>(channel))));
        }
    }
    return log;
}

struct Road {
    std::string exported(const ReviewLog& log, const LasExportOptions& options) {
        EXPECT_TRUE(LasExport(trap, files).Logprintexport_exportLASfile(log, "out.las", options));
        return files.text("out.las");
    }
    std::string again(bool tolerant) {
        const auto log = tolerant ? reader.openTolerantly("out.las") : reader.LASfileopen("out.las").log;
        return log ? exported(*log, lasOptionsFor(*log)) : "not opened";
    }

    MemoryFiles files;
    Errors errors;
    Operator operatorSide;
    ErrorTrap trap{errors};
    VirtualClock clock;
    StatusLog statusLog{trap, clock, files, "history"};
    LasFileReader reader{trap, statusLog, operatorSide, files};
};

} // namespace

TEST(LasRoundTrip, IsStableToTheByteFromTheFirstFileOn) {
    const LasExportOptions table[]{
        {},
        {.decimals = 5},
        {.nullText = "-9999", .decimals = 3, .holeAzimuth = "12.5", .holeInclination = "3"},
        {.nullText = "-999.2500"}, // more decimals than the values have
        {.step = 0.05},
        {.start = 11, .stop = 14.33, .step = 0.125, .decimals = 4}, // depths are rounded to hundredths
        {.start = 12.5, .stop = 900},
        {.filters = {{"T.G", "5"}, {"GAMMA - 5 pt", "3"}, {"-", "None"}}},
        {.channels = {"-", "Speed"}},
        {.stop = 12.004, .step = 1},
    };
    for (const LasExportOptions& options : table) {
        for (const DepthUnits units : {DepthUnits::metres, DepthUnits::feet}) {
            for (const bool tolerant : {false, true}) {
                Road road;
                const std::string first = road.exported(run(units, 400), options);
                EXPECT_EQ(road.again(tolerant), first);
            }
        }
    }
}

TEST(LasRoundTrip, WhatAnImportedFileSaysHoldsUnlessAskedOtherwise) {
    Road road;
    road.exported(run(DepthUnits::metres, 50),
                  {.nullText = "-9999", .decimals = 3, .filters = {{"Speed", "5"}}});
    const auto log = road.reader.LASfileopen("out.las").log;
    ASSERT_TRUE(log);
    EXPECT_EQ(log->channels[0].filteredOver, 5);
    LasExportOptions options = lasOptionsFor(*log);
    options.nullText = "0";
    options.decimals = 2;
    options.start = 13;
    options.step = 0.1;
    const std::string text = road.exported(*log, options);
    EXPECT_NE(text.find("NULL.                 0         :NULL"), std::string::npos);
    EXPECT_NE(text.find("STRT.M            13.00"), std::string::npos);
    EXPECT_NE(text.find("STOP.M            14.56"), std::string::npos) << "the last loaded depth";
    EXPECT_NE(text.find("Speed - 5 pt"), std::string::npos) << "filtered values stay filtered";
}

TEST(LasRoundTrip, AnExponentCountsAmongTheDecimals) {
    const struct {
        const char* value;
        int decimals;
    } table[]{{"2.5E-04", 5},    {"2.E-03", 3},      {"25e-4", 4},
              {"1.2345E+02", 2}, {"1.23456E+01", 4}, {"5E+30", 2}};
    for (const auto& [value, decimals] : table) {
        Road road;
        std::string text = road.exported(run(DepthUnits::metres, 1), {.channels = {"Speed"}});
        road.files.put("out.las",
                       text.replace(text.rfind("       "), std::string::npos, std::string(" ") + value));
        const auto log = road.reader.LASfileopen("out.las").log;
        ASSERT_TRUE(log);
        EXPECT_EQ(lasOptionsFor(*log).decimals, decimals) << value;
    }
}

/// Found by a fuzzer: a name that reads as a section once what stood before it is cleaned away.
TEST(LasRoundTrip, NoNameTurnsIntoASectionOrAComment) {
    Road road;
    road.exported(run(DepthUnits::metres, 5), {});
    std::string text = road.files.text("out.las");
    text.replace(text.find("\r\nSpeed.") + 2, 5, "\x01~A 1");
    road.files.put("out.las", text);
    const std::string first = road.again(true);
    EXPECT_NE(first.find("\r\nA 1."), std::string::npos);
    EXPECT_EQ(road.again(true), first);
}

/// A section begins at "~" wherever it stands: none of our texts may hold one. What is changed is said.
TEST(LasRoundTrip, TextsThatWouldBeginASectionAreChangedAndSaid) {
    Road road;
    ReviewLog log = run(DepthUnits::metres, 5);
    log.header.hole.company = "Acme ~A";
    log.header.hole.area = "~C\u03a9";
    log.channels[0].name = "T~C.G";
    log.channels[0].unit = "~A\u03a9";
    std::vector<std::string> said;
    EXPECT_TRUE(LasExport(road.trap, road.files)
                    .Logprintexport_exportLASfile(log, "out.las", {},
                                                  [&](std::string_view line) { said.emplace_back(line); }));
    for (const char* warning : {"\"Acme ~A\" is written as \"Acme -A\"", "\"-C?\"", "\"T-C.G\"", "\"-A?\""})
        EXPECT_THAT(said, ::testing::Contains(::testing::HasSubstr(warning)));
    const std::string first = road.files.text("out.las");
    const auto read = road.reader.LASfileopen("out.las").log;
    ASSERT_TRUE(read);
    EXPECT_EQ(read->channels.size(), log.channels.size());
    EXPECT_EQ(read->steps(), 5U);
    EXPECT_EQ(road.again(false), first);
}

/// The unit of an index that is no depth is neither lost nor turned into another.
TEST(LasRoundTrip, KeepsAnUnknownUnit) {
    Road road;
    road.exported(run(DepthUnits::metres, 5), {});
    std::string text = road.files.text("out.las");
    for (auto at = text.find(".M "); at < text.find("~P"); at = text.find(".M ", at))
        text.replace(at, 3, ".S ");
    road.files.put("out.las", text);
    EXPECT_EQ(road.again(false), text);
}
