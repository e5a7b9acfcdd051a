#include "platform/background_copy.h"

#include "platform/temporary_folder.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>

using namespace tarvik;

TEST(BackgroundCopy, ComesBesideTheProgram) {
    const TemporaryFolder folder;
    const Path source = folder.path() / "-from here";
    const Path target = folder.path() / "to there";
    std::filesystem::create_directories(source / "deep");
    std::filesystem::create_directories(target);
    std::ofstream(source / "deep" / "x.cpp") << "text";
    ASSERT_TRUE(copyInBackground(source, target));
    const auto there = [&] {
        std::error_code ignored;
        return std::filesystem::file_size(target / "deep" / "x.cpp", ignored) == 4;
    };
    for (int i = 0; i < 1000 && !there(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_TRUE(there());
}
