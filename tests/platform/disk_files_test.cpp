// The promises of the disk: whole or not at all, whatever happens in between.
#include "platform/disk_failure.h"
#include "platform/disk_files.h"
#include "platform/memory_files.h"
#include "temporary_folder.h"

#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

using namespace tarvik;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

/// Something happens instead of the n-th call that changes the disk (1 for the first).
class CallsWithAccident : public DiskCalls {
  public:
    explicit CallsWithAccident(int at) : left_(at) {}

    std::ptrdiff_t write(int descriptor, const void* bytes, std::size_t count) override {
        return isDue() ? accident() : DiskCalls::write(descriptor, bytes, (count + 1) / 2); // short ones, too
    }
    int sync(int descriptor) override { return isDue() ? accident() : DiskCalls::sync(descriptor); }
    int rename(const char* from, const char* to) override {
        return isDue() ? accident() : DiskCalls::rename(from, to);
    }

  protected:
    virtual int accident() {
        errno = ENOSPC;
        return -1;
    }

  private:
    [[nodiscard]] bool isDue() { return --left_ == 0; }
    int left_;
};

constexpr int killed = 9;
class DeadlyCalls final : public CallsWithAccident {
    using CallsWithAccident::CallsWithAccident;
    int accident() override { ::_exit(killed); }
};

class DiskFilesTest : public ::testing::Test {
  protected:
    std::string text(const Path& file) { return asText(files_.read(file)); }
    std::size_t entries() const {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder_.path()))
            ++count;
        return count;
    }

    TemporaryFolder folder_;
    DiskFiles files_;
    const Path file_ = folder_ / "hole.kvx";
};

ErrorNumber numberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.number();
    }
    ADD_FAILURE() << "nothing was thrown";
    return ErrorNumber::internal;
}

} // namespace

TEST_F(DiskFilesTest, WhatIsWrittenIsReadBack) {
    files_.append(file_, asBytes("abc"));
    files_.append(file_, asBytes("defg"));
    EXPECT_EQ(text(file_), "abcdefg");
    EXPECT_EQ(files_.size(file_), 7U);
    EXPECT_EQ(asText(files_.readPart(file_, 2, 3)), "cde");
    EXPECT_EQ(asText(files_.readPart(file_, 5, 100)), "fg");
    EXPECT_TRUE(files_.readPart(file_, 8, 1).empty());
    files_.patch(file_, 5, asBytes("FG"));
    EXPECT_EQ(text(file_), "abcdeFG");
    files_.truncate(file_, 6);
    EXPECT_EQ(text(file_), "abcdeF");
    files_.copy(file_, folder_ / "copy");
    files_.remove(file_);
    files_.remove(file_);
    EXPECT_FALSE(files_.exists(file_));
    EXPECT_FALSE(files_.exists(folder_ / "copy" / "below a file"));
    EXPECT_EQ(text(folder_ / "copy"), "abcdeF");
    const std::string large(100'000, 'x');
    files_.replace(file_, asBytes(large));
    EXPECT_EQ(text(file_), large);
}

TEST_F(DiskFilesTest, APipeIsNotWaitedFor) {
    const Path pipe = folder_ / "pipe.las";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THROW((void)files_.read(pipe), Failure);
    EXPECT_THROW((void)files_.readPart(pipe, 0, 10), Failure);
}

/// Disk and memory refuse the same: code tested on the one behaves so on the other.
TEST_F(DiskFilesTest, NothingGrowsByAPatchOrACut) {
    MemoryFiles memory;
    for (Files* files : {static_cast<Files*>(&files_), static_cast<Files*>(&memory)}) {
        files->append(file_, asBytes("abc"));
        EXPECT_EQ(numberOf([&] { files->patch(file_, 2, asBytes("XY")); }), ErrorNumber::badFile);
        EXPECT_EQ(numberOf([&] { files->patch(file_, ~0ULL, asBytes("XY")); }), ErrorNumber::badFile);
        EXPECT_EQ(numberOf([&] { files->truncate(file_, 4); }), ErrorNumber::badFile);
        EXPECT_EQ(asText(files->read(file_)), "abc");
        const Path missing = folder_ / "none";
        EXPECT_EQ(numberOf([&] { std::ignore = files->read(missing); }), ErrorNumber::fileNotFound);
        EXPECT_EQ(numberOf([&] { std::ignore = files->size(missing); }), ErrorNumber::fileNotFound);
        EXPECT_EQ(numberOf([&] { files->patch(missing, 0, asBytes("X")); }), ErrorNumber::fileNotFound);
        EXPECT_FALSE(files->exists(missing));
    }
}

TEST_F(DiskFilesTest, AReplacementThatFailsAtAnyStepLeavesTheOldFileAndNothingElse) {
    files_.append(file_, asBytes("old"));
    bool reachedTheEnd = false;
    for (int step = 1; !reachedTheEnd; ++step) {
        DiskFiles failing(std::make_unique<CallsWithAccident>(step));
        try {
            failing.replace(file_, asBytes("new content"));
            reachedTheEnd = true;
            ASSERT_GT(step, 5) << "several writes, the flush and the renaming must have failed before";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number(), ErrorNumber::diskFull);
            EXPECT_THAT(failure.what(), HasSubstr(file_.string() + ": cannot be written"));
            EXPECT_EQ(text(file_), "old") << step;
        }
        EXPECT_EQ(entries(), 1U) << step;
    }
    EXPECT_EQ(text(file_), "new content");
}

TEST_F(DiskFilesTest, AKillAtAnyStepLeavesTheOldFileOrTheNewOne) {
    files_.append(file_, asBytes("old"));
    int status = 0;
    int step = 0;
    do {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            DiskFiles(std::make_unique<DeadlyCalls>(step + 1)).replace(file_, asBytes("new content"));
            ::_exit(0);
        }
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status));
        const bool isNew = text(file_) == "new content";
        EXPECT_TRUE(isNew || text(file_) == "old") << step;
        EXPECT_THAT(files_.list(folder_.path()), ElementsAre("hole.kvx")) << "the rest of a kill is no file";
        ++step;
    } while (WEXITSTATUS(status) == killed);
    EXPECT_GT(step, 5);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(text(file_), "new content");
}

TEST_F(DiskFilesTest, AFailedAppendIsCutBack) {
    files_.append(file_, asBytes("0123456789"));
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    ::getrlimit(RLIMIT_FSIZE, &old);
    const rlimit tight{.rlim_cur = 15, .rlim_max = old.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &tight);
    const std::string tenTooMany(15, 'x'); // five of them fit
    EXPECT_EQ(numberOf([&] { files_.append(file_, asBytes(tenTooMany)); }), ErrorNumber::diskFull);
    EXPECT_EQ(numberOf([&] { files_.append(folder_ / "new", asBytes(std::string(16, 'x'))); }),
              ErrorNumber::diskFull);
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(text(file_), "0123456789");
    EXPECT_EQ(entries(), 1U) << "a file that was created in vain is gone";
}

TEST_F(DiskFilesTest, AFailedPatchIsTakenBack) {
    files_.append(file_, asBytes("0123456789"));
    DiskFiles failing(std::make_unique<CallsWithAccident>(2)); // half of it is written by then
    EXPECT_THROW(failing.patch(file_, 2, asBytes("ABCDEF")), Failure);
    EXPECT_EQ(text(file_), "0123456789");
}

TEST_F(DiskFilesTest, ADeviceIsWrittenToAndStaysADevice) {
    EXPECT_EQ(numberOf([&] { files_.append("/dev/full", asBytes("x")); }), ErrorNumber::diskFull);
    EXPECT_EQ(numberOf([&] { files_.replace("/dev/full", asBytes("x")); }), ErrorNumber::diskFull);
    files_.replace("/dev/null", asBytes("x"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_EQ(numberOf([&] { files_.replace(folder_.path(), asBytes("x")); }), ErrorNumber::pathFileAccess);
}

TEST_F(DiskFilesTest, AReplacedFileKeepsItsModeAndItsLinks) {
    files_.append(file_, asBytes("old"));
    ::chmod(file_.c_str(), 0640);
    const Path nested = folder_ / "sub";
    files_.createFolder(nested);
    std::filesystem::create_symlink("../hole.kvx", nested / "link");
    std::filesystem::create_symlink("sub/link", folder_ / "link to link");
    files_.replace(folder_ / "link to link", asBytes("new"));
    EXPECT_EQ(text(file_), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(nested / "link"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "link to link"));
    struct stat status {};
    ASSERT_EQ(::stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);

    std::filesystem::create_symlink("not yet", folder_ / "dangling");
    files_.replace(folder_ / "dangling", asBytes("born"));
    EXPECT_EQ(text(folder_ / "not yet"), "born");
    std::filesystem::create_symlink("circle", folder_ / "circle");
    EXPECT_THROW(files_.replace(folder_ / "circle", asBytes("x")), Failure);
}

TEST_F(DiskFilesTest, FoldersAreCreatedAndListed) {
    const Path deep = folder_ / "a" / "b";
    EXPECT_TRUE(files_.list(deep).empty());
    EXPECT_EQ(numberOf([&] { files_.append(deep / "x", asBytes("x")); }), ErrorNumber::pathNotFound);
    EXPECT_EQ(numberOf([&] { files_.replace(deep / "x", asBytes("x")); }), ErrorNumber::pathNotFound);
    files_.createFolder(deep);
    files_.createFolder(deep);
    for (const char* name : {"b", "B", "a b", ".hidden"}) files_.append(deep / name, {});
    files_.createFolder(deep / "folder");
    EXPECT_THAT(files_.list(deep), ElementsAre(".hidden", "B", "a b", "b"));
    EXPECT_THAT(files_.folders(deep), ElementsAre("folder"));
    EXPECT_TRUE(files_.folders(deep / "none").empty());
    EXPECT_EQ(numberOf([&] { files_.createFolder(deep / "b" / "c"); }), ErrorNumber::pathNotFound);
}

TEST(DiskFailure, SaysWhatFailedAndWhatToDo) {
    EXPECT_STREQ(diskFailure("/a/b", DiskAction::write, ENOSPC).what(),
                 "/a/b: cannot be written: No space left on device; "
                 "free some space on the disk, then try again");
    const Failure denied = diskFailure("/a/b", DiskAction::read, EACCES);
    EXPECT_EQ(denied.number(), ErrorNumber::permissionDenied);
    EXPECT_STREQ(denied.what(), "/a/b: cannot be read: Permission denied; you need the right to read it");
    EXPECT_EQ(diskFailure("/a/b", DiskAction::write, EROFS).number(), ErrorNumber::permissionDenied);
    EXPECT_EQ(diskFailure("/a/b", DiskAction::write, EIO).number(), ErrorNumber::deviceError);
    EXPECT_EQ(diskFailure("/a/b", DiskAction::write, 9999).number(), ErrorNumber::pathFileAccess);
}
