#include "platform/disk_files.h"

#include "platform/descriptor.h"
#include "platform/disk_failure.h"
#include "platform/system_clock.h"

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace tarvik {

namespace {

namespace fs = std::filesystem;

constexpr mode_t newFileMode = 0666; ///< less the user's mask
constexpr std::string_view temporaryPrefix = ".tarvik-new-";

/// One name for each program that runs; a program replaces one file at a time.
Path temporaryBeside(const Path& file) {
    return file.parent_path() / (std::string(temporaryPrefix) + std::to_string(::getpid()));
}

/// The temporary of a replacement: removed unless it got its final name.
class Temporary {
  public:
    explicit Temporary(Path file) : file_(std::move(file)) {}
    ~Temporary() {
        if (!kept_) ::unlink(file_.c_str());
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    [[nodiscard]] const Path& file() const { return file_; }
    void keep() { kept_ = true; }

  private:
    Path file_;
    bool kept_ = false;
};

Descriptor openFile(const Path& file, int flags) {
    return Descriptor(::open(file.c_str(), flags | O_CLOEXEC, newFileMode));
}

Descriptor openOrThrow(const Path& file, int flags, DiskAction action) {
    Descriptor opened = openFile(file, flags);
    if (!opened.isOpen()) throw diskFailure(file, action, errno);
    return opened;
}

/// A pipe would keep its reader waiting for ever, some devices have no end.
Descriptor openForReading(const Path& file) {
    Descriptor opened = openOrThrow(file, O_RDONLY | O_NONBLOCK, DiskAction::read);
    struct stat status {};
    if (::fstat(opened.number(), &status) != 0) throw diskFailure(file, DiskAction::read, errno);
    if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) {
        throw Failure(ErrorNumber::badFile,
                      file.string() +
                          ": is a pipe or a device; copy what it holds into a file and read that");
    }
    return opened;
}

struct stat statusOf(const Path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) throw diskFailure(file, DiskAction::look, errno);
    return status;
}

std::uint64_t sizeOf(const Descriptor& file) {
    struct stat status {};
    return ::fstat(file.number(), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

Failure tooShort(const Path& file, std::uint64_t size, std::uint64_t asked) {
    return {ErrorNumber::badFile, file.string() + ": has only " + std::to_string(size) + " bytes where " +
                                      std::to_string(asked) +
                                      " were expected; another program may have changed it"};
}

/// The file that a chain of symbolic links ends at, whether it exists or not.
Path behindLinks(const Path& file) {
    constexpr int longestChain = 40;
    Path at = file;
    for (int link = 0; link < longestChain; ++link) {
        std::error_code error;
        const Path next = fs::read_symlink(at, error);
        if (error) return at;
        at = at.parent_path() / next;
    }
    throw diskFailure(file, DiskAction::write, ELOOP);
}

/// The new file gets what the old one had, as far as the disk and the user's rights allow.
void takeOver(const struct stat& old, const Descriptor& file) {
    struct stat fresh {};
    if (::fstat(file.number(), &fresh) != 0) return;
    if (old.st_uid != fresh.st_uid || old.st_gid != fresh.st_gid)
        std::ignore = ::fchown(file.number(), old.st_uid, old.st_gid);
    std::ignore = ::fchmod(file.number(), old.st_mode & 07777);
}

/// Sorted; none when there is no such folder.
template <class Wanted>
std::vector<std::string> namesIn(const Path& folder, const Wanted& wanted) {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator at(folder, error);
    if (error == std::errc::no_such_file_or_directory) return names;
    for (; !error && at != fs::directory_iterator(); at.increment(error)) {
        std::error_code unknown;
        if (wanted(*at, unknown)) names.push_back(at->path().filename().string());
    }
    if (error) throw diskFailure(folder, DiskAction::read, error.value());
    std::ranges::sort(names);
    return names;
}

} // namespace

std::ptrdiff_t DiskCalls::write(int descriptor, const void* bytes, std::size_t count) {
    return ::write(descriptor, bytes, count);
}
int DiskCalls::sync(int descriptor) {
    return ::fsync(descriptor);
}
int DiskCalls::rename(const char* from, const char* to) {
    return ::rename(from, to);
}

DiskFiles::DiskFiles(std::unique_ptr<DiskCalls> calls) : calls_(std::move(calls)) {}

bool DiskFiles::same(const Path& one, const Path& other) const {
    std::error_code notThere;
    return fs::equivalent(one, other, notThere);
}

bool DiskFiles::exists(const Path& file) const {
    struct stat status {};
    if (::stat(file.c_str(), &status) == 0) return true;
    if (errno == ENOENT || errno == ENOTDIR) return false;
    throw diskFailure(file, DiskAction::look, errno); // there or not: nobody may tell
}

std::uint64_t DiskFiles::size(const Path& file) const {
    return static_cast<std::uint64_t>(statusOf(file).st_size);
}

CivilTime DiskFiles::modified(const Path& file) const {
    using namespace std::chrono;
    const timespec moment = statusOf(file).st_mtim;
    return localTime(system_clock::time_point(
        duration_cast<system_clock::duration>(seconds(moment.tv_sec) + nanoseconds(moment.tv_nsec))));
}

Bytes DiskFiles::read(const Path& file) const {
    const Descriptor in = openForReading(file);
    constexpr std::size_t spare = 4096; // one read finds the end of a file that does not grow meanwhile
    Bytes bytes(static_cast<std::size_t>(sizeOf(in)) + spare);
    std::size_t length = 0;
    for (;;) {
        const ssize_t got = ::read(in.number(), bytes.data() + length, bytes.size() - length);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw diskFailure(file, DiskAction::read, errno);
        if (got == 0) break;
        length += static_cast<std::size_t>(got);
        if (length == bytes.size()) bytes.resize(2 * bytes.size());
    }
    bytes.resize(length);
    return bytes;
}

Bytes DiskFiles::readPart(const Path& file, std::uint64_t offset, std::size_t length) const {
    const Descriptor in = openForReading(file);
    const std::uint64_t size = sizeOf(in);
    Bytes bytes(static_cast<std::size_t>(std::min<std::uint64_t>(length, size - std::min(offset, size))));
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t got =
            ::pread(in.number(), bytes.data() + done, bytes.size() - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw diskFailure(file, DiskAction::read, errno);
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    bytes.resize(done);
    return bytes;
}

int DiskFiles::writeAll(int descriptor, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const std::ptrdiff_t put = calls_->write(descriptor, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) return errno;
        if (put == 0) return ENOSPC; // some file systems say it so
        bytes = bytes.subspan(static_cast<std::size_t>(put));
    }
    return 0;
}

void DiskFiles::append(const Path& file, std::span<const std::uint8_t> bytes) {
    Descriptor out = openFile(file, O_WRONLY | O_APPEND);
    const bool created = !out.isOpen() && errno == ENOENT;
    if (!out.isOpen() && created) out = openFile(file, O_WRONLY | O_APPEND | O_CREAT);
    if (!out.isOpen()) throw diskFailure(file, DiskAction::write, errno);

    const std::uint64_t before = sizeOf(out);
    int error = writeAll(out.number(), bytes);
    if (const int late = out.close(); error == 0) error = late;
    if (error == 0) return;

    if (created && before == 0) {
        ::unlink(file.c_str());
    } else {
        std::ignore = ::truncate(file.c_str(), static_cast<off_t>(before)); // a device has no length to cut
    }
    throw diskFailure(file, DiskAction::write, error);
}

void DiskFiles::replace(const Path& file, std::span<const std::uint8_t> bytes) {
    struct stat old {};
    const bool replacing = ::stat(file.c_str(), &old) == 0;
    if (replacing && !S_ISREG(old.st_mode)) return writeThrough(file, bytes);
    if (replacing && ::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) != 0)
        throw diskFailure(file, DiskAction::write, errno); // renaming would pass over the protection

    const Path target = behindLinks(file);
    Temporary fresh(temporaryBeside(target));
    Descriptor out = openFile(fresh.file(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
    if (!out.isOpen()) throw diskFailure(file, DiskAction::write, errno);
    if (replacing) takeOver(old, out);

    int error = writeAll(out.number(), bytes);
    if (error == 0 && calls_->sync(out.number()) != 0) error = errno;
    if (const int late = out.close(); error == 0) error = late;
    if (error == 0 && calls_->rename(fresh.file().c_str(), target.c_str()) != 0) error = errno;
    if (error != 0) throw diskFailure(file, DiskAction::write, error);
    fresh.keep();

    // The new name is in place; not every disk can be told to make it last at once.
    const Path folder = target.has_parent_path() ? target.parent_path() : ".";
    if (const Descriptor at = openFile(folder, O_RDONLY | O_DIRECTORY); at.isOpen())
        std::ignore = calls_->sync(at.number());
}

void DiskFiles::writeThrough(const Path& file, std::span<const std::uint8_t> bytes) {
    Descriptor out = openOrThrow(file, O_WRONLY, DiskAction::write);
    int error = writeAll(out.number(), bytes);
    if (const int late = out.close(); error == 0) error = late;
    if (error != 0) throw diskFailure(file, DiskAction::write, error);
}

void DiskFiles::patch(const Path& file, std::uint64_t offset, std::span<const std::uint8_t> bytes) {
    const Descriptor out = openOrThrow(file, O_RDWR, DiskAction::write);
    const std::uint64_t size = sizeOf(out);
    if (offset > size || bytes.size() > size - offset) throw tooShort(file, size, offset + bytes.size());

    const Bytes old = readPart(file, offset, bytes.size());
    const auto writeAt = [&](std::span<const std::uint8_t> content) {
        if (::lseek(out.number(), static_cast<off_t>(offset), SEEK_SET) < 0) return errno;
        return writeAll(out.number(), content);
    };
    int error = writeAt(bytes);
    if (error == 0 && calls_->sync(out.number()) != 0) error = errno;
    if (error == 0) return;
    std::ignore = writeAt(old);
    throw diskFailure(file, DiskAction::write, error);
}

void DiskFiles::truncate(const Path& file, std::uint64_t size) {
    const Descriptor out = openOrThrow(file, O_WRONLY, DiskAction::cut);
    if (const std::uint64_t now = sizeOf(out); size > now) throw tooShort(file, now, size);
    if (::ftruncate(out.number(), static_cast<off_t>(size)) != 0)
        throw diskFailure(file, DiskAction::cut, errno);
}

void DiskFiles::copy(const Path& from, const Path& to) {
    replace(to, read(from));
}

void DiskFiles::remove(const Path& file) {
    if (::unlink(file.c_str()) != 0 && errno != ENOENT) throw diskFailure(file, DiskAction::remove, errno);
}

void DiskFiles::createFolder(const Path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw diskFailure(folder, DiskAction::makeFolder, error.value());
}

std::vector<std::string> DiskFiles::list(const Path& folder) const {
    return namesIn(folder, [](const fs::directory_entry& entry, std::error_code& unknown) {
        return entry.is_regular_file(unknown) &&
               !entry.path().filename().string().starts_with(temporaryPrefix);
    });
}

std::vector<std::string> DiskFiles::folders(const Path& folder) const {
    return namesIn(folder, [](const fs::directory_entry& entry, std::error_code& unknown) {
        return entry.is_directory(unknown);
    });
}

} // namespace tarvik
