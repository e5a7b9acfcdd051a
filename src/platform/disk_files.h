// Files on the disk.
//
// Replacing writes a temporary in the same folder, flushes it, renames it over the file and flushes the
// folder: a kill or a power cut at any moment leaves the old file or the new one, whole. The temporary that
// such a moment leaves behind is never listed. A replaced file keeps its permissions; a symbolic link stays
// and the file behind it is replaced; what is no plain file (a pipe, a terminal) is written to instead.
// An append allocates nothing.
#pragma once

#include "platform/files.h"

#include <memory>

namespace tarvik {

/// The calls that change a disk. Tests put a full disk or a sudden death in their way.
class DiskCalls {
  public:
    virtual ~DiskCalls() = default;
    /// As the system calls of these names: negative with `errno` on failure.
    virtual std::ptrdiff_t write(int descriptor, const void* bytes, std::size_t count);
    virtual int sync(int descriptor);
    virtual int rename(const char* from, const char* to);
};

class DiskFiles final : public Files {
  public:
    explicit DiskFiles(std::unique_ptr<DiskCalls> calls = std::make_unique<DiskCalls>());

    [[nodiscard]] bool exists(const Path& file) const override;
    [[nodiscard]] bool same(const Path& one, const Path& other) const override;
    [[nodiscard]] std::uint64_t size(const Path& file) const override;
    [[nodiscard]] CivilTime modified(const Path& file) const override;

    [[nodiscard]] Bytes read(const Path& file) const override;
    [[nodiscard]] Bytes readPart(const Path& file, std::uint64_t offset, std::size_t length) const override;

    void append(const Path& file, std::span<const std::uint8_t> bytes) override;
    void replace(const Path& file, std::span<const std::uint8_t> bytes) override;
    void patch(const Path& file, std::uint64_t offset, std::span<const std::uint8_t> bytes) override;
    void truncate(const Path& file, std::uint64_t size) override;
    void copy(const Path& from, const Path& to) override;
    void remove(const Path& file) override;

    void createFolder(const Path& folder) override;
    [[nodiscard]] std::vector<std::string> list(const Path& folder) const override;
    [[nodiscard]] std::vector<std::string> folders(const Path& folder) const override;

  private:
    void writeThrough(const Path& file, std::span<const std::uint8_t> bytes);
    /// 0, or the `errno` of the write that failed.
    [[nodiscard]] int writeAll(int descriptor, std::span<const std::uint8_t> bytes);

    std::unique_ptr<DiskCalls> calls_;
};

} // namespace tarvik
