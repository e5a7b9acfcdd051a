// LAS files, odd and sound, through both readers.
#include "files/las_reader.h"

#include "app/absent_operator.h"

#include "files/las_cases.h"
#include "files/run_files.h"
#include "lcu/counting_new.h"

#include "base/number_picture.h"
#include "base/text.h"
#include "files/las_row.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using namespace tarvik;
using namespace tarvik::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

const Path lasFile = "project/x.las";

class Operator final : public test::AbsentOperator {
  public:
    void message(std::string_view, std::string_view text, Icon) override { messages.emplace_back(text); }
    std::vector<std::string> messages;
};

struct LasFiles : RunFiles {
    std::optional<ReviewLog> read(std::string_view text, bool tolerant = false,
                                  const Progress& progress = {}) {
        files.put(lasFile, text);
        return tolerant ? las.openTolerantly(lasFile, progress) : las.LASfileopen(lasFile, progress).log;
    }
    Operator operatorSide;
    LasFileReader las{trap, log, operatorSide, files};
};

std::string rowsOf(const ReviewLog& log) {
    std::string text;
    for (std::size_t i = 0; i < log.steps(); ++i) {
        text.append(i > 0 ? " " : "").append(formatPicture(log.depth[i], "##0.########")).append("(");
        if (text.ends_with(".(")) text.erase(text.size() - 2, 1);
        for (const ReviewChannel& channel : log.channels) {
            const float value = channel.values[i];
            text += (text.ends_with('(') ? "" : ",") + (isNoValue(value) ? "-" : shortestNumber(value));
        }
        text += ")";
    }
    return text;
}

void check(const LasCase& odd, const LasOutcome& expected, bool tolerant) {
    SCOPED_TRACE(odd.title + (tolerant ? ", tolerant" : ", plain"));
    LasFiles las;
    const auto log = las.read(odd.text, tolerant);
    EXPECT_THAT(las.errors.reports, IsEmpty());
    ASSERT_EQ(log.has_value(), expected.refused.empty()) << ::testing::PrintToString(las.viewer.lines);
    if (!log) {
        EXPECT_THAT(las.operatorSide.messages, ElementsAre("Problems with LAS file"));
        EXPECT_THAT(las.viewer.lines, ElementsAre(HasSubstr(expected.refused)));
        return;
    }
    EXPECT_EQ(rowsOf(*log), expected.rows);
    std::vector<::testing::Matcher<std::string>> said;
    for (const std::string& words : expected.says) said.emplace_back(HasSubstr(words));
    EXPECT_THAT(log->las->findings, ::testing::UnorderedElementsAreArray(said));
    EXPECT_EQ(las.viewer.lines.size(), expected.says.size()) << "what is said stands in the log too";
    if (expected.texts.empty()) return;
    EXPECT_EQ(std::string(log->depthUnit()) + "|" + log->header.hole.company + "|" + log->header.hole.holeId +
                  "|" + log->header.runDate,
              expected.texts);
}

std::string sound() {
    return LasTable(TARVIK_SOURCE_DIR "/tests/files/las/oddities.txt").cases.front().text;
}

} // namespace

TEST(LasReader, OddFilesHaveTheOutcomeInTheTable) {
    const LasTable table(TARVIK_SOURCE_DIR "/tests/files/las/oddities.txt");
    ASSERT_GT(table.cases.size(), 50U);
    for (const LasCase& odd : table.cases) {
        check(odd, odd.plain, false);
        check(odd, odd.tolerant, true);
    }
}

TEST(LasReader, KeepsWhatTheHeaderSays) {
    LasFiles las;
    std::string text = sound();
    replace(text, "WELL. H1", "FLD . North : field\nWELL. H1");
    replace(text, "~A", "~P\nHOLEAZIM.DEG 12.5 : Hole azimuth\n~A");
    const auto log = las.read(text);
    ASSERT_TRUE(log);
    const LasFacts& facts = *log->las;
    EXPECT_EQ(std::tuple(facts.version, facts.start, facts.stop, facts.step, facts.null),
              std::tuple(2, 1, 2, 1, -999.25));
    EXPECT_EQ(facts.stepText + facts.nullText + facts.depthUnit + facts.holeAzimuth, "1.0-999.25M12.5");
    EXPECT_THAT(facts.curves,
                ElementsAre(LasCurveEntry{"DEPT", "M", "1 depth"}, LasCurveEntry{"A", "CPS", "2 a"},
                            LasCurveEntry{"B", "OHM", "3 b"}));
    EXPECT_EQ(text.substr(facts.dataStart, 2), "~A");
    EXPECT_EQ(log->header.hole.prospect, "North");
    ASSERT_EQ(log->header.channels.size(), log->channels.size());
    EXPECT_EQ(log->header.channels[0].calibration.state, "") << "neither calibrated nor known not to be";
}

TEST(LasReader, KeepsFiftyCurvesAndTwentyChannels) {
    LasFiles las;
    std::string text = sound();
    std::string row = "1 10 20";
    std::string curves;
    for (int i = 3; i < 300; ++i) {
        curves += "C" + std::to_string(i) + ". : c\n";
        row += " " + std::to_string(i);
    }
    replace(text, "~A", curves + "~A");
    replace(text, "1 10 20\n2 11 21\n", row + "\n");
    const auto log = las.read(text);
    ASSERT_TRUE(log);
    EXPECT_EQ(log->las->curves.size(), 50U);
    EXPECT_EQ(log->las->curvesInFile, 300U);
    ASSERT_EQ(log->channels.size(), 20U);
    EXPECT_EQ(log->channels.back().name, "C20");
    EXPECT_EQ(log->channels.back().values.front(), 20);
    EXPECT_THAT(log->las->findings,
                ElementsAre(HasSubstr("line 13: the first 20 channels of 299 are loaded")));
}

/// Searched are the first 20,000 characters, and 20,000 from the curve section on.
TEST(LasReader, LongHeadersAreRefusedAndReadTolerantly) {
    LasFiles las;
    std::string text = sound();
    replace(text, "~Curve", "#" + std::string(20000, 'x') + "\n~Curve");
    EXPECT_FALSE(las.read(text));
    EXPECT_THAT(las.viewer.lines.at(0), HasSubstr("20000 characters only"));
    const auto log = las.read(text, true);
    ASSERT_TRUE(log);
    EXPECT_EQ(log->steps(), 2U);
    EXPECT_THAT(log->las->findings, ElementsAre(HasSubstr("line 17: the header is longer than 20000")));
}

/// A line that is not read may be a curve: the columns behind it would go by wrong names.
TEST(LasReader, CurvesThatAreCutOffAreNotPassedOverInSilence) {
    const std::string longLine = "#" + std::string(LasLines::blockBytes, 'x') + "\n";
    LasFiles las;
    std::string text = sound();
    replace(text, "WELL.", longLine + "WELL.");
    const auto log = las.read(text, true);
    ASSERT_TRUE(log);
    EXPECT_EQ(log->steps(), 2U);
    EXPECT_THAT(log->las->findings,
                ElementsAre(HasSubstr("line 17: the header is longer than 20000"),
                            HasSubstr("line 10: line of the header of more than 262144 characters")));
    text = sound();
    replace(text, "B.OHM", longLine + "B.OHM");
    EXPECT_FALSE(las.read(text, true));
    EXPECT_THAT(las.viewer.lines.back(), HasSubstr("line 15: a line of the curve section has more than"));

    text = sound();
    replace(text, "~A DEPT A B\n1 10 20\n2 11 21\n", "");
    replace(text, "~Version", "~A\n~Version");
    const auto cut = las.read(text + std::string(20000, '#') + "\n");
    ASSERT_TRUE(cut);
    EXPECT_THAT(cut->las->findings,
                ::testing::Contains(HasSubstr("line 17: the curve section is read for 20000")));
}

/// Lines are pieced together across the blocks in which the file is read, whatever ends them.
TEST(LasReader, ReadsToTheLimitOfStepsInBlocks) {
    for (const char* const end : {"\n", "\r", "\r\n"}) {
        LasFiles las;
        std::string text = sound();
        replace(text, "1 10 20\n2 11 21\n", "");
        const std::size_t header = text.size();
        for (int i = 1; i <= 80003; ++i) {
            const std::string number = std::to_string(i);
            text.append(number).append(" ").append(number).append(" 0.125").append(end);
        }
        int percent = 0;
        const auto log = las.read(text, false, [&](int now, std::string_view status) {
            EXPECT_GE(now, percent);
            EXPECT_EQ(status, "Loading data values from file");
            percent = now;
        });
        ASSERT_TRUE(log);
        EXPECT_GT(text.size() - header, 4 * LasLines::blockBytes);
        EXPECT_EQ(percent, 100);
        ASSERT_EQ(log->steps(), maxReviewSteps);
        EXPECT_TRUE(log->truncated);
        for (std::size_t i = 0; i < log->steps(); ++i) {
            ASSERT_EQ(log->depth[i], static_cast<double>(i + 1));
            ASSERT_EQ(log->channels[0].values[i], static_cast<float>(i + 1));
        }
        EXPECT_THAT(log->las->findings,
                    ElementsAre(HasSubstr("line 80017 and 2 more (80018, 80019): row not read")));
        EXPECT_THAT(las.viewer.lines.at(0), HasSubstr("too many data points for array"));
    }
}

/// Wherever the border between two blocks falls in a line's end.
TEST(LasLines, AreTheSameWhereverABlockEnds) {
    for (const std::string end : {"\n", "\r", "\r\n"}) {
        for (std::size_t before = LasLines::blockBytes - 3; before < LasLines::blockBytes + 2; ++before) {
            LasFiles las;
            las.files.put(lasFile, std::string(before, 'x') + end + end + "b" + end);
            LasLines lines(las.files, lasFile);
            std::vector<std::string> read;
            for (LasLine line; lines.next(line);) {
                EXPECT_EQ(line.number, read.size() + 1);
                EXPECT_TRUE(line.ended);
                read.push_back(line.tooLong ? std::string(before, 'x') : std::string(line.text));
            }
            EXPECT_EQ(read, (std::vector<std::string>{std::string(before, 'x'), "", "b"})) << before;
        }
    }
}

/// Wherever in a block the line begins, and however it ends.
TEST(LasLines, HaveOneLimitAnywhere) {
    for (const std::string end : {"\n", "\r", "\r\n", ""}) {
        for (const std::size_t before : {std::size_t{0}, std::size_t{1}, LasLines::blockBytes - 1}) {
            for (const std::size_t size : {LasLines::blockBytes, LasLines::blockBytes + 1}) {
                LasFiles las;
                las.files.put(lasFile, std::string(before, 'x') + "\n" + std::string(size, 'y') + end);
                LasLines lines(las.files, lasFile);
                LasLine line;
                ASSERT_TRUE(lines.next(line) && lines.next(line));
                EXPECT_EQ(line.tooLong, size > LasLines::blockBytes) << before;
                EXPECT_EQ(line.text.size(), line.tooLong ? 0 : size);
                EXPECT_EQ(line.ended, !end.empty());
                EXPECT_FALSE(lines.next(line));
            }
        }
    }
}

TEST(LasLines, JoinSurrogatePairsOfUtf16AndReplaceHalves) {
    LasFiles las;
    las.files.put(lasFile, std::string_view("\x3D\xD8\x00\xDE"
                                            "a\0"
                                            "\x3D\xD8"
                                            "b\0"
                                            "\x00\xDE",
                                            12));
    LasLines lines(las.files, lasFile, 0, 1, TextEncoding::utf16le);
    LasLine line;
    ASSERT_TRUE(lines.next(line));
    EXPECT_EQ(line.text, "\U0001F600"
                         "a\uFFFD"
                         "b\uFFFD");
}

TEST(LasReader, ALineWithoutEndDoesNotFillTheMemory) {
    LasFiles las;
    std::string text = sound();
    replace(text, "1 10 20\n", std::string(5 * LasLines::blockBytes, '7') + "\n");
    const auto log = las.read(text);
    ASSERT_TRUE(log);
    EXPECT_EQ(rowsOf(*log), "2(11,21)");
    EXPECT_THAT(log->las->findings, ElementsAre(HasSubstr("line 17: line of more than")));
}

/// Rows are counted, repaired and stored without memory of their own: only the arrays grow, by doubling.
TEST(LasReader, RowsAllocateNothingHoweverOdd) {
    std::string odd = sound();
    replace(odd, "1 10 20\n2 11 21\n", "");
    for (int i = 0; i < 9000; ++i) odd += "1,5 -999.25-7.5\nx (null)\n2 1,5 2,5\n# comment\n3\n";
    LasFiles las;
    las.files.put(lasFile, odd);
    const long before = test::allocationsSoFar();
    const auto log = las.las.openTolerantly(lasFile);
    const long allocated = test::allocationsSoFar() - before;
    ASSERT_TRUE(log);
    EXPECT_EQ(log->steps(), 27000U);
    EXPECT_GT(allocated, 0);
    EXPECT_LT(allocated, 1000);
}

/// What the quick path reads is what the general parser reads, to the last bit.
TEST(LasRow, NumbersAreTheNearest) {
    std::uint64_t random = 1;
    const auto next = [&random](std::uint64_t below) {
        random = random * 6364136223846793005U + 1442695040888963407U;
        return (random >> 33) % below;
    };
    for (int i = 0; i < 20000; ++i) {
        std::string text = next(2) == 0 ? "-" : "";
        const auto whole = next(10);
        const auto fraction = next(12);
        for (std::uint64_t digit = 0; digit < whole; ++digit) text += static_cast<char>('0' + next(10));
        text += '.';
        for (std::uint64_t digit = 0; digit < fraction; ++digit) text += static_cast<char>('0' + next(10));
        LasRow row;
        splitLasRow(text, row);
        const auto expected = parseNumber(text);
        ASSERT_EQ(expected.has_value(), row.firstBad == LasRow::none) << text;
        if (expected) {
            ASSERT_EQ(row.values[0], *expected) << text;
        }
    }
}

/// What cannot be read goes by its name, and is one error under the routine's own; reading it tolerantly
/// would not help.
TEST(LasReader, ADamagedDiskIsOneErrorUnderTheRoutinesName) {
    LasFiles las;
    EXPECT_TRUE(isLasFile(las.files, "missing.Las"));
    EXPECT_FALSE(isLasFile(las.files, "missing.txt"));
    const LasOpening opening = las.las.LASfileopen("missing.las");
    EXPECT_FALSE(opening.log || !opening.complaint.empty());
    ASSERT_EQ(las.errors.reports.size(), 1U);
    EXPECT_EQ(las.errors.reports[0].routine, "Logdisplay1-LASfileopen");
    EXPECT_THAT(las.operatorSide.messages, IsEmpty());
}

TEST(LasReader, TolerantReadingIsOfferedWhereItMayHelp) {
    LasFiles las;
    std::string text = sound();
    las.files.put(lasFile, text);
    EXPECT_EQ(las.las.LASfileopen(lasFile).complaint, "");
    replace(text, "1 10 20\n2 11 21", "1,10,20\n2,11,21");
    las.files.put(lasFile, text);
    EXPECT_EQ(las.las.LASfileopen(lasFile).complaint, "x.las, no row of data was read") << "but it opens";
    replace(text, "STEP", "STOP");
    las.files.put(lasFile, text);
    EXPECT_THAT(las.las.LASfileopen(lasFile).complaint, HasSubstr("\"STEP\" is missing")) << "it is refused";
}
