#include "simulator/tool_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace lcusim::test {

namespace {

ToolFile read(const std::string& text) {
    std::istringstream stream(text);
    return readTool(stream, "x.tool");
}

} // namespace

TEST(ToolFile, ReadsAWholeTool) {
    const ToolFile file = read("# a comment\r\n"
                               "[tool]\n"
                               " code = K417 \n"
                               "shoe_size = 42\n"
                               "maximum_current = 120\n"
                               "[mode 2]\n"
                               "name = Fast\nkind = MUX\nsensor_factors = a1,b1\nwords = 8\n"
                               "parameters = TL120 |  | R11,S0\n"
                               "channel = Gamma | CPS | 0 | 300 | -1.5 | 250 | gamma\n"
                               "channel = Spare |\n"
                               "[screen]\nname = ignored\n");
    ASSERT_TRUE(file.tool) << file.problem;
    EXPECT_EQ(file.tool->code, "K417");
    EXPECT_EQ(file.tool->maximumCurrent, 120);
    EXPECT_TRUE(file.tool->modes[0].channels.empty());
    const ToolMode& mode = file.tool->modes[1];
    EXPECT_EQ(mode.name, "Fast");
    EXPECT_EQ(mode.kind, "MUX");
    EXPECT_EQ(mode.wordsOnLine(), 8U);
    EXPECT_EQ(mode.parameters, (std::vector<std::string>{"TL120", "", "R11,S0"}));
    ASSERT_EQ(mode.channels.size(), 2U);
    EXPECT_EQ(mode.channels[0].uncalibratedRight, 300);
    EXPECT_EQ(mode.channels[0].calibratedLeft, -1.5);
    EXPECT_EQ(mode.channels[0].synth, "gamma");
    EXPECT_EQ(mode.channels[1].unit, "");
}

TEST(ToolFile, NamesTheLineThatIsWrong) {
    const std::string head = "[tool]\ncode = K1\n[mode 1]\n";
    for (const auto* wrong :
         {"nonsense", "channel = Gamma", "channel = G | CPS | x", "words = many", "words = 21"}) {
        const ToolFile file = read(head + wrong + "\n");
        EXPECT_FALSE(file.tool) << wrong;
        EXPECT_EQ(file.problem.rfind("x.tool, line 4: ", 0), 0U) << file.problem;
    }
    std::string many = head;
    for (int i = 0; i < 20; ++i) many += "channel = C | U\n";
    EXPECT_TRUE(read(many).tool);
    EXPECT_FALSE(read(many + "channel = C | U\n").tool);
    EXPECT_FALSE(read("[tool]\nname = nameless\n").tool);
}

TEST(ToolFile, FindsAToolByItsCode) {
    const auto folder = std::filesystem::path(::testing::TempDir()) / "lcusim_tools";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "one.tool") << "[tool]\ncode = K1\n";
    std::ofstream(folder / "broken.tool") << "rubbish\n";
    EXPECT_TRUE(findTool(folder, "K1").tool);
    const ToolFile missing = findTool(folder, "K2");
    EXPECT_FALSE(missing.tool);
    EXPECT_NE(missing.problem.find("broken.tool, line 1"), std::string::npos) << "it may be the one meant";
    EXPECT_FALSE(findTool(folder / "nowhere", "K1").tool);
    std::filesystem::remove_all(folder);
}

} // namespace lcusim::test
