#include "platform/background_copy.h"

#include "platform/temporary_folder.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>

using namespace tarvik;

namespace {

std::vector<BackgroundCopies::Ended> waitFor(BackgroundCopies& copies) {
    std::vector<BackgroundCopies::Ended> ended;
    for (int i = 0; i < 1000 && ended.empty(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        ended = copies.ended();
    }
    return ended;
}

} // namespace

TEST(BackgroundCopies, ComeBesideTheProgramAndTellHowTheyEnded) {
    const TemporaryFolder folder;
    const Path source = folder.path() / "-from here";
    const Path target = folder.path() / "to there";
    std::filesystem::create_directories(source / "deep");
    std::filesystem::create_directories(target);
    std::ofstream(source / "deep" / "x.cpp") << "text";
    BackgroundCopies copies;
    ASSERT_TRUE(copies.start(source, target));
    auto ended = waitFor(copies);
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_EQ(ended[0].target, target);
    EXPECT_TRUE(ended[0].whole);
    EXPECT_EQ(std::filesystem::file_size(target / "deep" / "x.cpp"), 4U);
    EXPECT_TRUE(copies.ended().empty());

    ASSERT_TRUE(copies.start(source, folder.path() / "nowhere" / "at all"));
    ended = waitFor(copies);
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_FALSE(ended[0].whole);
}
